#include "window/screens/window_keeper.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <array>

#include "window/screens/toolkit_scale.h"

namespace marvolin {

namespace {

constexpr int kSettleTime = 200;  // ms in which a window manager usually frames a window
constexpr int kMostSettles = 10;  // then there is no manager, or it gives no frames
constexpr int kRetryTime = 300;   // ms until it is seen whether a dialogue is still open
constexpr std::array kKeptWindows{"frmMain", "frmBrowse", "frmSave", "frmScripts", "frmHelp"};

bool IsKept(const QWidget& window) {
    return window.isWindow() && std::ranges::find(kKeptWindows, window.objectName()) != kKeptWindows.end();
}

bool IsFixed(const QWidget& window) { return window.minimumSize() == window.maximumSize(); }

/// Pixels at 100 % of pixels at `percent`, counted from `origin`, and back.
QPoint AtHundred(QPoint place, QPoint origin, int percent) { return origin + (place - origin) * percent / 100; }
QPoint FromHundred(QPoint place, QPoint origin, int percent) { return origin + (place - origin) * 100 / percent; }

QSize FrameAround(const QWidget& window) { return FrameOf(window).size() - window.size(); }

std::vector<ScreenArea> DesktopScreens() {
    std::vector<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        areas.push_back({screen->geometry(), screen->availableGeometry()});
    }
    return areas;
}

}  // namespace

WindowKeeper::Surroundings WindowKeeper::OfTheDesktop() { return {DesktopScreens, ScaleToolkit, marvolin::CanScale()}; }

WindowKeeper::WindowKeeper(QString file, const FormSizes& forms, Surroundings around)
    : file_(std::move(file)), forms_(forms), around_(std::move(around)), record_(ReadWindowFile(file_)) {
    written_ = record_;
    settle_.setSingleShot(true);
    settle_.callOnTimeout(this, [this] { Settle(); });
    apply_.setSingleShot(true);
    apply_.callOnTimeout(this, [this] { Apply(); });
    qApp->installEventFilter(this);
    WatchScreens();
}

WindowKeeper::~WindowKeeper() { qApp->removeEventFilter(this); }

void WindowKeeper::WatchScreens() {
    // A change comes as several signals, and the toolkit moves windows of its own accord after them.
    changed_.setSingleShot(true);
    changed_.callOnTimeout(this, [this] { ScreensChanged(); });
    const auto later = [this] { changed_.start(kSettleTime); };
    const auto watch = [this, later](QScreen* screen) {
        connect(screen, &QScreen::availableGeometryChanged, this, later);
    };
    for (QScreen* screen : QGuiApplication::screens()) watch(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, [watch, later](QScreen* screen) {
        watch(screen);
        later();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, later);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, later);
}

void WindowKeeper::Start() {
    const QSize room = Room();
    size_ = record_.Size == 0 ? LargestSize(forms_, room) : UsableSize(record_.Size, forms_, room);
    if (size_ != 100 && !around_.Scale(size_ / 100.0)) size_ = 100;
}

// At 100 %, rounded up: what was rounded before must not cost a size.
QSize WindowKeeper::Room() const {
    const std::vector<ScreenArea> screens = around_.Screens();
    const ScreenArea* at = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == kKeptWindows[0]) at = ScreenOf(FrameOf(*window), screens);
    }
    const auto main = record_.Places.find(kKeptWindows[0]);
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
    const int size = UsableSize(record_.Size == 0 ? size_ : record_.Size, forms_, Room());
    if (size != size_ && around_.CanScale) {
        // Hiding a dialogue would answer it.
        if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr) {
            return apply_.start(kRetryTime);
        }
        ReopenWindows([&] {
            if (around_.Scale(size / 100.0)) size_ = size;
        });
    }
    if (OnChange) OnChange();
}

// On a busy machine the frames come late.
void WindowKeeper::Settle() {
    bool framed = true;
    for (const QPointer<QWidget>& window : shown_) {
        if (window == nullptr || !window->isVisible()) continue;
        BringBack(*window);
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
    const auto place = record_.Places.find(window.objectName());
    if (place == record_.Places.end()) return {};
    const QSize size = IsFixed(window) ? window.size() : place->second.Size;
    for (const ScreenArea& screen : around_.Screens()) {
        const QPoint corner = FromHundred(place->second.Corner, screen.Whole.topLeft(), size_);
        const QRect title(corner, QSize(size.width(), kTitleRoom));
        if (title.intersects(screen.Free)) return QRect(corner, size);
    }
    return {};
}

void WindowKeeper::PutBack(QWidget& window, const QRect& frame) const {
    const QRect area = FreeAreaFor(frame);
    // The frame may not be known yet.
    const QSize around = FrameAround(window).expandedTo({0, kTitleRoom * 100 / size_});
    if (!IsFixed(window)) window.resize(frame.size().boundedTo(area.size() - around));
    window.move(MovedInto({frame.topLeft(), window.size() + around}, area).topLeft());
}

void WindowKeeper::Note(const QWidget& window) {
    const QRect frame = FrameOf(window);
    const std::vector<ScreenArea> screens = around_.Screens();
    const ScreenArea* at = ScreenOf(frame, screens);
    const QPoint origin = at == nullptr ? QPoint() : at->Whole.topLeft();
    record_.Places[window.objectName()] = {AtHundred(frame.topLeft(), origin, size_), window.size()};
}

void WindowKeeper::BringBack(QWidget& window) const {
    if (!window.isVisible() || window.isMinimized() || window.isMaximized()) return;
    const QRect frame = FrameOf(window);
    const QRect area = FreeAreaFor(frame);
    if (!IsFixed(window)) window.resize(window.size().boundedTo(area.size() - FrameAround(window)));
    const QPoint place = MovedInto({frame.topLeft(), FrameOf(window).size()}, area).topLeft();
    if (place != frame.topLeft()) window.move(place);
}

void WindowKeeper::Arrange(QWidget& form, QWidget* main) {
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
    if (WriteWindowFile(file_, record_)) written_ = record_;
}

bool WindowKeeper::eventFilter(QObject* object, QEvent* event) {
    const bool shown = event->type() == QEvent::Show;
    if ((!shown && event->type() != QEvent::Hide) || event->spontaneous() || !object->isWidgetType()) return false;
    auto& window = static_cast<QWidget&>(*object);
    if (!IsKept(window)) return false;
    if (!shown) {
        Note(window);
        return false;
    }
    if (const auto frame = Remembered(window)) PutBack(window, *frame);
    shown_.emplace_back(&window);
    settles_ = 0;
    settle_.start(kSettleTime);
    return false;
}

}  // namespace marvolin
