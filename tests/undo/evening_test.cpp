#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>
#include <string>

#include "audio/device.h"
#include "audio/loop_clearing.h"
#include "audio/thinning.h"
#include "browser/clipboard.h"
#include "parameters/setters.h"
#include "performance/drops/dropper.h"
#include "performance/drops/file_drops.h"
#include "performance/drops/palette.h"
#include "performance/drops/row_drops.h"
#include "performance/map/scatter.h"
#include "performance/map/use_3d.h"
#include "performance/pad/wire_sets.h"
#include "performance/selection/bands.h"
#include "performance/selection/selection.h"
#include "persistence/clips.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "sequencing/loop_clock.h"
#include "sequencing/patterns.h"
#include "undo/undo_rig.h"

namespace marvolin::test {
namespace {

constexpr int kRuns = 200;
constexpr int kTimedRuns = 80;
constexpr int kSilentRuns = 40;
constexpr int kActions = 40;  // fewer than can be taken back

/// How the texts of the steps begin.
constexpr std::array kKindsOfStep{"Load of bells",
                                  "Load of 2 samples",
                                  "Clear of A",
                                  "Reverse of ",
                                  "Open of evening",
                                  "Open of morning",
                                  "Open of space",
                                  "Drawing of ",
                                  "Erasing of ",
                                  "Copy of the pattern of ",
                                  "Copy of the patterns of ",
                                  "Copy of the sequence of ",
                                  "Copy of the timing of ",
                                  "Dropper from ",
                                  "Wire set ",
                                  "Scatter Abs",
                                  "Scatter Rel",
                                  "Change of the bands",
                                  "Change of the selection",
                                  "Change of what is in control",
                                  "Selection ",
                                  "Clip ",
                                  "Deletion of the clip ",
                                  "Clear of the clipboard"};

/// The ways to open a set, whose steps have one text.
enum class Opening : std::uint8_t { Set, PartOfASet, QuickLoad, QuickLoadOfAPart };

/// A player without a plan.
class RandomHand {
public:
    RandomHand(UndoRig& rig, unsigned seed) : rig_(rig), s_(rig.s), dice_(seed) {}

    int Below(int n) { return static_cast<int>(dice_() % static_cast<unsigned>(n)); }
    void Act() {
        ActAtRandom();
        steps_.insert(rig_.LastText());
    }
    const std::set<std::string>& Steps() const { return steps_; }
    const std::set<Opening>& Openings() const { return openings_; }

private:
    void ActAtRandom() {
        s_.CurrentLoop = AnyLoop();
        switch (Below(17)) {
            case 0:
            case 1:
                LoadSample(s_, {.Path = AnySample(), .Target = AnyRow(), .Play = Below(2) == 0});
                return;
            case 2:
                return LoopClearRows(s_, AnyRow());
            case 3:
                return Palette();
            case 4:
                return OpenSet();
            case 5:
                return Draw();
            case 6:
                return EraserDrop(s_, Below(kPatternRows));
            case 7:
                return CopyToRow();
            case 8:
                return Drop();
            case 9:
                return SetChannel_Click(s_, static_cast<std::int16_t>(Below(9)));
            case 10:
                return Scatter();
            case 11:
                return DrawBand();
            case 12:
                return Select();
            case 13:
                return Below(2) == 0 ? SelectorRadio_Click(s_, Below(7)) : SelectorRadio_DblClick(s_, Below(7));
            case 14:
                return Below(8) == 0 ? ClearClip_Click(s_) : DeleteClip(s_, AnyClip());
            case 15:
                s_.Clips.Selected = AnyClip();
                return DropClip(s_, AnyLoop(), {drags::kClipBoardList, 0, Below(2) == 0 ? "1" : "2"});
            default:
                return DropFilesOnRow(s_, AnyLoop(), {AnySample(), AnySample()});
        }
    }
    Row AnyLoop() { return static_cast<Row>(Below(kLoopTracks)); }
    Row AnyRow() { return static_cast<Row>(Below(kLoopTracks + 1)); }
    std::string AnySample() {
        static constexpr const char* kNames[] = {"bells.wav", "drum.wav", "hum.wav", "rain.wav", "wind.wav"};
        return rig_.Sample(kNames[Below(5)]);
    }
    std::int16_t AnyClip() {
        return s_.Clips.ClipTop < 0 ? std::int16_t{-1} : static_cast<std::int16_t>(Below(s_.Clips.ClipTop + 1));
    }
    void Palette() {
        s_.HistoryRow = s_.LoopDropTarget = AnyLoop();
        s_.HistoryChoice = static_cast<std::int16_t>(kHistoryEmpty + Below(4));
        if (Below(2) == 0) return HistoryList_DragDrop(s_);
        DropHistory(s_, AnyRow(), {drags::kHistoryList, s_.HistoryRow, ""});
    }
    void OpenSet() {
        s_.SaveOpenSwitches[kWhenOpening].SetSwitch(true);
        const bool whole = Below(2) == 0;
        if (!whole) {
            for (int n = 0; n < 6; ++n) s_.SaveOpenSwitches[kWhenOpening].Put(static_cast<Element>(Below(16)), false);
        }
        s_.EmptyBlankSetting = static_cast<std::int16_t>(Below(2));
        // A set with 3D sound opens the device again.
        const bool silent = !s_.DSReady;
        if (Below(2) == 0 && !silent) {
            s_.QuickLoadTag = kLeftButton;
            openings_.insert(whole ? Opening::QuickLoad : Opening::QuickLoadOfAPart);
            return QuickLoad_Click(s_, static_cast<std::size_t>(Below(static_cast<int>(s_.QuickLoadFiles.size()))));
        }
        openings_.insert(whole ? Opening::Set : Opening::PartOfASet);
        static constexpr const char* kSets[] = {"evening.mvn", "morning.mvn", "space.mvn"};
        OpenIt_Chosen(s_, CurrentChoices(s_), rig_.Sample(kSets[Below(silent ? 2 : 3)]));
    }
    void Draw() {
        const int graph = Below(kPatternRows);
        s_.GraphColumns[static_cast<std::size_t>(graph)] = 4;
        GraphEvent event{.What = Phase::Down, .Button = kLeftButton, .At = {}, .From = {}, .Size = {1000, 500}};
        event.At = {Below(1000) * 1.0, Below(500) * 1.0};
        PatternGraph_Gesture(s_, graph, event);
        for (const Phase phase : {Phase::Move, Phase::Move, Phase::Up}) {
            event.What = phase;
            event.From = event.At;
            event.At = {Below(1000) * 1.0, Below(500) * 1.0};
            PatternGraph_Gesture(s_, graph, event);
        }
    }
    void CopyToRow() {
        switch (Below(5)) {
            case 0:
                return DropPattern(s_, AnyRow(), {drags::kPatternGraph, static_cast<Row>(Below(kPatternRows)), ""});
            case 1:
                return DropPatterns(s_, AnyRow(), {drags::kPatterns, 0, ""});
            case 2:
                return DropSequence(s_, AnyRow(), {drags::kTabControl, 0, ""});
            case 3:
                return DropAllTiming(s_, AnyRow(), {drags::kAllTiming, 0, ""});
            default:
                return DropTimingElement(s_, AnyRow(), {drags::kCloneTime, static_cast<Row>(Below(3)), ""});
        }
    }
    void Drop() {
        const Row from = AnyLoop();
        const DragSource source{drags::kLetr, from, clsDropperManager().DropTo(from)};
        if (Below(2) == 0) {
            DropDropperOnLetter(s_, AnyLoop(), source);
        } else {
            DropDropperOnDisplay(s_, AnyLoop(), source);
        }
    }
    // A random part of a pattern would colour what is heard, too.
    void Scatter() {
        rig_.Chance.Rest = Below(100) / 100.0;
        PosMacros_Click(s_, static_cast<std::int16_t>(1 + Below(2)));
        rig_.Chance.Rest = 0;
    }
    void DrawBand() {
        const auto lane = static_cast<Row>(Below(kBands));
        if (Below(6) == 0) return Bands_DblClick(s_, lane);
        Bands_Gesture(s_, lane, Below(4), Phase::Down);
        Bands_Gesture(s_, lane, Below(4), Phase::Move);
        Bands_Gesture(s_, lane, Below(4), Phase::Up);
    }
    void Select() {
        if (Below(2) == 0) return SlctGroup_Click(s_, Below(2) == 0 ? "Toggle" : "Filled");
        Selected_MouseDown(s_, AnyLoop(), Below(2) == 0 ? kLeftButton : kRightButton);
        Selected_DragOver(s_, AnyLoop());
        Selected_DragEnd(s_);
    }

    UndoRig& rig_;
    Session& s_;
    std::mt19937 dice_;
    std::set<std::string> steps_;
    std::set<Opening> openings_;
};

/// Three sets, one of them with 3D sound, six clips, and an instrument that plays.
void Prepare(UndoRig& rig) {
    Session& s = rig.s;
    const auto keepAsClips = [&] {
        for (Row row = 0; row < 3; ++row) ClipBoardList_DragDrop(s, {drags::kDropDown, row, ""});
    };
    rig.Load(0, "bells.wav", true);
    rig.Load(1, "drum.wav");
    rig.Load(2, "bells.wav");
    s.Set[1].PlayMode = kDrum;
    s.Set[2].Pattern[kVolPattern][3] = 77;
    keepAsClips();
    rig.Save("evening.mvn");
    rig.Load(1, "hum.wav", true);
    LoopClearRows(s, 2);
    s.Set[3].Vol = 120;
    s.Limit = 2;
    s.ActiveTab = kMixPadTab;
    s.PadTable[kPanPad].Function = 3;
    rig.Save("morning.mvn");
    s.Limit = kNoLimit;
    keepAsClips();
    Enable3d_Click(s, true);
    rig.Load(3, "rain.wav", true);
    rig.Save("space.mvn");
    Enable3d_Click(s, false);
    s.ActiveTab = kPatternTab;
    rig.Load(2, "wind.wav");
    s.Run[0].Step = 2;
    rig.Buffer(0).Position = 1200;
    StartUndo(s);
}

void PlayAnEvening(UndoRig& rig, RandomHand& hand) {
    std::vector<std::string> portraits{rig.Portrait()};
    for (int action = 0; action < kActions; ++action) {
        hand.Act();
        std::string now = rig.Portrait();
        if (now != portraits.back()) portraits.push_back(std::move(now));
    }
    ASSERT_GT(portraits.size(), 10U);
    for (std::size_t left = portraits.size() - 1; left-- > 0;) {
        const std::string text = rig.LastText();
        Undo_Click(rig.s);
        ASSERT_EQ(rig.Portrait(), portraits[left]) << "taken back: " << text;
    }
    ASSERT_EQ(rig.LastText(), "") << "no step that the instrument does not show";
    for (std::size_t next = 1; next < portraits.size(); ++next) {
        const std::string text = RedoText(rig.s);
        Redo_Click(rig.s);
        ASSERT_EQ(rig.Portrait(), portraits[next]) << "done again: " << text;
    }
    ASSERT_EQ(RedoText(rig.s), "");
}

/// Between two steps time passes, and the hand moves knobs.
void PassTime(UndoRig& rig, RandomHand& hand) {
    Session& s = rig.s;
    for (int tick = hand.Below(20); tick > 0; --tick) LoopTimer_Timer(s, 1 + hand.Below(40));
    if (hand.Below(2) == 0) return;
    const auto row = static_cast<Row>(hand.Below(kRows));
    switch (hand.Below(3)) {
        case 0:
            return LoopVolChangeGang(s, row, static_cast<std::int16_t>(hand.Below(kVolFull + 1)), UpdateDisplay::Yes);
        case 1:
            return LoopPanChangeGang(s, row, static_cast<std::int16_t>(hand.Below(1001)));
        default:
            return LoopHzChangeGang(s, row, static_cast<std::int16_t>(hand.Below(1001)));
    }
}

/// The clock goes on while steps are taken back, and shows on row Z whether anything plays.
std::string PortraitAfterATick(UndoRig& rig, Knobs knobs = Knobs::Told) {
    LoopTimer_Timer(rig.s, 1);
    return rig.Portrait(knobs);
}

/// What a knob has moved stays where no step has changed it, so the way back does not end at the start. But each step
/// done again must lead to what was there before it was taken back, and all that no knob moves comes back to its start.
void PlayAnEveningInTime(UndoRig& rig, unsigned seed) {
    RandomHand hand(rig, seed);
    const std::string start = PortraitAfterATick(rig, Knobs::LeftOut);
    for (int action = 0; action < kActions; ++action) {
        hand.Act();
        PassTime(rig, hand);
    }
    std::vector<std::string> portraits{PortraitAfterATick(rig)};
    std::vector<std::string> texts;
    while (!rig.LastText().empty()) {
        texts.push_back(rig.LastText());
        Undo_Click(rig.s);
        portraits.push_back(PortraitAfterATick(rig));
    }
    ASSERT_GT(texts.size(), 10U);
    ASSERT_EQ(PortraitAfterATick(rig, Knobs::LeftOut), start);
    for (std::size_t left = texts.size(); left-- > 0;) {
        Redo_Click(rig.s);
        ASSERT_EQ(PortraitAfterATick(rig), portraits[left]) << "done again: " << texts[left];
    }
    ASSERT_EQ(RedoText(rig.s), "");
}

TEST(Evening, WithTicksAndKnobsBetweenItsStepsIsTakenBackAndDoneAgain) {
    for (unsigned seed = 1; seed <= kTimedRuns; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        UndoRig rig;
        Prepare(rig);
        PlayAnEveningInTime(rig, seed);
        if (testing::Test::HasFatalFailure()) return;
    }
}

TEST(Evening, OfRandomGesturesIsTakenBackToItsStartAndDoneAgainToItsEnd) {
    std::set<std::string> steps;
    std::set<Opening> openings;
    for (unsigned seed = 1; seed <= kRuns; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        UndoRig rig;
        Prepare(rig);
        RandomHand hand(rig, seed);
        PlayAnEvening(rig, hand);
        if (testing::Test::HasFatalFailure()) return;
        steps.insert(hand.Steps().begin(), hand.Steps().end());
        openings.insert(hand.Openings().begin(), hand.Openings().end());
    }
    for (const std::string kind : kKindsOfStep) {
        const auto first = steps.lower_bound(kind);
        EXPECT_TRUE(first != steps.end() && first->starts_with(kind)) << "never taken back: " << kind;
    }
    EXPECT_EQ(openings.size(), 4U) << "a way to open a set was never tried";
}

TEST(Evening, OnNoSoundIsTakenBackToItsStartAndDoneAgainToItsEnd) {
    for (unsigned seed = 1; seed <= kSilentRuns; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        UndoRig rig;
        Prepare(rig);
        cboDrivers_Click(rig.s, 2);
        ASSERT_FALSE(rig.s.DSReady);
        rig.s.Run[0].Step = 0;  // as after every stop: a sample that waits in silence has no other
        StartUndo(rig.s);
        RandomHand hand(rig, seed);
        PlayAnEvening(rig, hand);
        if (testing::Test::HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace marvolin::test
