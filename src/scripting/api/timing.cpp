#include "scripting/api/timing.h"

#include "audio/beat_start.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr double kHundredths = 100;  // in a second

/// Sets a time of a LoopTrack, or with row "Z" of the controlled ones, in hundredths of a second.
template <typename Act>
void ForTimes(ApiCall& call, Act act) {
    const std::int32_t hundredths = ToI4(call.NumberAt(1) * kHundredths);
    if (call.RowAt(0) == kSelectionRow) {
        ForControlled(call.s, [&](Row each) { act(each, hundredths); });
    } else {
        act(call.RowAt(0), hundredths);
    }
    TimingRefresh(call.s);
}

void SetStepDuration(ApiCall& call) {
    ForTimes(call, [&](Row row, std::int32_t time) { call.s.Set[row].StepDuration = time; });
}
void SetSwing(ApiCall& call) {
    ForTimes(call, [&](Row row, std::int32_t time) { call.s.Set[row].Swing = time; });
}
void SetSampleStart(ApiCall& call) {
    ForTimes(call, [&](Row row, std::int32_t time) { LoopSetBeatStart(call.s, row, time); });
}

constexpr ApiFunction kTimingFunctions[] = {
    {.Name = "step_duration",
     .Parameters = {LoopTrackArgument()},
     .Returns = "seconds",
     .Text = "The time from one step to the next.",
     .Example = "marvolin.set_step_duration('A', 0.25)  assert(marvolin.step_duration('A') == 0.25)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].StepDuration / kHundredths); }},
    {.Name = "set_step_duration",
     .Parameters = {PlayRowArgument(), Number("duration", 0.01, 999.99, "seconds")},
     .Text = "Sets it, to a hundredth of a second, on a LoopTrack, or with row \"Z\" on the controlled ones.",
     .Example = "marvolin.set_step_duration('B', 1.5)  assert(marvolin.step_duration('B') == 1.5)",
     .Act = SetStepDuration},
    {.Name = "swing",
     .Parameters = {LoopTrackArgument()},
     .Returns = "seconds",
     .Text = "How far the steps are shifted at random.",
     .Example = "marvolin.set_swing('A', 0.02)  assert(marvolin.swing('A') == 0.02)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].Swing / kHundredths); }},
    {.Name = "set_swing",
     .Parameters = {PlayRowArgument(), Number("swing", 0, 999.99, "seconds")},
     .Text = "Sets it, with the same grouping.",
     .Example = "marvolin.set_swing('B', 0)  assert(marvolin.swing('B') == 0)",
     .Act = SetSwing},
    {.Name = "sample_start",
     .Parameters = {LoopTrackArgument()},
     .Returns = "seconds",
     .Text = "Where the mode \"drum\" starts the sample.",
     .Example = "marvolin.set_sample_start('A', 0.5)  assert(marvolin.sample_start('A') == 0.5)",
     .Act = [](ApiCall& call) { call.Return(call.s.Set[call.RowAt(0)].BeatStart / kHundredths); }},
    {.Name = "set_sample_start",
     .Parameters = {PlayRowArgument(), Number("start", 0, 9999, "seconds")},
     .Text = "Sets it, with the same grouping. What lies behind the end of the sample becomes its end.",
     .Example = "marvolin.set_sample_start('B', 5)  assert(marvolin.sample_start('B') == 1)",
     .Act = SetSampleStart},
};

}  // namespace

std::span<const ApiFunction> TimingFunctions() { return kTimingFunctions; }

}  // namespace marvolin
