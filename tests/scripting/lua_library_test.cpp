/// \file
/// What the library of the engine does, where it is not Lua's own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scripting/lua_rig.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::HasSubstr;

/// Prints each expression as Lua shows it.
std::string Value(const std::string& expression) {
    LuaRig i;
    return i.Prints("print(" + expression + ")");
}

TEST(LuaLibrary, FindsPlainTexts) {
    EXPECT_EQ(Value("('hello'):find('l')"), "3\t3");
    EXPECT_EQ(Value("('hello'):find('l', 4)"), "4\t4");
    EXPECT_EQ(Value("('hello'):find('xyz')"), "nil");
    EXPECT_EQ(Value("('hello'):find('')"), "1\t0");
    EXPECT_EQ(Value("('hello'):find('', 6)"), "6\t5");
    EXPECT_EQ(Value("('hello'):find('', 7)"), "nil");
    EXPECT_EQ(Value("('a.b'):find('.', 1, true)"), "2\t2");
    EXPECT_EQ(Value("('hello'):find('l', -2)"), "4\t4");
    EXPECT_EQ(Value("('hello'):find('h', -100)"), "1\t1");
    EXPECT_EQ(Value("string.find(12345, 34)"), "3\t4");
}

TEST(LuaLibrary, APlainTextHasNoSpecialCharacters) {
    for (const char* text : {"%d", "[a", "(", "^a", "a$", ".-", "%", "%b", "a+"}) {
        EXPECT_EQ(Value("('x" + std::string(text) + "x'):find('" + text + "', 1, true)"),
                  "2\t" + std::to_string(1 + std::string_view(text).size()))
            << text;
    }
    EXPECT_EQ(Value("('a.b.c'):find('.', 3, true)"), "4\t4");
    EXPECT_EQ(Value("('a.b'):find('.', 3, true)"), "nil");
    EXPECT_EQ(Value("('ab'):find('a%w', 1, true)"), "nil");
    EXPECT_EQ(Value("('ab'):find('a%w', 1, false)"), "1\t2");
    EXPECT_EQ(Value("('a\\0b'):find('\\0', 1, true)"), "2\t2");
}

TEST(LuaLibrary, APlainTextIsFoundInATimeThatDoesNotGrowWithBothLengths) {
    // The product of the lengths would take a minute and more.
    const std::int64_t begin = SteadyNanoseconds();
    EXPECT_EQ(Value("(('a'):rep(262144)):find(('a'):rep(131071) .. 'b', 1, true)"), "nil");
    EXPECT_LT(SteadyNanoseconds() - begin, 2'000'000'000);
}

// A function of the library gets 20 places; a match of 32 captures needs more, and at the end of the stack they are not
// to be had.
TEST(LuaLibrary, AMatchOfManyCapturesAtTheEndOfTheStackIsAnError) {
    LuaRig i;
    std::string wide = "local a0";
    for (int local = 1; local < 180; ++local) wide += ", a" + std::to_string(local);
    const std::string text =
        "local captures, text, find = ('(.)'):rep(32), ('x'):rep(32), string.find\nlocal told, found = {}, 0\n"
        "local function narrow()\n local ok, why = pcall(find, text, captures)\n"
        " if ok then found = found + 1 else told[why] = true end\n local r = narrow() return r\nend\n"
        "local function wide(n)\n " +
        wide +
        "\n if n > 0 then local r = wide(n - 1) return r end\n local r = narrow() return r\nend\n"
        "print(pcall(wide, 5200))\nprint(found > 100)\nfor why in pairs(told) do print(why) end";
    const std::string printed = i.Prints(text);
    EXPECT_THAT(printed, HasSubstr("stack overflow\ntrue\n"));
    EXPECT_THAT(printed, HasSubstr("stack overflow (too many captures)"));
}

TEST(LuaLibrary, MatchesEveryItemOfAPattern) {
    const std::pair<const char*, const char*> cases[] = {
        {"('key = value'):match('(%w+)%s*=%s*(%w+)')", "key\tvalue"},
        {"('  trim  '):match('^%s*(.-)%s*$')", "trim"},
        {"('abc123'):find('%d+')", "4\t6"},
        {"('abc123'):find('%D+')", "1\t3"},
        {"('aXb'):match('%u')", "X"},
        {"('aXb'):match('%l%u%l')", "aXb"},
        {"('a,b'):match('%p')", ","},
        {"('a\\tb'):match('%c') == '\\t'", "true"},
        {"('fe9z'):match('%x+')", "fe9"},
        {"('  a'):match('%g')", "a"},
        {"('[x]'):match('%[(.)%]')", "x"},
        {"('hello'):match('[aeiou]')", "e"},
        {"('hello'):match('[^aeiou]+', 2)", "ll"},
        {"('x-y'):match('[a-]', 2)", "-"},
        {"('a]b'):match('[]]')", "]"},
        {"('a^b'):match('[b^]')", "^"},
        {"('m5'):match('[a-z][0-9]')", "m5"},
        {"('x%y'):match('[%%]')", "%"},
        {"('aaa'):match('a-')", ""},
        {"('aaab'):match('a-b')", "aaab"},
        {"('aab'):match('^.-(b)')", "b"},
        {"('aaa'):match('a+')", "aaa"},
        {"('b'):match('a*b')", "b"},
        {"('ac'):match('ab?c')", "ac"},
        {"('abc'):match('ab?c')", "abc"},
        {"('hello'):match('()ll()')", "3\t5"},
        {"('say \"hi\" now'):match('([\"\\'])(.-)%1')", "\"\thi"},
        {"('f(a(b)c)d'):match('%b()')", "(a(b)c)"},
        {"('THE (quick) fox'):find('%((%a+)%)')", "5\t11\tquick"},
        {"('THE cat'):gsub('%f[%a]%a+', 'x')", "x x\t2"},
        {"('abc'):find('b$')", "nil"},
        {"('abc'):find('c$')", "3\t3"},
        {"('a$c'):find('a$c')", "1\t3"},
        {"('abc'):find('^b')", "nil"},
        {"('abc'):find('^b', 2)", "2\t2"},
        {"('a\\0b'):find('%z') == nil", "true"},
        {"#('a\\0b'):match('.\\0.')", "3"},
        {"('((x))'):match('((%((.)%)))')", "(x)\t(x)\tx"},
    };
    for (const auto& [expression, wanted] : cases) EXPECT_EQ(Value(expression), wanted) << expression;
}

TEST(LuaLibrary, ABadPatternIsAnError) {
    const std::pair<const char*, const char*> cases[] = {
        {"('x'):find('[a')", "malformed pattern (missing ']')"},
        {"('x'):find('[]')", "malformed pattern (missing ']')"},
        {"('x'):find('[^')", "malformed pattern (missing ']')"},
        {"('x'):find('[%')", "malformed pattern (missing ']')"},
        {"('x'):find('%')", "malformed pattern (ends with '%')"},
        {"('x'):find('(x')", "unfinished capture"},
        {"('x'):find('x)')", "invalid pattern capture"},
        {"('x'):find('%1')", "invalid capture index"},
        {"('x'):find('(%1)')", "invalid capture index"},
        {"('x'):find('%b')", "missing arguments to '%b'"},
        {"('x'):find('%fx')", "missing '[' after '%f'"},
        {"('x'):find(('()'):rep(33))", "too many captures"},
        {"('x'):find(('x?'):rep(300))", "pattern too complex"},
        {"('x'):find(('%w'):rep(600))", "pattern too long"},
        {"('x'):gsub('x', '%2')", "invalid capture index %2"},
        {"('x'):gsub('x', '%q')", "invalid use of '%'"},
        {"('x'):gsub('x', function() return {} end)", "invalid replacement value"},
        {"('x'):gsub('x', true)", "string/function/table expected"},
        {"string.find({}, 'x')", "bad argument #1 to 'find'"},
    };
    for (const auto& [expression, wanted] : cases) {
        EXPECT_THAT(Value(expression), HasSubstr(wanted)) << expression;
        EXPECT_THAT(Value(expression), HasSubstr("ln:1")) << expression;
    }
}

TEST(LuaLibrary, ReplacesByTextTableAndFunction) {
    const std::pair<const char*, const char*> cases[] = {
        {"('hello'):gsub('l', 'L')", "heLLo\t2"},
        {"('hello'):gsub('l', 'L', 1)", "heLlo\t1"},
        {"('hello'):gsub('l', 'L', 0)", "hello\t0"},
        {"('hello'):gsub('', '-')", "-h-e-l-l-o-\t6"},
        {"('hello world'):gsub('(%w+) (%w+)', '%2 %1')", "world hello\t1"},
        {"('abc'):gsub('%w', '%0%0')", "aabbcc\t3"},
        {"('abc'):gsub('b', '%%')", "a%c\t1"},
        {"('$name is $age'):gsub('%$(%w+)', {name = 'A', age = 3})", "A is 3\t2"},
        {"('$x'):gsub('%$(%w+)', {})", "$x\t1"},
        {"('abc'):gsub('%w', function(c) if c == 'b' then return 'B' end end)", "aBc\t3"},
        {"('abc'):gsub('^a', 'x')", "xbc\t1"},
        {"('aaa'):gsub('^a', 'x')", "xaa\t1"},
        {"('abc d'):gsub('%w*', 'x')", "x x\t2"},
        {"('a1b2'):gsub('%d', 7)", "a7b7\t2"},
        {"(''):gsub('', 'x')", "x\t1"},
    };
    for (const auto& [expression, wanted] : cases) EXPECT_EQ(Value(expression), wanted) << expression;
}

TEST(LuaLibrary, WalksOverAllMatches) {
    LuaRig i;
    EXPECT_EQ(i.Prints("for k, v in ('a=1, b=2'):gmatch('(%w+)=(%w+)') do print(k, v) end"), "a\t1\nb\t2");
    EXPECT_EQ(i.Prints("for w in ('one two'):gmatch('%a+') do print(w) end"), "one\ntwo");
    EXPECT_EQ(i.Prints("local n = 0 for _ in ('abc'):gmatch('') do n = n + 1 end print(n)"), "4");
    EXPECT_EQ(i.Prints("for w in ('^a^a'):gmatch('^a') do print(w) end"), "^a\n^a");
    EXPECT_EQ(i.Prints("for w in ('abc'):gmatch('%a', 2) do print(w) end"), "b\nc");
}

TEST(LuaLibrary, ListsGrowShrinkAndMove) {
    LuaRig i;
    EXPECT_EQ(i.Prints("local t = {1, 2, 3} table.insert(t, 4) table.insert(t, 1, 0) print(table.concat(t, ','))"),
              "0,1,2,3,4");
    EXPECT_EQ(i.Prints("local t = {1, 2, 3} print(table.remove(t), table.remove(t, 1), #t, table.remove({}))"),
              "3\t1\t1\tnil");
    EXPECT_EQ(i.Prints("print(table.concat(table.move({1, 2, 3}, 2, 3, 1), ','))"), "2,3,3");
    EXPECT_EQ(i.Prints("print(table.concat(table.move({1, 2, 3}, 1, 3, 2), ','))"), "1,1,2,3");
    EXPECT_EQ(i.Prints("print(table.concat({1, 'a', 2.5}), table.concat({}, ','), table.concat({1, 2, 3}, '-', 2, 3))"),
              "1a2.5\t\t2-3");
    EXPECT_EQ(i.Prints("print(table.unpack({1, 2, nil, 4}, 1, 4))  print(table.pack(nil, 2).n)"), "1\t2\tnil\t4\n2");
    EXPECT_THAT(i.Prints("table.insert({}, 5, 1)"), HasSubstr("position out of bounds"));
    EXPECT_THAT(i.Prints("table.remove({1}, 5)"), HasSubstr("position out of bounds"));
    EXPECT_THAT(i.Prints("table.insert({}, 1, 2, 3)"), HasSubstr("wrong number of arguments"));
    EXPECT_THAT(i.Prints("table.insert(nil, 1)"), HasSubstr("bad argument #1 to 'insert': table expected, got nil"));
    EXPECT_THAT(i.Prints("table.concat({1, {}, 3})"), HasSubstr("invalid value in table for 'concat'"));
    EXPECT_THAT(i.Prints("for k in pairs(nil) do end"), HasSubstr("bad argument #1 to 'pairs'"));
    EXPECT_THAT(i.Prints("table.unpack({}, 1, 201)"), HasSubstr("too many results to unpack"));
}

TEST(LuaLibrary, SortsWithAnyOrderEvenAWrongOne) {
    LuaRig i;
    EXPECT_EQ(i.Prints("local t = {3, 1, 2, 5, 4} table.sort(t) print(table.concat(t, ','))"), "1,2,3,4,5");
    EXPECT_EQ(
        i.Prints("local t = {3, 1, 2} table.sort(t, function(a, b) return a > b end) print(table.concat(t, ','))"),
        "3,2,1");
    EXPECT_EQ(i.Prints("local t = {} for n = 1, 100 do t[n] = (n * 37) % 101 end  table.sort(t)  local good = true\n"
                       "for n = 2, 100 do good = good and t[n - 1] <= t[n] end  print(good, #t)"),
              "true\t100");
    EXPECT_EQ(i.Prints("local t = {3, 1, 2} table.sort(t, function() return true end) print(#t)"), "3");
    EXPECT_EQ(i.Prints("table.sort({})  local t = {'b', 'a'} table.sort(t) print(t[1])"), "a");
    EXPECT_THAT(i.Prints("table.sort({1, 2}, 3)"), HasSubstr("function expected"));
}

}  // namespace
}  // namespace marvolin
