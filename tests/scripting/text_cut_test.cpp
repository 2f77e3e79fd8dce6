#include "scripting/text_cut.h"

#include <gtest/gtest.h>

namespace marvolin {
namespace {

TEST(TextCut, ATextThatFitsStaysAsItIs) {
    EXPECT_EQ(Shortened("abc", 3), "abc");
    EXPECT_EQ(Shortened("", 0), "");
    EXPECT_EQ(Beginning("abc", 100), "abc");
}

TEST(TextCut, ALongerOneIsCutBetweenTwoCharacters) {
    EXPECT_EQ(Shortened("abcd", 3), "abc...");
    EXPECT_EQ(Shortened("a\xC3\xA4z", 2), "a...");
    EXPECT_EQ(Shortened("a\xC3\xA4z", 3), "a\xC3\xA4...");
    EXPECT_EQ(Beginning("\xE2\x82\xAC\xE2\x82\xAC", 5), "\xE2\x82\xAC");
    EXPECT_EQ(Beginning("\xF0\x9F\x8E\xB5", 3), "");
    EXPECT_EQ(Beginning("\x80\x80\x80", 2), "") << "no character begins here";
}

}  // namespace
}  // namespace marvolin
