#include "window/descriptions/loop_rows.h"

#include <algorithm>
#include <array>

#include "audio/play_gestures.h"
#include "audio/play_modes.h"
#include "core/drag_source.h"
#include "instrument/loop_drops.h"
#include "parameters/setters.h"
#include "parameters/wires.h"
#include "performance/selection/selection.h"
#include "persistence/missing/missing_sample.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

std::string ModeValue(const Situation& at) {
    return std::string(PlayModeText(LoopItMode(at.State, static_cast<Row>(at.Index))));
}

std::string LoopItHint(const Situation& at) { return "drg Play Mode -/+; rtclk Jump to Beginning; " + ModeValue(at); }

std::string DropDownHint(const Situation& at) {
    return at.Part == kGripPart ? "drg Copy Sample to LoopTrack, or Copy LoopTrack to Clipboard"
                                : "clk Open Palette & History";
}

std::string SampleTip(const Situation& at) {
    const std::string paths = SamplePaths(at.State, static_cast<Row>(at.Index));
    return paths.empty() ? std::string(kLabelAsTip) : paths;
}
std::string SampleValue(const Situation& at) { return SampleTold(at.State, static_cast<Row>(at.Index)); }

const LoopTrackSet& SetOf(const Situation& at) { return at.State.Set[static_cast<Row>(at.Index)]; }

std::string VolValue(const Situation& at) { return Vol2Text(SetOf(at).Vol); }
std::string PanValue(const Situation& at) { return Pan2Text(SetOf(at).Pan); }
std::string HzValue(const Situation& at) { return Hz2Text(SetOf(at).Hz); }

constexpr const char* kLoopItHints =
    "drg Play Mode -/+; rtclk Jump to Beginning; One shot (sample plays once, stops); "
    "Loop (sample loops continuously); "
    "Track (sample loops continuously, track the Vol, Freq & Pan patterns); "
    "Drum (track Vol,Pan & Freq pattern, restart sample each beat)";
constexpr const char* kDropDownHints =
    "drg Copy Sample to LoopTrack, or Copy LoopTrack to Clipboard; clk Open Palette & History";
std::string PlayValue(const Situation& at) {
    const LoopTrackRun& run = at.State.Run[static_cast<Row>(at.Index)];
    if (run.Paused != False) return "paused";
    if (run.Playing != False) return "plays";
    return at.Index == kSelectionRow || run.Loaded != False ? "stands still" : "empty";
}

std::string LetterValue(const Situation& at) { return SetOf(at).Thinnable != False ? "thinnable" : "not thinnable"; }

std::string WireValue(const Situation& at) {
    constexpr std::array<const char*, kChannels> kWireNames{"both white", "white and black", "black and white",
                                                            "both black"};
    const int wire = std::max<int>(SetOf(at).Channel, 1) - 1;
    const std::string name = kWireNames[static_cast<std::size_t>(wire % kChannels)];
    const std::string channel = "channel " + std::to_string(wire % kChannels + 1) + ", " + name;
    return (wire & kDisconnected) == 0 ? channel : "disconnected from " + channel;
}

bool SelectedOn(const Situation& at) { return SetOf(at).Selected != False; }
bool ThumbOn(const Situation& at) { return at.State.CurrentLoop == at.Index; }
bool PlayOn(const Situation& at) { return at.State.Run[static_cast<Row>(at.Index)].Playing != False; }

// Numbers as the readouts show them.
ControlScale VolScale(const Situation& at) { return {static_cast<double>(SetOf(at).Vol), 0, kVolFull, 1}; }
ControlScale PanScale(const Situation& at) {
    return {static_cast<double>(SetOf(at).Pan - kPanCentre), -kPanCentre, kPanRight - kPanCentre, 1};
}
ControlScale HzScale(const Situation& at) { return {SetOf(at).Hz / 10.0, 0.1, kHzTop / 10.0, 0.1}; }
ControlScale ModeScale(const Situation& at) {
    return {static_cast<double>(LoopItMode(at.State, static_cast<Row>(at.Index))), kOneShot, kDrum, 1};
}
ControlScale WireScale(const Situation& at) {
    const int wire = std::max<int>(SetOf(at).Channel, 1) - 1;
    return {wire % kChannels + 1.0, 1, kChannels, 1};
}

constexpr const char* kLetrHint = "drg Start Dropper Op; rtdrg Start Fade Drg & Drop; dblclk Toggle Thinnable";
constexpr const char* kSndDispHint = "clk/drg along top: Vol Jump; clk/drg along bottom: Vol Fade; rtclk Fade";

constexpr std::array<const char*, kSelectRules.size() + 1> kSlctGroupHints{
    "clk Select LoopTracks by Rule",
    "All: clk Select all LoopTracks",
    "None: clk Select no LoopTrack",
    "Toggle: clk Select those that are not selected",
    "Playing: clk Select those that play",
    "Stopped: clk Select those that do not play",
    "Filled: clk Select those with a Sample",
    "Empty: clk Select those without a Sample",
    "Channel 1: clk Select those with the Flag W, white & white",
    "Channel 2: clk Select those with the Flag WB, white & black",
    "Channel 3: clk Select those with the Flag BW, black & white",
    "Channel 4: clk Select those with the Flag B, black & black",
    "Vol Low: clk Select those at Vol 250 or less",
    "Vol High: clk Select those above Vol 250",
    "Freq Low: clk Select those below 100 %",
    "Freq 100%: clk Select those at 100 %",
    "Freq High: clk Select those above 100 %"};
std::string SlctGroupHint(const Situation& at) { return OfEntry(kSlctGroupHints, at.Part); }

constexpr Indices kLoopTrackRows{0, kLoopTracks - 1};
constexpr Indices kSelection{kSelectionRow, kSelectionRow};
constexpr Indices kGangRows{0, kSelectionRow};

constexpr Description kLoopRowTable[] = {
    {.Name = "LoopRow",
     .Range = kGangRows,
     .Hint = "drop Sample, LoopTrack, Pattern or Clip to put it here",
     .Topic = kLoopTrackTopic,
     .Role = QAccessible::Grouping},
    {.Name = "Selected",
     .Range = kLoopTrackRows,
     .Label = "{row} is selected",
     .Tip = kLabelAsTip,
     .Hint = "drg Select LoopTracks; rtdrg Deselect LoopTracks (drg over to select/deselect)",
     .Topic = 10020,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press,
     .On = SelectedOn},
    {.Name = "Thumb",
     .Range = kLoopTrackRows,
     .Label = "Show {row} on the pattern tab",
     .Tip = kLabelAsTip,
     .Hint = "clk Select Pattern/LoopTrack Position; dblclk Open Pattern",
     .Topic = 10021,
     .Role = QAccessible::RadioButton,
     .Taken = Keys::Press,
     .On = ThumbOn},
    {.Name = drags::kLetr,
     .Range = kLoopTrackRows,
     .Label = "{row}",
     .Tip = kLabelAsTip,
     .Hint = kLetrHint,
     .Topic = kLoopTrackTopic,
     .Role = QAccessible::Button,
     .Taken = Keys::Press | Keys::Carry,
     .Value = LetterValue},
    {.Name = drags::kLetr,
     .Range = kSelection,
     .Label = "Selection, {letter}",
     .Tip = kLabelAsTip,
     .Hint = kLetrHint,
     .Topic = kLoopTrackTopic,
     .Role = QAccessible::Button,
     .Taken = Keys::Press | Keys::Carry},
    {.Name = "Play",
     .Range = kGangRows,
     .Label = "Play {row}",
     .Tip = kLabelAsTip,
     .Hint = "clk Toggle Play; rtclk Pause",
     .Topic = 10023,
     .Role = QAccessible::Button,
     .Taken = Keys::Press,
     .Value = PlayValue,
     .On = PlayOn,
     .Shortcut = "{letter}"},
    {.Name = "LoopIt",
     .Range = kGangRows,
     .Label = "Play mode of {row}",
     .Tip = kLabelAsTip,
     .Hint = {LoopItHint, kLoopItHints},
     .Topic = 10024,
     .Role = QAccessible::SpinBox,
     .Taken = Keys::Press | Keys::Turn,
     .Value = ModeValue,
     .Scale = ModeScale},
    {.Name = "LoopIt",
     .Range = {kMasterRow, kMasterRow},
     .Label = "Play mode of the LoopTrack shown here",
     .Tip = kLabelAsTip,
     .Hint = {LoopItHint, kLoopItHints},
     .Topic = 10024,
     .Role = QAccessible::SpinBox,
     .Taken = Keys::Press | Keys::Turn,
     .Value = ModeValue,
     .Scale = ModeScale},
    {.Name = drags::kDropDown,
     .Range = kLoopTrackRows,
     .Label = "Sample of {row}",
     .Tip = SampleTip,
     .Hint = {DropDownHint, kDropDownHints},
     .Topic = 10025,
     .Role = QAccessible::ButtonDropDown,
     .Taken = Keys::Press | Keys::Carry,
     .Value = SampleValue},
    {.Name = "FindSample",
     .Range = kLoopTrackRows,
     .Label = "Find the missing sample of {row}",
     .Tip = kLabelAsTip,
     .Hint = "clk Look for all missing samples in a folder and below",
     .Topic = 10025,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = drags::kDropDown,
     .Range = kSelection,
     .Label = "Samples of {row}",
     .Tip = SampleTip,
     .Hint = {DropDownHint, kDropDownHints},
     .Topic = 10025,
     .Role = QAccessible::ButtonDropDown,
     .Taken = Keys::Press | Keys::Carry},
    {.Name = "SndDisp",
     .Range = kLoopTrackRows,
     .Label = "Sound of {row}",
     .Tip = kLabelAsTip,
     .Hint = kSndDispHint,
     .Topic = kLoopTrackTopic,
     .Role = QAccessible::Slider,
     .Taken = Keys::Press | Keys::Move,
     .Value = VolValue,
     .Scale = VolScale},
    {.Name = "SndDisp",
     .Range = kSelection,
     .Label = "Level of {row}",
     .Tip = kLabelAsTip,
     .Hint = kSndDispHint,
     .Topic = kLoopTrackTopic,
     .Role = QAccessible::Slider,
     .Taken = Keys::Press | Keys::Move,
     .Value = VolValue,
     .Scale = VolScale},
    {.Name = "VolKnob",
     .Range = {0, kMasterRow},
     .Caption = "Vol",
     .Label = "Volume of {row}",
     .Tip = kLabelAsTip,
     .Hint = "drg Vol -/+; rtdrg Fine; dblclk Toggle Mute",
     .Topic = 10026,
     .Role = QAccessible::Dial,
     .Taken = Keys::Press | Keys::Turn,
     .Value = VolValue,
     .Scale = VolScale},
    {.Name = "PanKnob",
     .Range = kGangRows,
     .Caption = "Pan",
     .Label = "Pan of {row}",
     .Tip = kLabelAsTip,
     .Hint = "drg Pan -/+; rtdrg Fine; dblclk Centre",
     .Off = "off until a Sample is loaded",
     .Topic = 10027,
     .Role = QAccessible::Dial,
     .Taken = Keys::Press | Keys::Turn,
     .Value = PanValue,
     .Scale = PanScale},
    {.Name = "HzKnob",
     .Range = kGangRows,
     .Caption = "Freq",
     .Label = "Frequency of {row}",
     .Tip = kLabelAsTip,
     .Hint = "drg Hz -/+; rtdrg Fine; dblclk 100%",
     .Topic = 10028,
     .Role = QAccessible::Dial,
     .Taken = Keys::Press | Keys::Turn,
     .Value = HzValue,
     .Scale = HzScale},
    {.Name = "ChannelFlag",
     .Range = kGangRows,
     .Label = "Wire of {row}",
     .Tip = kLabelAsTip,
     .Hint = "drg Wire -/+; click Flip Colour; rtclk tggle Connect",
     .Topic = 10029,
     .Role = QAccessible::SpinBox,
     .Taken = Keys::Press | Keys::Turn,
     .Value = WireValue,
     .Scale = WireScale},
    {.Name = "SelectPopUp",
     .Caption = "Select",
     .Label = "Selection tools",
     .Tip = kLabelAsTip,
     .Hint = "clk Open Selection Tool Dropdown",
     .Topic = 10030,
     .Role = QAccessible::ButtonDropDown,
     .Taken = Keys::Press},
    {.Name = "SlctGroup",
     .Label = "Selection rules",
     .Hint = {SlctGroupHint, kSlctGroupHints[0]},
     .Topic = 10031,
     .Role = QAccessible::List,
     .Taken = Keys::Choose | Keys::Press | Keys::Escape},
    {.Name = drags::kHistoryList,
     .Label = "Palette and history",
     .Hint = "clk Use on this LoopTrack; drg to another LoopTrack",
     .Topic = 10032,
     .Role = QAccessible::List,
     .Taken = Keys::Choose | Keys::Press | Keys::Escape | Keys::Carry},
};

}  // namespace

std::span<const Description> LoopRowDescriptions() { return kLoopRowTable; }

}  // namespace marvolin
