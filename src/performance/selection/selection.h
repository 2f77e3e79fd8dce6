#pragma once
/// \file
/// Which LoopTracks one gesture acts on: flags, rules, selector buttons, and the current LoopTrack.

#include <array>
#include <cstdint>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// A rule of `SlctGroup`: whether it selects a LoopTrack.
struct SelectRule {
    std::string_view Text;
    bool (*Selects)(const LoopTrackSet& set, const LoopTrackRun& run);
};

/// The rules, in the order of the list.
inline constexpr std::array<SelectRule, 16> kSelectRules{{
    {"All", [](const LoopTrackSet&, const LoopTrackRun&) { return true; }},
    {"None", [](const LoopTrackSet&, const LoopTrackRun&) { return false; }},
    {"Toggle", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Selected == False; }},
    {"Playing", [](const LoopTrackSet&, const LoopTrackRun& run) { return run.Playing != False; }},
    {"Stopped", [](const LoopTrackSet&, const LoopTrackRun& run) { return run.Playing == False; }},
    {"Filled", [](const LoopTrackSet&, const LoopTrackRun& run) { return run.Loaded != False; }},
    {"Empty", [](const LoopTrackSet&, const LoopTrackRun& run) { return run.Loaded == False; }},
    {"Channel 1", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Channel == 1; }},
    {"Channel 2", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Channel == 2; }},
    {"Channel 3", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Channel == 3; }},
    {"Channel 4", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Channel == 4; }},
    {"Vol Low", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Vol <= kVolFull / 2; }},
    {"Vol High", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Vol > kVolFull / 2; }},
    {"Freq Low", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Hz < kHzUnity; }},
    {"Freq 100%", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Hz == kHzUnity; }},
    {"Freq High", [](const LoopTrackSet& set, const LoopTrackRun&) { return set.Hz > kHzUnity; }},
}};

/// Makes `SelectWork` the selection of rows 0..3, and sets `Playing` of row 4 if any selected row plays.
void SelectApply(Session& s);
/// Applies the rule with this text; an unknown text changes nothing.
void SelectGroup(Session& s, std::string_view text);
/// Sets the flag of LoopTrack `column`, 1..4. Any other column is a `SubscriptError`.
void SelectColumn(Session& s, std::int16_t column, bool value);
/// Sets all four flags when `row` is 1; any other row touches nothing.
void SelectRow(Session& s, std::int16_t row, bool value);
/// Sets the flags between `from` and `to`, both included, in either direction. Rows outside 0..3 are a
/// `SubscriptError`, and nothing changes.
void SelectRange(Session& s, Row from, Row to);
/// Clears them.
void DeselectRange(Session& s, Row from, Row to);
/// Flips one flag, 0..3.
void SelectToggle(Session& s, Row row);

/// `SelectPopUp`: opens the list of rules.
void SelectPopUp_Click(Session& s);
/// The player chose `text` in `SlctGroup`; blanks around it are ignored. The list is hidden.
void SlctGroup_Click(Session& s, std::string_view text);
/// Hides the list and does nothing else.
void SlctGroup_LostFocus(Session& s);

/// A press on the flag of `row` starts a drag over the flags. The left button selects each flag it passes, the right
/// one deselects it, beginning with this flag. Row 4 has no flag.
void Selected_MouseDown(Session& s, Row row, std::int16_t button);
/// The drag passes the flag of `row`. Does nothing unless the drag started on a flag.
void Selected_DragOver(Session& s, Row row);
/// The drag ends, wherever it is released; the play button of row 4 follows.
void Selected_DragEnd(Session& s);

/// The number of a selector's button: `row` 0..5 is a band, 6 the selection.
int SelectorButton(Row row);
/// Puts a band (`row` 0..5) or the selection (6) in control, or not.
void SetSelector(Session& s, Row row, bool on);
/// A click on button 0..6 flips the control of the selection (0) or of band `button` - 1.
void SelectorRadio_Click(Session& s, int button);
/// A double click puts this one in control and the six others out of it.
void SelectorRadio_DblClick(Session& s, int button);

/// Whether a change of the current LoopTrack opens the pattern tab.
enum class OpenPattern : bool { No, Yes };
/// Sets the LoopTrack that the pattern and timing views show. A row outside 0..3 is a `SubscriptError`, and nothing
/// changes.
void SetCurrentLoop(Session& s, Row row, OpenPattern open);
/// Makes the row the current LoopTrack.
void Thumb_Click(Session& s, Row row);
/// Makes the row the current LoopTrack and opens its pattern.
void Thumb_DblClick(Session& s, Row row);

}  // namespace marvolin
