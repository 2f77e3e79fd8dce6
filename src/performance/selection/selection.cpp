#include "performance/selection/selection.h"

#include <algorithm>

#include "core/errors.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "parameters/position.h"
#include "performance/tabs.h"

namespace marvolin {

namespace {

constexpr Row kSelectionSelector = kBands;  // the number after those of the bands
constexpr std::string_view kSelectionStep = "Change of the selection";
constexpr std::string_view kSelectorStep = "Change of what is in control";

void TakeSelection(Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) s.SelectWork[row] = s.Set[row].Selected;
}

void SetFlag(Session& s, Row row, Boolean selected) {
    if (s.Set[row].Selected == selected) return;
    s.Set[row].Selected = selected;
    s.World.Screen.ShowSelected(row);
}

void SetRange(Session& s, Row from, Row to, bool value) {
    TakeSelection(s);
    for (Row row = std::min(from, to); row <= std::max(from, to); ++row) s.SelectWork[row] = ToBoolean(value);
    SelectApply(s);
}

bool IsInControl(const Session& s, Row selector) {
    return selector == kSelectionSelector ? s.SelectionControlled : s.BandTable[selector].Controlled != False;
}

Row SelectorRow(int button) { return button == 0 ? kSelectionSelector : static_cast<Row>(button - 1); }

}  // namespace

void SelectApply(Session& s) {
    bool anyPlays = false;
    for (Row row = 0; row < kLoopTracks; ++row) {
        SetFlag(s, row, s.SelectWork[row]);
        anyPlays = anyPlays || (s.Set[row].Selected != False && s.Run[row].Playing != False);
    }
    s.Run[kSelectionRow].Playing = ToBoolean(anyPlays);
    s.World.Screen.ShowPlay(kSelectionRow);
}

void SelectGroup(Session& s, std::string_view text) {
    const auto rule = std::find_if(kSelectRules.begin(), kSelectRules.end(),
                                   [&](const SelectRule& candidate) { return candidate.Text == text; });
    if (rule == kSelectRules.end()) return;
    for (Row row = 0; row < kLoopTracks; ++row) {
        s.SelectWork[row] = ToBoolean(rule->Selects(s.Set[row], s.Run[row]));
    }
    SelectApply(s);
}

void SelectColumn(Session& s, std::int16_t column, bool value) {
    TakeSelection(s);
    s.SelectWork[column - 1] = ToBoolean(value);
    SelectApply(s);
}

void SelectRow(Session& s, std::int16_t row, bool value) {
    if (row == 1) SetRange(s, 0, kLoopTracks - 1, value);
}

void SelectRange(Session& s, Row from, Row to) { SetRange(s, from, to, true); }
void DeselectRange(Session& s, Row from, Row to) { SetRange(s, from, to, false); }

void SelectToggle(Session& s, Row row) {
    const UndoStep step(s, kSelectionStep, UndoScope::Selection);
    TakeSelection(s);
    s.SelectWork[row] = ToBoolean(s.SelectWork[row] == False);
    SelectApply(s);
}

void SelectPopUp_Click(Session& s) { s.World.Screen.ShowSelectList(true); }

void SlctGroup_Click(Session& s, std::string_view text) {
    const UndoStep step(s, "Selection " + Trim(text), UndoScope::Selection);
    SelectGroup(s, Trim(text));
    s.World.Screen.ShowSelectList(false);
}

void SlctGroup_LostFocus(Session& s) { s.World.Screen.ShowSelectList(false); }

void Selected_MouseDown(Session& s, Row row, std::int16_t button) {
    if (row == kSelectionRow) return;
    s.SelectDragTag = button;
    BeginUndoDrag(s, kSelectionStep, UndoScope::Selection);
    Selected_DragOver(s, row);
}

void Selected_DragOver(Session& s, Row row) {
    if (row == kSelectionRow) return;
    // Written directly: the play button of row 4 is refreshed at the end of the drag.
    if (s.SelectDragTag == kLeftButton) SetFlag(s, row, True);
    if (s.SelectDragTag == kRightButton) SetFlag(s, row, False);
}

void Selected_DragEnd(Session& s) {
    if (s.SelectDragTag == kNoButton) return;
    s.SelectDragTag = kNoButton;
    TakeSelection(s);
    SelectApply(s);
    EndUndoDrag(s);
}

int SelectorButton(Row row) { return row == kSelectionSelector ? 0 : row + 1; }

void SetSelector(Session& s, Row row, bool on) {
    if (row == kSelectionSelector) {
        s.SelectionControlled = on;
    } else {
        s.BandTable[row].Controlled = ToBoolean(on);
    }
    s.World.Screen.ShowSelector(SelectorButton(row));
}

void SelectorRadio_Click(Session& s, int button) {
    const Row selector = SelectorRow(button);
    const UndoStep step(s, kSelectorStep, UndoScope::Selection);
    SetSelector(s, selector, !IsInControl(s, selector));
    ShowReadout(s, NumberText(button));
}

void SelectorRadio_DblClick(Session& s, int button) {
    const Row pressed = SelectorRow(button);
    const UndoStep step(s, kSelectorStep, UndoScope::Selection);
    for (Row selector = 0; selector <= kSelectionSelector; ++selector) SetSelector(s, selector, selector == pressed);
    ShowReadout(s, NumberText(button));
}

void SetCurrentLoop(Session& s, Row row, OpenPattern open) {
    if (row < 0 || row >= kLoopTracks) throw SubscriptError();
    const Row old = s.CurrentLoop;
    s.CurrentLoop = row;
    s.World.Screen.ShowThumb(old);
    s.World.Screen.ShowThumb(row);
    if (open == OpenPattern::Yes) {
        if (s.ActiveTab == kMapTab) PosSetHighlight(s, row);
        if (s.ActiveTab != kPatternTab) SetTab(s, kPatternTab);
        s.World.Screen.ShowSoundDisplay(row);
    }
    // An open pattern tab always shows the current LoopTrack, also when the call does not open it.
    PatternsRefresh(s);
}

void Thumb_Click(Session& s, Row row) { SetCurrentLoop(s, row, OpenPattern::No); }

void Thumb_DblClick(Session& s, Row row) {
    SetTab(s, kPatternTab);
    SetCurrentLoop(s, row, OpenPattern::Yes);
}

}  // namespace marvolin
