#include "parameters/scroll_events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;

bool Passes(clsScrollDelta& counter, double x, double y = 0, bool force = false) {
    bool send = false;
    counter.SendScroll(x, y, force, send);
    return send;
}

TEST(ScrollDelta, WithSensitivityOneEveryCallPasses) {
    clsScrollDelta counter;
    counter.ScrollSensitivity(1);
    counter.Reset(10, 0);
    for (int x = 11; x < 20; ++x) {
        EXPECT_TRUE(Passes(counter, x));
        EXPECT_EQ(counter.DeltaX(), 1);
    }
}

TEST(ScrollDelta, WithSensitivityFiveTheFifthPassesWithTheSumOfFiveMovements) {
    clsScrollDelta counter;
    counter.ScrollSensitivity(5);
    counter.Reset(100, 50);
    double x = 100, y = 50;
    for (int round = 0; round < 3; ++round) {
        for (int call = 1; call <= 5; ++call) {
            x += call;
            y -= 2 * call;
            EXPECT_EQ(Passes(counter, x, y), call == 5);
        }
        EXPECT_EQ(counter.DeltaX(), 15);
        EXPECT_EQ(counter.DeltaY(), -30);
    }
}

TEST(ScrollDelta, ForcePassesAtOnceAndStartsTheCountAgain) {
    clsScrollDelta counter;
    counter.ScrollSensitivity(3);
    counter.Reset(0, 0);
    EXPECT_FALSE(Passes(counter, 1));
    EXPECT_FALSE(Passes(counter, 2));
    EXPECT_TRUE(Passes(counter, 3, 0, true));
    EXPECT_FALSE(Passes(counter, 4));
    EXPECT_FALSE(Passes(counter, 5));
    EXPECT_TRUE(Passes(counter, 6));
    EXPECT_EQ(counter.DeltaX(), 3);
}

TEST(ScrollDelta, ResetClearsDeltasAndCount) {
    clsScrollDelta counter;
    counter.ScrollSensitivity(2);
    counter.Reset(0, 0);
    EXPECT_FALSE(Passes(counter, 7, 7));
    EXPECT_TRUE(Passes(counter, 7, 7));
    EXPECT_FALSE(Passes(counter, 8, 8));
    counter.Reset(20, 30);
    EXPECT_EQ(counter.DeltaX(), 0);
    EXPECT_EQ(counter.DeltaY(), 0);
    EXPECT_FALSE(Passes(counter, 21, 32));
    EXPECT_TRUE(Passes(counter, 22, 34));
    EXPECT_EQ(counter.DeltaX(), 2);
    EXPECT_EQ(counter.DeltaY(), 4);
}

TEST(ScrollDelta, TheSensitivityIsLimited) {
    clsScrollDelta counter;
    counter.ScrollSensitivity(0);
    EXPECT_TRUE(Passes(counter, 1));
    counter.ScrollSensitivity(60000);
    counter.Reset(0, 0);
    for (int call = 1; call < 50000; ++call) ASSERT_FALSE(Passes(counter, call)) << call;
    EXPECT_TRUE(Passes(counter, 50000));
}

TEST(ScrollCounter, IsMadeOnFirstUseWithTheSensitivityOfItsOption) {
    Instrument i;
    i.s.ScrollSensitivity[0] = 2;
    i.s.ScrollSensitivity[1] = 3;
    EXPECT_EQ(i.s.ScrollDelta[0], nullptr);
    const std::array<int, 3> sensitivities{2, 3, 3};
    for (int counter = 0; counter < 3; ++counter) {
        SCOPED_TRACE(counter);
        clsScrollDelta& instance = ScrollCounter(i.s, counter);
        EXPECT_EQ(&instance, &ScrollCounter(i.s, counter));
        int calls = 1;
        while (!Passes(instance, 0)) ++calls;
        EXPECT_EQ(calls, sensitivities[static_cast<std::size_t>(counter)]);
    }
}

TEST(ScrollSensitivity, TheFirstOptionServesTheKnobsTheSecondBothCountersOfTheMap) {
    Instrument i;
    ScrollSensitivity_Change(i.s, 1, 2);
    EXPECT_TRUE(Passes(ScrollCounter(i.s, kKnobScroll), 0));
    EXPECT_FALSE(Passes(ScrollCounter(i.s, kMapScroll), 0));
    EXPECT_FALSE(Passes(ScrollCounter(i.s, kJoystickScroll), 0));
    EXPECT_EQ(i.s.StatusText, "Send scroll event every 2 moves");
    ScrollSensitivity_Change(i.s, 0, 4);
    EXPECT_FALSE(Passes(ScrollCounter(i.s, kKnobScroll), 0));
    EXPECT_TRUE(Passes(ScrollCounter(i.s, kMapScroll), 0));
    EXPECT_EQ(i.Screen.Count("ShowOptions"), 2);
    EXPECT_EQ(i.s.ScrollSensitivity[0], 4);
    EXPECT_EQ(i.s.ScrollSensitivity[1], 2);
}

TEST(ScrollSensitivity, IsLimited) {
    Instrument i;
    ScrollSensitivity_Change(i.s, 0, 0);
    EXPECT_EQ(i.s.ScrollSensitivity[0], 1);
    ScrollSensitivity_Change(i.s, 0, 60000);
    EXPECT_EQ(i.s.ScrollSensitivity[0], 50000);
}

TEST(ScriptEvents, AnEventThatIsNotWantedIsNotCalled) {
    Instrument i;
    SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::array{1.0, 2.0});
    EXPECT_TRUE(i.Scripts.Events.empty());
}

TEST(ScriptEvents, AnEventIsNotWantedWhileItRuns) {
    Instrument i;
    i.s.EventWanted[ScriptEvent::OnVolChange] = -1;
    i.Scripts.During = [&](ScriptEvent) {
        EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolChange], 0);
        SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::array{9.0, 9.0});
    };
    SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::array{1.0, 2.0});
    ASSERT_EQ(i.Scripts.Events.size(), 1U);
    EXPECT_THAT(i.Scripts.Events[0].Arguments, ElementsAre(1, 2));
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolChange], -1);
}

TEST(ScriptEvents, WhileAnEventRunsTheScriptIsBusyAndAfterwardsAsBusyAsBefore) {
    for (const bool busy : {false, true}) {
        for (const bool fail : {false, true}) {
            SCOPED_TRACE(::testing::Message() << busy << fail);
            Instrument i;
            i.s.ScriptBusy = busy;
            i.s.EventWanted[ScriptEvent::OnVolChange] = -1;
            i.Scripts.Fail = fail;
            bool during = false;
            i.Scripts.During = [&](ScriptEvent) { during = i.s.ScriptBusy; };
            SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::array{1.0, 2.0});
            EXPECT_TRUE(during);
            EXPECT_EQ(i.s.ScriptBusy, busy);
        }
    }
}

TEST(ScriptEvents, AFailingEventIsReportedByNameAndIsSilentFromThenOn) {
    Instrument i;
    i.s.EventWanted[ScriptEvent::OnPanScroll] = -1;
    i.s.EventWanted[ScriptEvent::OnPositionScroll] = -1;
    i.Scripts.Fail = true;
    SendScriptEvent(i.s, ScriptEvent::OnPanScroll, std::array{1.0});
    SendScriptEvent(i.s, ScriptEvent::OnPositionScroll, std::array{1.0}, "OnPosScroll");
    i.Scripts.Fail = false;
    SendScriptEvent(i.s, ScriptEvent::OnPanScroll, std::array{1.0});
    EXPECT_EQ(i.Scripts.Events.size(), 2U);
    EXPECT_THAT(i.Scripts.Reports, ElementsAre("OnPanScroll", "OnPosScroll"));
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnPanScroll], 0);
}

}  // namespace
}  // namespace marvolin
