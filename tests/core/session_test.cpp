#include <gtest/gtest.h>

#include "core/loops/grouping.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

TEST(Session, StartsWithTheDefaultsOfALoopTrack) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackSet& set = i.s.Set[row];
        EXPECT_EQ(set.FileName, "");
        EXPECT_EQ(set.Hz, 1000);
        EXPECT_EQ(set.Vol, 500);
        EXPECT_EQ(set.Pan, 500);
        EXPECT_EQ(set.Selected, False);
        EXPECT_EQ(set.Thinnable, True);
        EXPECT_EQ(set.PlayMode, kLoop);
        EXPECT_EQ(set.NSteps, 3);
        EXPECT_EQ(set.Channel, row + 1);
        EXPECT_EQ(set.Pattern[kVolPattern][0], 500);
        EXPECT_EQ(set.Pattern[kHzPattern][31], 1000);
        EXPECT_EQ(set.Pattern[kPanPattern][31], 500);
        EXPECT_EQ(set.Pattern[kVolPattern][kPatternOffset], 0);
        EXPECT_EQ(set.Pattern[kHzPattern][kPatternOffset], 1);
        EXPECT_EQ(set.Pattern[kPanPattern][kPatternOffset], 0);
    }
}

TEST(Session, StartsWithAFirstBandOfAllLoopTracksAndTheOthersEmpty) {
    Instrument i;
    EXPECT_EQ(i.s.BandTable[0].First, 0);
    EXPECT_EQ(i.s.BandTable[0].Last, 3);
    for (Row band = 1; band < kBands; ++band) {
        EXPECT_EQ(i.s.BandTable[band].First, 5);
        EXPECT_EQ(i.s.BandTable[band].Last, 3);
        int walked = 0;
        ForBand(i.s, band, [&](Row) { ++walked; });
        EXPECT_EQ(walked, 0);
    }
}

TEST(Session, AnIndexOutsideATableIsASubscriptError) {
    Instrument i;
    EXPECT_THROW(i.s.Set[6].Vol = 0, SubscriptError);
    EXPECT_THROW(i.s.Run[-1].Loaded = True, SubscriptError);
}

TEST(IsControlled, RowFourIsNeverControlledEvenWhenEverythingIsSelected) {
    Instrument i;
    for (Row row = 0; row <= kSelectionRow; ++row) i.Select(row);
    i.s.BandTable[0].Controlled = True;
    EXPECT_FALSE(IsControlled(i.s, kSelectionRow));
    EXPECT_TRUE(IsControlled(i.s, 3));
}

TEST(IsControlled, ASelectedRowCountsOnlyWhileTheSelectionIsControlled) {
    Instrument i;
    i.Select(2);
    EXPECT_TRUE(IsControlled(i.s, 2));
    i.s.SelectionControlled = false;
    EXPECT_FALSE(IsControlled(i.s, 2));
}

TEST(IsControlled, ARowOfAControlledBandCountsWithoutBeingSelected) {
    Instrument i;
    i.MakeBand(3, 1, 2);
    i.s.BandTable[3].Controlled = True;
    EXPECT_FALSE(IsControlled(i.s, 0));
    EXPECT_TRUE(IsControlled(i.s, 1));
    EXPECT_TRUE(IsControlled(i.s, 2));
}

TEST(IsControlled, TheFirstBandsSelectorReachesRowsThatAreInNoBand) {
    Instrument i;
    i.MakeBand(3, 1, 2);
    i.s.BandTable[0].Controlled = True;
    EXPECT_TRUE(IsControlled(i.s, 0));
    EXPECT_FALSE(IsControlled(i.s, 1));
    EXPECT_FALSE(IsControlled(i.s, 2));
    EXPECT_TRUE(IsControlled(i.s, 3));
}

}  // namespace
}  // namespace marvolin
