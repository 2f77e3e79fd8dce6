#pragma once
/// \file
/// The whole program in one object: session, windows and scripts as the program has them, on a sound service, a
/// joystick, a clock and a folder that are made by hand.

#include <QPointer>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "core/session.h"
#include "fakes/fake_output.h"
#include "fakes/fake_sound.h"
#include "fakes/fake_world.h"
#include "fakes/temp_folder.h"
#include "headless_world.h"
#include "persistence/session_file_store.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"
#include "scripting/script_room.h"
#include "services.h"
#include "window/editor/frm_scripts.h"
#include "window/screens/window_keeper.h"
#include "window/toolkit/qt_display.h"
#include "window/toolkit/qt_windows.h"

namespace marvolin::hand {

/// An instrument that was just started, its windows shown, with samples and scripts in its folder. One world at a time,
/// inside the event loop of the application.
class World {
public:
    explicit World(std::uint64_t seed);
    /// Closes the main window as a player does, if that has not happened yet.
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Whether it has started.
    bool Started() const { return started_; }
    /// Closes the main window, after which nothing is left to operate.
    void Close();
    /// Whether the main window has been closed.
    bool Closed() const { return windows_.Ended(); }

    /// Lets time pass: timers tick, samples play on.
    void Pass(int milliseconds);
    /// Whether the step clock has ticked since this was last asked.
    bool TakeTicked() { return std::exchange(ticked_, false); }
    /// Handles all events that wait.
    static void Settle();

    /// The visible windows of the program, without lists that are open over them.
    std::vector<QWidget*> Windows() const;
    /// The window of scripts; null until it is first opened.
    FrmScripts* ScriptWindow() const { return windows_.Scripts(); }
    /// Lets what looks after the windows look at once where it would wait for a window manager: the run is the same at
    /// any speed of the machine.
    void HurryKeeper();
    /// Every control of the forms that exist, in the order in which the forms have them. Made anew when a form comes or
    /// goes.
    const std::vector<QPointer<QWidget>>& Controls();
    FrmMain& Main() { return *windows_.Main(); }

    /// Full path of a sample, of a set, of something else in the folder.
    std::string In(const std::string& name) const { return Folder / name; }
    static const std::vector<std::string>& Samples();
    static const std::vector<std::string>& Sets();
    static const std::vector<std::string>& Scripts();
    /// The text of a script of `Scripts`.
    std::string ScriptText(const std::string& name) const;

    test::TempFolder Folder;
    test::FakeSound Sound;
    test::FakeOutput Output;
    test::FakeJoystick Stick;
    bool Refused = false;  ///< the sound has refused something: what was to come back may wait for it
    RunDesktop Desk{Folder.Path()};
    std::vector<ScreenArea> Screens{{QRect(0, 0, 1920, 1080), QRect(0, 0, 1920, 1040)}};
    bool ScreensMoved = false;  ///< the screens have changed since the windows were last looked at
    WindowKeeper Keeper;
    ScriptRoom Room;

private:
    void WriteFolder() const;
    void PlayOn(int milliseconds);

    PassedTime time_;
    QtDisplay display_;
    QtWindows windows_{display_, Desk};
    SeededChance chance_;
    headless::HandTimers timers_;
    SessionFileStore store_;
    std::int64_t scriptTime_ = 0;
    LuaScript lua_;
    ScriptHost host_{lua_, Desk};
    bool started_ = false;
    bool ticked_ = false;
    std::vector<QPointer<QWidget>> controls_;
    std::vector<QWidget*> forms_;

public:
    Session s;
};

}  // namespace marvolin::hand
