#include <gtest/gtest.h>

#include "persistence/golden.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using namespace test;

/// What a load can change, as one text for each element.
std::array<std::string, kElements> Picture(const Session& s) {
    std::array<std::string, kElements> picture;
    const auto put = [&](Element element, const auto&... parts) {
        std::string& text = picture[static_cast<std::size_t>(element)];
        ((text += std::to_string(parts) + ";"), ...);
    };
    const auto pattern = [&](Element element, const PatternBlock& block) {
        for (const std::int16_t value : block) put(element, value);
    };
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackSet& set = s.Set[row];
        picture[0] += set.FileName + ";";
        put(Element::LoopTrack, set.Thinnable, set.PlayMode);
        put(Element::Freq, set.Hz);
        pattern(Element::FreqPattern, set.Pattern[kHzPattern]);
        put(Element::Vol, set.Vol);
        pattern(Element::VolPattern, set.Pattern[kVolPattern]);
        put(Element::Pan, set.Pan);
        pattern(Element::PanPattern, set.Pattern[kPanPattern]);
        put(Element::Position, set.PositionX, set.PositionY);
        put(Element::CrossFader, set.Channel);
        put(Element::PlayState, s.Run[row].Playing);
        picture[static_cast<std::size_t>(Element::HistoryLists)] += std::to_string(s.History[row].size());
    }
    for (const SampleBin& bin : s.Bins) {
        picture[static_cast<std::size_t>(Element::PickLists)] += bin.Folder + std::to_string(bin.Destination);
    }
    put(Element::General, s.Limit, s.ResetVars, s.Driver, s.Joy.Factor[0], s.FadeStep, s.ActiveTab, s.DragAxis);
    put(Element::General, s.TimingRes, s.PadTable[1].Function);
    put(Element::ThreeD, s.Use3D, s.MapRange);
    for (const Band& band : s.BandTable) put(Element::Bands, band.First, band.Last, band.Controlled);
    put(Element::ClipBoard, s.Clips.ClipTop);
    return picture;
}

/// An instrument that already holds the samples of the file, with "Reset on Load" off.
void Prepare(SetInstrument& i) {
    i.s.ResetVars = false;
    i.s.Use3D = false;
}

TEST(SelectiveLoad, EachOfTheSixteenSwitchesAloneChangesOnlyItsElement) {
    for (int k = 0; k < kElements; ++k) {
        const auto element = static_cast<Element>(k);
        SCOPED_TRACE(kElementNames[static_cast<std::size_t>(k)]);
        SetInstrument i;
        Prepare(i);
        const auto before = Picture(i.s);
        ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path()), Only(element))) << i.Desk.LastBox();
        const auto after = Picture(i.s);
        // Bands are never restored; positions need 3D; the play state needs a sample that the load brings.
        const bool changes = element != Element::Bands && element != Element::Position && element != Element::PlayState;
        for (std::size_t other = 0; other < before.size(); ++other) {
            // A sample that is loaded goes into the history of its row.
            const bool historyOfLoad =
                element == Element::LoopTrack && static_cast<Element>(other) == Element::HistoryLists;
            if (historyOfLoad) continue;
            const bool expected = changes && other == static_cast<std::size_t>(k);
            EXPECT_EQ(before[other] != after[other], expected) << kElementNames[other];
        }
    }
}

TEST(SelectiveLoad, TheFlagsOfTheSelectionAreSavedAndNotRestored) {
    SetInstrument i;
    Prepare(i);
    for (Row row = 0; row < kLoopTracks; ++row) i.s.Set[row].Selected = row == 1 ? True : False;
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path()), All())) << i.Desk.LastBox();
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(i.s.Set[row].Selected, row == 1 ? True : False) << row;
}

TEST(SelectiveLoad, AnOpenedSetLeavesTheListenerWhereItIs) {
    SetInstrument i;
    i.s.ListenerX = 0.5;
    i.s.ListenerY = -0.25;
    i.s.ListenerAngle = 60;
    ASSERT_TRUE(i.Save("x.mvn", All()));
    i.s.ListenerX = -1;
    i.s.ListenerY = 0.75;
    i.s.ListenerAngle = 200;
    ASSERT_TRUE(LoadSession(i.s, i.Folder / "x.mvn", SetAsCurrent::No, All(), AdoptSwitches::No));
    EXPECT_EQ(i.s.ListenerX, -1);
    EXPECT_EQ(i.s.ListenerY, 0.75);
    EXPECT_EQ(i.s.ListenerAngle, 200);
}

TEST(SelectiveLoad, PositionAloneChangesOnlyThePositionsWith3DOn) {
    SetInstrument i;
    i.s.Use3D = true;
    Bytes b;
    PutHeader(b);
    PutSwitches(b);
    PutLoops(b, {GoldenLoop{}}, true);
    const auto before = Picture(i.s);
    ASSERT_TRUE(i.LoadBytes(b.TagText("END").Str(), Only(Element::Position)));
    const auto after = Picture(i.s);
    for (std::size_t other = 0; other < before.size(); ++other) {
        EXPECT_EQ(before[other] != after[other], static_cast<Element>(other) == Element::Position)
            << kElementNames[other];
    }
}

TEST(SelectiveLoad, TheLetterShowsAChangeOfThinnableAlsoWhenTheSampleIsAlreadyLoaded) {
    SetInstrument i;
    const std::string bytes = GoldenSession(i.Folder.Path());
    ASSERT_TRUE(i.LoadBytes(bytes));
    i.s.Set[0].Thinnable = True;
    i.Screen.Log.clear();
    ASSERT_TRUE(i.LoadBytes(bytes, Only(Element::LoopTrack)));
    EXPECT_EQ(i.s.Set[0].Thinnable, False);
    EXPECT_EQ(i.Screen.Count("ShowCaption 0"), 1);
}

TEST(SelectiveLoad, ThePlayStateStartsTheSamplesThatTheLoadBrought) {
    SetInstrument i;
    clsSwitchRecord switches = Only(Element::LoopTrack);
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path()), switches));
    EXPECT_EQ(i.s.Run[0].Playing, False);
    switches.Put(Element::PlayState, true);
    ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path()), switches));
    EXPECT_NE(i.s.Run[0].Playing, False);
}

TEST(SelectiveLoad, AnElementOfALoopTrackThatTheFileLacksIsNotAppliedAlthoughRequested) {
    for (const Element element :
         {Element::LoopTrack, Element::Freq, Element::FreqPattern, Element::Vol, Element::VolPattern, Element::Pan,
          Element::PanPattern, Element::CrossFader, Element::PlayState}) {
        const auto k = static_cast<std::size_t>(element);
        SCOPED_TRACE(kElementNames[k]);
        SetInstrument i;
        Prepare(i);
        const auto before = Picture(i.s);
        ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path(), std::string(kElementNames[k]))));
        const auto after = Picture(i.s);
        EXPECT_EQ(before[k], after[k]);
        if (element != Element::Freq) {
            EXPECT_NE(before[1], after[1]);
        }
    }
}

TEST(SelectiveLoad, AnElementOfALoopTrackThatIsNotRequestedIsNotAppliedAlthoughTheFileHoldsIt) {
    for (const Element element :
         {Element::LoopTrack, Element::Freq, Element::FreqPattern, Element::Vol, Element::VolPattern, Element::Pan,
          Element::PanPattern, Element::CrossFader, Element::PlayState}) {
        const auto k = static_cast<std::size_t>(element);
        SCOPED_TRACE(kElementNames[k]);
        SetInstrument i;
        Prepare(i);
        const auto before = Picture(i.s);
        ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path()), AllBut(element)));
        EXPECT_EQ(before[k], Picture(i.s)[k]);
    }
}

TEST(SelectiveLoad, APositionIsRestoredOnlyWhenItIsRequestedAndTheFileHoldsIt) {
    struct Case {
        clsSwitchRecord Asked;
        const char* Off;  ///< switch of the file that is off
        bool Comes;
    };
    for (const Case& one :
         {Case{All(), "", true}, Case{All(), "Position", false}, Case{AllBut(Element::Position), "", false}}) {
        SetInstrument i;
        i.s.Use3D = true;
        Bytes b;
        PutHeader(b);
        PutSwitches(b, one.Off);
        PutLoops(b, {GoldenLoop{}}, true);
        ASSERT_TRUE(i.LoadBytes(b.TagText("END").Str(), one.Asked));
        EXPECT_EQ(i.s.Set[0].PositionX, one.Comes ? 0.25F : 0.0F);
        EXPECT_EQ(i.s.Set[0].Vol, 321);
    }
}

TEST(SelectiveLoad, ForTheOtherSectionsOnlyTheRequestCounts) {
    for (const Element element :
         {Element::General, Element::ThreeD, Element::PickLists, Element::HistoryLists, Element::ClipBoard}) {
        const auto k = static_cast<std::size_t>(element);
        SCOPED_TRACE(kElementNames[k]);
        SetInstrument i;
        const auto before = Picture(i.s);
        ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path(), "all"), Only(element)));
        EXPECT_NE(before[k], Picture(i.s)[k]);
    }
}

TEST(SelectiveLoad, TimingIsRestoredWithAnyPatternAndWithNothingElse) {
    for (int k = 0; k < kElements; ++k) {
        const auto element = static_cast<Element>(k);
        SCOPED_TRACE(kElementNames[static_cast<std::size_t>(k)]);
        SetInstrument i;
        Prepare(i);
        i.s.Set[1].StepDuration = 999;
        ASSERT_TRUE(i.LoadBytes(GoldenSession(i.Folder.Path()), Only(element)));
        const bool timing =
            element == Element::FreqPattern || element == Element::VolPattern || element == Element::PanPattern;
        EXPECT_EQ(i.s.Set[1].StepDuration, timing ? 25 : 999);
        EXPECT_EQ(i.s.Set[1].Swing, timing ? 3 : 0);
        EXPECT_EQ(i.s.Set[1].NSteps, timing ? 7 : 3);
    }
}

TEST(AndSwitch, IsTheAndOfBothRecords) {
    clsSwitchRecord result;
    clsSwitchRecord::AndSwitch(Only(Element::Vol), All(), result);
    EXPECT_EQ(result, Only(Element::Vol));
    clsSwitchRecord::AndSwitch(All(), Only(Element::Pan), result);
    EXPECT_EQ(result, Only(Element::Pan));
    clsSwitchRecord::AndSwitch(AllBut(Element::Pan), Only(Element::Pan), result);
    EXPECT_EQ(result, clsSwitchRecord{});
    EXPECT_TRUE(result.SaveLoopComponent());
}

}  // namespace
}  // namespace marvolin
