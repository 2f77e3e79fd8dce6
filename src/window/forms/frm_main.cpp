#include "window/forms/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "core/routines.h"
#include "instrument/dropped_files.h"
#include "persistence/kept/last_state.h"
#include "persistence/quick_load.h"
#include "window/controls/text_button.h"
#include "window/descriptions/announcer.h"
#include "window/forms/selector_strip.h"
#include "window/forms/status_bars.h"
#include "window/forms/toolbar.h"
#include "window/help/help_asker.h"
#include "window/keys/program_keys.h"
#include "window/keys/typing.h"
#include "window/keys/undo_keys.h"
#include "window/popups/history_list.h"
#include "window/popups/popup_list.h"
#include "window/popups/select_list.h"
#include "window/rows/drop_down.h"
#include "window/rows/find_button.h"
#include "window/rows/loop_row.h"
#include "window/rows/missing_finder.h"
#include "window/rows/sound_display.h"
#include "window/screens/fitting.h"
#include "window/screens/topmost.h"
#include "window/surfaces/map_surface.h"
#include "window/surfaces/pad_surface.h"
#include "window/surfaces/twist_line.h"
#include "window/tabs/tab_control.h"
#include "window/tabs/tab_map.h"
#include "window/tabs/tab_mix_pad.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/drop_refusal.h"

namespace marvolin {

namespace {

constexpr int kMainWidth = 1040;
constexpr int kMainEdge = 8;
constexpr int kRowPitch = LoopRow::kHeight + 2;
constexpr int kRowsTop = Toolbar::kHeight;
constexpr int kStripTop = kRowsTop + 5 * kRowPitch;
constexpr int kTabsTop = kStripTop + SelectorStrip::kHeight + 4;
constexpr int kBarsHeight = StatusBar1::kHeight + StatusBar2::kHeight;
constexpr int kRegularHeight = kTabsTop + TabControl::kHeight + 6 + kBarsHeight;
constexpr int kMiniHeight = kStripTop + 2 + kBarsHeight;
static_assert(kRegularHeight <= 740);

constexpr int kPlacePeriod = 33;      // ms
constexpr int kLoadPeriod = 2000;     // ms
constexpr int kUnmanagedTime = 1000;  // ms in which a window manager activates the window

}  // namespace

FrmMain::FrmMain(Session& session, Events events) : s(session), events_(std::move(events)) {
    Describe(s, *this, "frmMain");
    setWindowTitle(QString::fromStdString(s.Title));
    setFocusPolicy(Qt::ClickFocus);
    setAcceptDrops(true);
    Bar = new Toolbar(
        s, this, [this] { ToggleMode(); }, events_.OpenScripts);
    Bar->setGeometry(0, 0, kMainWidth, Toolbar::kHeight);
    for (Row row = 0; row <= kSelectionRow; ++row) {
        auto* made = new LoopRow(s, this, row);
        made->setGeometry(kMainEdge, kRowsTop + row * kRowPitch, kMainWidth - 2 * kMainEdge, LoopRow::kHeight);
        if (made->Find != nullptr) made->Find->OnClick = [this] { finder_->Ask(this); };
        Rows[static_cast<std::size_t>(row)] = made;
    }
    Selectors = new SelectorStrip(s, this);
    Selectors->setGeometry(kMainEdge, kStripTop, kMainWidth - 2 * kMainEdge, SelectorStrip::kHeight);
    Tabs = new TabControl(s, this);
    Tabs->setGeometry(kMainEdge, kTabsTop, kMainWidth - 2 * kMainEdge, TabControl::kHeight);
    Status1 = new StatusBar1(s, this);
    Status2 = new StatusBar2(s, this, events_.SoundLoad, events_.Timing);
    selectList_ = new SelectList(s, this);
    historyList_ = new HistoryList(s, this);
    quickLoad_ = new PopupList(s, this, "QuickLoad");
    quickLoad_->OnChoose = [this](int row) {
        // By number: the shown text of a name in another encoding does not lead back to the name.
        QuickLoad_Click(s, static_cast<std::size_t>(row));
    };
    quickLoad_->OnHide = [this] { QuickLoad_LostFocus(s); };
    PlaceBars();
    setFocus();  // no control shows the focus until the player presses Tab

    places_.setInterval(kPlacePeriod);
    places_.callOnTimeout(this, [this] { ShowPlaces(); });
    load_.setInterval(kLoadPeriod);
    load_.callOnTimeout(this, [this] { WatchSound(); });
    if (events_.SoundLoad) load_.start();
    qApp->installEventFilter(this);
    help_ = std::make_unique<HelpAsker>(s);
    keys_ = std::make_unique<ProgramKeys>(s);
    finder_ = std::make_unique<MissingFinder>(s);
    undoKeys_ = std::make_unique<UndoKeys>(s);
    announcer_ = std::make_unique<Announcer>();
}

FrmMain::~FrmMain() { qApp->removeEventFilter(this); }

void FrmMain::ShowHint(std::string_view hint) { ShowStatus(s, std::string(hint)); }

void FrmMain::TakeHintAway(std::string_view hint) {
    if (s.StatusText == hint) ShowStatus(s, "");
}

void FrmMain::PlaceBars() {
    const int height = s.MiniMode ? kMiniHeight : kRegularHeight;
    Selectors->setVisible(!s.MiniMode);
    Tabs->setVisible(!s.MiniMode);
    setFixedSize(kMainWidth, height);
    Status1->setGeometry(0, height - kBarsHeight, kMainWidth, StatusBar1::kHeight);
    Status2->setGeometry(0, height - StatusBar2::kHeight, kMainWidth, StatusBar2::kHeight);
    Bar->ToTop->Refresh();
}

QSize FrmMain::RegularSize() { return {kMainWidth, kRegularHeight}; }

void FrmMain::ToggleMode() {
    s.MiniMode = !s.MiniMode;
    PlaceBars();
    SetTopmost(*this, s.MiniMode);
    KeepOnScreen();
}

// A strip that stands at the lower edge of the screen has its place there: the tabs only borrow the room above.
void FrmMain::KeepOnScreen() {
    if (s.MiniMode) {
        if (std::exchange(raised_, false) && IsSamePlace(pos(), raisedPlace_)) move(miniPlace_);
        return;
    }
    const QRect frame = FrameOf(*this);
    const QRect fits = MovedUpInto(frame, FreeAreaOf(*this));
    raised_ = fits != frame;
    if (!raised_) return;
    miniPlace_ = frame.topLeft();
    raisedPlace_ = fits.topLeft();
    move(raisedPlace_);
}

void FrmMain::Form_Resize() {
    const Qt::WindowState state = isMinimized()   ? Qt::WindowMinimized
                                  : isMaximized() ? Qt::WindowMaximized
                                                  : Qt::WindowNoState;
    const bool changed = state != std::exchange(lastWindowState_, state);
    if (changed && state != Qt::WindowMaximized && events_.StateChanged) events_.StateChanged(state);
}

void FrmMain::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) Form_Resize();
    QWidget::changeEvent(event);
}

void FrmMain::FollowPlaying() {
    bool playing = false;
    for (Row row = 0; row < kLoopTracks; ++row) playing = playing || s.Run[row].Playing != False;
    if (!playing) {
        places_.stop();
    } else if (!places_.isActive()) {
        places_.start();
    }
    ShowPlaces();
}

void FrmMain::WatchSound() {
    const bool gone = events_.SoundGone && events_.SoundGone();
    if (gone && !soundGone_)
        ShowStatus(s, "The sound device is gone. It is taken again when it is back; the tab Optn has others.");
    soundGone_ = gone;
    Status2->ShowGone(gone);
    Status2->RefreshLoad();
}

void FrmMain::RefreshTitle() {
    setWindowTitle(QString::fromStdString(SetHasChanged(s) ? s.Title + "*" : s.Title));
    Status2->update();
}

void FrmMain::RefreshScript() {
    if (Status2->ShowScript(events_.Script ? events_.Script() : "")) Bar->Scripts->Refresh();
}

void FrmMain::ShowSelectList(bool open) {
    if (!open) return selectList_->hide();
    const LoopRow& row = *Rows[kSelectionRow];
    selectList_->Open(row.mapToGlobal(QPoint(12, LoopRow::kHeight)));
}

void FrmMain::EnableBalls(bool enabled) {
    Tabs->MixPad->Pad->setEnabled(enabled);
    Tabs->MixPad->Twist->setEnabled(enabled);
    Tabs->Map->Map->setEnabled(enabled);
}

void FrmMain::RefreshQuickLoad() { quickLoad_->setEnabled(s.QuickLoadEnabled); }

void FrmMain::ShowQuickLoad(bool open) {
    if (!open) return quickLoad_->hide();
    QStringList rows;
    for (const std::string& row : s.QuickLoadRows) rows << QString::fromStdString(row);
    const QWidget* at = Bar->QuickLoadPop;
    quickLoad_->Open(rows, QRect(at->mapToGlobal(QPoint(0, 0)), at->size()));
}

void FrmMain::ShowHistoryList(bool open) {
    if (!open) return historyList_->hide();
    const QWidget& button = *Rows[static_cast<std::size_t>(s.HistoryRow)]->Name;
    historyList_->Open(QRect(button.mapTo(this, QPoint(0, 0)), button.size()));
}

void FrmMain::ShowPlaces() {
    for (Row row = 0; row < kLoopTracks; ++row) Rows[static_cast<std::size_t>(row)]->Sound->RefreshPlace();
}

bool FrmMain::event(QEvent* event) {
    // The start goes on once the window is active, and without a window manager nobody activates it.
    if (event->type() == QEvent::Show && s.FirstActivate) {
        QTimer::singleShot(kUnmanagedTime, this, [this] {
            if (s.FirstActivate && QApplication::activeWindow() == nullptr) activateWindow();
        });
    }
    if (event->type() == QEvent::WindowActivate && events_.Activate) {
        const bool done = QWidget::event(event);
        events_.Activate();
        return done;
    }
    if (event->type() == QEvent::WindowDeactivate) pressed_ = {};  // the releases go to another window
    return QWidget::event(event);
}

void FrmMain::closeEvent(QCloseEvent* event) {
    if (events_.MayClose && !events_.MayClose()) return event->ignore();
    places_.stop();
    load_.stop();
    if (events_.Unload) events_.Unload();
    event->accept();
}

// Rows take files themselves; a set opens wherever it is dropped. What a row has refused comes here next.
void FrmMain::dragEnterEvent(QDragEnterEvent* event) {
    const std::vector<std::string> paths = FilePaths(*event->mimeData());
    event->setAccepted(WhyDropIsRefused(s, -1, paths).empty());
    if (event->isAccepted() || paths.empty()) return;
    const QPoint place = event->position().toPoint();
    const auto below =
        std::find_if(Rows.begin(), Rows.end(), [&](LoopRow* row) { return row->geometry().contains(place); });
    const Row row = below == Rows.end() ? Row{-1} : static_cast<Row>(below - Rows.begin());
    DropRefusal::Of(*this, s).Tell(WhyDropIsRefused(s, row, paths));
}

void FrmMain::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    DropFiles(s, -1, FilePaths(*event->mimeData()));
}

// One reads and plays. Ctrl and a letter are keys of Help itself.
bool FrmMain::PlaysFrom(const QWidget& widget, const QKeyEvent& key) const {
    const QWidget& window = WindowBehind(widget);
    if (&window == this) return true;
    return window.objectName() == "frmHelp" && !key.modifiers().testFlag(Qt::ControlModifier);
}

// Letters play the instrument whatever control of the main window has the focus. They are taken here, before a list
// jumps to an entry that begins with them.
bool FrmMain::eventFilter(QObject* object, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!press && event->type() != QEvent::KeyRelease) return false;
    auto* widget = dynamic_cast<QWidget*>(object);
    if (widget == nullptr) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() < Qt::Key_A || key->key() > Qt::Key_Z || IsTyping() || !PlaysFrom(*widget, *key)) return false;
    Qt::KeyboardModifiers& pressed = pressed_[static_cast<std::size_t>(key->key() - Qt::Key_A)];
    if (event->type() == QEvent::KeyPress && !key->isAutoRepeat()) pressed = key->modifiers();
    if (event->type() == QEvent::KeyRelease && !key->isAutoRepeat() && events_.KeyUp) {
        const Qt::KeyboardModifiers held = key->modifiers() | std::exchange(pressed, {});
        events_.KeyUp(static_cast<char>(key->key()), held.testFlag(Qt::ShiftModifier),
                      held.testFlag(Qt::ControlModifier), held.testFlag(Qt::AltModifier));
    }
    event->accept();
    return true;
}

}  // namespace marvolin
