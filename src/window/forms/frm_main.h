#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>

#include "core/session.h"
#include "window/forms/status_bars.h"
#include "window/toolkit/hint_window.h"

namespace marvolin {

class Announcer;
class HelpAsker;
class HistoryList;
class LoopRow;
class PopupList;
class ProgramKeys;
class SelectList;
class SelectorStrip;
class TabControl;
class Toolbar;
class UndoKeys;
class MissingFinder;

/// The main window: toolbar, five rows, the strip of selectors, the tabs, two status bars.
class FrmMain : public QWidget, public HintWindow {
public:
    /// What the window does beyond its controls.
    struct Events {
        std::function<void()> Activate;  ///< the window became the active one
        std::function<void()> Unload;    ///< the window is being closed
        /// A key "A".."Z" was released in the window, whatever control has the focus. `shift`, `control` and `alt` are
        /// those that were held at its press or at its release.
        std::function<void(char letter, bool shift, bool control, bool alt)> KeyUp;
        std::function<double()> SoundLoad;         ///< share of real time that the sound takes
        std::function<bool()> SoundGone;           ///< whether the open sound device was pulled out
        std::function<SoundTiming()> Timing = {};  ///< period and delay of the open sound device
        /// Whether the window may be closed; it may without this.
        std::function<bool()> MayClose = {};
        std::function<void()> OpenScripts = {};    ///< what `Scripts` does; without this it is disabled
        std::function<std::string()> Script = {};  ///< name of the script that runs, "" for none
        /// The window was minimised or restored: the state that the browser gets, too.
        std::function<void(Qt::WindowState state)> StateChanged = {};
    };

    FrmMain(Session& session, Events events);
    ~FrmMain() override;

    void ShowHint(std::string_view hint) override;
    void TakeHintAway(std::string_view hint) override;
    bool ShowsNothing() const override { return s.StatusText.empty(); }
    bool TakesHintsOfOthers() const override { return true; }

    /// Size of the window without its frame, in Regular.
    static QSize RegularSize();
    /// Regular to Mini and back, in the same native window. Mini stays in front of other programs. Where Regular would
    /// end below the screen it moves up, and the way back to Mini takes it down again.
    void ToggleMode();
    /// Moves the lines at the places that play as long as anything plays.
    void FollowPlaying();
    void RefreshTitle();
    /// Shows whether a script runs, and which.
    void RefreshScript();
    /// Shows the load of the sound, and whether the device is gone. Runs every two seconds, and when a device is
    /// chosen.
    void WatchSound();
    /// Lets the player move the balls of pad and map, or not.
    void EnableBalls(bool enabled);
    /// Enables the list of sessions, or disables it.
    void RefreshQuickLoad();
    /// Opens or hides the list of sessions at its button.
    void ShowQuickLoad(bool open);
    /// Opens or hides the list of the selection rules.
    void ShowSelectList(bool open);
    /// Opens or hides the palette at the row that opened it.
    void ShowHistoryList(bool open);

    // Owned by the toolkit.
    Toolbar* Bar = nullptr;
    std::array<LoopRow*, 5> Rows{};
    SelectorStrip* Selectors = nullptr;
    TabControl* Tabs = nullptr;
    StatusBar1* Status1 = nullptr;
    StatusBar2* Status2 = nullptr;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Form_Resize();
    void PlaceBars();
    void KeepOnScreen();
    bool PlaysFrom(const QWidget& widget, const QKeyEvent& key) const;
    void ShowPlaces();

    Session& s;
    Events events_;
    QTimer places_;  // runs while anything plays
    QTimer load_;
    bool soundGone_ = false;
    Qt::WindowState lastWindowState_ = Qt::WindowNoState;
    QPoint miniPlace_;     // where Mini was before Regular had to move up
    QPoint raisedPlace_;   // and where that has brought it
    bool raised_ = false;  // both are set
    std::unique_ptr<HelpAsker> help_;
    std::unique_ptr<ProgramKeys> keys_;
    std::unique_ptr<MissingFinder> finder_;
    std::unique_ptr<UndoKeys> undoKeys_;
    std::unique_ptr<Announcer> announcer_;
    std::array<Qt::KeyboardModifiers, 26> pressed_{};  // what was held when each letter was pressed
    PopupList* quickLoad_ = nullptr;
    HistoryList* historyList_ = nullptr;
    SelectList* selectList_ = nullptr;
};

}  // namespace marvolin
