#include "scripting/lua_script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "core/errors.h"
#include "fakes/temp_folder.h"
#include "instrument/shut_down.h"
#include "parameters/knob_gesture.h"
#include "parameters/scroll_events.h"
#include "scripting/lua_rig.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

void Send(LuaRig& i, ScriptEvent event, std::vector<double> arguments) { SendScriptEvent(i.s, event, arguments); }

TEST(LuaScript, WithoutTheLibraryTheEngineIsNotAvailableAndSaysWhatToInstall) {
    LuaRig i;
    LuaScript engine({.Library = "no such library.so"});
    engine.Attach(i.s);
    EXPECT_FALSE(engine.Available());
    EXPECT_THROW(engine.AddCode("x = 1"), RuntimeError);
    EXPECT_EQ(engine.Error().Description, "Lua 5.4 is not installed. Its package is liblua5.4-0");
    EXPECT_FALSE(engine.CodeObject().Defines("x"));
}

TEST(LuaScript, ALibraryThatIsNotLuaIsNotTaken) {
    LuaScript engine({.Library = "libm.so.6"});
    EXPECT_FALSE(engine.Available());
}

TEST(LuaScript, TheTopLevelRunsOnceAndItsProceduresAreDefined) {
    LuaRig i;
    EXPECT_EQ(i.Prints("print('hello', 1, nil, true, 2.5)  function OnClock() end  OnVolChange = 3"),
              "hello\t1\tnil\ttrue\t2.5");
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], True);
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolChange], 0);
}

TEST(LuaScript, EachEventGetsItsArguments) {
    struct Case {
        ScriptEvent Which;
        std::vector<double> Arguments;
        const char* Text;
    };
    const Case cases[] = {{ScriptEvent::OnVolChange, {1, 250}, "1 250"},
                          {ScriptEvent::OnVolScroll, {1, 250, -7}, "1 250 -7"},
                          {ScriptEvent::OnPanChange, {2, -500}, "2 -500"},
                          {ScriptEvent::OnPanScroll, {2, -500, 12}, "2 -500 12"},
                          {ScriptEvent::OnPitchChange, {3, 99.5}, "3 99.5"},
                          {ScriptEvent::OnPitchScroll, {3, 99.5, 0.1}, "3 99.5 0.1"},
                          {ScriptEvent::OnPositionChange, {5, 0.25, -1.5}, "5 0.25 -1.5"},
                          {ScriptEvent::OnPositionScroll, {5, 0.25, -1.5, 0.5, 0}, "5 0.25 -1.5 0.5 0"},
                          {ScriptEvent::OnClock, {100, 250, 59}, "100 250 59"}};
    for (const Case& c : cases) {
        const std::string name(kScriptEventNames[static_cast<std::size_t>(c.Which)]);
        LuaRig i;
        i.Run("function " + name + "(...)\n local t = {...}\n for k, v in ipairs(t) do t[k] = tostring(v) end\n" +
              " print(table.concat(t, ' '))\nend");
        Send(i, c.Which, c.Arguments);
        EXPECT_THAT(i.Printed, ElementsAre(c.Text)) << name;
        EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    }
}

TEST(LuaScript, ASyntaxErrorIsToldWithItsLineAndColumn) {
    LuaRig i;
    EXPECT_FALSE(i.Run("x = 1\n\ny = = 2\n"));
    EXPECT_EQ(i.Desk.LastBox(), "Error in code for song.mvs: unexpected symbol near '=',  ln:3  col:3");
    EXPECT_FALSE(i.s.ScriptEnabled);
}

TEST(LuaScript, AnErrorOfTheTopLevelIsToldWithItsLine) {
    LuaRig i;
    EXPECT_FALSE(i.Run("local t = {}\nt.x.y = 1"));
    EXPECT_EQ(i.Box(), "song.mvs: attempt to index a nil value (field 'x'),  ln:2  col:0");
    EXPECT_EQ(i.Engine.Memory(), 0U);
}

TEST(LuaScript, AnErrorOfAnEventIsToldOnceWithItsLineAndTheEventIsSilentFromThenOn) {
    LuaRig i;
    i.Run("function OnVolChange(row)\n print(row)\n error('oh no')\nend\nfunction OnPanChange() print('pan') end");
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    Send(i, ScriptEvent::OnPanChange, {1, 2});
    EXPECT_THAT(i.Printed, ElementsAre("1", "pan"));
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Box(), "OnVolChange: oh no,  ln:3  col:0");
    EXPECT_FALSE(i.Desk.Boxes[0].Waits);
}

TEST(LuaScript, AnErrorInsideTheLibraryHasTheLineOfTheScript) {
    LuaRig i;
    EXPECT_EQ(i.Prints("local t = {3, 'x', 1}\n\ntable.sort(t)"),
              "song.mvs: attempt to compare string with number,  ln:3  col:0");
    EXPECT_EQ(i.Prints("\nstring.rep()"),
              "song.mvs: bad argument #1 to 'rep' (string expected, got no value),  ln:2  col:0");
}

TEST(LuaScript, AnErrorOfAnotherTypeIsToldToo) {
    LuaRig i;
    EXPECT_EQ(i.Prints("\n\nerror({})"), "song.mvs: an error that is a table,  ln:3  col:0");
    EXPECT_EQ(i.Prints("error()"), "song.mvs: an error that is a nil,  ln:1  col:0");
    EXPECT_THAT(i.Prints("error(setmetatable({}, {__tostring = function() error('again') end}))"),
                HasSubstr("an error that is a table"));
}

TEST(LuaScript, AnErrorOfACoroutineHasItsLine) {
    LuaRig i;
    EXPECT_EQ(i.Prints("local f = coroutine.wrap(function()\n local x = nil + 1\nend)\n\nf()"),
              "song.mvs: attempt to perform arithmetic on a nil value,  ln:2  col:0");
}

TEST(LuaScript, AProcedureThatVanishedIsNotCalled) {
    LuaRig i;
    i.Run("function OnVolChange() print('once') OnVolChange = nil end");
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    EXPECT_THAT(i.Printed, ElementsAre("once"));
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(LuaScript, AScriptThatMovesAKnobInsideItsEventDoesNotCallItself) {
    LuaRig i;
    i.Run("function OnVolChange(row, vol) print(vol)  marvolin.set_volume(row - 1, vol - 1) end");
    Send(i, ScriptEvent::OnVolChange, {1, 250});
    EXPECT_THAT(i.Printed, ElementsAre("250"));
    EXPECT_EQ(i.s.Set[0].Vol, 249);
}

TEST(LuaScript, AnEventInsideAnEventRuns) {
    LuaRig i;
    i.Run(
        "function OnVolChange() print('in') marvolin.load_set('scene') print('out') end\n"
        "function OnPanChange(row) print('pan', row) end");
    // A set that is loaded may show a box, and behind it the hand goes on.
    i.Store.OnLoad = [&] { Send(i, ScriptEvent::OnPanChange, {2, 0}); };
    const test::TempFolder folder;
    folder.Touch("scene.mvn");
    i.s.CurrentFolder = folder.Path() + "/";
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    EXPECT_THAT(i.Printed, ElementsAre("in", "pan\t2", "out"));
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(LuaScript, AnErrorOfAnInnerEventIsNotOneOfTheCallAroundIt) {
    LuaRig i;
    i.Run(
        "function OnVolChange() print(pcall(marvolin.load_set, 'scene')) end\n"
        "function OnPanChange() marvolin.set_volume('A', 9999) end");
    i.Store.OnLoad = [&] { Send(i, ScriptEvent::OnPanChange, {2, 0}); };
    const test::TempFolder folder;
    folder.Touch("scene.mvn");
    i.s.CurrentFolder = folder.Path() + "/";
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    EXPECT_THAT(i.Printed, ElementsAre("true\ttrue"));
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_THAT(i.Box(), StartsWith("OnPanChange: set_volume: "));
    EXPECT_NE(i.s.EventWanted[ScriptEvent::OnVolChange], 0);
}

TEST(LuaScript, ALongDescriptionOfAnErrorIsShortened) {
    LuaRig i;
    i.Run("error(('\xC3\xA4'):rep(100000))");
    std::string umlauts;
    for (int letter = 0; letter < 250; ++letter) umlauts += "\xC3\xA4";
    EXPECT_EQ(i.Box(), "song.mvs: " + umlauts + "...,  ln:1  col:0");
    EXPECT_THAT(i.Prints("x = '" + std::string(100000, 'x')), StartsWith("song.mvs: unfinished string near"));
    EXPECT_LT(i.Box().size(), 600U);
}

TEST(LuaScript, TheProgramMayCloseInsideAnEventOrADelayedCall) {
    for (const char* text :
         {"function OnVolChange() print('in') marvolin.load_set('scene') print('out') end",
          "marvolin.after(10, function() print('in') marvolin.load_set('scene') print('out') end)"}) {
        LuaRig i;
        i.Run(text);
        const test::TempFolder folder;
        folder.Touch("scene.mvn");
        i.s.CurrentFolder = folder.Path() + "/";
        i.Store.OnLoad = [&] { Form_QueryUnload(i.s); };
        if (i.s.EventWanted[ScriptEvent::OnVolChange] != 0) Send(i, ScriptEvent::OnVolChange, {1, 2});
        i.Pass(20);
        EXPECT_EQ(i.Printed.front(), "in");
        EXPECT_FALSE(i.s.ScriptEnabled);
        EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolChange], 0);
        EXPECT_THAT(i.Desk.Boxes, IsEmpty());
        for (const auto* timer : i.Timers.Live) EXPECT_FALSE(timer->Enabled);
    }
}

TEST(LuaScript, ASetThatIsLoadedInsideAScrollLeavesTheDragOpen) {
    LuaRig i;
    i.Run("function OnVolScroll(row) marvolin.load_set('scene') end");
    const test::TempFolder folder;
    folder.Touch("scene.mvn");
    i.s.CurrentFolder = folder.Path() + "/";
    KnobGesture(i.s, Knob::Vol, 0, Phase::Down, kLeftButton, 0, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, -50, 0);
    EXPECT_EQ(i.s.Drag.Dragging, True);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, -50, 0);
    EXPECT_EQ(i.s.Set[0].Vol, 450);
    EXPECT_EQ(i.Store.Log.size(), 2U);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(LuaScript, TheKnobsOfTheHandReachTheScriptThinnedByTheirOption) {
    LuaRig i;
    ScrollSensitivity_Change(i.s, 0, 3);
    i.Run("function OnVolScroll(row, vol, moved) print(row, vol, moved) end");
    KnobGesture(i.s, Knob::Vol, 1, Phase::Down, kLeftButton, 0, 0);
    for (int x = 1; x <= 7; ++x) KnobGesture(i.s, Knob::Vol, 1, Phase::Move, kLeftButton, -10 * x, 0);
    EXPECT_THAT(i.Printed, ElementsAre("2\t470\t-30", "2\t440\t-30"));
}

TEST(LuaScript, AScriptThatStopsItselfEndsAtOnceAndHearsNothingMore) {
    LuaRig i;
    i.Run("function OnVolChange() print('a') marvolin.stop_script() print('b') end\nfunction OnClock() end");
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    EXPECT_THAT(i.Printed, ElementsAre("a"));
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    EXPECT_FALSE(i.s.ScriptEnabled);
    for (const std::int16_t wanted : i.s.EventWanted) EXPECT_EQ(wanted, 0);
    EXPECT_EQ(i.Engine.Memory(), 0U);
}

TEST(LuaScript, AScriptCannotTrapItsOwnEnd) {
    LuaRig i;
    i.Run(
        "function OnVolChange()\n while true do pcall(function() marvolin.stop_script() while true do end end) end\n"
        "end");
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    EXPECT_FALSE(i.s.ScriptEnabled);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(LuaScript, AScriptThatStopsItselfAtItsTopLevelHasRun) {
    LuaRig i;
    EXPECT_TRUE(i.Run("print(1) marvolin.stop_script() print(2)"));
    EXPECT_THAT(i.Printed, ElementsAre("1"));
    EXPECT_FALSE(i.s.ScriptEnabled);
}

TEST(LuaScriptsEnd, CallsItsLastFunctionOnceHoweverItEnds) {
    LuaRig i;
    const std::string last =
        "marvolin.at_end(function() print('never') end)\n"
        "marvolin.at_end(function() print('end') end)\n";
    i.Run(last);
    EXPECT_THAT(i.Printed, IsEmpty());
    EndScript(i.s, i.Host);
    EXPECT_THAT(i.Printed, ElementsAre("end"));
    EndScript(i.s, i.Host);
    EXPECT_EQ(i.Printed.size(), 1U);
    i.Run(last);
    i.Run("print('next')");
    EXPECT_THAT(i.Printed, ElementsAre("end", "end", "next"));
    i.Printed.clear();
    EXPECT_FALSE(i.Run(last + "error('wrong')"));
    EXPECT_THAT(i.Printed, ElementsAre("end"));
    EXPECT_THAT(i.Box(), StartsWith("song.mvs: wrong"));
    i.Printed.clear();
    i.Run(last + "function OnVolChange() marvolin.stop_script() print('on') end");
    Send(i, ScriptEvent::OnVolChange, {1, 2});
    EXPECT_THAT(i.Printed, ElementsAre("end"));
    EXPECT_EQ(i.Engine.Memory(), 0U);
}

TEST(LuaScriptsEnd, IsAsShortAsAnEventAndItsFailuresAreTold) {
    LuaRig i;
    i.Run("marvolin.at_end(function() while true do pcall(error) end end)");
    i.Desk.Boxes.clear();
    EndScript(i.s, i.Host);
    EXPECT_THAT(i.Box(), StartsWith("at_end: The script ran longer than 20 ms"));
    EXPECT_EQ(i.Engine.Memory(), 0U);
    EXPECT_FALSE(i.s.ScriptBusy);
    i.Run("marvolin.at_end(function()\n error('no') end)");
    EXPECT_TRUE(i.Run("print('next')"));
    EXPECT_EQ(i.Box(), "at_end: no,  ln:2  col:0");
    EXPECT_THAT(i.Printed, ElementsAre("next"));
}

TEST(LuaScriptsEnd, MayNeitherWaitNorEndTheScriptAgain) {
    int ended = 0;
    LuaRig i({.Ended = [&] { ++ended; }});
    i.Run(
        "marvolin.at_end(function() marvolin.after(0, function() print('late') end)\n"
        "print('end') marvolin.stop_script() print('on') end)");
    EndScript(i.s, i.Host);
    i.Pass(50);
    EXPECT_THAT(i.Printed, ElementsAre("end"));
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    EXPECT_EQ(ended, 0) << "it was stopped";
    for (const auto* timer : i.Timers.Live) EXPECT_FALSE(timer->Enabled);
}

TEST(LuaScriptsEnd, IsOverWhenAnotherScriptBeginsBehindABoxOfIt) {
    LuaRig i;
    const test::TempFolder folder;
    folder.Touch("scene.mvn");
    i.s.CurrentFolder = folder.Path() + "/";
    i.Store.OnLoad = [&] { i.Run("marvolin.after(10, function() print('second') end)"); };
    i.Run("marvolin.at_end(function() marvolin.load_set('scene') print('first') end)");
    EndScript(i.s, i.Host);
    i.Pass(20);
    EXPECT_THAT(i.Printed, ElementsAre("second"));
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(LuaScript, AnotherScriptTakesThePlaceOfOneThatIsRunning) {
    LuaRig i;
    i.Run("x = 5  function OnClock() end");
    EXPECT_EQ(i.Prints("print(x)"), "nil");
    EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnClock], 0);
}

TEST(LuaScript, ATextWithNulOrWithBytesThatAreNotUtf8IsReadOrRefusedWithItsLine) {
    LuaRig i;
    EXPECT_EQ(i.Prints(std::string("print(#'a\0b')", 13)), "3");
    EXPECT_EQ(i.Prints("print(#'\xff\xfe')"), "2");
    EXPECT_THAT(i.Prints(std::string("x = 1\n\0", 7)), StartsWith("song.mvs: "));
    EXPECT_THAT(i.Prints("x = 1\n\xff\xfe"), HasSubstr("ln:2"));
    EXPECT_THAT(i.Prints(""), IsEmpty());
}

TEST(LuaScript, ACompiledTextIsRefused) {
    LuaRig i;
    EXPECT_THAT(i.Prints(std::string("\x1bLua\x54\x00\x19\x93\r\n\x1a\n", 12)),
                HasSubstr("attempt to load a binary chunk"));
}

TEST(LuaScript, ATextOfMoreThanAMegabyteIsRefused) {
    LuaRig i;
    EXPECT_EQ(i.Prints(std::string(10 * 1024 * 1024, ' ')), "song.mvs: The text is longer than 1 MB,  ln:0  col:0");
    EXPECT_THAT(i.Prints(std::string(1024 * 1024, ' ')), IsEmpty());
}

TEST(LuaScript, ATextNestedTooDeeplyIsRefused) {
    LuaRig i;
    EXPECT_THAT(i.Prints("x = " + std::string(100000, '(')), HasSubstr("song.mvs: "));
    EXPECT_THAT(i.Prints("x = " + std::string(5000, '{')), HasSubstr("overflow"));
    EXPECT_EQ(i.Prints("print(1)"), "1");
}

TEST(LuaScript, AConsoleThatFailsIsPassedOver) {
    LuaRig i;
    LuaScript engine({.Print = [](std::string_view) { throw std::runtime_error("no console"); }});
    engine.Attach(i.s);
    engine.AddCode("print(1)");
    LuaScript silent;
    silent.Attach(i.s);
    silent.AddCode("print(1)");
}

TEST(LuaScript, WithoutASessionNoTextIsTaken) {
    LuaScript engine;
    EXPECT_THROW(engine.AddCode("x = 1"), NoObjectError);
}

TEST(LuaScript, WhatWasEndedGivesItsMemoryBack) {
    LuaRig i;
    i.Run("t = {} for n = 1, 10000 do t[n] = {n} end");
    EXPECT_GT(i.Engine.Memory(), 500'000U);
    EndScript(i.s, i.Host);
    EXPECT_EQ(i.Engine.Memory(), 0U);
}

}  // namespace
}  // namespace marvolin
