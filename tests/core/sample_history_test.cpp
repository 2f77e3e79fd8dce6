#include "core/loops/sample_history.h"

#include <gtest/gtest.h>

#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(HistoryAdd, PutsTheNewestInFront) {
    Instrument i;
    HistoryAdd(i.s, 0, "/a.WAV");
    HistoryAdd(i.s, 0, "/b.WAV");
    EXPECT_EQ(i.s.History[0], (std::vector<std::string>{"/b.WAV", "/a.WAV"}));
    EXPECT_TRUE(i.s.History[1].empty());
}

TEST(HistoryAdd, APathThatIsThereAlreadyKeepsItsPlace) {
    Instrument i;
    HistoryAdd(i.s, 0, "/a.WAV");
    HistoryAdd(i.s, 0, "/b.WAV");
    HistoryAdd(i.s, 0, "/a.WAV");
    EXPECT_EQ(i.s.History[0], (std::vector<std::string>{"/b.WAV", "/a.WAV"}));
}

TEST(HistoryAdd, KeepsTwentyPathsOfARowAndAHundredOfRowFour) {
    Instrument i;
    for (int n = 0; n < 150; ++n) {
        HistoryAdd(i.s, 2, std::to_string(n));
        HistoryAdd(i.s, kSelectionRow, std::to_string(n));
    }
    EXPECT_EQ(i.s.History[2].size(), 20U);
    EXPECT_EQ(i.s.History[2].front(), "149");
    EXPECT_EQ(i.s.History[2].back(), "130");
    EXPECT_EQ(i.s.History[4].size(), 100U);
    EXPECT_EQ(i.s.History[4].back(), "50");
}

}  // namespace
}  // namespace marvolin
