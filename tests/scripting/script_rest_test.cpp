#include "scripting/script_rest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "parameters/scroll_events.h"
#include "scripting/lua_rig.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::IsEmpty;

constexpr std::int64_t kMs = 1'000'000;  // ns

TEST(ScriptRest, IsAsLongAsTheCallWas) {
    ScriptRest rest;
    EXPECT_EQ(rest.Owed(100 * kMs), 0);
    rest.Charge(100 * kMs, 19 * kMs);
    EXPECT_EQ(rest.Owed(100 * kMs), 19 * kMs);
    EXPECT_EQ(rest.Owed(118 * kMs), kMs);
    EXPECT_EQ(rest.Owed(119 * kMs), 0);
    EXPECT_EQ(rest.Owed(500 * kMs), 0);
}

TEST(ScriptRest, CallsAddUpToASecondAndALongOneCountsWhole) {
    ScriptRest rest;
    rest.Charge(10 * kMs, 10 * kMs);
    rest.Charge(25 * kMs, 10 * kMs);
    EXPECT_EQ(rest.Owed(25 * kMs), 15 * kMs) << "5 ms of the first have passed";
    for (int call = 1; call <= 200; ++call) rest.Charge((25 + 10 * call) * kMs, 10 * kMs);
    EXPECT_EQ(rest.Owed(2025 * kMs), 1000 * kMs);
    rest.Charge(10'000 * kMs, 5000 * kMs);
    EXPECT_EQ(rest.Owed(10'000 * kMs), 5000 * kMs);
    rest.Forgive();
    EXPECT_EQ(rest.Owed(10'000 * kMs), 0);
}

TEST(ScriptRest, AShortCallDoesNotShortenALongDebt) {
    ScriptRest rest;
    rest.Charge(5000 * kMs, 5000 * kMs);
    rest.Charge(5010 * kMs, kMs);
    EXPECT_EQ(rest.Owed(5010 * kMs), 4991 * kMs) << "9 ms were paid off before the short call began";
}

/// A script on a clock by hand, with a function `work()` that takes about 19 ms.
struct Worked : LuaRig {
    std::int64_t Taken = 0;  ///< ns, in events and delayed calls

    /// Runs `text` behind that function.
    void Begin(const std::string& text) {
        Look = 100'000;  // so 200 instructions take
        Run("local function work() for _ = 1, 37000 do end end\n" + text);
    }
    /// A second of ticks as the program has them: the script's clock each 100 ms, delayed calls each 10 ms. A tick that
    /// is late comes when the thread is free.
    void Second() {
        for (std::int64_t place = 0; place < 1000; place += 10) {
            const std::int64_t due = begin_ + place * kMs;
            if (Now < due) Now = due;
            const std::int64_t before = Now;
            if (place % 100 == 0) ScriptTimer_Timer(s, 100);
            const std::vector<test::FakeTimers::Timer*> timers = Timers.Live;
            for (auto* timer : timers) {
                if (timer->Enabled && timer->Interval == kDelayInterval) timer->OnTick(kDelayInterval);
            }
            Taken += Now - before;
        }
        begin_ += 1000 * kMs;
    }
    /// A second of ticks, of which the script gets about a half.
    void ExpectHalfOfASecond() {
        Taken = 0;
        Second();
        EXPECT_GT(Taken, 400 * kMs);
        EXPECT_LT(Taken, 600 * kMs);
    }
    int Lines(const std::string& text) const {
        return static_cast<int>(std::count(Printed.begin(), Printed.end(), text));
    }

private:
    std::int64_t begin_ = 2000 * kMs;
};

/// With a set to load, "scene".
struct WithAScene : Worked {
    WithAScene() {
        folder_.Touch("scene.mvn");
        s.CurrentFolder = folder_.Path() + "/";
    }

private:
    const test::TempFolder folder_;
};

/// Calls itself for ever, as soon as it may.
constexpr const char* kAgain = "local function again() marvolin.after(0, again) work() end\n";

TEST(ScriptShare, AChainOfDelayedCallsGetsAboutHalfOfTheTime) {
    Worked i;
    i.Begin(std::string(kAgain) + "again()");
    i.ExpectHalfOfASecond();
    i.ExpectHalfOfASecond();
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(ScriptShare, ManyDelayedCallsAndTheClockTogetherGetAboutHalf) {
    Worked i;
    i.Begin(std::string(kAgain) +
            "for _ = 1, 50 do marvolin.after(0, again) end\n"
            "function OnClock() work() print('clock') end");
    i.Second();
    i.Printed.clear();
    i.ExpectHalfOfASecond();
    EXPECT_EQ(i.Lines("clock"), 10) << "the clock goes first";
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(ScriptShare, QuickCallsAreNeverPutOff) {
    Worked i;
    i.Begin(
        "local function again() marvolin.after(0, again) print('call') end\nagain()\nfunction OnClock() print('clock') "
        "end");
    i.Printed.clear();
    i.Second();
    EXPECT_EQ(i.Lines("call"), 100);
    EXPECT_EQ(i.Lines("clock"), 10);
}

TEST(ScriptShare, WhatTheHandCallsIsAlwaysCalledAndPaidForByTheOthers) {
    Worked i;
    i.Begin(
        "function OnVolScroll() work() end\nfunction OnClock() print('clock') end\n"
        "marvolin.after(0, function() print('call') end)");
    for (int move = 0; move < 100; ++move) {
        const std::int64_t before = i.Now;
        SendScriptEvent(i.s, ScriptEvent::OnVolScroll, std::vector<double>{1, 2, 3});
        EXPECT_GT(i.Now - before, 15 * kMs);
    }
    const std::int64_t owed = i.Now;
    i.Pass(10);
    ScriptTimer_Timer(i.s, 100);
    EXPECT_THAT(i.Printed, IsEmpty());
    while (i.Printed.size() < 2 && i.Now < owed + 2000 * kMs) {
        i.Pass(10);
        ScriptTimer_Timer(i.s, 100);
    }
    EXPECT_EQ(i.Printed.size(), 2U);
    EXPECT_NEAR(static_cast<double>(i.Now - owed), 970e6, 50e6) << "no more than a second";
}

TEST(ScriptShare, ALoadIsFollowedByAsLongARest) {
    WithAScene i;
    i.Store.OnLoad = [&] { i.Now += 300 * kMs; };
    i.Begin("function OnClock() marvolin.load_set('scene') end");
    i.Second();
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    EXPECT_EQ(i.Store.Log.size(), 2U);
    EXPECT_LT(i.Taken, 650 * kMs);
}

TEST(ScriptShare, AnEventInsideAnotherBelongsToTheTimeOfThatOne) {
    WithAScene i;
    i.Begin("function OnVolChange() marvolin.load_set('scene') end\nfunction OnPanChange() work() end");
    i.Store.OnLoad = [&] {
        i.Now += 15 * kMs;
        SendScriptEvent(i.s, ScriptEvent::OnPanChange, std::vector<double>{1, 2});
    };
    const std::int64_t before = i.Now;
    SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::vector<double>{1, 2});
    EXPECT_GT(i.Now - before, 30 * kMs);
    EXPECT_LT(i.Now - before, 45 * kMs);
    EXPECT_FALSE(i.Engine.IsResting()) << "the inner event was charged twice";
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(ScriptShare, AnotherScriptBeginsWithoutADebt) {
    WithAScene i;
    i.Store.OnLoad = [&] { i.Now += 5000 * kMs; };
    i.Begin("function OnClock() marvolin.load_set('scene') end");
    ScriptTimer_Timer(i.s, 100);
    EXPECT_TRUE(i.Engine.IsResting());
    i.Run("function OnClock() print('clock') end");
    EXPECT_FALSE(i.Engine.IsResting());
    ScriptTimer_Timer(i.s, 100);
    EXPECT_EQ(i.Lines("clock"), 1);
}

}  // namespace
}  // namespace marvolin
