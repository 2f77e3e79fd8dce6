#include "instrument/shut_down.h"

#include <array>
#include <string>

#include "audio/device.h"
#include "audio/recording.h"
#include "core/errors.h"
#include "core/help.h"
#include "core/routines.h"
#include "instrument/device_watch.h"
#include "instrument/trapped_error.h"
#include "persistence/kept/last_state.h"
#include "persistence/undo/undo_commands.h"
#include "scripting/script_host.h"

namespace marvolin {

namespace {

void HideWindow(Session& s) { s.World.Forms.Hide(Form::Main); }
void ShowUnloading(Session& s) { ShowStatus(s, "Unloading..."); }

void Disable(const std::unique_ptr<PeriodicTimer>& timer) {
    if (timer) timer->SetEnabled(false);
}
void DisableLoopTimer(Session& s) { Disable(s.LoopTimer); }
void DropLoopTimer(Session& s) { s.LoopTimer.reset(); }
void DisableFadeTimer(Session& s) { Disable(s.FadeTimer); }
void DropFadeTimer(Session& s) { s.FadeTimer.reset(); }
void DisableJoyTimer(Session& s) {
    if (s.JoyEnabled) Disable(s.JoyTimer);
}
void DropJoyTimer(Session& s) {
    if (s.JoyEnabled) s.JoyTimer.reset();
}
void StopWatching(Session& s) { s.Devices.reset(); }
void DisableDemoTimer(Session& s) { Disable(s.StartUpDemoCountDown); }
void DropDemoTimer(Session& s) { s.StartUpDemoCountDown.reset(); }
void StopScriptTimer(Session& s) { Disable(s.ScriptTimer); }
void DropScriptTimer(Session& s) { s.ScriptTimer.reset(); }
void StopHost(Session& s) {
    StopScript(s);
    ClearScriptEvents(s);
}

void ReleaseDirectX(Session& s) { s.DX.reset(); }

// The player may have closed the form already, or never opened it.
void UnloadIfLoaded(Session& s, Form form) {
    try {
        s.World.Forms.Unload(form);
    } catch (const NoObjectError&) {
        return;
    }
}
void UnloadSave(Session& s) { UnloadIfLoaded(s, Form::Save); }
void LetBrowserClose(Session& s) { s.World.Forms.AllowBrowserToClose(); }
void UnloadBrowser(Session& s) { UnloadIfLoaded(s, Form::Browse); }
void UnloadSplash(Session& s) { UnloadIfLoaded(s, Form::Splash); }
void UnloadStartUpQuery(Session& s) { s.World.Forms.Unload(Form::StartUpQuery); }

enum class OnError : std::uint8_t { Report, Ignore };

struct Step {
    const char* context;
    void (*action)(Session& s);
    OnError onError = OnError::Report;
};

constexpr std::array<Step, 28> kShutDown{{
    {"", HideWindow},
    {"", ShowUnloading},
    {"deleting device timer", StopWatching},
    {"disabling loop timer", DisableLoopTimer},
    {"disabling loop timer", DropLoopTimer},
    {"disabling fade timer", DisableFadeTimer},
    {"disabling fade timer", DropFadeTimer},
    {"disabling joystick timer", DisableJoyTimer},
    {"disabling joystick timer", DropJoyTimer},
    {"disabling start up demo counter", DisableDemoTimer, OnError::Ignore},
    {"disabling start up demo counter", DropDemoTimer, OnError::Ignore},
    {"clearing procedure flags", ClearProcedureFlags},
    {"cleaning up help", CloseHelp},
    {"deleting script timer", StopScriptTimer},
    {"deleting script timer", DropScriptTimer},
    {"deleting script timer", StopHost},
    {"uninitializing DSound", StopKeeping},
    {"uninitializing DSound", EndUndo},
    {"finishing the recording", StopRecording},
    {"uninitializing DSound", UnInitDirectSound},
    {"uninitializing DSound", ReleaseDirectX},
    {"uninitializing DSound", UnloadSave},
    {"unloading forms", LetBrowserClose},
    {"unloading forms", UnloadBrowser},
    {"unloading forms", UnloadSplash},
    {"unloading forms", UnloadStartUpQuery, OnError::Ignore},
    // Last of all: a slow disk must hold back neither the silence nor the other windows.
    {"finishing the recording", FinishRecording},
    {"keeping the last state", EndKeeping},
}};

void ReportError(Session& s, const Step& step, const TrappedError& error) {
    s.World.Desk.MessageBox(std::string("Shutdown error while ") + step.context + "; " + error.Description + " #" +
                            std::to_string(error.Number));
}

}  // namespace

void Form_QueryUnload(Session& s) {
    for (const Step& step : kShutDown) {
        try {
            step.action(s);
        } catch (...) {
            if (step.onError == OnError::Report) ReportError(s, step, ErrorInHand());
        }
    }
}

}  // namespace marvolin
