#include "instrument/start_up.h"

#include <cmath>
#include <string>

#include "audio/device.h"
#include "core/busy_pointer.h"
#include "core/files/paths.h"
#include "core/help.h"
#include "core/routines.h"
#include "instrument/device_watch.h"
#include "instrument/init_main_form.h"
#include "instrument/trapped_error.h"
#include "performance/joystick/joystick_setup.h"
#include "persistence/kept/last_state.h"
#include "persistence/start_up_demo.h"
#include "persistence/undo/undo_commands.h"
#include "sequencing/patterns.h"

namespace marvolin {

namespace {

constexpr double kMarginRight = 100;  // twips from the main window to the right edge of the work area

void WarnOfFewColours(Session& s) {
    if (std::ldexp(1.0, s.World.Desk.BitsPerPixel()) > kFewColours) return;
    s.World.Desk.Report(
        "For proper viewing Marvolin requires more than 256 colours. Please set a higher colour depth (use the Display "
        "applet in control panel).)");
}

void OpenFirstDevice(Session& s) {
    s.DeviceSwapArmed = false;
    cboDrivers_Click(s, 0);
    s.DeviceSwapArmed = true;
}

/// Moves the main window to the right edge of the work area, half way down, and returns its new place.
TwipRect PlaceMainWindow(Session& s) {
    TwipRect main = s.World.Forms.Place(Form::Main);
    main.Left = s.WorkArea.Right - main.Width - kMarginRight;
    main.Top = s.WorkArea.Top + (s.WorkArea.Bottom - s.WorkArea.Top - main.Height) / 2;
    s.World.Forms.Move(Form::Main, main.Left, main.Top);
    return main;
}

// At the left edge of the work area, its top aligned with the main window's.
void OpenBrowser(Session& s, const TwipRect& main) {
    s.World.Forms.Show(Form::Browse);
    s.World.Forms.Move(Form::Browse, s.WorkArea.Left, main.Top);
}

void ShowSplash(Session& s, const TwipRect& main) {
    const TwipRect splash = s.World.Forms.Place(Form::Splash);
    s.World.Forms.Move(Form::Splash, main.Left + (main.Width - splash.Width) / 2,
                       main.Top + (main.Height - splash.Height) / 2);
    s.World.Forms.Show(Form::Splash);
}

}  // namespace

bool RunMain(Session& s, const StartUpHooks& hooks) {
    if (hooks.CheckComponents && !hooks.CheckComponents()) return false;
    try {
        if (!s.World.Desk.ClaimInstance()) return false;
        s.World.Forms.Load(Form::Splash);
        if (!CreateDirectX(s)) return false;
        s.World.Forms.Load(Form::Main);
        return Form_Load(s, hooks);
    } catch (...) {
        // Outside the toolkit's event loop nobody else would tell the player.
        s.World.Desk.MessageBox("Error loading main: " + ErrorInHand().Description);
        return false;
    }
}

bool CreateDirectX(Session& s) {
    try {
        s.DX = s.World.CreateDirectX7();
        return true;
    } catch (const std::exception&) {
        s.World.Desk.MessageBox(
            "Error initializing DirectX. Requires DirectX 7.0a or higher, available at https://openal-soft.org",
            "DirectX Missing", BoxStyle::Critical);
        return false;
    }
}

bool Form_Load(Session& s, const StartUpHooks& hooks) {
    WarnOfFewColours(s);
    s.World.Forms.EnablePadBalls(false);
    s.World.Chance.SeedFromClock();
    {
        const BusyPointer busy(s);
        InitAudioDriversList(s);
        OpenFirstDevice(s);
        if (!InitMainForm(s, hooks.InitPadGeometry)) return false;
        InitPatternTables(s);
        InitDirectInput(s);
        // A joystick service that refuses has unloaded the main window and so shut the session down.
        if (!s.DX) return false;
        s.FirstActivate = true;
        s.World.Forms.Show(Form::Main);
    }
    ShowReadout(s, "");  // the setters of the defaults have left a value there
    ShowStatus(s, "Ready.");
    return true;
}

void Form_Activate(Session& s) {
    if (!s.FirstActivate) return;
    s.HelpShown = false;
    // An installed copy has told where it is: not in the folder of the player.
    if (s.HelpFile.empty()) s.HelpFile = JoinPath(s.World.Desk.ProgramFolder(), std::string(kHelpFile));
    ReadWorkArea(s);
    s.FirstActivate = false;
    s.World.Forms.EnablePadBalls(true);
    WatchDevices(s);
    const TwipRect main = PlaceMainWindow(s);
    OpenBrowser(s, main);
    ShowSplash(s, main);
    LoadStartUpContent(s);
    StartUndo(s);
    StartKeeping(s);
}

}  // namespace marvolin
