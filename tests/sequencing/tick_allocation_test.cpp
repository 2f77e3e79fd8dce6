#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "fakes/instrument.h"
#include "sequencing/loop_clock.h"

namespace {

long allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace marvolin {
namespace {

TEST(TickAllocation, TheCounterSeesAnAllocation) {
    const long before = allocations;
    const auto text = std::make_unique<std::string>(200, 'x');
    EXPECT_GE(allocations, before + 2);
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
    LoopTimer_Timer(i.s, 10);  // the selection's button has followed
    const long before = allocations;
    for (int tick = 0; tick < 90; ++tick) LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(allocations, before);
    EXPECT_EQ(i.s.Run[kTrack].StepElapsed, 910);
}

}  // namespace
}  // namespace marvolin
