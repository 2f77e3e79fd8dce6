#include "scripting/api/patterns.h"

#include "core/loops/grouping.h"
#include "core/loops/loop_resets.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "sequencing/patterns.h"

namespace marvolin {

namespace {

constexpr std::string_view kRows = "volume|frequency|pan";  // in the order of the pattern rows

/// A pattern row on the scale of the script: (stored - Zero) / Unit.
struct Scale {
    double Zero;
    double Unit;
};
constexpr std::array<Scale, kPatternRows> kScales{{{0, 1}, {0, 10}, {kPanCentre, 1}}};

Scale ScaleOf(int patternRow) { return kScales.at(static_cast<std::size_t>(patternRow)); }

double Shown(int patternRow, double stored) { return (stored - ScaleOf(patternRow).Zero) / ScaleOf(patternRow).Unit; }

/// The value to store, checked by the range of its pattern row. A spread has no zero to count from.
std::int16_t Stored(int patternRow, double value, double zero) {
    const PatternLimits& range = kPatternRange.at(static_cast<std::size_t>(patternRow));
    const double unit = ScaleOf(patternRow).Unit;
    const double stored = Round(value * unit + zero);
    if (!(stored >= range.Min && stored <= range.Max)) {
        throw ApiFault("the value must be from " + NumberText((range.Min - zero) / unit) + " to " +
                       NumberText((range.Max - zero) / unit) + ", not " + NumberText(value));
    }
    return ToI2(stored);
}

/// Row "Z" stands for the controlled rows.
template <typename Act>
void ForRows(Session& s, Row row, Act act) {
    if (row == kSelectionRow) {
        ForControlled(s, act);
    } else {
        act(row);
    }
}

void Put(Session& s, Row row, int patternRow, int slot, std::int16_t value) {
    ForRows(s, row, [&](Row each) {
        s.Set[each].Pattern[patternRow][slot] = value;
        const int column = slot == kPatternOffset ? 0 : slot + 1;
        const bool shown = each == s.CurrentLoop && column <= s.GraphColumns[static_cast<std::size_t>(patternRow)];
        if (shown) s.World.Screen.ShowPatternColumn(patternRow, column);
    });
}

void SetPattern(ApiCall& call) {
    const int row = call.ShortAt(1);
    Put(call.s, call.RowAt(0), row, call.ShortAt(2) - 1, Stored(row, call.NumberAt(3), ScaleOf(row).Zero));
}

void SetSpread(ApiCall& call) {
    const int row = call.ShortAt(1);
    Put(call.s, call.RowAt(0), row, kPatternOffset, Stored(row, call.NumberAt(2), 0));
}

void ResetPattern(ApiCall& call) {
    ForRows(call.s, call.RowAt(0), [&](Row each) { PatternReset(call.s, each, call.ShortAt(1)); });
    PatternsRefresh(call.s);
}

void CopyPattern(ApiCall& call) {
    PatternCopy(call.s, call.RowAt(0), call.RowAt(1), call.ShortAt(2));
    PatternsRefresh(call.s);
}

void SetSteps(ApiCall& call) {
    ForRows(call.s, call.RowAt(0),
            [&](Row each) { call.s.Set[each].NSteps = static_cast<std::int16_t>(call.ShortAt(1) - 1); });
    PatternsRefresh(call.s);
}

constexpr ApiFunction kPatternsFunctions[] = {
    {.Name = "pattern",
     .Parameters = {LoopTrackArgument(), Choice("pattern", kRows), Whole("step", 1, 32)},
     .Returns = "volume 0 to 500, frequency in percent 0.1 to 400, pan -500 to 500",
     .Text = "The value of a step.",
     .Example = "marvolin.set_pattern('A', 'pan', 3, -500)  assert(marvolin.pattern('A', 'pan', 3) == -500)",
     .Act =
         [](ApiCall& call) {
             const int row = call.ShortAt(1);
             call.Return(Shown(row, call.s.Set[call.RowAt(0)].Pattern[row][call.ShortAt(2) - 1]));
         }},
    {.Name = "set_pattern",
     .Parameters = {PlayRowArgument(), Choice("pattern", kRows), Whole("step", 1, 32), Number("value", -500, 500)},
     .Text = "Sets the value of a step of a LoopTrack, or with row \"Z\" of the controlled ones. It is heard in the "
             "modes \"track\" and \"drum\" when the step comes.",
     .Errors = "A value outside the range of its pattern: volume 0 to 500, frequency 0.1 to 400 percent, pan -500 to "
               "500.",
     .Example = "marvolin.set_pattern('A', 'frequency', 1, 50)  assert(marvolin.pattern('A', 'frequency', 1) == 50)",
     .Act = SetPattern,
     .TakesBack = UndoScope::Patterns},
    {.Name = "spread",
     .Parameters = {LoopTrackArgument(), Choice("pattern", kRows)},
     .Returns = "0 to 500 of the pattern volume, 0.1 to 400 percent of frequency, 0 to 1000 of pan",
     .Text = "How far the values of a pattern are spread at random.",
     .Example = "marvolin.set_spread('A', 'volume', 60)  assert(marvolin.spread('A', 'volume') == 60)",
     .Act =
         [](ApiCall& call) {
             const int row = call.ShortAt(1);
             call.Return(call.s.Set[call.RowAt(0)].Pattern[row][kPatternOffset] / ScaleOf(row).Unit);
         }},
    {.Name = "set_spread",
     .Parameters = {PlayRowArgument(), Choice("pattern", kRows), Number("spread", 0, 1000)},
     .Text = "Sets the spread: each step adds a random number of up to this size.",
     .Errors = "A spread outside the range of its pattern.",
     .Example = "marvolin.set_spread('A', 'pan', 1000)  assert(marvolin.spread('A', 'pan') == 1000)",
     .Act = SetSpread,
     .TakesBack = UndoScope::Patterns},
    {.Name = "reset_pattern",
     .Parameters = {PlayRowArgument(), Choice("pattern", kRows)},
     .Text = "Sets all steps of a pattern to their default and its spread to the least, and the LoopTrack to 4 steps.",
     .Example = "marvolin.set_pattern('A', 'volume', 1, 5)  marvolin.reset_pattern('A', 'volume')  "
                "assert(marvolin.pattern('A', 'volume', 1) == 500)",
     .Act = ResetPattern,
     .TakesBack = UndoScope::Patterns},
    {.Name = "copy_pattern",
     .Parameters = {LoopTrackArgument("from"),
                    {.Name = "to", .Kind = ArgumentKind::PlayRow, .High = 4},
                    Choice("pattern", kRows)},
     .Text = "Copies a pattern with its spread to a row, its band, or with row \"Z\" to the controlled rows.",
     .Example = "marvolin.set_pattern('A', 'volume', 2, 7)  marvolin.copy_pattern('A', 'B', 'volume')  "
                "assert(marvolin.pattern('B', 'volume', 2) == 7)",
     .Act = CopyPattern,
     .TakesBack = UndoScope::Patterns},
    {.Name = "steps",
     .Parameters = {LoopTrackArgument()},
     .Returns = "1 to 32",
     .Text = "How many steps a LoopTrack has.",
     .Example = "marvolin.set_steps('A', 16)  assert(marvolin.steps('A') == 16)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].NSteps + 1); }},
    {.Name = "set_steps",
     .Parameters = {PlayRowArgument(), Whole("steps", 1, 32)},
     .Text = "Sets how many.",
     .Example = "marvolin.set_steps('B', 1)  assert(marvolin.steps('B') == 1)",
     .Act = SetSteps},
    {.Name = "step",
     .Parameters = {LoopTrackArgument()},
     .Returns = "1 to 32",
     .Text = "The step at which a LoopTrack is.",
     .Example = "assert(marvolin.step('A') == 1)",
     .Act = [](ApiCall& call) { call.Return(call.s.Run[call.RowAt(0)].Step + 1); }},
};

}  // namespace

std::span<const ApiFunction> PatternsFunctions() { return kPatternsFunctions; }

}  // namespace marvolin
