#include <cstdlib>
#include <memory>

#include "audio/openal/card_clock.h"
#include "audio/openal/sound.h"
#include "audio/output/chained_output.h"
#include "browser/lnk_shortcut.h"
#include "check/check_components.h"
#include "check/loader_libraries.h"
#include "core/files/own_folder.h"
#include "core/files/paths.h"
#include "core/help.h"
#include "instrument/keyboard.h"
#include "instrument/shut_down.h"
#include "instrument/start_up.h"
#include "performance/joystick/sdl_input.h"
#include "performance/pad/mix_pad.h"
#include "persistence/session_file_store.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"
#include "scripting/script_room.h"
#include "sequencing/grid_timers.h"
#include "window/forms/frm_browse.h"
#include "window/screens/small_painting.h"
#include "window/screens/window_keeper.h"
#include "window/tabs/tab_mix_pad.h"
#include "window/toolkit/application.h"
#include "window/toolkit/mersenne_random.h"
#include "window/toolkit/qt_alarm.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_display.h"
#include "window/toolkit/qt_windows.h"

using namespace marvolin;

namespace {

/// SDL asks a PulseAudio server to hold a single period. A server that comes a moment late then has nothing to play,
/// and all that follows is late too. A player may set another buffer in the environment.
void GiveSoundServersABuffer() { ::setenv("PULSE_LATENCY_MSEC", "40", 0); }

QString WindowFile(Desktop& desktop) { return QString::fromStdString(desktop.ProgramFolder()) + "/marvolin.windows"; }

bool Check(Session& session) {
    LoaderLibraries loader;
    return CheckComponents(session, loader);
}

FormSizes FormsOfTheProgram() { return {FrmMain::RegularSize(), FrmBrowse::kSize.width()}; }

/// Of an installed copy, what the program keeps lies in a folder of the player's own from here on.
ProgramFolders FoldersOfTheStart(QtDesktop& desktop) {
    const std::string players = PlayersFolder(std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
    ProgramFolders folders = PrepareFolders(desktop.InstalledFolder(), players);
    desktop.UseFolder(folders.Own);
    return folders;
}

FrmMain::Events EventsOf(Session& session) {
    return {[&] { Form_Activate(session); },
            [&] { Form_QueryUnload(session); },
            [&](char letter, bool shift, bool control, bool alt) {
                Form_KeyUp(session, letter, (shift ? kShiftKey : 0) | (control ? kCtrlKey : 0) | (alt ? kAltKey : 0));
            },
            [&] { return session.DX ? OpenAlSoundLoad(*session.DX) / 100 : 0.0; },
            [&] { return session.DX != nullptr && OpenAlSoundGone(*session.DX); },
            [&] {
                return session.DX ? SoundTiming{OpenAlPeriod(*session.DX), OpenAlDelay(*session.DX)} : SoundTiming{};
            }};
}

/// What is known from the last start, and is to be known at the next.
void KeepOverTheEnd(Application& application, WindowKeeper& keeper, Session& session) {
    session.Headphones = keeper.Headphones();
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &keeper, [&] {
        keeper.SetHeadphones(session.Headphones);
        keeper.Keep();
    });
}

}  // namespace

int main(int argc, char** argv) {
    GiveSoundServersABuffer();
    const auto clock = std::make_shared<CardClock>();
    Application application(argc, argv, *clock);
    QtDesktop desktop;
    const ProgramFolders folders = FoldersOfTheStart(desktop);
    const SmallPainting smallPainting;
    WindowKeeper keeper(WindowFile(desktop), FormsOfTheProgram(), WindowKeeper::OfTheDesktop());
    keeper.Start();
    QtDisplay display;
    ScriptRoom room;
    QtWindows windows(display, desktop);
    QtAlarm alarm;
    GridTimers timers(*clock, alarm);
    MersenneRandom chance;
    LuaScript lua(
        {.Print = [&room](std::string_view line) { room.Print(line); }, .Ended = [&room] { room.EndedItself(); }});
    ScriptHost scripts(lua, desktop);
    SessionFileStore store;
    ChainedOutput output;
    Session session{Services{display, desktop, windows, chance, timers, scripts, store,
                             [&] { return CreateOpenAlSound(clock, output.Chain()); }, CreateSdlInput,
                             ResolveLnkShortcut, &output}};
    session.HelpFile = JoinPath(folders.Installed, std::string(kHelpFile));
    lua.Attach(session);
    room.Attach(session, scripts);
    windows.AttachScripts(room);
    windows.Attach(keeper);
    KeepOverTheEnd(application, keeper, session);

    // Widgets refer to the session, so they go first.
    const auto dropForms = [](QtWindows* forms) { forms->DropForms(); };
    const std::unique_ptr<QtWindows, decltype(dropForms)> forms(&windows, dropForms);

    const StartUpHooks hooks{[&session] { return Check(session); },
                             [](Session& s) { PadGeometryInit(s, TabMixPad::InnerWidth(), TabMixPad::InnerHeight()); }};
    windows.Attach(session, EventsOf(session));
    if (!RunMain(session, hooks) || windows.Ended()) return 0;
    if (!folders.Trouble.empty()) desktop.Report(folders.Trouble);
    return application.exec();
}
