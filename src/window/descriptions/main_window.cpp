#include "window/descriptions/main_window.h"

#include "audio/play_gestures.h"
#include "audio/recording.h"
#include "audio/thinning.h"
#include "core/drag_source.h"
#include "parameters/fades.h"
#include "performance/selection/bands.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

std::string ToTopCaption(const Situation& at) { return at.State.MiniMode ? "Regular" : "Mini"; }

constexpr const char* kSilenceHint = "clk Stop All Sounds; Shift+clk or key F12: Sound back";

std::string SilenceValue(const Situation& at) {
    const CardOutput* output = at.State.World.Output;
    return output != nullptr && output->IsSilent() ? "everything is silent" : "";
}

std::string PlayStopHint(const Situation& at) {
    switch (static_cast<PlayStopZone>(at.Part)) {
        case PlayStopZone::Play:
            return "clk Play All Sounds";
        case PlayStopZone::Stop:
            return SilenceValue(at).empty() ? "clk Stop All Sounds" : kSilenceHint;
        case PlayStopZone::None:
            break;
    }
    return "";
}

bool RecordOn(const Situation& at) { return !at.State.RecordingFile.empty(); }

std::string RecordHint(const Situation& at) {
    return RecordOn(at) ? "clk End the Recording; key F8" : "clk Record what is heard; key F8";
}

/// Where the file is, or will be.
std::string RecordTip(const Situation& at) {
    const Session& s = at.State;
    return RecordOn(at) ? "Recording into " + s.RecordingFile : "Record what is heard into " + RecordingsFolder(s);
}

std::string LimitValue(const Situation& at) { return std::to_string(at.State.Limit); }

std::string FadeSpeedValue(const Situation& at) { return std::to_string(FadeFactorGauge(at.State)); }

std::string SelectorLabel(const Situation& at) {
    return at.Index == 0 ? "The selection is in control" : "Band " + std::to_string(at.Index - 1) + " is in control";
}

std::string TabCaption(const Situation& at) {
    constexpr std::array<const char*, kTabs> kCaptions{"Mix Pad", "3d Map", "Ptrn", "Optn"};
    return kCaptions[static_cast<std::size_t>(at.Index)];
}

std::string TabControlHint(const Situation& at) { return at.State.ActiveTab == kPatternTab ? kSequenceHint : ""; }

std::string TabHint(const Situation& at) {
    if (at.State.ActiveTab == kPatternTab) return kSequenceHint;
    constexpr std::array<const char*, kTabs> kHints{
        "clk Open Mix Pad: one Ball mixes the four Channels", "clk Open Sound Map: LoopTracks around a Listener",
        "clk Open Patterns & Timing of a LoopTrack",
        "clk Open Options: Sound Driver, Joystick, Mouse, Scripting, Timing"};
    return kHints[static_cast<std::size_t>(at.Index)];
}

constexpr const char* kTabHints =
    "clk Open Mix Pad: one Ball mixes the four Channels; clk Open Sound Map: LoopTracks around a Listener; "
    "clk Open Patterns & Timing of a LoopTrack; clk Open Options: Sound Driver, Joystick, Mouse, Scripting, Timing; "
    "rtdrg Copy All Patterns & Timing Elements";
ControlScale LimitScale(const Situation& at) { return {static_cast<double>(at.State.Limit), 1, kNoLimit, 1}; }
ControlScale FadeSpeedScale(const Situation& at) {
    return {static_cast<double>(FadeFactorGauge(at.State)), kFadeFactorLow, kFadeFactorHigh, 20};
}

bool TabOn(const Situation& at) { return at.State.ActiveTab == at.Index; }
bool SelectorOn(const Situation& at) {
    return at.Index == 0 ? at.State.SelectionControlled : at.State.BandTable[at.Index - 1].Controlled != False;
}

std::string BandsValue(const Situation& at) {
    std::string bands;
    for (Row band = 0; band < kBands; ++band) {
        const BandRun run = DrawnBand(at.State, band);
        if (run.Empty()) continue;
        bands += (bands.empty() ? "band " : "; band ") + std::to_string(band) + " from " + RowLetter(run.First) +
                 " to " + RowLetter(run.Last);
    }
    return bands.empty() ? "no bands" : bands;
}

std::string ScriptsValue(const Situation& at) { return at.State.ScriptEnabled ? "a script runs" : ""; }

std::string SessionValue(const Situation& at) {
    const std::string set = at.State.CurrentFile.empty() ? "no session" : "session " + at.State.CurrentFile;
    return at.State.TodayLabel + ", " + set;
}

std::string QuickLoadHint(const Situation& at) {
    return at.State.QuickLoadTag == kLeftButton ? "clk Load Session" : "clk Open Session in the Save/Open Dialogue";
}

std::string ScriptsHint(const Situation& at) {
    return at.State.ScriptAvailable ? "clk Open Scripting" : "Scripts need Lua 5.4: install the package liblua5.4-0";
}

/// The hint, and the value that the hand has just moved.
std::string StatusValue(const Situation& at) {
    const std::string& hint = at.State.StatusText;
    const std::string& readout = at.State.ReadoutText;
    return hint + (hint.empty() || readout.empty() ? "" : "; ") + readout;
}

std::string StatusHint(const Situation& at) { return at.Part == kHelpPanel ? kHelpPanelHint : ""; }

constexpr Description kMainWindowTable[] = {
    {.Name = "frmMain", .Topic = 10001, .Role = QAccessible::Window},
    {.Name = "Toolbar", .Topic = 10002, .Role = QAccessible::ToolBar},
    {.Name = "Browse",
     .Caption = "Browse",
     .Label = "Open the browser",
     .Tip = kLabelAsTip,
     .Hint = "clk Open Browser Window",
     .Topic = 10003,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "SaveOpen",
     .Caption = "Save/Open",
     .Label = "Save and open sessions",
     .Tip = kLabelAsTip,
     .Hint = "clk Save/Open Dialogue",
     .Topic = 10004,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "QuickLoadPop",
     .Caption = "QuickLoad",
     .Label = "Sessions of the current folder",
     .Tip = kLabelAsTip,
     .Hint = "clk Open QuickLoad Dropdown",
     .Topic = 10005,
     .Role = QAccessible::ButtonDropDown,
     .Taken = Keys::Press},
    {.Name = "SnapShot",
     .Caption = "Snapshot",
     .Label = "Save a snapshot of the session",
     .Tip = kLabelAsTip,
     .Hint = "clk Save Snapshot",
     .Topic = 10006,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "Scripts",
     .Caption = "Scripts",
     .Label = "Open Scripting",
     .Tip = kLabelAsTip,
     .Hint = {ScriptsHint, "clk Open Scripting; Scripts need Lua 5.4: install the package liblua5.4-0"},
     .Topic = 10007,
     .Role = QAccessible::Button,
     .Taken = Keys::Press,
     .Value = ScriptsValue},
    {.Name = "PlayStop",
     .Label = "Play all (top), stop all (bottom)",
     .Tip = "Play all (top), stop all (bottom); Shift and bottom: silence",
     .Hint = {PlayStopHint, "clk Play All Sounds; clk Stop All Sounds"},
     .Topic = 10008,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "Limiter",
     .Label = "How many LoopTracks may sound; 4 is no limit",
     .Tip = kLabelAsTip,
     .Hint = "drg -/+ to Thin to N Playing LoopTracks",
     .Topic = 10009,
     .Role = QAccessible::SpinBox,
     .Taken = Keys::Turn,
     .Value = LimitValue,
     .Scale = LimitScale},
    {.Name = "FadeFactor",
     .Label = "Fade speed",
     .Tip = kLabelAsTip,
     .Hint = "set Fade Speed",
     .Topic = 10010,
     .Role = QAccessible::Slider,
     .Taken = Keys::Turn,
     .Value = FadeSpeedValue,
     .Scale = FadeSpeedScale},
    {.Name = "LevelMeter",
     .Label = "Level of what is heard",
     .Tip = kLabelAsTip,
     .Hint = "Level of what is heard, left & right; red Light: too loud, cut off",
     .Topic = 10260,
     .Role = QAccessible::Indicator,
     .Value = SilenceValue},
    {.Name = "Record",
     .Label = "Record what is heard",
     .Tip = {RecordTip, kLabelAsTip},
     .Hint = {RecordHint, "clk Record what is heard; clk End the Recording; key F8"},
     .Topic = 10261,
     .Role = QAccessible::Button,
     .Taken = Keys::Press,
     .On = RecordOn,
     .Shortcut = "F8"},
    {.Name = "ToTop",
     .Caption = ToTopCaption,
     .Label = "Minimize Toggle",
     .Tip = kLabelAsTip,
     .Hint = "clk Toggle Mini/Regular Window",
     .Topic = 10011,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "StatusBar1",
     .Label = "Hints",
     .Tip = kHelpPanelTip,
     .Hint = {StatusHint, kHelpPanelHint},
     .Topic = 10012,
     .Role = QAccessible::StatusBar,
     .Value = StatusValue},
    {.Name = "StatusBar2",
     .Label = "Session and device",
     .Hint = "Today; Sound Driver, its Period & Delay; Session; Recording; Load of the Sound",
     .Topic = 10013,
     .Role = QAccessible::StatusBar,
     .Value = SessionValue},
    {.Name = drags::kTabControl,
     .Label = "Tabs",
     .Hint = {TabControlHint, kSequenceHint},
     .Topic = 10014,
     .Role = QAccessible::PageTabList},
    {.Name = "Tab",
     .Range = {0, kTabs - 1},
     .Caption = TabCaption,
     .Hint = {TabHint, kTabHints},
     .Topic = 10015,
     .Role = QAccessible::PageTab,
     .Taken = Keys::Press | Keys::Move | Keys::Carry,
     .On = TabOn},
    {.Name = "SelectorStrip", .Topic = 10016, .Role = QAccessible::Grouping},
    {.Name = "SelectorRadio",
     .Range = {0, kBands},
     .Label = SelectorLabel,
     .Tip = kLabelAsTip,
     .Hint = "clk Toggle Control of Selection/Band; dblclk Control Selection/Band",
     .Topic = 10017,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press,
     .On = SelectorOn},
    {.Name = "Bands",
     .Label = "Bands: runs of LoopTracks that move together",
     .Tip = kLabelAsTip,
     .Hint = "drg Band over LoopTracks; clk Add/Remove; dblclk Empty",
     .Topic = 10018,
     .Role = QAccessible::Graphic,
     .Taken = Keys::Press | Keys::Move | Keys::Delete,
     .Value = BandsValue},
    {.Name = "QuickLoad",
     .Label = "Sessions of the current folder",
     .Hint = {QuickLoadHint, "clk Load Session; clk Open Session in the Save/Open Dialogue"},
     .Off = "off: the Folder of the Sessions is gone",
     .Topic = 10019,
     .Role = QAccessible::List,
     .Taken = Keys::Choose | Keys::Press | Keys::Escape},
};

}  // namespace

std::span<const Description> MainWindowDescriptions() { return kMainWindowTable; }

}  // namespace marvolin
