#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/instrument.h"
#include "performance/selection/selection.h"
#include "performance/tabs.h"

namespace marvolin {
namespace {

using test::Instrument;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

TEST(Tabs, OpeningThePatternTabRefreshesItAndTheOthersDoNot) {
    Instrument i;
    for (const std::int16_t tab : {kMapTab, kOptionTab, kMixPadTab}) {
        SetTab(i.s, tab);
        EXPECT_EQ(i.s.ActiveTab, tab);
    }
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowTab", "ShowTab", "ShowTab"));
    SetTab(i.s, kPatternTab);
    EXPECT_EQ(i.Screen.Count("ShowPattern 1"), 1);
    EXPECT_EQ(i.Screen.Count("ShowTime 2"), 1);
}

TEST(Tabs, ANumberOutsideIsIgnored) {
    Instrument i;
    SetTab(i.s, kOptionTab);
    SetTab(i.s, 4);
    SetTab(i.s, -1);
    EXPECT_EQ(i.s.ActiveTab, kOptionTab);
}

class CurrentLoop : public testing::Test {
protected:
    Instrument i;
};

TEST_F(CurrentLoop, AClickOnAThumbChangesTheFacesAndNothingElse) {
    Thumb_Click(i.s, 2);
    EXPECT_EQ(i.s.CurrentLoop, 2);
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowThumb 0", "ShowThumb 2"));
    EXPECT_EQ(i.s.ActiveTab, kMixPadTab);
}

TEST_F(CurrentLoop, AnOpenPatternTabFollowsAClick) {
    SetTab(i.s, kPatternTab);
    i.s.Set[2].NSteps = 11;
    i.Screen.Log.clear();
    Thumb_Click(i.s, 2);
    EXPECT_EQ(i.s.StepsShown, 12);
    EXPECT_EQ(i.Screen.Count("ShowPattern 0"), 1);
    EXPECT_EQ(i.Screen.Count("ShowTab"), 0);
    EXPECT_EQ(i.Screen.Count("ShowSoundDisplay 2"), 0);
}

TEST_F(CurrentLoop, ADoubleClickOpensThePatternTabAndRefreshesTheViews) {
    i.s.Set[3].NSteps = 6;
    Thumb_DblClick(i.s, 3);
    EXPECT_EQ(i.s.ActiveTab, kPatternTab);
    EXPECT_EQ(i.s.CurrentLoop, 3);
    EXPECT_EQ(i.s.StepsShown, 7);
    EXPECT_EQ(i.Screen.Count("ShowTab"), 1);
    EXPECT_EQ(i.Screen.Count("ShowSoundDisplay 3"), 1);
    EXPECT_GE(i.Screen.Count("ShowPattern 2"), 1);
    EXPECT_GE(i.Screen.Count("ShowTime 0"), 1);
}

TEST_F(CurrentLoop, ADoubleClickFromTheMapOpensThePatternTabFirstSoThatNoBallIsHighlighted) {
    i.s.ActiveTab = kMapTab;
    Thumb_DblClick(i.s, 2);
    EXPECT_EQ(i.s.ActiveTab, kPatternTab);
    EXPECT_EQ(i.s.PosHighlight, -1);
    EXPECT_EQ(i.Screen.Count("ShowTab"), 1);
}

TEST_F(CurrentLoop, ARowThatIsNoLoopTrackChangesNothing) {
    for (const Row row : {Row{-1}, Row{4}, Row{99}}) {
        EXPECT_THROW(SetCurrentLoop(i.s, row, OpenPattern::Yes), SubscriptError);
    }
    EXPECT_EQ(i.s.CurrentLoop, 0);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST_F(CurrentLoop, OpeningFromTheMapHighlightsTheRowsBallFirst) {
    i.s.ActiveTab = kMapTab;
    SetCurrentLoop(i.s, 2, OpenPattern::Yes);
    EXPECT_EQ(i.s.PosHighlight, 2);
    EXPECT_EQ(i.s.ActiveTab, kPatternTab);
    EXPECT_EQ(i.Screen.Count("ShowTab"), 1);
}

TEST_F(CurrentLoop, OpeningFromAnotherTabHighlightsNoBall) {
    SetCurrentLoop(i.s, 2, OpenPattern::Yes);
    EXPECT_EQ(i.s.PosHighlight, -1);
}

TEST_F(CurrentLoop, WithoutOpeningTheMapsHighlightStays) {
    i.s.ActiveTab = kMapTab;
    SetCurrentLoop(i.s, 2, OpenPattern::No);
    EXPECT_EQ(i.s.PosHighlight, -1);
    EXPECT_EQ(i.s.ActiveTab, kMapTab);
}

TEST_F(CurrentLoop, OpeningOnThePatternTabDoesNotShowTheTabAgain) {
    i.s.ActiveTab = kPatternTab;
    SetCurrentLoop(i.s, 1, OpenPattern::Yes);
    EXPECT_EQ(i.Screen.Count("ShowTab"), 0);
    EXPECT_EQ(i.Screen.Count("ShowPattern 0"), 1);
}

}  // namespace
}  // namespace marvolin
