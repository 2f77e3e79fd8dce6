#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/routines.h"
#include "fakes/instrument.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(SessionClock, ALongStallMovesTheSecondsByOneAndTheFollowingTicksAddTheRest) {
    Instrument i;
    LoopTimer_Timer(i.s, 5000);
    EXPECT_EQ(i.s.Clock.ClockSeconds, 1);
    EXPECT_EQ(i.s.Clock.ClockMsPart, 4000);
    EXPECT_EQ(i.s.Clock.ClockMs, 5000);
    for (int second = 2; second <= 5; ++second) {
        LoopTimer_Timer(i.s, 0);
        EXPECT_EQ(i.s.Clock.ClockSeconds, second);
    }
    EXPECT_EQ(i.s.Clock.ClockMsPart, 0);
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.s.Clock.ClockSeconds, 5);
    EXPECT_EQ(i.s.Clock.Panel, "00:00:05");
}

TEST(SessionClock, TheSecondPassesAtTheThousandthMillisecondAndThePanelIsWrittenOnlyThen) {
    Instrument i;
    for (int tick = 0; tick < 99; ++tick) LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.Screen.Count("ShowClock"), 0);
    EXPECT_EQ(i.s.Clock.Panel, "");
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.Screen.Count("ShowClock"), 1);
    EXPECT_EQ(i.s.Clock.Panel, "00:00:01");
    EXPECT_EQ(i.s.Clock.ClockMsPart, 0);
}

TEST(SessionClock, RunsOverMinutesAndHoursUpTo24AndWrapsAfter25Hours) {
    Instrument i;
    SessionClock& clock = i.s.Clock;
    auto nextSecond = [&] {
        LoopTimer_Timer(i.s, 1000);
        return clock.Panel;
    };
    clock.ClockSeconds = 59;
    EXPECT_EQ(nextSecond(), "00:01:00");
    clock.ClockMinutes = 59;
    clock.ClockSeconds = 59;
    EXPECT_EQ(nextSecond(), "01:00:00");
    clock.ClockHours = 23;
    clock.ClockMinutes = 59;
    clock.ClockSeconds = 59;
    EXPECT_EQ(nextSecond(), "24:00:00");
    clock.ClockMinutes = 59;
    clock.ClockSeconds = 58;
    EXPECT_EQ(nextSecond(), "24:59:59");
    EXPECT_EQ(nextSecond(), "00:00:00");
    EXPECT_EQ(clock.ClockMs, 0);
    EXPECT_EQ(clock.ClockHours, 0);
    EXPECT_EQ(clock.ClockMinutes, 0);
    EXPECT_EQ(nextSecond(), "00:00:01");
}

TEST(SessionClock, RunsWhetherAnythingPlaysOrNot) {
    Instrument i;
    i.Fill(0);
    i.s.Run[0].Playing = True;
    LoopTimer_Timer(i.s, 1000);
    i.s.Run[0].Playing = False;
    LoopTimer_Timer(i.s, 1000);
    EXPECT_EQ(i.s.Clock.Panel, "00:00:02");
}

TEST(SessionClock, ResetClearsAllFiveCounters) {
    Instrument i;
    i.s.Clock.ClockMs = 1;
    i.s.Clock.ClockMsPart = 2;
    i.s.Clock.ClockSeconds = 3;
    i.s.Clock.ClockMinutes = 4;
    i.s.Clock.ClockHours = 5;
    ClockReset(i.s);
    EXPECT_EQ(i.s.Clock.ClockMs, 0);
    EXPECT_EQ(i.s.Clock.ClockMsPart, 0);
    EXPECT_EQ(i.s.Clock.ClockSeconds, 0);
    EXPECT_EQ(i.s.Clock.ClockMinutes, 0);
    EXPECT_EQ(i.s.Clock.ClockHours, 0);
}

TEST(TimerCollision, ATickInsideATickIsRefusedAndItsTimeIsLostToAllCounters) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    i.s.Set[0].StepDuration = 100;
    i.s.Run[0].Playing = True;
    i.s.LoopTimerBusy = true;
    LoopTimer_Timer(i.s, 500);
    EXPECT_EQ(i.s.Clock.Panel, "Timer collision!");
    EXPECT_EQ(i.Screen.Count("ShowClock"), 1);
    EXPECT_EQ(i.s.Clock.ClockMs, 0);
    EXPECT_EQ(i.s.Clock.ClockMsPart, 0);
    EXPECT_EQ(i.s.Run[0].StepElapsed, 0);
    EXPECT_TRUE(i.s.LoopTimerBusy);
}

TEST(TimerCollision, TheMessageStaysUntilTheNextFullSecond) {
    Instrument i;
    LoopTimer_Timer(i.s, 500);
    i.s.LoopTimerBusy = true;
    LoopTimer_Timer(i.s, 10);
    i.s.LoopTimerBusy = false;
    LoopTimer_Timer(i.s, 490);
    EXPECT_EQ(i.s.Clock.Panel, "Timer collision!");
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.s.Clock.Panel, "00:00:01");
}

TEST(TimerCollision, AFinishedTickLeavesTheGuardClear) {
    Instrument i;
    LoopTimer_Timer(i.s, 10);
    EXPECT_FALSE(i.s.LoopTimerBusy);
}

TEST(TimerCollision, AFailureOfTheServiceRisesAndNothingElseClearsTheGuard) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kOneShot;
    i.s.Run[0].Playing = True;
    i.Sound.Failures["GetStatus"] = sound_error::kBufferLost;
    EXPECT_THROW(LoopTimer_Timer(i.s, 10), SoundError);
    EXPECT_TRUE(i.s.LoopTimerBusy);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    i.Sound.Failures.clear();
    LoopTimer_Timer(i.s, 10);
    EXPECT_EQ(i.s.Clock.Panel, "Timer collision!");
}

class TimingRes : public testing::Test {
protected:
    Instrument i;
    void SetUp() override {
        i.s.LoopTimer = i.Timers.Create([](std::int32_t) {});
    }
    const test::FakeTimers::Timer& Timer() const { return *i.Timers.Live.front(); }
};

TEST_F(TimingRes, TheSliderSetsTheIntervalAndAResolutionOfAtMost25) {
    struct Case {
        std::int16_t Value;
        std::int32_t Resolution;
    };
    for (const Case c : {Case{1, 1}, {10, 10}, {24, 24}, {25, 25}, {26, 25}, {100, 25}}) {
        SCOPED_TRACE(c.Value);
        ResSlider_Change(i.s, c.Value);
        EXPECT_EQ(i.s.TimingRes, c.Value);
        EXPECT_EQ(Timer().Interval, c.Value);
        EXPECT_EQ(Timer().Resolution, c.Resolution);
        EXPECT_EQ(i.s.StatusText, "Timer Resolution: " + NumberText(c.Value) + " ms");
    }
}

TEST_F(TimingRes, TheResolutionIsSetBeforeTheInterval) {
    struct Ordered : PeriodicTimer {
        explicit Ordered(std::string& calls) : Calls(calls) {}
        void SetInterval(std::int32_t) override { Calls += "interval "; }
        void SetResolution(std::int32_t) override { Calls += "resolution "; }
        void SetEnabled(bool) override { Calls += "enabled "; }
        std::string& Calls;
    };
    std::string calls;
    i.s.LoopTimer = std::make_unique<Ordered>(calls);
    ResSlider_Change(i.s, 20);
    EXPECT_EQ(calls, "resolution interval ");
}

TEST_F(TimingRes, TheSliderIsLimitedTo1And100) {
    ResSlider_Change(i.s, 0);
    EXPECT_EQ(Timer().Interval, 1);
    ResSlider_Change(i.s, 101);
    EXPECT_EQ(Timer().Interval, 100);
}

TEST_F(TimingRes, AValueOutsideFromAFileIsIgnored) {
    SetTimingRes(i.s, 40);
    EXPECT_EQ(Timer().Interval, 40);
    for (const std::int16_t value : std::initializer_list<std::int16_t>{-5, 0, 101, 32000}) {
        SetTimingRes(i.s, value);
        EXPECT_EQ(i.s.TimingRes, 40) << value;
        EXPECT_EQ(Timer().Interval, 40) << value;
    }
    SetTimingRes(i.s, 1);
    EXPECT_EQ(i.s.TimingRes, 1);
    SetTimingRes(i.s, 100);
    EXPECT_EQ(i.s.TimingRes, 100);
}

TEST_F(TimingRes, AValueFromAFileLeavesTheStatusLineAlone) {
    i.s.StatusText = "Ready.";
    SetTimingRes(i.s, 40);
    EXPECT_EQ(i.s.StatusText, "Ready.");
    EXPECT_EQ(i.Screen.Count("ShowStatusText"), 0);
    EXPECT_EQ(i.Screen.Count("ShowOptions"), 1);
}

TEST_F(TimingRes, WithoutATimerTheValueIsKept) {
    i.s.LoopTimer.reset();
    ResSlider_Change(i.s, 7);
    EXPECT_EQ(i.s.TimingRes, 7);
    EXPECT_EQ(i.Screen.Count("ShowOptions"), 1);
}

}  // namespace
}  // namespace marvolin
