#include "scripting/delayed_calls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "parameters/scroll_events.h"
#include "scripting/lua_rig.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(DelayedCalls, ComeInTheOrderOfTheirTimes) {
    DelayedCalls calls;
    calls.Add(20, 1);
    calls.Add(10, 2);
    calls.Add(20, 3);
    EXPECT_EQ(calls.TakeDue(), std::nullopt);
    calls.Pass(10);
    EXPECT_EQ(calls.TakeDue(), 2);
    EXPECT_EQ(calls.TakeDue(), std::nullopt);
    calls.Pass(15);
    EXPECT_EQ(calls.TakeDue(), 1);
    EXPECT_EQ(calls.TakeDue(), 3);
    EXPECT_TRUE(calls.Empty());
}

TEST(DelayedCalls, OneWithoutDelayWaitsForTheNextTick) {
    DelayedCalls calls;
    calls.Pass(10);
    calls.Add(0, 1);
    EXPECT_EQ(calls.TakeDue(), std::nullopt);
    calls.Pass(10);
    EXPECT_EQ(calls.TakeDue(), 1);
}

TEST(DelayedCalls, HaveAnEnd) {
    DelayedCalls calls;
    for (std::size_t call = 0; call < kMostDelayedCalls; ++call) {
        ASSERT_TRUE(calls.HasRoom());
        calls.Add(1, 1);
    }
    EXPECT_FALSE(calls.HasRoom());
}

TEST(After, CallsTheFunctionOnceWhenItsTimeHasCome) {
    LuaRig i;
    i.Run("marvolin.after(30, function() print('now') end)");
    i.Pass(20);
    EXPECT_THAT(i.Printed, IsEmpty());
    i.Pass(10);
    EXPECT_THAT(i.Printed, ElementsAre("now"));
    i.Pass(100);
    EXPECT_EQ(i.Printed.size(), 1U);
}

TEST(After, AFunctionThatAsksForItselfAgainRunsOnAndOn) {
    LuaRig i;
    i.Run("local n = 0\nlocal function step() n = n + 1 print(n) marvolin.after(0, step) end\nstep()");
    i.Pass(50);
    EXPECT_THAT(i.Printed, ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST(After, TheTimerRunsOnlyWhileCallsWait) {
    LuaRig i;
    i.Run("x = 1");
    EXPECT_EQ(i.Timers.Live.size(), 1U);
    i.Run("marvolin.after(10, function() end)");
    ASSERT_EQ(i.Timers.Live.size(), 2U);
    EXPECT_TRUE(i.Timers.Live[1]->Enabled);
    i.Pass(10);
    EXPECT_FALSE(i.Timers.Live[1]->Enabled);
}

TEST(After, AnErrorIsToldAndTheOtherCallsGoOn) {
    LuaRig i;
    i.Run("marvolin.after(10, function()\n error('no') end)\nmarvolin.after(20, function() print('yes') end)");
    i.Pass(30);
    EXPECT_EQ(i.Box(), "after: no,  ln:2  col:0");
    EXPECT_THAT(i.Printed, ElementsAre("yes"));
    EXPECT_FALSE(i.s.ScriptBusy);
}

TEST(After, AnErrorThatComesAgainIsToldOnceAScriptAndAtMost20AreTold) {
    LuaRig i;
    const std::string again = "local n = 0\nlocal function f() n = n + 1 marvolin.after(10, f) error(";
    i.Run(again + "'no') end\nmarvolin.after(10, f)");
    i.Desk.Boxes.clear();
    for (int tick = 0; tick < 100; ++tick) i.Pass(10);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
    i.Run(again + "'no' .. n) end\nmarvolin.after(10, f)");
    i.Desk.Boxes.clear();
    for (int tick = 0; tick < 100; ++tick) i.Pass(10);
    EXPECT_EQ(i.Desk.Boxes.size(), 20U);
    i.Run("marvolin.after(10, function() error('no') end)");
    i.Desk.Boxes.clear();
    i.Pass(10);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
}

TEST(After, AFailureThatGetsNoBoxHasALineOnTheConsoleOnceASecond) {
    LuaRig i;
    i.Run(
        "local n = 0\nlocal function f() n = n + 1 marvolin.after(10, f) error('no ' .. n) end\nmarvolin.after(10, f)");
    i.Pass(200);
    EXPECT_EQ(i.Desk.Boxes.size(), 20U);
    EXPECT_THAT(i.Printed, IsEmpty());
    i.Pass(5000);
    EXPECT_EQ(i.Desk.Boxes.size(), 20U);
    EXPECT_GE(i.Printed.size(), 4U);
    EXPECT_LE(i.Printed.size(), 6U);
    EXPECT_THAT(i.Printed.back(), ::testing::MatchesRegex("Error in after: no [0-9]+, line 2"));
}

TEST(After, AnEndlessFunctionEndsInTime) {
    LuaRig i;
    i.Run("marvolin.after(10, function() while true do end end)");
    i.Pass(10);
    EXPECT_THAT(i.Box(), HasSubstr("after: The script ran longer than 20 ms"));
}

TEST(After, WhatDoesNotFitIntoOneTickComesWithALaterOne) {
    LuaRig i;
    i.Run("for n = 1, 3 do marvolin.after(10, function() print(n) for _ = 1, 3000000 do end end) end");
    i.Pass(10);
    EXPECT_THAT(i.Printed, ElementsAre("1", "2"));
    i.Pass(10);
    EXPECT_EQ(i.Printed.size(), 2U) << "the script rests as long as it has worked";
    i.Pass(20);
    EXPECT_THAT(i.Printed, ElementsAre("1", "2", "3"));
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(After, MoreThan256CallsAreRefused) {
    LuaRig i;
    EXPECT_THAT(i.Prints("for n = 1, 257 do marvolin.after(10, print) end"),
                HasSubstr("after: more than 256 calls are waiting"));
    EXPECT_EQ(i.Prints("for n = 1, 256 do marvolin.after(10, print) end"), "");
}

TEST(After, ATickDuringAnEventLeavesTheCallsForLater) {
    LuaRig i;
    i.Run("marvolin.after(10, function() print('late') end)");
    i.s.ScriptBusy = true;
    i.Pass(10);
    EXPECT_THAT(i.Printed, IsEmpty());
    i.s.ScriptBusy = false;
    i.Pass(10);
    EXPECT_THAT(i.Printed, ElementsAre("late"));
}

TEST(After, AnEndedScriptIsNotCalledAgain) {
    LuaRig i;
    i.Run("marvolin.after(10, function() marvolin.stop_script() end)\nmarvolin.after(20, function() print('x') end)");
    i.Pass(50);
    EXPECT_THAT(i.Printed, IsEmpty());
    EXPECT_FALSE(i.s.ScriptBusy);
    EXPECT_FALSE(i.Timers.Live[1]->Enabled);
    i.Run("marvolin.after(20, function() print('y') end)");
    EndScript(i.s, i.Host);
    i.Pass(50);
    EXPECT_THAT(i.Printed, IsEmpty());
}

TEST(After, AFunctionThatIsNoFunctionLeavesNothingBehind) {
    LuaRig i;
    EXPECT_THAT(i.Prints("marvolin.after(10, 'print')"), HasSubstr("must be a function"));
}

TEST(After, WithoutATimerItIsAnErrorOfTheScript) {
    LuaRig i;
    i.Run("function OnVolChange() marvolin.after(10, print) end");
    i.Timers.Fail = true;
    SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::vector<double>{1, 2});
    EXPECT_THAT(i.Box(), HasSubstr("OnVolChange: after: ActiveX component can't create object"));
}

}  // namespace
}  // namespace marvolin
