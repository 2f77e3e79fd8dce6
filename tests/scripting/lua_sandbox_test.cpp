#include "scripting/lua_sandbox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

#include "parameters/scroll_events.h"
#include "scripting/lua_rig.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

void SendVol(LuaRig& i) { SendScriptEvent(i.s, ScriptEvent::OnVolChange, std::vector<double>{1, 2}); }

TEST(LuaSandbox, AScriptSeesTheseGlobalsAndNoOthers) {
    LuaRig i;
    const std::string names = i.Prints(
        "local names = {}\nfor name in pairs(_G) do names[#names + 1] = name end\ntable.sort(names)\n"
        "print(table.concat(names, ' '))");
    EXPECT_EQ(names,
              "_G _VERSION assert coroutine error getmetatable ipairs marvolin math next pairs pcall print rawequal "
              "rawget rawlen rawset select setmetatable string table tonumber tostring type utf8 xpcall");
    EXPECT_EQ(
        i.Prints("local names = {}\nfor name in pairs(string) do names[#names + 1] = name end\ntable.sort(names)\n"
                 "print(table.concat(names, ' '))"),
        "byte char find format gmatch gsub len lower match rep reverse sub upper");
    EXPECT_EQ(i.Prints("local names = {}\nfor name in pairs(table) do names[#names + 1] = name end\ntable.sort(names)\n"
                       "print(table.concat(names, ' '))"),
              "concat insert move pack remove sort unpack");
}

TEST(LuaSandbox, FilesProcessesModulesAndTheDebugLibraryAreOutOfReach) {
    LuaRig i;
    for (const char* name : {"io", "os", "debug", "package", "require", "load", "loadstring", "loadfile", "dofile",
                             "collectgarbage", "string.dump", "math.randomseed", "coroutine.foo"}) {
        EXPECT_EQ(i.Prints(std::string("print(") + name + ")"), "nil") << name;
    }
    EXPECT_EQ(i.Prints("print(_G._G == _G, getmetatable(_G))"), "true\tnil");
}

TEST(LuaSandbox, TheMetatableOfTextsCannotBeReached) {
    LuaRig i;
    EXPECT_EQ(i.Prints("print(getmetatable(''))  print(pcall(setmetatable, 'x', {}))"),
              "false\nfalse\tbad argument #1 to 'setmetatable': table expected, got string");
    EXPECT_EQ(i.Prints("string.upper = function() return 'mine' end  print(('x'):upper(), ('%d'):format(7))"),
              "mine\t7");
    EXPECT_EQ(i.Prints("print(('x'):upper())"), "X");
}

TEST(LuaSandbox, NoScriptSeesWhatTheOneBeforeHasChanged) {
    LuaRig i;
    i.Run("marvolin.volume = nil  math.floor = nil  string.find = nil  pairs = nil  setmetatable = nil");
    EXPECT_EQ(i.Prints("print(marvolin.volume('A'), math.floor(2.5), ('ab'):find('b'))"), "500\t2\t2\t2");
}

TEST(LuaSandbox, AnObjectMayNotActAtTheEndOfItsLife) {
    LuaRig i;
    EXPECT_EQ(i.Prints("\nsetmetatable({}, {__gc = function() while true do end end})"),
              "song.mvs: a script has no use for __gc,  ln:2  col:0");
    EXPECT_EQ(i.Prints("local m = {}  setmetatable({}, m)  m.__gc = function() print('gone') end\n"
                       "setmetatable({}, setmetatable({}, {__index = {__gc = error}}))"),
              "");
    EndScript(i.s, i.Host);
    EXPECT_THAT(i.Printed, IsEmpty());
}

TEST(LuaSandbox, ValuesMayBeWeakAndKeysMayNot) {
    LuaRig i;
    EXPECT_EQ(i.Prints("local t = setmetatable({}, {__mode = 'v'})  t.x = {}\n"
                       "for n = 1, 200000 do local garbage = {n} end  print(t.x)"),
              "nil");
    for (const char* mode : {"k", "kv", "vk"}) {
        EXPECT_EQ(i.Prints("\nsetmetatable({}, {__mode = '" + std::string(mode) + "'})"),
                  "song.mvs: a script has no use for weak keys,  ln:2  col:0");
    }
    EXPECT_EQ(i.Prints("setmetatable({}, {__mode = 7})  setmetatable({}, {__mode = 'K'})"), "");
}

TEST(LuaSandbox, ChanceIsTheInstrumentsOwn) {
    LuaRig i;
    i.Chance.Sequence = {0.25, 0.0, 0.999, 0.5, 0.999};
    EXPECT_EQ(i.Prints("print(math.random(), math.random(6), math.random(6), math.random(-1, 1), math.random(3, 3))"),
              "0.25\t1\t6\t0\t3");
    EXPECT_THAT(i.Prints("math.random(0)"), StartsWith("song.mvs: bad argument to 'random' (interval is empty)"));
    EXPECT_THAT(i.Prints("math.random(2, 1)"), HasSubstr("interval is empty"));
    EXPECT_THAT(i.Prints("math.random('x')"), HasSubstr("bad argument #1"));
    i.Chance.Rest = 0.9999999;
    EXPECT_EQ(i.Prints("print(math.random(math.mininteger, math.maxinteger) <= math.maxinteger)"), "true");
}

TEST(LuaSandbox, AnEndlessLoopInAnEventEndsAfterTwentyMilliseconds) {
    for (const std::string_view name : kScriptEventNames) {
        LuaRig i;
        i.Run("function " + std::string(name) + "()\n while true do end\nend");
        const std::int64_t before = i.Now;
        const auto event = static_cast<ScriptEvent>(
            std::find(kScriptEventNames.begin(), kScriptEventNames.end(), name) - kScriptEventNames.begin());
        SendScriptEvent(i.s, event, std::vector<double>{1, 2, 3});
        EXPECT_EQ(i.Box(), std::string(name) + ": The script ran longer than 20 ms,  ln:2  col:0");
        EXPECT_NEAR(static_cast<double>(i.Now - before), 20e6, 0.1e6);
        EXPECT_EQ(i.s.EventWanted[event], 0);
    }
}

TEST(LuaSandbox, AnEndlessLoopAtTheTopEndsAfterASecond) {
    LuaRig i;
    const std::int64_t before = i.Now;
    EXPECT_EQ(i.Prints("x = 1\nrepeat x = x + 1 until false"),
              "song.mvs: The script ran longer than 1000 ms,  ln:2  col:0");
    EXPECT_NEAR(static_cast<double>(i.Now - before), 1e9, 1e6);
}

TEST(LuaSandbox, EachEventHasItsTimeAnew) {
    LuaRig i;
    i.Run("function OnVolChange() for n = 1, 1000000 do end end");
    for (int round = 0; round < 5; ++round) SendVol(i);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(LuaSandbox, TrappingTheErrorOfABrokenBudgetIsOfNoUse) {
    const char* const bodies[] = {
        "while true do pcall(function() while true do end end) end",
        "while true do xpcall(function() while true do end end, function() while true do end end) end",
        "while true do local c = coroutine.create(function() while true do end end) coroutine.resume(c) end",
        "while true do pcall(coroutine.wrap(function() while true do pcall(function() while true do end end) end end)) "
        "end",
        "local t = setmetatable({}, {__index = function(t, k) return t[k + 1] end})\n"
        "while true do pcall(function() return t[1] end) end",
        "local t = setmetatable({}, {__close = function() while true do end end})\n"
        "while true do pcall(function() local x <close> = t  while true do end end) end",
        "local function f() pcall(f) f() end\nf()",
        "pcall(coroutine.wrap(function() local x <close> = setmetatable({}, {__close = function() while true do end "
        "end}) while true do end end))",
        "local t = setmetatable({}, {__close = function() while true do end end})\n"
        "for _ in next, {1}, nil, t do while true do end end",
        "return pcall(function() while true do end end)",
        "while true do pcall(string.rep, 'x', 1000) end",
        "for n = 1, math.huge do pcall(error) end",
    };
    for (const char* body : bodies) {
        LuaRig i;
        i.Look = 100'000;
        i.Run(std::string("function OnVolChange()\n") + body + "\nend");
        SendVol(i);
        EXPECT_THAT(i.Box(), StartsWith("OnVolChange: The script ran longer than 20 ms")) << body;
        EXPECT_EQ(i.s.EventWanted[ScriptEvent::OnVolChange], 0) << body;
        EXPECT_LT(i.Now, 200'000'000) << body;
    }
}

TEST(LuaSandbox, AfterABrokenBudgetTheScriptStillHearsItsOtherEvents) {
    LuaRig i;
    i.Run("function OnVolChange() while true do end end\nfunction OnPanChange() for n = 1, 100000 do end print(1) end");
    SendVol(i);
    SendScriptEvent(i.s, ScriptEvent::OnPanChange, std::vector<double>{1, 2});
    EXPECT_THAT(i.Printed, ElementsAre("1"));
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
}

TEST(LuaSandbox, MemoryWithoutEndIsRefusedAndTheLineIsTold) {
    LuaRig i;
    i.Run("local t = {}\nfunction OnVolChange()\n while true do\n  t[#t + 1] = {}\n end\nend");
    SendVol(i);
    EXPECT_EQ(i.Box(), "OnVolChange: The script needs more than 32 MB of memory,  ln:4  col:0");
    EXPECT_LE(i.Engine.Memory(), 32U * 1024 * 1024);
}

TEST(LuaSandbox, TheErrorOfMemoryCannotBeTrapped) {
    LuaRig i;
    i.Run(
        "function OnVolChange()\n local t = {}\n while true do pcall(function() while true do t[#t + 1] = {} end end) "
        "end\nend");
    SendVol(i);
    EXPECT_THAT(i.Box(), HasSubstr("The script needs more than 32 MB of memory"));
}

TEST(LuaSandbox, ATextThatGrowsWithoutEndIsRefused) {
    LuaRig i;
    EXPECT_EQ(i.Prints("local s = 'x'\nwhile true do\n s = s .. s\nend"),
              "song.mvs: The script made a text longer than 256 KB,  ln:3  col:0");
}

TEST(LuaSandbox, DeepRecursionIsAnError) {
    LuaRig i;
    EXPECT_THAT(i.Prints("local function f(n) return 1 + f(n + 1) end\nf(1)"), StartsWith("song.mvs: "));
    EXPECT_THAT(i.Prints("local t = setmetatable({}, {__index = function(t, k) return t[k] end})\nprint(t.x)"),
                HasSubstr("overflow"));
    EXPECT_THAT(i.Prints("local function f() return coroutine.wrap(f)() end\nf()"), HasSubstr("overflow"));
    // The library calls itself here, and the script is the outermost: its line is found at once.
    EXPECT_THAT(i.Prints("local function f() return ('x'):gsub('x', f) end\nf()"),
                AllOf(StartsWith("song.mvs: "), HasSubstr("ln:2")));
    EXPECT_EQ(i.Prints("print('still here')"), "still here");
}

TEST(LuaSandbox, AHandlerThatErrsIsAnErrorToo) {
    LuaRig i;
    EXPECT_THAT(i.Prints("print(xpcall(error, function() error('again') end))"), StartsWith("false"));
    EXPECT_THAT(i.Prints("setmetatable(_G, {__index = function(_, k) error('no ' .. k) end})  print(unknown)"),
                HasSubstr("no unknown"));
    EXPECT_THAT(i.Prints("setmetatable(_G, {__index = function() error('never asked') end})"), IsEmpty());
}

TEST(LuaSandbox, LibraryCallsThatWouldTakeForeverEndInTime) {
    const char* const calls[] = {
        "('x'):rep(1e9)",
        "(''):rep(1e15, 'x')",
        "(('a'):rep(200)):find(('.-'):rep(12) .. 'b')",
        "(('a'):rep(200)):match(('a*'):rep(12) .. 'b')",
        "(('a'):rep(100000)):gsub('.-b', '')",
        "for _ in (('a'):rep(100000)):gmatch('.-b') do end",
        "(('('):rep(100000)):find('%b()%b()')",
        "table.concat(setmetatable({}, {__len = function() return 1e15 end}))",
        "local t = {} for n = 1, 300000 do t[n] = 'x' end  for n = 1, 1e9 do table.concat(t) end",
        "local t = {} for n = 1, 100000 do t[n] = n end  while true do table.insert(t, 1, 0) table.remove(t, 1) end",
        "table.move({}, 1, 1e15, 2)",
        "table.unpack({}, 1, 1e8)",
        "table.sort({3, 1, 2}, function() while true do end end)",
        "local t = {} for n = 1, 200000 do t[n] = (n * 7919) % 100003 end  while true do table.sort(t) end",
        "local s = ('x'):rep(200000)  while true do s:upper() end",
        "local s = ('x'):rep(200000)  while true do s:byte(1, 100) s:reverse() s:lower() end",
        "local t = {} for n = 1, 5e5 do t[n] = n end  for n = 1, 5e5 do t[n] = nil end  while true do next(t) end",
        "string.format(('%s'):rep(90000), 1)",
        "while true do tostring(1) end",
    };
    for (const char* call : calls) {
        LuaRig i;
        i.Look = 1'000'000;
        const std::clock_t begin = std::clock();  // of this process: a busy machine does not count
        EXPECT_THAT(i.Prints(call), StartsWith("song.mvs: ")) << call;
        EXPECT_LT(std::clock() - begin, 10 * CLOCKS_PER_SEC) << call;
    }
}

TEST(LuaSandbox, CopiesOfNothingAreNothing) {
    LuaRig i;
    EXPECT_EQ(i.Prints("print(#(''):rep(1e15), #('x'):rep(-1), ('ab'):rep(3, '-'), #('x'):rep(262144))"),
              "0\t0\tab-ab-ab\t262144");
}

}  // namespace
}  // namespace marvolin
