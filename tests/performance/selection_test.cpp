#include "performance/selection/selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/loops/grouping.h"
#include "fakes/instrument.h"
#include "parameters/setters.h"

namespace marvolin {
namespace {

using test::Instrument;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Selection : public testing::Test {
protected:
    Instrument i;
    /// Letters of the selected rows.
    std::string Selected() const {
        std::string letters;
        for (Row row = 0; row < kLoopTracks; ++row) {
            if (i.s.Set[row].Selected == True) letters += RowLetter(row);
        }
        return letters;
    }
    /// Selects exactly these rows, by letter.
    void Select(const std::string& letters) {
        for (Row row = 0; row < kLoopTracks; ++row) {
            i.Select(row, letters.find(RowLetter(row)) != std::string::npos);
        }
    }
};

TEST_F(Selection, TheRulesAreInTheOrderOfTheList) {
    std::vector<std::string_view> texts;
    for (const SelectRule& rule : kSelectRules) texts.push_back(rule.Text);
    EXPECT_THAT(texts,
                ElementsAre("All", "None", "Toggle", "Playing", "Stopped", "Filled", "Empty", "Channel 1", "Channel 2",
                            "Channel 3", "Channel 4", "Vol Low", "Vol High", "Freq Low", "Freq 100%", "Freq High"));
}

TEST_F(Selection, EachRuleSelectsTheRowsThatItNames) {
    struct Case {
        std::string Rule;
        std::string Selected;
    };
    const Case cases[] = {
        {"All", "ABCD"},    {"None", ""},      {"Toggle", "BD"},    {"Playing", "AB"},
        {"Stopped", "CD"},  {"Filled", "ABC"}, {"Empty", "D"},      {"Channel 1", "A"},
        {"Channel 2", "B"}, {"Channel 3", ""}, {"Channel 4", "D"},  {"Vol Low", "AB"},
        {"Vol High", "CD"}, {"Freq Low", "A"}, {"Freq 100%", "BD"}, {"Freq High", "C"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Rule);
        Select("AC");
        i.s.Run[0].Playing = i.s.Run[1].Playing = True;
        i.s.Run[0].Loaded = i.s.Run[1].Loaded = i.s.Run[2].Loaded = True;
        const std::uint8_t channels[] = {1, 2, 7, 4};
        const std::int16_t vols[] = {0, 250, 251, 500};
        const std::int16_t rates[] = {999, 1000, 1001, 1000};
        for (Row row = 0; row < kLoopTracks; ++row) {
            i.s.Set[row].Channel = channels[row];
            i.s.Set[row].Vol = vols[row];
            i.s.Set[row].Hz = rates[row];
        }
        SelectGroup(i.s, c.Rule);
        EXPECT_EQ(Selected(), c.Selected);
    }
}

TEST_F(Selection, AnUnknownTextChangesNothing) {
    Select("BC");
    for (const char* text : {"", "all", "All ", "Channel 5", "Vol", "Marvolin"}) SelectGroup(i.s, text);
    EXPECT_EQ(Selected(), "BC");
    EXPECT_THAT(i.Screen.Log, IsEmpty());
}

TEST_F(Selection, ToggleTwiceRestoresTheSelection) {
    Select("BCD");
    SelectGroup(i.s, "Toggle");
    EXPECT_EQ(Selected(), "A");
    SelectGroup(i.s, "Toggle");
    EXPECT_EQ(Selected(), "BCD");
}

TEST_F(Selection, VolLowAndVolHighDivideTheLoopTracksAt250) {
    for (std::int16_t vol = 0; vol <= 500; ++vol) {
        i.s.Set[0].Vol = vol;
        SelectGroup(i.s, "Vol Low");
        const bool low = i.s.Set[0].Selected != False;
        SelectGroup(i.s, "Vol High");
        const bool high = i.s.Set[0].Selected != False;
        EXPECT_EQ(low, vol <= 250) << vol;
        EXPECT_EQ(high, vol >= 251) << vol;
    }
}

TEST_F(Selection, TheThreeFreqRulesPartitionTheLoopTracks) {
    for (const std::int16_t hz : std::initializer_list<std::int16_t>{1, 999, 1000, 1001, 4000}) {
        i.s.Set[2].Hz = hz;
        int hits = 0;
        for (const char* rule : {"Freq Low", "Freq 100%", "Freq High"}) {
            SelectGroup(i.s, rule);
            hits += i.s.Set[2].Selected != False ? 1 : 0;
        }
        EXPECT_EQ(hits, 1) << hz;
    }
    i.s.Set[2].Hz = 1001;
    SelectGroup(i.s, "Freq High");
    EXPECT_EQ(Selected(), "C");
}

TEST_F(Selection, ADisconnectedLoopTrackIsInNoneOfTheFourChannels) {
    for (std::uint8_t channel = 5; channel <= 8; ++channel) {
        for (Row row = 0; row < kLoopTracks; ++row) i.s.Set[row].Channel = channel;
        for (const char* rule : {"Channel 1", "Channel 2", "Channel 3", "Channel 4"}) {
            Select("ABCD");
            SelectGroup(i.s, rule);
            EXPECT_EQ(Selected(), "") << rule << " " << int{channel};
        }
    }
}

TEST_F(Selection, PlayingWithNothingPlayingEmptiesTheSelectionAndTheSelectionsButtonShowsStopped) {
    Select("ABCD");
    i.s.Run[kSelectionRow].Playing = True;
    SelectGroup(i.s, "Playing");
    EXPECT_EQ(Selected(), "");
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 1);
}

TEST_F(Selection, ApplyingShowsOnlyTheFlagsThatChangedAndTheSelectionsButton) {
    Select("AB");
    i.s.Run[1].Playing = True;
    i.s.SelectWork[1] = i.s.SelectWork[3] = True;
    SelectApply(i.s);
    EXPECT_EQ(Selected(), "BD");
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowSelected 0", "ShowSelected 3", "ShowPlay 4"));
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
}

TEST_F(Selection, APlayingRowThatIsNotSelectedDoesNotLightTheSelectionsButton) {
    i.s.Run[1].Playing = True;
    i.s.BandTable[0].Controlled = True;
    i.s.SelectWork[0] = True;
    SelectApply(i.s);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
}

TEST_F(Selection, APlayingSelectedRowLightsTheSelectionsButtonAlsoOutOfControl) {
    i.s.SelectionControlled = false;
    i.s.Run[1].Playing = True;
    i.s.SelectWork[1] = True;
    SelectApply(i.s);
    EXPECT_FALSE(IsControlled(i.s, 1));
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
}

TEST_F(Selection, ScriptsSetOneColumnCountedFrom1) {
    Select("D");
    SelectColumn(i.s, 2, true);
    EXPECT_EQ(Selected(), "BD");
    SelectColumn(i.s, 4, false);
    EXPECT_EQ(Selected(), "B");
    EXPECT_THROW(SelectColumn(i.s, 0, true), SubscriptError);
    EXPECT_THROW(SelectColumn(i.s, 5, true), SubscriptError);
    EXPECT_EQ(Selected(), "B");
}

TEST_F(Selection, ScriptsSetAllFourThroughRow1AndNothingThroughAnyOther) {
    SelectRow(i.s, 1, true);
    EXPECT_EQ(Selected(), "ABCD");
    for (const std::int16_t row : std::initializer_list<std::int16_t>{-1, 0, 2, 4, 9}) SelectRow(i.s, row, false);
    EXPECT_EQ(Selected(), "ABCD");
    SelectRow(i.s, 1, false);
    EXPECT_EQ(Selected(), "");
}

TEST_F(Selection, ARangeRunsInEitherDirectionAndKeepsTheOtherFlags) {
    Select("A");
    SelectRange(i.s, 2, 3);
    EXPECT_EQ(Selected(), "ACD");
    DeselectRange(i.s, 3, 2);
    EXPECT_EQ(Selected(), "A");
    SelectRange(i.s, 3, 1);
    EXPECT_EQ(Selected(), "ABCD");
    DeselectRange(i.s, 0, 0);
    EXPECT_EQ(Selected(), "BCD");
    EXPECT_THROW(SelectRange(i.s, 0, 4), SubscriptError);
    EXPECT_EQ(Selected(), "BCD");
}

TEST_F(Selection, OneFlagIsFlipped) {
    Select("AB");
    SelectToggle(i.s, 1);
    EXPECT_EQ(Selected(), "A");
    SelectToggle(i.s, 1);
    EXPECT_EQ(Selected(), "AB");
}

TEST_F(Selection, TheWorkStartsFromTheFlagsEachTime) {
    i.s.SelectWork[3] = True;  // left over
    SelectToggle(i.s, 0);
    EXPECT_EQ(Selected(), "A");
}

TEST_F(Selection, ChangingAFlagDoesNotTouchTheSound) {
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    SelectGroup(i.s, "All");
    Selected_MouseDown(i.s, 0, kRightButton);
    Selected_DragEnd(i.s);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST_F(Selection, TheListOpensTakesATextWithBlanksAroundItAndHides) {
    SelectPopUp_Click(i.s);
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowSelectList open"));
    SlctGroup_Click(i.s, "  Filled ");
    i.s.Run[2].Loaded = True;
    SlctGroup_Click(i.s, "Filled");
    EXPECT_EQ(Selected(), "C");
    EXPECT_EQ(i.Screen.Log.back(), "ShowSelectList hide");
}

TEST_F(Selection, BlanksAroundTheChosenTextAreIgnored) {
    SlctGroup_Click(i.s, " All  ");
    EXPECT_EQ(Selected(), "ABCD");
}

TEST_F(Selection, TheListThatLosesTheFocusIsHiddenWithoutAnyAction) {
    Select("B");
    SlctGroup_LostFocus(i.s);
    EXPECT_EQ(Selected(), "B");
    EXPECT_THAT(i.Screen.Log, ElementsAre("ShowSelectList hide"));
}

TEST_F(Selection, ALeftDragSelectsEachFlagThatItCrosses) {
    Selected_MouseDown(i.s, 1, kLeftButton);
    for (const Row row : {Row{1}, Row{2}, Row{2}, Row{3}}) Selected_DragOver(i.s, row);
    EXPECT_EQ(Selected(), "BCD");
    EXPECT_EQ(i.Screen.Count("ShowSelected 2"), 1);
    Selected_DragEnd(i.s);
    EXPECT_EQ(Selected(), "BCD");
}

TEST_F(Selection, ARightDragDeselectsEachFlagThatItCrossesTheStartingFlagIncluded) {
    Select("ABCD");
    Selected_MouseDown(i.s, 2, kRightButton);
    EXPECT_EQ(Selected(), "ABD");
    Selected_DragOver(i.s, 1);
    Selected_DragEnd(i.s);
    EXPECT_EQ(Selected(), "AD");
}

TEST_F(Selection, TheSelectionsButtonFollowsAtTheEndOfTheDragOnly) {
    i.s.Run[0].Playing = True;
    Selected_MouseDown(i.s, 0, kLeftButton);
    Selected_DragOver(i.s, 1);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, False);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 0);
    Selected_DragEnd(i.s);
    EXPECT_EQ(i.s.Run[kSelectionRow].Playing, True);
    EXPECT_EQ(i.Screen.Count("ShowPlay 4"), 1);
}

TEST_F(Selection, OtherDragsAndOtherButtonsDoNotChangeTheFlags) {
    Select("B");
    Selected_DragOver(i.s, 0);
    Selected_DragEnd(i.s);
    Selected_MouseDown(i.s, kSelectionRow, kLeftButton);
    Selected_DragOver(i.s, 0);
    Selected_MouseDown(i.s, 0, kMiddleButton);
    Selected_DragOver(i.s, 1);
    EXPECT_EQ(Selected(), "B");
    EXPECT_EQ(i.s.Set[kSelectionRow].Selected, False);
}

TEST_F(Selection, AnEndedDragSelectsNoMore) {
    Selected_MouseDown(i.s, 0, kLeftButton);
    Selected_DragEnd(i.s);
    Selected_DragOver(i.s, 3);
    EXPECT_EQ(Selected(), "A");
}

TEST_F(Selection, RowFourIsNotControlledEvenWhenAllFourAreSelected) {
    SelectGroup(i.s, "All");
    EXPECT_FALSE(IsControlled(i.s, kSelectionRow));
    EXPECT_TRUE(IsControlled(i.s, 0));
}

TEST_F(Selection, WithTheSelectionOutOfControlTheFlagsAreKeptAndTheKnobsActAlone) {
    SelectGroup(i.s, "All");
    SetSelector(i.s, 6, false);
    EXPECT_EQ(Selected(), "ABCD");
    LoopVolChangeGang(i.s, kSelectionRow, 100, UpdateDisplay::No);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(i.s.Set[row].Vol, 500);
    EXPECT_EQ(i.s.Set[kSelectionRow].Vol, 100);
}

class Selectors : public Selection {
protected:
    /// Numbers of the buttons that are lit.
    std::vector<int> Lit() const {
        std::vector<int> lit;
        if (i.s.SelectionControlled) lit.push_back(0);
        for (Row band = 0; band < kBands; ++band) {
            if (i.s.BandTable[band].Controlled == True) lit.push_back(band + 1);
        }
        return lit;
    }
};

TEST_F(Selectors, TheSelectionStartsInControlAndTheBandsDoNot) { EXPECT_THAT(Lit(), ElementsAre(0)); }

TEST_F(Selectors, RowsZeroToFiveAreBandsAndSixIsTheSelection) {
    SetSelector(i.s, 6, false);
    SetSelector(i.s, 0, true);
    SetSelector(i.s, 5, true);
    EXPECT_THAT(Lit(), ElementsAre(1, 6));
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowSelector 0", "ShowSelector 1", "ShowSelector 6"));
    EXPECT_THROW(SetSelector(i.s, 7, true), SubscriptError);
}

TEST_F(Selectors, AClickFlipsOneAndShowsItsNumber) {
    for (int button = 0; button <= 6; ++button) {
        SCOPED_TRACE(button);
        const std::vector<int> before = Lit();
        SelectorRadio_Click(i.s, button);
        EXPECT_NE(Lit(), before);
        EXPECT_EQ(i.s.ReadoutText, std::to_string(button));
        SelectorRadio_Click(i.s, button);
        EXPECT_EQ(Lit(), before);
    }
}

TEST_F(Selectors, ADoubleClickPutsOneInControlAndTheSixOthersOut) {
    for (int button = 0; button <= 6; ++button) {
        SCOPED_TRACE(button);
        SelectorRadio_Click(i.s, (button + 3) % 7);
        i.Screen.Log.clear();
        SelectorRadio_DblClick(i.s, button);
        EXPECT_THAT(Lit(), ElementsAre(button));
        EXPECT_EQ(i.s.ReadoutText, std::to_string(button));
        for (int each = 0; each <= 6; ++each) EXPECT_EQ(i.Screen.Count("ShowSelector " + std::to_string(each)), 1);
    }
}

TEST_F(Selectors, AfterADoubleClickOnBand2OnlyItsRowsAreInControl) {
    Select("AD");
    i.MakeBand(2, 1, 2);
    SelectorRadio_DblClick(i.s, 3);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(IsControlled(i.s, row), row == 1 || row == 2) << row;
}

}  // namespace
}  // namespace marvolin
