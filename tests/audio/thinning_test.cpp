#include "audio/thinning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "audio/start.h"
#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

struct Four : Instrument {
    Four() {
        for (Row row = 0; row < kLoopTracks; ++row) Fill(row, "/" + std::to_string(row) + ".WAV");
    }
};

/// Loads and starts rows in this order.
TEST(Thinning, StartsEnterTheListOldestFirst) {
    Four i;
    for (const Row row : std::initializer_list<Row>{2, 0, 3, 1}) LoopPlay(i.s, row, true);
    EXPECT_EQ(i.s.ThinList, "CADB");
    LoopStop(i.s, 0);
    EXPECT_EQ(i.s.ThinList, "CDB");
}

TEST(Thinning, WithTheLimitAtOneAndRowAPlayingPlayingRowBStopsRowA) {
    Four i;
    i.s.Limit = 1;
    LoopPlay(i.s, 0, true);
    LoopPlay(i.s, 1, true);
    EXPECT_EQ(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.Run[1].Playing, True);
    EXPECT_EQ(i.s.ThinList, "B");
}

TEST(Thinning, AThirdStartUnderALimitOfTwoStopsTheOldest) {
    Four i;
    i.s.Limit = 2;
    for (const Row row : std::initializer_list<Row>{3, 1, 0}) LoopPlay(i.s, row, true);
    EXPECT_EQ(i.s.Run[3].Playing, False);
    EXPECT_EQ(i.s.ThinList, "BA");
}

TEST(Thinning, OnlyOneRowIsStoppedPerAddition) {
    Four i;
    for (const Row row : std::initializer_list<Row>{0, 1, 2}) LoopPlay(i.s, row, true);
    i.s.Limit = 1;
    LoopPlay(i.s, 3, true);
    EXPECT_EQ(i.s.ThinList, "BCD");
}

TEST(Thinning, FourIsNoLimit) {
    Four i;
    PlayAll(i.s);
    EXPECT_EQ(i.s.ThinList, "ABCD");
}

TEST(Thinning, ARowThatIsNotThinnableNeitherCountsNorIsStopped) {
    Four i;
    i.s.Limit = 1;
    LoopSetThinnable(i.s, 0, false);
    LoopPlay(i.s, 0, true);
    LoopPlay(i.s, 1, true);
    EXPECT_EQ(i.s.ThinList, "B");
    LoopPlay(i.s, 2, true);
    EXPECT_EQ(i.s.Run[0].Playing, True);
    EXPECT_EQ(i.s.Run[1].Playing, False);
    EXPECT_EQ(i.s.ThinList, "C");
}

TEST(Thinning, ARowLeavesAndEntersTheListWithItsFlag) {
    Four i;
    LoopPlay(i.s, 0, true);
    LoopPlay(i.s, 1, true);
    LoopSetThinnable(i.s, 0, false);
    EXPECT_EQ(i.s.Set[0].Thinnable, False);
    EXPECT_EQ(i.s.ThinList, "B");
    LoopSetThinnable(i.s, 0, true);
    EXPECT_EQ(i.s.Set[0].Thinnable, True);
    EXPECT_EQ(i.s.ThinList, "BA");
}

TEST(Thinning, AnEmptyRowDoesNotEnterTheList) {
    Instrument i;
    ThinAdd(i.s, 0);
    EXPECT_EQ(i.s.ThinList, "");
}

TEST(Thinning, AFinishedOneShotKeepsItsPlaceInTheList) {
    Four i;
    i.s.Set[0].PlayMode = kOneShot;
    LoopPlay(i.s, 0, true);
    LoopPlay(i.s, 1, true);
    i.Buffer(0).Status = 0;
    i.s.Run[0].Playing = False;  // as the tick that finds the end leaves it
    LoopPlay(i.s, 0, true);
    EXPECT_EQ(i.s.ThinList, "AB");
}

TEST(ThinRemove, CutsTheLetterOutAndKeepsTheOrder) {
    Instrument i;
    i.s.ThinList = "DBA";
    ThinRemove(i.s, 1);
    EXPECT_EQ(i.s.ThinList, "DA");
    ThinRemove(i.s, 2);
    EXPECT_EQ(i.s.ThinList, "DA");
}

TEST(ThinTo, StopsTheTwoOldestOfThreeAndBringsNothingBack) {
    Instrument i;
    Start(i, {1, 3, 0});
    i.s.Limit = 1;
    ThinTo(i.s);
    EXPECT_EQ(i.s.Run[1].Playing, False);
    EXPECT_EQ(i.s.Run[3].Playing, False);
    EXPECT_NE(i.s.Run[0].Playing, False);
    EXPECT_EQ(i.s.ThinList, "A");
    i.s.Limit = 4;
    ThinTo(i.s);
    EXPECT_EQ(i.s.ThinList, "A");
    EXPECT_EQ(i.s.Run[1].Playing, False);
}

TEST(ThinTo, AtFourThereIsNoLimit) {
    Instrument i;
    i.s.ThinList = "ABCDA";
    ThinTo(i.s);
    EXPECT_EQ(i.s.ThinList, "ABCDA");
}

TEST(ThinTo, EndsAtAStopThatDoesNotTakeTheLetterOut) {
    Instrument i;
    i.s.ThinList = "ABC";  // rows without a sample are not stopped
    i.s.Limit = 1;
    ThinTo(i.s);
    EXPECT_EQ(i.s.ThinList, "ABC");
}

TEST(ThinTo, ANumberBelowZeroEmptiesTheListAndEnds) {
    Instrument i;
    Start(i, {0, 1});
    i.s.Limit = -1;
    ThinTo(i.s);
    EXPECT_EQ(i.s.ThinList, "");
}

TEST(ThinTo, RowsThatAreNotThinnableNeitherCountNorStop) {
    Instrument i;
    i.s.Set[0].Thinnable = False;
    i.s.Set[1].Thinnable = False;
    Start(i, {0, 1, 2});
    i.s.Limit = 1;
    ThinTo(i.s);
    for (Row row = 0; row < 3; ++row) EXPECT_NE(i.s.Run[row].Playing, False);
}

TEST(ThinTo, AThirdStartAtALimitOfTwoStopsTheOldestAndNotTheNewest) {
    Instrument i;
    i.s.Limit = 2;
    Start(i, {2, 1, 0});
    EXPECT_EQ(i.s.ThinList, "BA");
    EXPECT_EQ(i.s.Run[2].Playing, False);
    EXPECT_NE(i.s.Run[0].Playing, False);
}

TEST(ThinTo, AStartIsNeverRefused) {
    Instrument i;
    i.s.Limit = 1;
    for (const Row row : {Row{0}, Row{1}, Row{2}, Row{3}, Row{0}}) {
        Start(i, {row});
        EXPECT_NE(i.s.Run[row].Playing, False);
        EXPECT_EQ(i.s.ThinList, std::string(1, RowLetter(row)));
    }
}

}  // namespace
}  // namespace marvolin
