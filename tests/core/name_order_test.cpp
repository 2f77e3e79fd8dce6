#include "core/files/name_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace marvolin {
namespace {

TEST(NameOrder, SortsAsAPersonExpects) {
    const std::vector<std::string> sorted{"", "a", "A b", "kick", "Kick 1", "kick 2", "kick 02b", "Kick 10", "snare"};
    std::vector<std::string> names(sorted.rbegin(), sorted.rend());
    std::sort(names.begin(), names.end(), NameBefore);
    EXPECT_EQ(names, sorted);
}

TEST(NameOrder, IsAStrictOrderOfNamesThatDifferOnlyInCaseOrZeros) {
    const std::vector<std::string> names{"a1", "A1", "a01", "a001", "a1b", "\xC3\xA9", "99999999999999999999999", "9"};
    for (const std::string& a : names) {
        EXPECT_FALSE(NameBefore(a, a));
        for (const std::string& b : names) {
            if (a != b) {
                EXPECT_NE(NameBefore(a, b), NameBefore(b, a)) << a << " " << b;
            }
        }
    }
}

TEST(NameOrder, EndingsIgnoreCase) {
    EXPECT_TRUE(EndsInIgnoringCase("kick.wAv", ".WAV"));
    EXPECT_FALSE(EndsInIgnoringCase("wav", ".WAV"));
}

}  // namespace
}  // namespace marvolin
