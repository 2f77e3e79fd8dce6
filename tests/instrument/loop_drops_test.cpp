#include "instrument/loop_drops.h"

#include <gtest/gtest.h>

#include "core/help.h"
#include "fakes/file_bytes.h"
#include "fakes/instrument.h"
#include "performance/drops/dropper.h"
#include "performance/drops/palette.h"

namespace marvolin {
namespace {

using namespace test;

DragSource Dropper(Row from) { return {"Letr", from, clsDropperManager().DropTo(from)}; }

struct Drops : Instrument {
    TempFolder Folder;
    std::string Sample = Folder / "Kick.wav";
    Drops() {
        WriteBytes(Sample, "");
        s.HelpFile = "help";
    }
    void Give(Row row, std::int16_t vol, std::int16_t pan, std::int16_t hz, std::int16_t mode) {
        s.Set[row].Vol = vol;
        s.Set[row].Pan = pan;
        s.Set[row].Hz = hz;
        s.Set[row].PlayMode = mode;
    }
    std::array<int, 4> Settings(Row row) const {
        const LoopTrackSet& set = s.Set[row];
        return {set.Vol, set.Pan, set.Hz, set.PlayMode};
    }
};

TEST(Letr, TheLoopTrackThatStartedTheDragTakesTheFourSettingsOfTheTarget) {
    Drops d;
    d.Give(1, 100, 200, 3000, kDrum);
    Letr_DragDrop(d.s, 1, Dropper(3));
    EXPECT_EQ(d.Settings(3), (std::array<int, 4>{100, 200, 3000, kDrum}));
    EXPECT_EQ(d.Settings(1), (std::array<int, 4>{100, 200, 3000, kDrum}));
    EXPECT_EQ(d.Settings(0), (std::array<int, 4>{500, 500, 1000, kLoop}));
}

TEST(Letr, ADropperDragFromAToAChangesNothing) {
    Drops d;
    d.Give(0, 100, 200, 3000, kDrum);
    Letr_DragDrop(d.s, 0, Dropper(0));
    EXPECT_EQ(d.Settings(0), (std::array<int, 4>{100, 200, 3000, kDrum}));
}

TEST(Letr, ADropperDragFromAToAChangesNothingInABandEither) {
    for (const auto drop : {Letr_DragDrop, LoopDragDrop}) {
        Drops d;
        d.MakeBand(1, 0, 1);
        d.Give(0, 100, 200, 3000, kDrum);
        drop(d.s, 0, Dropper(0));
        EXPECT_EQ(d.Settings(0), (std::array<int, 4>{100, 200, 3000, kDrum}));
        EXPECT_EQ(d.Settings(1), (std::array<int, 4>{500, 500, 1000, kLoop}));
        EXPECT_TRUE(d.Screen.Log.empty());
    }
}

TEST(Letr, ADropperDragOntoRowFourDoesNothing) {
    Drops d;
    d.Give(4, 1, 2, 3, kDrum);
    Letr_DragDrop(d.s, 4, Dropper(0));
    EXPECT_EQ(d.Settings(0), (std::array<int, 4>{500, 500, 1000, kLoop}));
}

TEST(LoopDragDrop, OntoTheSoundDisplayTheDropperTakesTheVolumeOnly) {
    Drops d;
    d.Give(1, 100, 200, 3000, kDrum);
    LoopDragDrop(d.s, 1, Dropper(3));
    EXPECT_EQ(d.Settings(3), (std::array<int, 4>{100, 500, 1000, kLoop}));
}

TEST(LoopDragDrop, TheHelpPointerAsksForHelpAndDoesNothingElse) {
    Drops d;
    d.Give(1, 100, 200, 3000, kDrum);
    DragSource help = Dropper(3);
    help.Name = std::string(kHelpDragName);
    LoopDragDrop(d.s, 1, help);
    Letr_DragDrop(d.s, 1, help);
    LoopDragDrop(d.s, 1, {"StatusBar1", 0, std::string(kHelpDragName)});
    EXPECT_EQ(d.Settings(3), (std::array<int, 4>{500, 500, 1000, kLoop}));
    EXPECT_EQ(d.Desk.Log, std::vector<std::string>(3, "ShowHelpTopic 10022"));
}

struct FadeCase {
    int From, Target, FromVol;
    int FromState, TargetState;
};
class LoopDragDropFade : public ::testing::TestWithParam<FadeCase> {};
TEST_P(LoopDragDropFade, Crosses) {
    for (const char* name : {"Letr", "PosBall"}) {
        Drops d;
        const auto from = static_cast<Row>(GetParam().From);
        const auto target = static_cast<Row>(GetParam().Target);
        d.s.Set[from].Vol = static_cast<std::int16_t>(GetParam().FromVol);
        LoopDragDrop(d.s, target, {name, from, "4"});
        EXPECT_EQ(d.s.Run[from].FadeState, GetParam().FromState);
        EXPECT_EQ(d.s.Run[target].FadeState, GetParam().TargetState);
    }
}
INSTANTIATE_TEST_SUITE_P(LoopDragDrop, LoopDragDropFade,
                         ::testing::Values(FadeCase{0, 1, 0, kRising, kFalling}, FadeCase{0, 1, 1, kFalling, kRising},
                                           FadeCase{3, 2, 500, kFalling, kRising},
                                           FadeCase{2, 2, 500, kFalling, kFalling},
                                           FadeCase{2, 2, 0, kRising, kRising}));

TEST(LoopDragDrop, ACrossfadeWithinABandEndsWithTheCommandOfTheTarget) {
    Drops d;
    d.MakeBand(1, 0, 1);
    LoopDragDrop(d.s, 1, {"Letr", 0, "4"});
    for (const Row row : std::initializer_list<Row>{0, 1}) EXPECT_EQ(d.s.Run[row].FadeState, kRising);
}

TEST(LoopDragDrop, AnEntryOfThePaletteLoadsOnTheLoopTrackOnWhichItFalls) {
    Drops d;
    d.s.History[0] = {d.Sample};
    d.s.HistoryChoice = kHistorySamples;
    LoopDragDrop(d.s, 3, {"HistoryList", 0, ""});
    EXPECT_EQ(d.s.Set[3].FileName, d.Sample);
}

TEST(LoopDragDrop, PatternsAndTimingAreCopiedFromTheCurrentLoopTrack) {
    const auto drop = [](const DragSource& source) {
        auto d = std::make_unique<Drops>();
        d->s.CurrentLoop = 1;
        LoopTrackSet& from = d->s.Set[1];
        for (PatternBlock& row : from.Pattern) row[5] = 7;
        from.NSteps = 9;
        from.StepDuration = 44;
        from.Swing = 6;
        LoopDragDrop(d->s, 2, source);
        return d;
    };
    auto d = drop({"CloneTime", 0, ""});
    EXPECT_EQ(d->s.Set[2].StepDuration, 44);
    EXPECT_EQ(d->s.Set[2].Swing, 0);
    d = drop({"CloneTime", 2, ""});
    EXPECT_EQ(d->s.Set[2].Swing, 6);
    EXPECT_EQ(d->s.Set[2].StepDuration, 1);
    d = drop({"AllTiming", 0, ""});
    EXPECT_EQ(d->s.Set[2].StepDuration, 44);
    EXPECT_EQ(d->s.Set[2].Swing, 6);
    EXPECT_EQ(d->s.Set[2].NSteps, 3);
    d = drop({"PatternGraph", 1, ""});
    EXPECT_EQ(d->s.Set[2].Pattern[1][5], 7);
    EXPECT_EQ(d->s.Set[2].Pattern[0][5], 500);
    d = drop({"Patterns", 0, ""});
    EXPECT_EQ(d->s.Set[2].Pattern[0][5], 7);
    EXPECT_EQ(d->s.Set[2].Pattern[2][5], 7);
    EXPECT_EQ(d->s.Set[2].NSteps, 9);
    EXPECT_EQ(d->s.Set[2].StepDuration, 1);
    d = drop({"TabControl", 0, ""});
    EXPECT_EQ(d->s.Set[2].Pattern[0][5], 7);
    EXPECT_EQ(d->s.Set[2].StepDuration, 44);
}

TEST(LoopDragDrop, ACopyShowsTheViewsOfTheCurrentLoopTrackAgain) {
    for (const char* name : {"CloneTime", "AllTiming", "PatternGraph", "Patterns", "TabControl"}) {
        SCOPED_TRACE(name);
        Drops d;
        d.s.ActiveTab = kPatternTab;
        LoopDragDrop(d.s, 2, {name, 1, ""});
        for (const char* shown : {"ShowSteps", "ShowPattern 0", "ShowPattern 1", "ShowPattern 2", "ShowTime 0",
                                  "ShowTime 1", "ShowTime 2"}) {
            EXPECT_GE(d.Screen.Count(shown), 1) << shown;
        }
    }
}

TEST(LoopDragDrop, PatternsDroppedOnTheSelectionRowReachTheControlledRowsAsTimingDoes) {
    for (const char* name : {"PatternGraph", "Patterns", "TabControl"}) {
        SCOPED_TRACE(name);
        Drops d;
        d.Select(1);
        d.Select(3);
        d.s.Set[0].Pattern[kHzPattern][5] = 7;
        d.s.Set[0].StepDuration = 44;
        LoopDragDrop(d.s, kSelectionRow, {name, kHzPattern, ""});
        for (Row row = 1; row < kLoopTracks; ++row) {
            EXPECT_EQ(d.s.Set[row].Pattern[kHzPattern][5], row == 2 ? 1000 : 7) << row;
            EXPECT_EQ(d.s.Set[row].StepDuration, row != 2 && name == std::string("TabControl") ? 44 : 1) << row;
        }
    }
}

TEST(LoopDragDrop, ACopiedSampleDoesNotReachTheControlledRowsThroughTheSelectionRowNorPlayOnItsOwn) {
    Drops d;
    d.s.PlayOnLoad = true;
    d.Fill(0, d.Sample);
    d.Select(1);
    LoopDragDrop(d.s, kSelectionRow, {"DropDown", 0, ""});
    EXPECT_EQ(d.s.Run[1].Loaded, False);
    LoopDragDrop(d.s, 0, {"DropDown", 0, ""});
    EXPECT_EQ(d.s.Run[0].Playing, False);
}

TEST(LoopDragDrop, CopyingTheTimingOntoAShorterSampleIsLimitedByTheSetter) {
    Drops d;
    d.Fill(2);
    d.s.Set[0].BeatStart = 500;
    LoopDragDrop(d.s, 2, {"AllTiming", 0, ""});
    EXPECT_EQ(d.s.Set[2].BeatStart, 100);
}

TEST(LoopDragDrop, ASampleOfABinLoadsAndPlaysByItsBoxOrElseByPlayOnLoad) {
    for (const bool clickPlay : {true, false}) {
        for (const bool playOnLoad : {true, false}) {
            Drops d;
            d.s.Bins[1].Folder = d.Folder.Path();
            d.s.Bins[1].Rows = {{"Kick", "0", "", "Kick.wav"}};
            d.s.Bins[1].Selected = 0;
            d.s.Bins[1].ClickPlay = clickPlay ? 1 : 0;
            d.s.PlayOnLoad = playOnLoad;
            LoopDragDrop(d.s, 3, {"PickFile", 1, ""});
            EXPECT_EQ(d.s.Set[3].FileName, d.Sample);
            EXPECT_EQ(d.s.Run[3].Playing != False, clickPlay || playOnLoad);
        }
    }
}

TEST(LoopDragDrop, TheSampleOfOneLoopTrackIsCopiedToAnother) {
    Drops d;
    d.Fill(0, d.Sample);
    LoopDragDrop(d.s, 4, {"DropDown", 0, ""});
    LoopDragDrop(d.s, 0, {"DropDown", 0, ""});
    EXPECT_EQ(d.s.Run[1].Loaded, False);
    LoopDragDrop(d.s, 1, {"DropDown", 0, ""});
    EXPECT_EQ(d.s.Set[1].FileName, d.Sample);
    EXPECT_EQ(d.s.Run[1].Playing, False);
    d.s.PlayOnLoad = true;
    LoopDragDrop(d.s, 2, {"DropDown", 0, ""});
    EXPECT_NE(d.s.Run[2].Playing, False);
}

TEST(LoopDragDrop, ACopiedSampleIsTheFileOfItsLoopTrackWhateverItsName) {
    Drops d;
    d.Folder.Touch("a.WAV");
    for (const char* name : {"a.wav", "kick", "kick.pcm", "c\\d.WAV"}) {
        const std::string path = d.Folder.Touch(name);
        d.Fill(0, path);
        LoopDragDrop(d.s, 1, {"DropDown", 0, ""});
        EXPECT_EQ(d.s.Set[1].FileName, path);
    }
    EXPECT_TRUE(d.Desk.Boxes.empty());
}

TEST(LoopDragDrop, DroppingTheButtonOfAnEmptyLoopTrackChangesNothing) {
    Drops d;
    d.Fill(1, d.Sample);
    LoopDragDrop(d.s, 1, {"DropDown", 0, ""});
    EXPECT_EQ(d.s.Set[1].FileName, d.Sample);
}

TEST(LoopDragDrop, AClipComesBackByItsDrag) {
    Drops d;
    d.s.Clips.ClipStore.emplace_back();
    d.s.Clips.ClipStore[0].Hz = 2000;
    d.s.Clips.ClipTop = 0;
    d.s.Clips.Selected = 0;
    LoopDragDrop(d.s, 2, {"ClipBoardList", 0, "1"});
    EXPECT_EQ(d.s.Set[2].Hz, 2000);
}

TEST(LoopDragDrop, AnyOtherOrForgedSourceDoesNothing) {
    Drops d;
    const std::vector<DragSource> sources{{"", 0, ""},          {"Unknown", 3, "4"},        {"Letr", 99, "4"},
                                          {"Letr", 1, "1"},     {"Letr", 0, "Dropper~~99"}, {"Letr", 0, "Dropper~~-1"},
                                          {"PickFile", 3, ""},  {"PickFile", -1, ""},       {"DropDown", 77, ""},
                                          {"DropDown", -3, ""}, {"PatternGraph", 3, ""},    {"CloneTime", 3, ""}};
    for (const DragSource& source : sources) {
        for (Row row = 0; row <= kSelectionRow; ++row) {
            LoopDragDrop(d.s, row, source);
            Letr_DragDrop(d.s, row, source);
        }
    }
    for (Row row = 0; row < kLoopTracks; ++row) {
        EXPECT_EQ(d.Settings(row), (std::array<int, 4>{500, 500, 1000, kLoop}));
        EXPECT_EQ(d.s.Run[row].FadeState, kNoFade);
    }
}

/// A LoopTrack with a sample and a sequence of its own (A, which is shown), three empty ones, a chosen clip and bin
/// row.
struct Promises : Drops {
    Promises() {
        Fill(0, Sample);
        s.Set[0].StepDuration = 40;
        s.Set[0].NSteps = 9;
        s.Set[0].Pattern[kVolPattern][0] = 77;
        s.Clips.ClipStore.emplace_back();
        s.Clips.ClipStore[0].Hz = 2000;
        s.Clips.ClipTop = 0;
        s.Clips.Selected = 0;
        s.Bins[1].Folder = Folder.Path();
        WriteBytes(Folder / "Snare.wav", "");
        s.Bins[1].Rows.push_back({.Name = "Snare", .Size = "", .Target = "", .File = "Snare.wav"});
        s.Bins[1].Selected = 0;
        for (Row row = 0; row < kLoopTracks; ++row) s.Set[row].Vol = static_cast<std::int16_t>(100 + row);
    }
    bool Changes(Row row, const DragSource& source) {
        const auto before = s.Set;
        LoopDragDrop(s, row, source);
        for (Row each = 0; each < kLoopTracks; ++each) {
            if (!(s.Set[each] == before[each])) return true;
        }
        return false;
    }
};

TEST(LoopTakesDrop, PromisesExactlyTheDropsThatChangeSomething) {
    const std::vector<DragSource> sources{{"CloneTime", 0, ""},
                                          {"AllTiming", 0, ""},
                                          {"PatternGraph", kVolPattern, ""},
                                          {"Patterns", 0, ""},
                                          {"TabControl", 0, ""},
                                          {"PickFile", 1, ""},
                                          {"PickFile", 0, ""},
                                          {"PickFile", 9, ""},
                                          {"DropDown", 0, ""},
                                          {"DropDown", 2, ""},
                                          {"DropDown", 77, ""},
                                          {"ClipBoardList", 0, "1"},
                                          {"Letr", 0, "1"},
                                          {"Eraser", 0, ""},
                                          {"PickDir", 0, ""},
                                          {"", 0, ""},
                                          Dropper(1),
                                          {"Letr", 0, "Dropper~~99"}};
    for (const DragSource& source : sources) {
        for (Row row = 0; row <= kSelectionRow; ++row) {
            for (const bool selected : {false, true}) {
                SCOPED_TRACE(source.Name + " " + source.Tag + " on " + RowLetter(row));
                Promises d;
                if (selected) d.Select(3);
                const bool promised = LoopTakesDrop(d.s, row, source);
                EXPECT_EQ(promised, d.Changes(row, source));
            }
        }
    }
}

TEST(LoopTakesDrop, PromisesFadesThePaletteAndHelp) {
    Promises d;
    for (Row row = 0; row <= kSelectionRow; ++row) {
        EXPECT_TRUE(LoopTakesDrop(d.s, row, {"PosBall", 0, kFadeTag}));
        EXPECT_EQ(LoopTakesDrop(d.s, row, {"Letr", row, kFadeTag}), row != kSelectionRow);
        EXPECT_FALSE(LoopTakesDrop(d.s, row, {"Letr", 99, kFadeTag}));
        EXPECT_EQ(LoopTakesDrop(d.s, row, {"HistoryList", 0, ""}), row != kSelectionRow);
        EXPECT_TRUE(LoopTakesDrop(d.s, row, {"StatusBar1", 0, std::string(kHelpDragName)}));
    }
}

TEST(LoopTakesDrop, PromisesTheFadeOfTheSelectionOnItselfOnlyWhileAnythingIsInControl) {
    const DragSource fade{"Letr", kSelectionRow, kFadeTag};
    for (const bool selected : {false, true}) {
        Promises d;
        if (selected) d.Select(3);
        EXPECT_EQ(LoopTakesDrop(d.s, kSelectionRow, fade), selected);
        LoopDragDrop(d.s, kSelectionRow, fade);
        EXPECT_EQ(d.s.Run[3].FadeState != kNoFade, selected);
    }
}

TEST(LoopTakesDrop, PromisesThePaletteToTheSelectionThatReachesALoopTrackAndAReverseToWhatHasASample) {
    Promises d;
    d.s.HistoryChoice = kHistoryEmpty;
    d.s.Set[1].Selected = True;
    EXPECT_TRUE(LoopTakesDrop(d.s, kSelectionRow, {"HistoryList", 0, ""}));
    d.s.HistoryChoice = kHistoryReverse;
    EXPECT_FALSE(LoopTakesDrop(d.s, kSelectionRow, {"HistoryList", 0, ""}));
    for (Row row = 0; row < kLoopTracks; ++row) {
        EXPECT_EQ(LoopTakesDrop(d.s, row, {"HistoryList", 0, ""}), d.s.Run[row].Loaded != False) << row;
    }
}

TEST(LoopTakesDrop, InABandTheTimingOfALoopTrackGoesToTheOthers) {
    Promises d;
    d.MakeBand(0, 0, 1);
    EXPECT_TRUE(LoopTakesDrop(d.s, 0, {"AllTiming", 0, ""}));
    EXPECT_TRUE(d.Changes(0, {"AllTiming", 0, ""}));
    EXPECT_FALSE(LoopTakesDrop(d.s, 0, {"Patterns", 0, ""}));
}

TEST(LoopTakesDrop, WithoutAChosenClipNoneIsPromised) {
    Promises d;
    d.s.Clips.Selected = -1;
    EXPECT_FALSE(LoopTakesDrop(d.s, 1, {"ClipBoardList", 0, "1"}));
}

}  // namespace
}  // namespace marvolin
