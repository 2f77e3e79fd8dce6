#include "window/editor/scintilla/call_text.h"

#include <gtest/gtest.h>

namespace marvolin {
namespace {

std::string NameAt(const std::string& line) { return ReadLine(line).Name; }

TEST(CallText, TheInnermostOpenBracketHasItsNameAndArgument) {
    const LineEnd end = ReadLine("    marvolin.set_pan(\"A\", math.floor(x, 1), ");
    EXPECT_EQ(end.Name, "marvolin.set_pan");
    EXPECT_EQ(end.NameAt, 4U);
    EXPECT_EQ(end.Argument, 2);
    EXPECT_FALSE(end.Defined);
    EXPECT_EQ(NameAt("marvolin.set_pan(\"A\", math.floor("), "math.floor");
    EXPECT_EQ(NameAt("marvolin.set_pan (1"), "marvolin.set_pan");
    EXPECT_EQ(NameAt("marvolin.set_pan(1)"), "");
    EXPECT_EQ(NameAt("x = (1 + "), "");
    EXPECT_EQ(NameAt(")) marvolin.play("), "marvolin.play");
}

TEST(CallText, ATableOrAnIndexBelongsToTheArgumentAroundIt) {
    EXPECT_EQ(NameAt("f({1, 2"), "f");
    EXPECT_EQ(ReadLine("f({1, 2").Argument, 0);
    EXPECT_EQ(ReadLine("f(a[1], ").Argument, 1);
}

TEST(CallText, BracketsAndCommasBetweenQuotesDoNotCount) {
    EXPECT_EQ(ReadLine("f(\"a,(\", ").Argument, 1);
    EXPECT_EQ(NameAt("f(\"\\\"(\", "), "f");
    EXPECT_TRUE(ReadLine("f(\"a").InText);
    EXPECT_EQ(NameAt("f(\"a"), "f");
    EXPECT_FALSE(ReadLine("f('a'").InText);
}

TEST(CallText, ACommentHoldsNoCode) {
    EXPECT_TRUE(ReadLine("x = 1 -- f(").InComment);
    EXPECT_EQ(NameAt("x = 1 -- f("), "");
    EXPECT_FALSE(ReadLine("x = '--' f(").InComment);
}

TEST(CallText, AProcedureThatIsDefinedIsToldFromACall) {
    EXPECT_TRUE(ReadLine("function OnClock(").Defined);
    EXPECT_FALSE(ReadLine("functionOnClock(").Defined);
    EXPECT_TRUE(EndsInDefinition("local function On"));
    EXPECT_FALSE(EndsInDefinition("functions On"));
    EXPECT_FALSE(EndsInDefinition("On"));
}

TEST(CallText, AnArgumentIsFoundInItsSignature) {
    const std::string signature = "marvolin.load(row, path [, play])";
    const auto part = [&](int argument) {
        const auto [from, to] = ArgumentPlace(signature, argument);
        return signature.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
    };
    EXPECT_EQ(part(0), "row");
    EXPECT_EQ(part(1), "path");
    EXPECT_EQ(part(2), "play");
    EXPECT_EQ(part(3), "");
    EXPECT_EQ(ArgumentPlace("f()", 0).first, ArgumentPlace("f()", 0).second);
    EXPECT_EQ(ArgumentPlace("f", 0), (std::pair{0, 0}));
}

TEST(CallText, LinesAreBrokenAtBlanks) {
    EXPECT_EQ(Broken("one two three", 8), "one two\nthree");
    EXPECT_EQ(Broken("one\ntwo three", 20), "one\ntwo three");
    EXPECT_EQ(Broken("verylongword one", 4), "verylongword\none");
    EXPECT_EQ(Broken("", 4), "");
    EXPECT_EQ(Broken("a b c d", 3), "a b\nc d");
}

}  // namespace
}  // namespace marvolin
