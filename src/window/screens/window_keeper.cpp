#include "window/screens/window_keeper.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "window/screens/kept_windows.h"
#include "window/screens/toolkit_scale.h"

namespace marvolin {

namespace {

constexpr int kSettleTime = 200;  // ms in which a window manager usually frames a window
constexpr int kMostSettles = 10;  // then there is no manager, or it gives no frames
constexpr int kRetryTime = 300;   // ms until it is seen whether a dialogue is still open
constexpr int kMoveTime = 700;    // ms after which a window that is moved by hand stays

/// Pixels at 100 % of pixels at `percent`, counted from `origin`, and back.
QPoint AtHundred(QPoint place, QPoint origin, int percent) { return origin + (place - origin) * percent / 100; }
QPoint FromHundred(QPoint place, QPoint origin, int percent) { return origin + (place - origin) * 100 / percent; }

}  // namespace

WindowKeeper::Surroundings WindowKeeper::OfTheDesktop() {
    return {NeverEmpty(DesktopScreens), ScaleToolkit, marvolin::CanScale()};
}

WindowKeeper::WindowKeeper(QString file, const FormSizes& forms, Surroundings around)
    : file_(std::move(file)),
      forms_(forms),
      around_(std::move(around)),
      record_(ReadWindowFile(file_)),
      screensWatch_([this] { ScreensChanged(); }) {
    written_ = record_;
    settle_.setSingleShot(true);
    settle_.callOnTimeout(this, [this] { Settle(); });
    apply_.setSingleShot(true);
    apply_.callOnTimeout(this, [this] { Apply(); });
    qApp->installEventFilter(this);
}

WindowKeeper::~WindowKeeper() { qApp->removeEventFilter(this); }

void WindowKeeper::Start() {
    size_ = WantedSize();
    if (size_ != 100 && !around_.Scale(size_ / 100.0)) size_ = 100;
}

// As long as none was chosen it is that of a first start on the screen that there is now.
int WindowKeeper::WantedSize() const {
    const QSize room = Room();
    return record_.Size == 0 ? LargestSize(forms_, room) : UsableSize(record_.Size, forms_, room);
}

// At 100 %, rounded up: what was rounded before must not cost a size.
QSize WindowKeeper::Room() const {
    const std::vector<ScreenArea> screens = around_.Screens();
    const ScreenArea* at = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (IsMain(*window)) at = ScreenOf(FrameOf(*window), screens);
    }
    const auto main = record_.Places.find(kMainWindow);
    if (at == nullptr && main != record_.Places.end()) at = ScreenOf({main->second.Corner, main->second.Size}, screens);
    const QSize free = (at == nullptr ? screens.front() : *at).Free.size();
    return {(free.width() * size_ + 99) / 100, (free.height() * size_ + 99) / 100};
}

bool WindowKeeper::Fits(int percent) const { return SizeFits(percent, forms_, Room()); }

void WindowKeeper::Choose(int percent) {
    record_.Size = percent;
    Keep();
    apply_.start(0);
}

void WindowKeeper::Apply() {
    moved_ = false;
    const int size = WantedSize();
    if (size != size_ && around_.CanScale) {
        // Hiding a dialogue would answer it; hiding what a hand holds would let go of it.
        if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr ||
            QGuiApplication::mouseButtons() != Qt::NoButton) {
            return apply_.start(kRetryTime);
        }
        ReopenWindows([&] {
            if (around_.Scale(size / 100.0)) size_ = size;
        });
        reopened_.clear();
    }
    if (OnChange) OnChange();
}

// On a busy machine the frames come late.
void WindowKeeper::Settle() {
    bool framed = true;
    for (const QPointer<QWidget>& window : shown_) {
        if (window == nullptr || !window->isVisible()) continue;
        Give(*window);  // where the window manager has put it
        BringBack(*window);
        Clear(*window);
        framed = framed && !FrameAround(*window).isNull();
    }
    if (!framed && ++settles_ < kMostSettles) return settle_.start(kSettleTime);
    shown_.clear();
}

void WindowKeeper::ScreensChanged() {
    Apply();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (IsKept(*window)) BringBack(*window);
    }
}

QRect WindowKeeper::FreeAreaFor(const QRect& frame) const {
    const std::vector<ScreenArea> screens = around_.Screens();
    const ScreenArea* at = ScreenOf(frame, screens);
    return at == nullptr ? screens.front().Free : at->Free;
}

// Only where its title bar could still be seen: the screen on which it was may be gone.
std::optional<QRect> WindowKeeper::Remembered(const QWidget& window) const {
    const auto open = reopened_.find(window.objectName());
    const auto kept = record_.Places.find(window.objectName());
    if (open == reopened_.end() && kept == record_.Places.end()) return {};
    const WindowPlace& place = (open == reopened_.end() ? kept : open)->second;
    const QSize size = IsFixed(window) ? window.size() : place.Size;
    for (const ScreenArea& screen : around_.Screens()) {
        const QPoint corner = FromHundred(place.Corner, screen.Whole.topLeft(), size_);
        const QRect title(corner, QSize(size.width(), kTitleRoom));
        if (title.intersects(screen.Free)) return QRect(corner, size);
    }
    return {};
}

void WindowKeeper::PutBack(QWidget& window, const QRect& frame) {
    if (window.isMaximized()) return;
    const QRect area = FreeAreaFor(frame);
    // The frame may not be known yet.
    const QSize around = FrameAround(window).expandedTo({0, kTitleRoom * 100 / size_});
    if (!IsFixed(window)) window.resize(frame.size().boundedTo(area.size() - around));
    window.move(MovedInto({frame.topLeft(), window.size() + around}, area).topLeft());
    Give(window);
}

WindowPlace WindowKeeper::PlaceOf(const QWidget& window) const {
    const QRect frame = FrameOf(window);
    const std::vector<ScreenArea> screens = around_.Screens();
    const ScreenArea* at = ScreenOf(frame, screens);
    const QPoint origin = at == nullptr ? QPoint() : at->Whole.topLeft();
    if (!window.isMaximized()) return {AtHundred(frame.topLeft(), origin, size_), window.size()};
    const QRect normal = window.normalGeometry();
    const QPoint corner = normal.topLeft() - (window.geometry().topLeft() - frame.topLeft());
    return {AtHundred(corner, origin, size_), normal.size(), true};
}

void WindowKeeper::Give(const QWidget& window) {
    given_[window.objectName()] = {FrameOf(window).topLeft(), window.size(), window.isMaximized()};
}

// Where the program or the window manager has put a window, they put it again: only the player's places are kept.
void WindowKeeper::Note(const QWidget& window) {
    const auto given = given_.find(window.objectName());
    const bool same = given != given_.end() && given->second.Maximised == window.isMaximized() &&
                      IsSamePlace(given->second.Corner, FrameOf(window).topLeft()) &&
                      (IsFixed(window) || given->second.Size == window.size());
    if (same) return;
    record_.Places[window.objectName()] = PlaceOf(window);
    Give(window);
}

// Grown by itself, as Save/Open does: the player cannot resize it.
void WindowKeeper::BringBackGrown(QWidget& window) {
    const QPointer<QWidget> grown(&window);
    QTimer::singleShot(0, this, [this, grown] {
        if (grown == nullptr || !grown->isVisible()) return;
        Note(*grown);
        BringBack(*grown);
    });
}

// A window that comes up under a topmost strip could not be seen.
void WindowKeeper::Clear(QWidget& window) {
    const QWidget* main = TopmostMain();
    if (main == nullptr || main == &window || window.isMaximized() || window.isMinimized()) return;
    const QRect frame = FrameOf(window);
    const QSize around = FrameAround(window);
    const int least = IsFixed(window) ? frame.height() : std::max(window.minimumHeight() + around.height(), 200);
    const QRect clear = PlacedClear(frame, FrameOf(*main), FreeAreaFor(frame), least);
    if (clear == frame) return;
    if (!IsFixed(window)) window.resize(clear.size() - around);
    window.move(clear.topLeft());
    Give(window);
}

void WindowKeeper::MainMoved(const QWidget& main) {
    const std::vector<ScreenArea> screens = around_.Screens();
    const ScreenArea* at = ScreenOf(FrameOf(main), screens);
    if (at == nullptr) return;
    moved_ = moved_ || (mainScreen_ && *mainScreen_ != at->Whole.topLeft());
    mainScreen_ = at->Whole.topLeft();
    if (!moved_) return;
    apply_.start(kMoveTime);
}

void WindowKeeper::BringBack(QWidget& window) {
    if (!window.isVisible() || window.isMinimized() || window.isMaximized()) return;
    const QRect frame = FrameOf(window);
    const QRect area = FreeAreaFor(frame);
    if (!IsFixed(window)) window.resize(window.size().boundedTo(area.size() - FrameAround(window)));
    const QPoint place = MovedInto({frame.topLeft(), FrameOf(window).size()}, area).topLeft();
    if (place == frame.topLeft() && FrameOf(window).size() == frame.size()) return;
    window.move(place);
    Give(window);
}

void WindowKeeper::Arrange(QWidget& form, QWidget* main) {
    ArrangeForm(form, main);
    if (IsKept(form)) Give(form);
}

void WindowKeeper::ArrangeForm(QWidget& form, QWidget* main) {
    if (const auto frame = Remembered(form)) return PutBack(form, *frame);
    if (form.objectName() == "frmSplash" && main != nullptr) {
        form.move(FrameOf(*main).center() - form.rect().center());
    } else if (form.objectName() == "frmBrowse" && main != nullptr) {
        ShowBeside(form, *main);
    } else {
        form.move(MovedInto(FrameOf(form), FreeAreaFor(FrameOf(form))).topLeft());
    }
}

void WindowKeeper::ShowBeside(QWidget& browser, QWidget& main) const {
    QRect beside = FrameOf(main);
    // The told place has the same top, which the main window may not have reached yet.
    if (!Remembered(main)) beside.moveTop(browser.pos().y());
    const QRect area = FreeAreaFor(beside);
    const QSize around = FrameAround(main);  // the browser has not got its own yet
    const QRect place =
        PlaceBeside(beside, area, browser.size() + around, browser.minimumSize().width() + around.width());
    if (place.isNull()) {
        // One covers a part of the other: that is the main window, in which the player plays.
        browser.move(MovedInto({{area.left(), beside.top()}, browser.size() + around}, area).topLeft());
        main.raise();
        main.activateWindow();
        return;
    }
    browser.resize(place.size().boundedTo(area.size()) - around);
    browser.move(place.topLeft());
}

void WindowKeeper::Keep() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (IsKept(*window) && window->isVisible()) Note(*window);
    }
    if (record_ == written_) return;
    if (WriteWindowFile(file_, record_)) {
        written_ = record_;
    } else if (OnUnwritten && !std::exchange(told_, true)) {
        OnUnwritten();
    }
}

void WindowKeeper::Shown(QWidget& window) {
    if (const auto frame = Remembered(window)) PutBack(window, *frame);
    if (!IsReopening()) {
        const auto place = record_.Places.find(window.objectName());
        if (place != record_.Places.end() && place->second.Maximised)
            window.setWindowState(window.windowState() | Qt::WindowMaximized);
        Clear(window);
    }
    Give(window);
    shown_.emplace_back(&window);
    settles_ = 0;
    settle_.start(kSettleTime);
}

void WindowKeeper::Hidden(QWidget& window) {
    if (IsReopening()) reopened_[window.objectName()] = PlaceOf(window);
    Note(window);
}

bool WindowKeeper::eventFilter(QObject* object, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool kind = type == QEvent::Show || type == QEvent::Hide || type == QEvent::Move || type == QEvent::Resize;
    if (!kind || !object->isWidgetType()) return false;
    auto& window = static_cast<QWidget&>(*object);
    if (!IsKept(window)) return false;
    if (type == QEvent::Show && !event->spontaneous()) Shown(window);
    if (type == QEvent::Hide && !event->spontaneous()) Hidden(window);
    if (IsReopening() || !window.isVisible()) return false;
    if (type == QEvent::Move && IsMain(window)) MainMoved(window);
    if (type == QEvent::Resize && !IsMain(window) && IsFixed(window)) BringBackGrown(window);
    return false;
}

}  // namespace marvolin
