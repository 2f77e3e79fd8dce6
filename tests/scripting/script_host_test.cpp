#include "scripting/script_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

#include "fakes/instrument.h"
#include "parameters/knob_gesture.h"
#include "parameters/scroll_events.h"
#include "performance/map/map_events.h"
#include "scripting/fake_script_control.h"

namespace marvolin {
namespace {

using test::FakeScriptControl;
using test::Instrument;
using ::testing::ElementsAre;

/// An instrument whose events reach a host and its engine.
struct Hosted : Instrument {
    FakeScriptControl Engine;
    ScriptHost Host{Engine, Desk};
    std::vector<std::vector<double>> Heard;

    Hosted() {
        Scripts.During = [this](ScriptEvent event) { Host.Call(event, Scripts.Events.back().Arguments); };
    }
    /// Defines procedures that note their arguments, and runs the text.
    void Define(std::initializer_list<const char*> names) {
        for (const char* name : names) {
            Engine.Procedures[name] = [this](auto arguments) {
                Heard.emplace_back(arguments.begin(), arguments.end());
            };
        }
        RunScript(s, Host, "text", "song.mvs");
    }
    void Tick(std::int32_t milliseconds) { ScriptTimer_Timer(s, milliseconds); }
};

TEST(ScriptHost, TheNineEventsHaveTheirNamesAndOrder) {
    EXPECT_THAT(kScriptEventNames,
                ElementsAre("OnVolChange", "OnPitchChange", "OnPanChange", "OnVolScroll", "OnPitchScroll",
                            "OnPanScroll", "OnPositionScroll", "OnPositionChange", "OnClock"));
}

TEST(ScriptHost, SetScriptEventStoresWhatIsWantedInTheRowOfTheName) {
    Hosted i;
    for (int event = 0; event < kScriptEvents; ++event) {
        SetScriptEvent(i.s, kScriptEventNames[static_cast<std::size_t>(event)], static_cast<std::int16_t>(event + 10));
    }
    for (int event = 0; event < kScriptEvents; ++event) EXPECT_EQ(i.s.EventWanted[event], event + 10);
    SetScriptEvent(i.s, "OnClock", 0);
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], 0);
}

TEST(ScriptHost, SetScriptEventOfAnUnknownNameDoesNothing) {
    Hosted i;
    for (const char* name : {"", "OnVol", "onvolchange", "OnVolChange ", "OnKey"}) SetScriptEvent(i.s, name, True);
    for (const std::int16_t wanted : i.s.EventWanted) EXPECT_EQ(wanted, 0);
}

TEST(ScriptHost, ClearScriptEventsSetsAllNineRowsToZero) {
    Hosted i;
    for (const std::string_view name : kScriptEventNames) SetScriptEvent(i.s, name, True);
    ClearScriptEvents(i.s);
    for (const std::int16_t wanted : i.s.EventWanted) EXPECT_EQ(wanted, 0);
}

TEST(ScriptHost, StartScriptMakesAndEnablesTheTimerAndSetsTheFlag) {
    Hosted i;
    StartScript(i.s);
    ASSERT_EQ(i.Timers.Live.size(), 1U);
    EXPECT_EQ(i.Timers.Live[0]->Interval, 100);
    EXPECT_TRUE(i.Timers.Live[0]->Enabled);
    EXPECT_TRUE(i.s.ScriptEnabled);
}

TEST(ScriptHost, StartScriptDoesNothingWhileTheScriptRuns) {
    Hosted i;
    StartScript(i.s);
    i.Timers.Live[0]->Enabled = false;
    StartScript(i.s);
    EXPECT_EQ(i.Timers.Live.size(), 1U);
    EXPECT_FALSE(i.Timers.Live[0]->Enabled);
}

TEST(ScriptHost, StopScriptStopsTheTimerAndClearsTheFlag) {
    Hosted i;
    StartScript(i.s);
    StopScript(i.s);
    EXPECT_FALSE(i.Timers.Live[0]->Enabled);
    EXPECT_FALSE(i.s.ScriptEnabled);
    StartScript(i.s);
    EXPECT_EQ(i.Timers.Live.size(), 1U);
    EXPECT_TRUE(i.Timers.Live[0]->Enabled);
}

TEST(ScriptHost, StopScriptDoesNothingUnlessTheScriptRuns) {
    Hosted i;
    StopScript(i.s);
    i.s.ScriptTimer = i.Timers.Create([](std::int32_t) {});
    i.s.ScriptTimer->SetEnabled(true);
    StopScript(i.s);
    EXPECT_TRUE(i.Timers.Live[0]->Enabled);
}

TEST(ScriptHost, AnErrorInStoppingTheTimerIsIgnored) {
    Hosted i;
    StartScript(i.s);
    i.Timers.FailDisable = true;
    StopScript(i.s);
    EXPECT_FALSE(i.s.ScriptEnabled);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(ScriptHost, TheClockHasTheMillisecondsOfTheTickAndTheRunningClocksParts) {
    Hosted i;
    i.Define({"OnClock"});
    i.s.Clock.ClockMs = 61'250;
    i.s.Clock.ClockMsPart = 250;
    i.s.Clock.ClockSeconds = 1;
    i.Timers.Live[0]->OnTick(103);
    EXPECT_THAT(i.Heard, ElementsAre(ElementsAre(103, 250, 1)));
}

TEST(ScriptHost, ATickDuringAnOnClockIsDroppedAndNotQueued) {
    Hosted i;
    int calls = 0;
    i.Engine.Procedures["OnClock"] = [&](auto) {
        ++calls;
        EXPECT_TRUE(i.s.ScriptBusy);
        EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], 0);
        i.Tick(100);
    };
    RunScript(i.s, i.Host, "text", "song.mvs");
    i.Tick(100);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(i.s.ScriptBusy);
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], True);
    i.Tick(100);
    EXPECT_EQ(calls, 2);
}

TEST(ScriptHost, ATickDuringAnotherEventIsDropped) {
    Hosted i;
    i.Define({"OnClock"});
    i.Engine.Procedures["OnVolChange"] = [&](auto) { i.Tick(100); };
    SetScriptEvent(i.s, "OnVolChange", True);
    SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::array{1.0, 2.0});
    EXPECT_TRUE(i.Heard.empty());
}

TEST(ScriptHost, AFailingClockIsCalledOnceAndReportedOnceAndNotEveryTick) {
    Hosted i;
    int calls = 0;
    i.Engine.Procedures["OnClock"] = [&](auto) {
        ++calls;
        i.Engine.Fail("Type mismatch", 12, 3);
    };
    RunScript(i.s, i.Host, "text", "song.mvs");
    for (int tick = 0; tick < 3; ++tick) i.Tick(100);
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(i.Scripts.Reports, ElementsAre("OnClock"));
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], 0);
    EXPECT_FALSE(i.s.ScriptBusy);
}

TEST(ScriptHost, AnErrorIsShownWithItsDescriptionLineAndColumn) {
    Hosted i;
    i.Engine.Last = {"Type mismatch", 12, 3};
    i.Host.ReportScriptError("OnVolChange");
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.Boxes[0].Text, "Error in code for OnVolChange: Type mismatch,  ln:12  col:3");
    EXPECT_EQ(i.Desk.Boxes[0].Style, BoxStyle::Plain);
    EXPECT_FALSE(i.Desk.Boxes[0].Waits);
}

TEST(ScriptHost, AnErrorInShowingAnErrorIsIgnored) {
    Hosted i;
    i.Desk.WhenReported = [] { throw std::runtime_error("no box"); };
    i.Host.ReportScriptError("OnVolChange");
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
}

TEST(ScriptHost, WithNoEventWantedNoProcedureIsEverCalled) {
    Hosted i;
    i.Define({"OnVolChange", "OnVolScroll", "OnPanChange", "OnPanScroll", "OnPitchChange", "OnPitchScroll",
              "OnPositionChange", "OnPositionScroll", "OnClock"});
    ClearScriptEvents(i.s);
    for (const Knob knob : {Knob::Vol, Knob::Pan, Knob::Hz}) {
        KnobGesture(i.s, knob, 0, Phase::Down, kLeftButton, 0, 0);
        KnobGesture(i.s, knob, 0, Phase::Move, kLeftButton, 50, 50);
        KnobGesture(i.s, knob, 0, Phase::Up, kLeftButton, 100, 100);
    }
    PosScrollEvent(i.s, 0, 1, 1, Force::Yes, kMapScroll);
    PosChangeEvent(i.s, 0, 1, 1);
    i.Tick(100);
    EXPECT_TRUE(i.Heard.empty());
}

TEST(ScriptHost, EachEventReachesTheProcedureOfItsName) {
    for (int event = 0; event < kScriptEvents; ++event) {
        Hosted i;
        const std::string name(kScriptEventNames[static_cast<std::size_t>(event)]);
        i.Define({name.c_str()});
        for (int other = 0; other < kScriptEvents; ++other) {
            SendScriptEvent(i.s, static_cast<ScriptEvent>(other), std::array{1.0 * other, 7.0});
        }
        EXPECT_THAT(i.Heard, ElementsAre(ElementsAre(event, 7))) << name;
    }
}

TEST(ScriptHost, ATextIsGivenToTheEngineAndTheEventsThatItDefinesAreWanted) {
    Hosted i;
    i.Define({"OnPanScroll", "OnClock"});
    EXPECT_EQ(i.Engine.Texts.back(), "text");
    for (int event = 0; event < kScriptEvents; ++event) {
        const auto which = static_cast<ScriptEvent>(event);
        const bool defined = which == ScriptEvent::OnPanScroll || which == ScriptEvent::OnClock;
        EXPECT_EQ(i.s.EventWanted[event], ToBoolean(defined)) << kScriptEventNames[static_cast<std::size_t>(event)];
    }
    EXPECT_TRUE(i.s.ScriptEnabled);
}

TEST(ScriptHost, ANewTextTakesThePlaceOfTheOldOne) {
    Hosted i;
    i.Define({"OnPanScroll"});
    i.Engine.Procedures.clear();
    i.Define({"OnVolScroll"});
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnPanScroll], 0);
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolScroll], True);
    EXPECT_EQ(i.Timers.Live.size(), 1U);
    EXPECT_TRUE(i.Timers.Live[0]->Enabled);
}

TEST(ScriptHost, ATextThatFailsIsReportedUnderItsNameAndDoesNotRun) {
    Hosted i;
    i.Engine.Procedures["OnClock"] = [](auto) {};
    i.Engine.TopLevel = [&] { i.Engine.Fail("unexpected symbol", 4, 9); };
    EXPECT_FALSE(RunScript(i.s, i.Host, "?", "song.mvs"));
    EXPECT_EQ(i.Desk.LastBox(), "Error in code for song.mvs: unexpected symbol,  ln:4  col:9");
    EXPECT_FALSE(i.s.ScriptEnabled);
    EXPECT_FALSE(i.s.ScriptBusy);
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], 0);
    EXPECT_EQ(i.Host.MyCodeObj, nullptr);
}

TEST(ScriptHost, ATickDuringTheFirstRunIsDropped) {
    Hosted i;
    SetScriptEvent(i.s, "OnClock", True);
    i.Engine.Procedures["OnClock"] = [](auto) {};
    i.Engine.TopLevel = [&] {
        EXPECT_TRUE(i.s.ScriptBusy);
        i.Tick(100);
    };
    EXPECT_TRUE(RunScript(i.s, i.Host, "text", "song.mvs"));
    EXPECT_TRUE(i.Scripts.Events.empty());
}

TEST(ScriptHost, AnEndedScriptHearsNothingAndIsForgotten) {
    Hosted i;
    i.Define({"OnClock"});
    EndScript(i.s, i.Host);
    i.Tick(100);
    EXPECT_TRUE(i.Heard.empty());
    EXPECT_EQ(i.Engine.Texts.back(), "");
    EXPECT_FALSE(i.Timers.Live[0]->Enabled);
    i.Host.Call(ScriptEvent::OnClock, std::array{1.0, 2.0, 3.0});
    EXPECT_TRUE(i.Heard.empty());
}

TEST(ScriptHost, AScriptThatEndsInsideItsEventHearsThatEventNoMore) {
    Hosted i;
    i.Engine.Procedures["OnVolChange"] = [&](auto) { EndScript(i.s, i.Host); };
    RunScript(i.s, i.Host, "text", "song.mvs");
    SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::array{1.0, 2.0});
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolChange], 0);
    EXPECT_FALSE(i.s.ScriptBusy);
}

TEST(ScriptHost, WithoutATimerTheScriptDoesNotRun) {
    Hosted i;
    i.Timers.Fail = true;
    i.Engine.Last = {"the error of another script", 7, 1};
    ScriptError told;
    i.Host.OnError = [&](std::string_view, const ScriptError& error) { told = error; };
    EXPECT_FALSE(RunScript(i.s, i.Host, "text", "song.mvs"));
    EXPECT_FALSE(i.s.ScriptEnabled);
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error in code for song.mvs: Scripts have no clock: ActiveX component can't create object,  ln:0  col:0");
    EXPECT_EQ(told.Line, 0);
    EXPECT_THAT(i.Engine.Texts, ElementsAre("")) << "the text is not taken";
}

TEST(ScriptHost, ATickWhileTheScriptRestsIsDroppedAndEventsOfTheHandAreNot) {
    Hosted i;
    i.Define({"OnClock", "OnVolChange"});
    i.Engine.Resting = true;
    i.Tick(100);
    EXPECT_TRUE(i.Heard.empty());
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], True);
    SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::array{1.0, 2.0});
    EXPECT_EQ(i.Heard.size(), 1U);
    i.Engine.Resting = false;
    i.Tick(100);
    EXPECT_EQ(i.Heard.size(), 2U);
}

}  // namespace
}  // namespace marvolin
