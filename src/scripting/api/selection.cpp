#include "scripting/api/selection.h"

#include "core/loops/grouping.h"
#include "performance/selection/selection.h"

namespace marvolin {

namespace {

constexpr std::string_view kRules =
    "All|None|Toggle|Playing|Stopped|Filled|Empty|Channel 1|Channel 2|Channel 3|Channel 4|Vol Low|Vol High|Freq Low|"
    "Freq 100%|Freq High";

constexpr Row kSelectionButton = kBands;  // the selection's selector, behind those of the bands

Row SelectorAt(const ApiCall& call) {
    return call.ShortAt(0) == 0 ? kSelectionButton : static_cast<Row>(call.ShortAt(0) - 1);
}

void Selector(ApiCall& call) {
    const Row row = SelectorAt(call);
    call.ReturnFlag(row == kSelectionButton ? call.s.SelectionControlled : call.s.BandTable[row].Controlled != False);
}

constexpr ApiFunction kSelectionFunctions[] = {
    {.Name = "selected",
     .Parameters = {LoopTrackArgument()},
     .Returns = "true or false",
     .Text = "Whether the flag of a LoopTrack is on.",
     .Example = "marvolin.select_column(3, true)  assert(marvolin.selected('C') and not marvolin.selected('A'))",
     .Act = [](ApiCall& call) { call.ReturnFlag(call.s.Set[call.RowAt(0)].Selected != False); }},
    {.Name = "select_group",
     .Parameters = {Choice("rule", kRules)},
     .Text = "Selects the LoopTracks that a rule of the list names.",
     .Example = "marvolin.select_group('Filled')  assert(marvolin.selected('B') and not marvolin.selected('D'))",
     .Act = [](ApiCall& call) { SelectGroup(call.s, call.TextAt(0)); },
     .TakesBack = UndoScope::Selection},
    {.Name = "select_column",
     .Parameters = {Whole("column", 1, 4), Flag("on")},
     .Text = "Sets the flag of the LoopTrack in a column: 1 is A, 4 is D.",
     .Example = "marvolin.select_column(1, true)  assert(marvolin.selected('A'))",
     .Act = [](ApiCall& call) { SelectColumn(call.s, call.ShortAt(0), call.FlagAt(1)); },
     .TakesBack = UndoScope::Selection},
    {.Name = "select_row",
     .Parameters = {Whole("row of flags", 1, 1), Flag("on")},
     .Text = "Sets all four flags. There is one row of flags.",
     .Example = "marvolin.select_row(1, true)  assert(marvolin.selected('A') and marvolin.selected('D'))",
     .Act = [](ApiCall& call) { SelectRow(call.s, call.ShortAt(0), call.FlagAt(1)); },
     .TakesBack = UndoScope::Selection},
    {.Name = "select_range",
     .Parameters = {LoopTrackArgument("from"), LoopTrackArgument("to")},
     .Text = "Selects the LoopTracks from one to another, in either direction.",
     .Example = "marvolin.select_range('C', 'B')  assert(marvolin.selected('B') and marvolin.selected('C'))",
     .Act = [](ApiCall& call) { SelectRange(call.s, call.RowAt(0), call.RowAt(1)); },
     .TakesBack = UndoScope::Selection},
    {.Name = "deselect_range",
     .Parameters = {LoopTrackArgument("from"), LoopTrackArgument("to")},
     .Text = "Deselects them.",
     .Example = "marvolin.select_row(1, true)  marvolin.deselect_range('A', 'C')  assert(marvolin.selected('D') and "
                "not marvolin.selected('B'))",
     .Act = [](ApiCall& call) { DeselectRange(call.s, call.RowAt(0), call.RowAt(1)); },
     .TakesBack = UndoScope::Selection},
    {.Name = "select_toggle",
     .Parameters = {LoopTrackArgument()},
     .Text = "Flips the flag of a LoopTrack.",
     .Example = "marvolin.select_toggle('D')  assert(marvolin.selected('D'))",
     .Act = [](ApiCall& call) { SelectToggle(call.s, call.RowAt(0)); },
     .TakesBack = UndoScope::Selection},
    {.Name = "controlled",
     .Parameters = {LoopTrackArgument()},
     .Returns = "true or false",
     .Text = "Whether a LoopTrack follows row \"Z\": it is selected while the selection is in control, or belongs to a "
             "band in control.",
     .Example = "marvolin.select_column(1, true)  assert(marvolin.controlled('A'))",
     .Act = [](ApiCall& call) { call.ReturnFlag(IsControlled(call.s, call.RowAt(0))); }},
    {.Name = "selector",
     .Parameters = {Whole("button", 0, 6)},
     .Returns = "true or false",
     .Text = "Whether a selector button is on: 0 the selection, 1 to 6 the bands.",
     .Example = "assert(marvolin.selector(0) and not marvolin.selector(1))",
     .Act = Selector},
    {.Name = "set_selector",
     .Parameters = {Whole("button", 0, 6), Flag("on")},
     .Text = "Puts the selection or a band in control, or out of it.",
     .Example = "marvolin.set_selector(0, false)  assert(not marvolin.selector(0))",
     .Act = [](ApiCall& call) { SetSelector(call.s, SelectorAt(call), call.FlagAt(1)); },
     .TakesBack = UndoScope::Selection},
};

}  // namespace

std::span<const ApiFunction> SelectionFunctions() { return kSelectionFunctions; }

}  // namespace marvolin
