/// \file
/// The nine events from the hand and the clocks to the procedures of a script, on a fake engine and on Lua.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>

#include "fakes/temp_folder.h"
#include "parameters/knob_gesture.h"
#include "parameters/scroll_events.h"
#include "performance/map/map_events.h"
#include "performance/map/map_gesture.h"
#include "performance/surfaces.h"
#include "scripting/fake_script_control.h"
#include "scripting/lua_rig.h"
#include "scripting/script_host.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A player's gesture, and the events that come of it: name and arguments, as Lua prints them.
struct Gesture {
    const char* Name;
    std::function<void(Session&)> Make;
    std::vector<std::string> Events;
};

constexpr double kHold = 15 * 15;  // twips: somewhere on a ball

void Drag(Session& s, Knob knob, Row row, double first, double last) {
    KnobGesture(s, knob, row, Phase::Down, kLeftButton, 0, 0);
    KnobGesture(s, knob, row, Phase::Move, kLeftButton, first, 0);
    KnobGesture(s, knob, row, Phase::Up, kLeftButton, last, 0);
}
void DragBall(Session& s, int ball) {
    s.ScrollSensitivity[1] = 1;
    PosGesture(s, Phase::Down, ball, kLeftButton, kHold, kHold);
    PosGesture(s, Phase::Move, ball, kLeftButton, kHold + 710, kHold);
    PosGesture(s, Phase::Up, ball, kLeftButton, kHold + 710, kHold - 710);
}
void PassClock(Session& s) {
    s.Clock.ClockMsPart = 250;
    s.Clock.ClockSeconds = 59;
    ScriptTimer_Timer(s, 103);
}

const std::vector<Gesture>& Gestures() {
    static const std::vector<Gesture> gestures{
        {"volume",
         [](Session& s) { Drag(s, Knob::Vol, 0, -5, -7); },
         {"OnVolScroll 1 495 -5", "OnVolChange 1 493", "OnVolScroll 1 493 -2"}},
        {"pan",
         [](Session& s) { Drag(s, Knob::Pan, 1, -5, -7); },
         {"OnPanScroll 2 -5 -5", "OnPanChange 2 -7", "OnPanScroll 2 -7 -2"}},
        {"frequency",
         [](Session& s) { Drag(s, Knob::Hz, 2, -5, -7); },
         {"OnPitchScroll 3 95 -5", "OnPitchChange 3 93", "OnPitchScroll 3 93 -2"}},
        {"place",
         [](Session& s) { DragBall(s, 3); },
         {"OnPositionScroll 4 0.5 0 0.5 0", "OnPositionChange 4 1 -0.5", "OnPositionScroll 4 1 -0.5 0.5 -0.5"}},
        {"clock", PassClock, {"OnClock 103 250 59"}},
    };
    return gestures;
}

/// The line that Lua prints for an event.
std::string Line(std::string_view name, std::span<const double> arguments) {
    std::string line(name);
    for (const double argument : arguments) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), " %.14g", argument);
        line += text.data();
    }
    return line;
}

/// A script that prints every event in `names`.
std::string Printing(std::span<const std::string_view> names) {
    std::string text =
        "local function line(...)\n local t = {...}\n for k, v in ipairs(t) do t[k] = tostring(v) end\n"
        " return table.concat(t, ' ')\nend\n";
    for (const std::string_view name : names) {
        const std::string event(name);
        text += "function " + event + "(...) print(line('" + event + "', ...)) end\n";
    }
    return text;
}

/// An instrument with a host, whose engine's procedures are the test's.
struct HostedHand : test::Surfaces {
    test::FakeScriptControl Engine;
    ScriptHost Host{Engine, Desk};
    std::vector<std::string> Heard;

    HostedHand() {
        Scripts.During = [this](ScriptEvent event) { Host.Call(event, Scripts.Events.back().Arguments); };
        for (Row row = 0; row < 2; ++row) Fill(row);
    }
    void Define(std::span<const std::string_view> names) {
        for (const std::string_view name : names) {
            Engine.Procedures[std::string(name)] = [this, name](auto arguments) {
                Heard.push_back(Line(name, arguments));
            };
        }
        RunScript(s, Host, "text", "song.mvs");
    }
};

TEST(ScriptEventsOfTheHand, EachEventReachesTheEngineWithItsArguments) {
    for (const Gesture& gesture : Gestures()) {
        HostedHand i;
        i.Define(kScriptEventNames);
        gesture.Make(i.s);
        EXPECT_EQ(i.Heard, gesture.Events) << gesture.Name;
    }
}

TEST(ScriptEventsOfTheHand, EachEventReachesLuaWithItsArguments) {
    for (const Gesture& gesture : Gestures()) {
        LuaRig i;
        i.Run(Printing(kScriptEventNames));
        gesture.Make(i.s);
        EXPECT_EQ(i.Printed, gesture.Events) << gesture.Name;
        EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    }
}

TEST(ScriptEventsOfTheHand, OnlyTheEventsThatTheScriptDefinesAreHeard) {
    for (const std::string_view only : kScriptEventNames) {
        HostedHand fake;
        fake.Define(std::array{only});
        LuaRig lua;
        lua.Run(Printing(std::array{only}));
        std::vector<std::string> wanted;
        for (const Gesture& gesture : Gestures()) {
            gesture.Make(fake.s);
            gesture.Make(lua.s);
            for (const std::string& event : gesture.Events) {
                if (event.starts_with(std::string(only) + " ")) wanted.push_back(event);
            }
        }
        EXPECT_FALSE(wanted.empty()) << only;
        EXPECT_EQ(fake.Heard, wanted) << only;
        EXPECT_EQ(lua.Printed, wanted) << only;
    }
}

TEST(ScriptEventsOfTheHand, WithNoEventWantedNoProcedureIsCalledOnLuaEither) {
    LuaRig i;
    i.Run(Printing(kScriptEventNames));
    ClearScriptEvents(i.s);
    for (const Gesture& gesture : Gestures()) gesture.Make(i.s);
    EXPECT_THAT(i.Printed, IsEmpty());
}

TEST(ScriptEventsOfTheHand, NoEventIsCalledInsideItself) {
    for (int event = 0; event < kScriptEvents; ++event) {
        const auto which = static_cast<ScriptEvent>(event);
        const std::string name(kScriptEventNames[static_cast<std::size_t>(event)]);
        HostedHand i;
        int calls = 0;
        i.Engine.Procedures[name] = [&](auto) {
            ++calls;
            EXPECT_TRUE(i.s.ScriptBusy);
            for (const Gesture& gesture : Gestures()) gesture.Make(i.s);
        };
        RunScript(i.s, i.Host, "text", "song.mvs");
        SendScriptEvent(i.s, which, std::array{1.0, 2.0, 3.0});
        EXPECT_EQ(calls, 1) << name;
        EXPECT_FALSE(i.s.ScriptBusy);
        EXPECT_EQ(i.s.EventWanted[event], True);
    }
}

TEST(ScriptEventsOfTheHand, AFailureOfEachEventIsReportedOnceUnderItsNameOnLua) {
    const std::map<std::string_view, std::string> reported{{"OnPositionScroll", "OnPosScroll"},
                                                           {"OnPositionChange", "OnPosScroll"}};
    for (const std::string_view name : kScriptEventNames) {
        LuaRig i;
        i.Run("function " + std::string(name) + "()\n error('broken')\nend");
        for (int round = 0; round < 2; ++round) {
            for (const Gesture& gesture : Gestures()) gesture.Make(i.s);
        }
        const auto other = reported.find(name);
        ASSERT_EQ(i.Desk.Boxes.size(), 1U) << name;
        EXPECT_EQ(i.Desk.Boxes[0].Text, "Error in code for " +
                                            (other == reported.end() ? std::string(name) : other->second) +
                                            ": broken,  ln:2  col:0");
        EXPECT_EQ(i.Desk.Boxes[0].Style, BoxStyle::Plain);
    }
}

TEST(ScriptEventsOfTheHand, TheOptionOfTheMapThinsTheDragOfABallOnLua) {
    LuaRig i;
    i.Run(Printing(std::array{std::string_view("OnPositionScroll")}));
    ScrollSensitivity_Change(i.s, 1, 3);
    EXPECT_EQ(i.s.StatusText, "Send scroll event every 3 moves");
    PosGesture(i.s, Phase::Down, 0, kLeftButton, kHold, kHold);
    // The pointer is where it was on the ball, which has moved.
    for (int move = 1; move <= 7; ++move) PosGesture(i.s, Phase::Move, 0, kLeftButton, kHold + 142, kHold);
    ASSERT_EQ(i.Printed.size(), 2U);
    PosGesture(i.s, Phase::Up, 0, kLeftButton, kHold, kHold);
    EXPECT_EQ(i.Printed.size(), 3U);
}

TEST(ScriptEventsOfTheHand, ATickOfTheClockDuringARunningOnClockIsDroppedOnLua) {
    LuaRig i;
    const test::TempFolder folder;
    folder.Touch("scene.mvn");
    i.s.CurrentFolder = folder.Path() + "/";
    i.Store.OnLoad = [&] { ScriptTimer_Timer(i.s, 100); };
    i.Run("function OnClock(ms) print(ms) marvolin.load_set('scene') end");
    ScriptTimer_Timer(i.s, 99);
    EXPECT_THAT(i.Printed, ElementsAre("99"));
    ScriptTimer_Timer(i.s, 101);
    EXPECT_THAT(i.Printed, ElementsAre("99", "101"));
}

TEST(ScriptEventsOfTheHand, AScriptMayLoadASetClearTheRowOrStopItselfInEachEvent) {
    const test::TempFolder folder;
    folder.Touch("scene.mvn");
    for (const std::string_view name : kScriptEventNames) {
        for (const char* body : {"marvolin.load_set('scene')", "for row = 0, 3 do marvolin.clear(row) end",
                                 "marvolin.stop_script()", "OnVolChange = nil OnClock = nil"}) {
            LuaRig i;
            i.s.CurrentFolder = folder.Path() + "/";
            i.Run("function " + std::string(name) + "() print('in') " + body + " end");
            for (const Gesture& gesture : Gestures()) gesture.Make(i.s);
            EXPECT_FALSE(i.Printed.empty()) << name << " " << body;
            EXPECT_THAT(i.Desk.Boxes, IsEmpty()) << name << " " << body;
            EXPECT_FALSE(i.s.ScriptBusy);
            EXPECT_EQ(i.s.Drag.Dragging, False);
            const bool clears = std::string_view(body).starts_with("for");
            EXPECT_EQ(i.s.Run[0].Loaded, ToBoolean(!clears)) << name << " " << body;
            if (!clears) {
                EXPECT_EQ(i.s.Set[0].Vol, 493) << name << " " << body;
            }
        }
    }
}

TEST(ScriptEventsOfTheHand, ASampleThatVanishesIsAnErrorOfTheScriptAndTheSetPlaysOn) {
    LuaRig i;
    const test::TempFolder folder;
    i.s.Run[1].Playing = True;
    i.Run("function OnClock() marvolin.load('A', '" + (folder / "gone.wav") + "') end");
    ScriptTimer_Timer(i.s, 100);
    EXPECT_THAT(i.Box(), HasSubstr("OnClock: load: there is no file "));
    EXPECT_EQ(i.s.Run[0].Loaded, True);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    EXPECT_TRUE(i.s.ScriptEnabled);
}

}  // namespace
}  // namespace marvolin
