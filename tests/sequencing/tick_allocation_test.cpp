#include <gtest/gtest.h>

#include "allocation_counter.h"
#include "fakes/instrument.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

TEST(TickAllocation, TheCounterSeesAnAllocation) {
    const long before = test::Allocations();
    const auto text = std::make_unique<std::string>(200, 'x');
    EXPECT_GE(test::Allocations(), before + 2);
}

TEST(TickAllocation, ATickInWhichNothingIsDueAllocatesNothing) {
    test::Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) {
        i.Fill(row).Status = buffer_status::kPlaying;
        i.s.Set[row].PlayMode = row;  // one of each mode
        i.s.Set[row].StepDuration = 1000;
        i.s.Set[row].Swing = 1;
        i.s.Run[row].Playing = True;
        i.Select(row);
    }
    i.s.ActiveTab = kPatternTab;
    LoopTimer_Timer(i.s, 10);  // the selection's button is up to date
    const long before = test::Allocations();
    for (int tick = 0; tick < 90; ++tick) LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(test::Allocations(), before);
    EXPECT_EQ(i.s.Run[kTrack].StepElapsed, 910);
}

}  // namespace
}  // namespace marvolin
