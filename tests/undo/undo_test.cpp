#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <utility>

#include "audio/beat_start.h"
#include "audio/device.h"
#include "audio/loop_clearing.h"
#include "audio/play_gestures.h"
#include "audio/play_modes.h"
#include "audio/reverse.h"
#include "audio/thinning.h"
#include "browser/bin_gestures.h"
#include "browser/clipboard.h"
#include "browser/sample_bins.h"
#include "core/routines.h"
#include "instrument/dropped_files.h"
#include "parameters/fades.h"
#include "parameters/setters.h"
#include "performance/drops/dropper.h"
#include "performance/drops/palette.h"
#include "performance/drops/row_drops.h"
#include "performance/joystick/joystick_plug.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_waiting.h"
#include "performance/map/scatter.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/wire_sets.h"
#include "performance/selection/bands.h"
#include "performance/selection/selection.h"
#include "persistence/clips.h"
#include "persistence/quick_load.h"
#include "persistence/undo/row_state.h"
#include "persistence/undo/undo_steps.h"
#include "sequencing/patterns.h"
#include "undo/undo_rig.h"

namespace marvolin::test {
namespace {

struct Undo : testing::Test, UndoRig {
    /// Takes the one step back and does it again; each time the instrument must look as it did.
    void GoBackAndForth(const std::string& before, const std::string& text) {
        const std::string after = Portrait();
        ASSERT_NE(after, before);
        EXPECT_EQ(LastText(), text);
        Undo_Click(s);
        EXPECT_EQ(Portrait(), before);
        EXPECT_EQ(s.StatusText, "Taken back: " + text);
        EXPECT_EQ(RedoText(s), text);
        Redo_Click(s);
        EXPECT_EQ(Portrait(), after);
        EXPECT_EQ(s.StatusText, "Done again: " + text);
    }
    void Forget() { StartUndo(s); }
    /// Takes back the clearing of B, when the limit has become 1 meanwhile: that stops A, at byte 400.
    void TakeBackOverTheLimit() {
        Load(0, "bells.wav", true);
        Load(1, "drum.wav", true);
        Forget();
        LoopClearRows(s, 1);
        s.Limit = 1;
        Buffer(0).Position = 400;
        Undo_Click(s);
    }
    /// The same while A fades from 300 to 200; then the hand gives it 500.
    void ThinWhileItFades() {
        Load(0, "bells.wav", true);
        s.Set[0].Vol = 300;
        LoopFadeTo(s, 0, 200, kOwnBand);
        ASSERT_EQ(s.Run[0].FadeState, kFalling);
        Load(1, "drum.wav", true);
        Forget();
        LoopClearRows(s, 1);
        s.Limit = 1;
        Undo_Click(s);
        ASSERT_EQ(s.Run[0].Playing, False);
        ASSERT_EQ(s.Set[0].Vol, 300);
        std::int16_t louder = 500;
        LoopVolChange(s, 0, louder, TakeHold::Yes, UpdateDisplay::Yes);
        LineOfA = s.SndDisp[0].Line;
    }
    /// The hand fades A out for a while. Returns the level that it has come to.
    std::int16_t FadeOutAWhile() {
        LoopFadeTo(s, 0, 0, kOwnBand);
        StepFades(s, 1000);
        return s.Set[0].Vol;
    }
    void ExpectA(bool playing, std::int16_t level) {
        EXPECT_EQ(s.Run[0].Playing, ToBoolean(playing));
        EXPECT_EQ(s.Set[0].Vol, level);
    }
    /// A row that is silent, but in the order of thinning by its flag.
    void LoadSilentInTheOrder(Row row) {
        Load(row, "drum.wav");
        s.Set[row].Thinnable = False;
        LoopSetThinnable(s, row, true);
    }
    /// A, B and C play.
    void LoadThree() {
        Load(0, "bells.wav", true);
        Load(1, "drum.wav", true);
        Load(2, "hum.wav", true);
    }
    int Reads() { return Sound.Count("CreateSoundBufferFromFile"); }

    std::int16_t LineOfA = 0;  // of A while it stands still
};

TEST_F(Undo, ALoadGivesTheSampleBackWithoutReadingTheFile) {
    Load(0, "bells.wav");
    Forget();
    const std::string before = Portrait();
    Load(0, "drum.wav");
    const int reads = Reads();
    std::filesystem::remove(Sample("bells.wav"));
    std::filesystem::remove(Sample("drum.wav"));
    GoBackAndForth(before, "Load of drum into A");
    EXPECT_EQ(Reads(), reads);
    EXPECT_TRUE(Desk.Boxes.empty());
}

TEST_F(Undo, ALoadFromABinIsAStep) {
    SetPickDir(s, 0, Folder.Path());
    UpdatePickFile(s, 0);
    ASSERT_EQ(s.Bins[0].Rows.size(), 5U);
    s.Bins[0].Destination = 2;
    const std::string before = Portrait();
    PickFile_MouseUp(s, 0, kLeftButton, 1);
    GoBackAndForth(before, "Load of drum into C");
}

TEST_F(Undo, ALoadFromThePaletteIsAStep) {
    Load(1, "bells.wav");
    LoopClearRows(s, 1);
    Forget();
    const std::string before = Portrait();
    s.HistoryRow = s.LoopDropTarget = 1;
    s.HistoryChoice = kHistorySamples;
    HistoryList_DragDrop(s);
    GoBackAndForth(before, "Load of bells into B");
}

TEST_F(Undo, ADragOfALoopTrackOntoAnotherIsAStep) {
    Load(0, "bells.wav");
    Load(1, "drum.wav", true);
    Forget();
    const std::string before = Portrait();
    DropLoopTrack(s, 1, {drags::kDropDown, 0, ""});
    GoBackAndForth(before, "Load of bells into B");
    EXPECT_EQ(Buffer(0).Sample, Buffer(1).Sample) << "one memory for both";
}

TEST_F(Undo, DroppedFilesAreOneStep) {
    const std::string before = Portrait();
    DropFiles(s, 1, {Sample("bells.wav"), Sample("drum.wav"), Sample("hum.wav")});
    GoBackAndForth(before, "Load of 3 samples");
}

TEST_F(Undo, AClearGivesSampleSettingsAndPatternsBack) {
    Load(2, "rain.wav", true);
    s.Set[2].Pattern[kHzPattern][4] = 1500;
    s.Set[2].Thinnable = False;
    s.ThinList.clear();
    std::int16_t vol = 321;
    LoopVolChange(s, 2, vol, TakeHold::Yes, UpdateDisplay::Yes);
    Forget();
    const std::string before = Portrait();
    LoopClearRows(s, 2);
    GoBackAndForth(before, "Clear of C");
}

TEST_F(Undo, AReverseKeepsOnlyTheDirectionAndReachesAllThatShareTheSample) {
    Load(0, "bells.wav");
    Load(3, "bells.wav");
    Forget();
    const auto bytes = Buffer(3).Sample->Bytes;
    const std::string before = Portrait();
    const long holders = Buffer(0).Sample.use_count();
    s.LoopDropTarget = 0;
    s.HistoryChoice = kHistoryReverse;
    HistoryList_DragDrop(s);
    ASSERT_NE(Buffer(3).Sample->Bytes, bytes);
    EXPECT_EQ(Buffer(0).Sample.use_count(), holders) << "the step holds no sample";
    GoBackAndForth(before, "Reverse of A");
    Undo_Click(s);
    EXPECT_EQ(Buffer(3).Sample->Bytes, bytes);
}

TEST_F(Undo, AReversedSampleThatWasReplacedComesBackReversed) {
    Load(0, "bells.wav");
    LoopReverse(s, 0);
    const auto reversed = Buffer(0).Sample->Bytes;
    Forget();
    Load(0, "drum.wav");
    Undo_Click(s);
    EXPECT_EQ(Buffer(0).Sample->Bytes, reversed);
    EXPECT_EQ(s.Run[0].Reversed, True);
}

TEST_F(Undo, AnOpenedSetGivesBackAllThatItReplaced) {
    Load(0, "bells.wav", true);
    Load(1, "drum.wav");
    ASSERT_TRUE(Save("evening.mvn"));
    Load(0, "hum.wav", true);
    LoopClearRows(s, 1);
    Load(3, "rain.wav");
    s.Limit = 3;
    s.ActiveTab = kOptionTab;
    s.ResetVars = false;
    double x = 900;
    double y = -700;
    PadMix(s, x, y, kVolPad, {.Absolute = true});
    s.Bins[1].Destination = 1;
    Forget();
    const std::string before = Portrait();
    ASSERT_TRUE(Open("evening.mvn"));
    GoBackAndForth(before, "Open of evening.mvn");
}

TEST_F(Undo, WhatAnOpenedSetAssignsToAJoystickThatHasNotComeIsTakenBack) {
    ASSERT_TRUE(Save("before.mvn"));
    JoyAssignButton(s, kJoyCentre, 7);
    JoyAssignAxis(s, kMasterAxis, kAxisRX);
    ASSERT_TRUE(Save("set.mvn"));
    ASSERT_TRUE(Open("before.mvn"));
    ASSERT_EQ(JoyButtonToKeep(s, kJoyCentre), 2);
    Forget();
    const std::string before = Portrait();
    ASSERT_TRUE(Open("set.mvn"));
    ASSERT_EQ(JoyButtonToKeep(s, kJoyCentre), 7);
    ASSERT_EQ(JoyAxisToKeep(s, kMasterAxis), kAxisRX);
    GoBackAndForth(before, LastText());
}

/// The first stick is plugged in after "set.mvn", which assigns much of it, was opened.
struct UndoBeforeTheStick : Undo {
    UndoBeforeTheStick() {
        Stick.Devices.clear();
        InitDirectInput(s);
        JoyAssignButton(s, kJoyCentre, 7);
        JoyAssignAxis(s, kMasterAxis, kAxisRX);
        JoyAssignAxis(s, kTwistAxis, kAxisZ);
        SetJoyRelative(s, 0, true);
        EXPECT_TRUE(Save("set.mvn"));
        s.Joy.Waiting = {};
        SetJoyRelative(s, 0, false);
        Forget();
    }
    void PlugIn() {
        Stick.Devices = {"stick"};
        JoystickWatch().Look(s);
        ASSERT_TRUE(s.JoyEnabled);
    }
};

TEST_F(UndoBeforeTheStick, AStepBackGivesItWhatAStartSets) {
    ASSERT_TRUE(Open("set.mvn"));
    PlugIn();
    ASSERT_EQ(s.Joy.Axis[kMasterAxis], kAxisRX);
    Undo_Click(s);
    EXPECT_EQ(s.Joy.Button[kJoyCentre], 2);
    EXPECT_EQ(s.Joy.Axis[kMasterAxis], kAxisZ) << "as if the set had not been opened";
    EXPECT_EQ(s.Joy.Axis[kTwistAxis], kAxisRZ);
    EXPECT_NE(s.Joy.Relative[0], False);
    EXPECT_EQ(s.Joy.Relative[1], False) << "the set has not changed it";
    EXPECT_EQ(s.Joy.AxisChoice[kMasterAxis], 0) << "the lists show it";
    Redo_Click(s);
    EXPECT_EQ(s.Joy.Button[kJoyCentre], 7);
    EXPECT_EQ(s.Joy.Axis[kMasterAxis], kAxisRX);
    EXPECT_EQ(s.Joy.Axis[kTwistAxis], kAxisZ);
    EXPECT_NE(s.Joy.Relative[0], False);
    EXPECT_EQ(s.Joy.Relative[1], False);
}

TEST_F(UndoBeforeTheStick, AStepBackAfterItWasPulledOutLetsThatWait) {
    ASSERT_TRUE(Open("set.mvn"));
    PlugIn();
    Stick.Devices.clear();
    JoyUnplug(s);
    Undo_Click(s);
    EXPECT_EQ(JoyAxisToKeep(s, kMasterAxis), kAxisZ);
    EXPECT_EQ(JoyAxisToKeep(s, kTwistAxis), kAxisRZ);
    EXPECT_EQ(s.Joy.Axis[kMasterAxis], kAxisNone) << "no stick holds the master";
}

TEST_F(UndoBeforeTheStick, AStepBackToAnotherSetGivesItWhatThatAssigned) {
    ASSERT_TRUE(Open("set.mvn"));
    JoyAssignAxis(s, kMasterAxis, kAxisRY);
    ASSERT_TRUE(Save("other.mvn"));
    ASSERT_TRUE(Open("set.mvn"));
    ASSERT_TRUE(Open("other.mvn"));
    PlugIn();
    ASSERT_EQ(s.Joy.Axis[kMasterAxis], kAxisRY);
    Undo_Click(s);
    EXPECT_EQ(s.Joy.Axis[kMasterAxis], kAxisRX);
    EXPECT_EQ(s.Joy.Axis[kTwistAxis], kAxisZ);
}

TEST_F(UndoBeforeTheStick, AStepThatDidNotConcernItLeavesWhatTheHandHasAssigned) {
    Load(0, "bells.wav");
    PlugIn();
    JAxis_Click(s, kMasterAxis, 1);
    Undo_Click(s);
    EXPECT_EQ(s.Joy.Axis[kMasterAxis], kAxisRZ);
}

TEST_F(Undo, ASetThatSwitches3dGivesTheSamplesBackAlsoWhenTheirFilesHaveGone) {
    Load(0, "bells.wav", true);
    ASSERT_TRUE(Save("flat.mvn"));
    Enable3d_Click(s, true);
    Load(1, "drum.wav", true);
    ASSERT_TRUE(Save("space.mvn"));
    Forget();
    const std::string before = Portrait();
    ASSERT_TRUE(Open("flat.mvn"));
    ASSERT_FALSE(s.Use3D);
    for (const char* name : {"bells.wav", "drum.wav"}) std::filesystem::remove(Sample(name));
    Desk.Boxes.clear();
    Undo_Click(s);
    EXPECT_TRUE(s.Use3D);
    EXPECT_EQ(Portrait(), before);
    EXPECT_TRUE(Desk.Boxes.empty());
}

TEST_F(Undo, ASetThatSwitches3dIsTakenBackAndDoneAgainOnTheOpenOutput) {
    Load(0, "bells.wav");
    ASSERT_TRUE(Save("flat.mvn"));
    Enable3d_Click(s, true);
    Load(0, "bells.wav", true);
    // A set may show another output in the list than the open one.
    const auto noSound = static_cast<std::int16_t>(static_cast<int>(s.Drivers.size()) - 1);
    const std::int16_t open = s.OpenDriver;
    s.Driver = noSound;
    Forget();
    ASSERT_TRUE(Open("flat.mvn"));
    ASSERT_EQ(s.Driver, open);
    Undo_Click(s);
    EXPECT_TRUE(s.Use3D);
    EXPECT_TRUE(s.DSReady);
    EXPECT_EQ(s.Driver, noSound);
    Redo_Click(s);
    EXPECT_FALSE(s.Use3D);
    EXPECT_TRUE(s.DSReady);
    EXPECT_EQ(s.OpenDriver, open);
    EXPECT_EQ(s.Driver, open);
    EXPECT_NE(s.Run[0].Loaded, False);
    Undo_Click(s);
    EXPECT_TRUE(s.DSReady);
    EXPECT_NE(s.Run[0].Loaded, False);
}

TEST_F(Undo, OptionsThatASetDidNotChangeStayAsTheHandHasPutThemSince) {
    Load(0, "bells.wav");
    s.Limit = 3;
    MapSize_Change(s, 6);
    ASSERT_TRUE(Save("evening.mvn"));
    s.Limit = kNoLimit;
    s.Bins[0].Destination = 1;
    Forget();
    ASSERT_TRUE(Open("evening.mvn"));
    ASSERT_EQ(s.Limit, 3);
    ASSERT_NE(s.Bins[0].Destination, 1);
    cboDrivers_Click(s, 1);
    s.DragAxis = kHorizontalDrag;
    s.Bins[1].Destination = 3;
    ASSERT_EQ(s.MapSize, 6);
    MapSize_Change(s, 8);
    Undo_Click(s);
    EXPECT_EQ(s.Limit, kNoLimit);
    EXPECT_EQ(s.Bins[0].Destination, 1);
    EXPECT_EQ(s.Driver, 1);
    EXPECT_EQ(s.DragAxis, kHorizontalDrag);
    EXPECT_EQ(s.Bins[1].Destination, 3);
    EXPECT_EQ(s.MapSize, 8);
    s.DragAxis = kVerticalDrag;
    Redo_Click(s);
    EXPECT_EQ(s.Limit, 3);
    EXPECT_EQ(s.DragAxis, kVerticalDrag);
}

TEST_F(Undo, AfterASwitchOf3dTheHandsKnobsStayWhenTheStepIsDoneAgain) {
    Load(0, "bells.wav");
    ASSERT_TRUE(Save("flat.mvn"));
    Enable3d_Click(s, true);
    Forget();
    ASSERT_TRUE(Open("flat.mvn"));
    ASSERT_FALSE(s.Use3D);
    Undo_Click(s);
    ASSERT_TRUE(s.Use3D);
    std::int16_t vol = 123;
    LoopVolChange(s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes);
    Redo_Click(s);
    EXPECT_FALSE(s.Use3D);
    EXPECT_EQ(s.Set[0].Vol, 123);
}

TEST_F(Undo, TakingBackKeepsToTheLimit) {
    Load(0, "bells.wav", true);
    Load(1, "drum.wav", true);
    Forget();
    LoopClearRows(s, 0);
    s.Limit = 1;
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Loaded, True);
    EXPECT_EQ(s.Run[0].Playing, False) << "the oldest";
    EXPECT_FALSE(Sounds(0));
    EXPECT_EQ(s.Run[1].Playing, True);
    EXPECT_TRUE(Sounds(1));
    EXPECT_EQ(s.ThinList, "B");
}

TEST_F(Undo, TakingBackClosesTheListsThatShowWhatWas) {
    Load(0, "bells.wav");
    Screen.Log.clear();
    Undo_Click(s);
    EXPECT_EQ(Screen.Count("ShowHistoryList hide"), 1);
    EXPECT_EQ(Screen.Count("ShowSelectList hide"), 1);
}

TEST_F(Undo, KeysThatComeBackToTheStartLeaveNoStep) {
    Load(0, "bells.wav");
    for (const int up : {1, 1, -1, -1}) PatternStep(s, kPanPattern, 2, up);
    EXPECT_EQ(LastText(), "Load of bells into A");
}

TEST_F(Undo, AFlagThatAKeySwitchesIsAStep) {
    const std::string before = Portrait();
    SelectToggle(s, 2);
    GoBackAndForth(before, "Change of the selection");
}

TEST_F(Undo, QuickLoadIsAStep) {
    Load(0, "bells.wav");
    ASSERT_TRUE(Save("evening.mvn"));
    Load(0, "drum.wav");
    Forget();
    const std::string before = Portrait();
    s.QuickLoadTag = kLeftButton;
    QuickLoad_Click(s, 1);
    GoBackAndForth(before, "Open of evening.mvn");
}

TEST_F(Undo, ADroppedSetIsOneStepWithWhatTheDropDoesBesides) {
    Load(0, "bells.wav");
    ASSERT_TRUE(Save("evening.mvn"));
    LoopClearRows(s, 0);
    Forget();
    const std::string before = Portrait();
    DropFiles(s, -1, {Sample("evening.mvn")});
    ASSERT_TRUE(s.SaveItEnabled);
    GoBackAndForth(before, "Open of evening.mvn");
}

TEST_F(Undo, ADrawingIsOneStepFromThePressToTheRelease) {
    s.GraphColumns = {4, 4, 4};
    const std::string before = Portrait();
    GraphEvent event{.What = Phase::Down, .Button = kLeftButton, .At = {300, 100}, .From = {}, .Size = {1000, 500}};
    PatternGraph_Gesture(s, kVolPattern, event);
    for (const double x : {500.0, 700.0, 900.0}) {
        event.What = Phase::Move;
        event.From = event.At;
        event.At = {x, x / 2};
        PatternGraph_Gesture(s, kVolPattern, event);
        EXPECT_EQ(LastText(), "") << "not before the release";
    }
    event.What = Phase::Up;
    PatternGraph_Gesture(s, kVolPattern, event);
    GoBackAndForth(before, "Drawing of the Vol pattern of A");
}

TEST_F(Undo, StepsOfKeysOnAGraphThatFollowEachOtherAreOneStep) {
    const std::string before = Portrait();
    for (int n = 0; n < 60; ++n) PatternStep(s, kPanPattern, 2, 1);
    GoBackAndForth(before, "Drawing of the Pan pattern of A");
}

TEST_F(Undo, KeysOnAGraphAfterAPauseAreAStepOfTheirOwn) {
    std::chrono::steady_clock::time_point now;
    s.Undo = std::make_shared<UndoSteps>(kMostUndoBytes, [&] { return now; });
    const auto steps = [&] {
        int count = 0;
        for (; !LastText().empty(); ++count) Undo_Click(s);
        return count;
    };
    const auto draw = [&](std::chrono::milliseconds after) {
        now += after;
        PatternStep(s, kVolPattern, 2, -5);
    };
    using std::chrono::milliseconds;
    for (int n = 0; n < 4; ++n) draw(kUndoRunPause - milliseconds(1));
    EXPECT_EQ(steps(), 1) << "each key renews the time";
    draw(milliseconds(10));
    draw(milliseconds(10));
    draw(kUndoRunPause);
    draw(milliseconds(10));
    EXPECT_EQ(steps(), 2);
}

TEST_F(Undo, WhatAScriptChangesIsNoStepAndLeavesWhatCanBeDoneAgain) {
    Load(0, "bells.wav");
    Load(1, "drum.wav");
    Undo_Click(s);
    {
        const UndoStep script(s, "", UndoScope::Patterns, UndoKind::Script);
        s.Set[2].Pattern[kVolPattern][1] = 3;
        PatternStep(s, kPanPattern, 2, 1);  // a step of its own, were it the hand's
    }
    EXPECT_EQ(LastText(), "Load of bells into A");
    EXPECT_EQ(RedoText(s), "Load of drum into B");
    Redo_Click(s);
    EXPECT_EQ(s.Set[1].FileName, Sample("drum.wav"));
    EXPECT_EQ(s.Set[2].Pattern[kVolPattern][1], 3);
}

TEST_F(Undo, WhatAScriptChangesDuringADrawingNeitherSplitsItNorComesBackWithIt) {
    s.GraphColumns = {4, 4, 4};
    const PatternBlock before = s.Set[0].Pattern[kVolPattern];
    GraphEvent event{.What = Phase::Down, .Button = kLeftButton, .At = {300, 100}, .From = {}, .Size = {1000, 500}};
    PatternGraph_Gesture(s, kVolPattern, event);
    event.What = Phase::Move;
    PatternGraph_Gesture(s, kVolPattern, event);
    ASSERT_NE(s.Set[0].Pattern[kVolPattern], before);
    {
        const UndoStep script(s, "", UndoScope::Patterns, UndoKind::Script);
        s.Set[0].Pattern[kVolPattern][3] = 1;
        s.Set[1].Pattern[kVolPattern][1] = 3;
        s.Set[0].Pattern[kHzPattern][1] = 1200;
    }
    EXPECT_EQ(LastText(), "");
    event.What = Phase::Up;
    event.At.Y = 300;
    PatternGraph_Gesture(s, kVolPattern, event);
    Undo_Click(s);
    EXPECT_EQ(LastText(), "");
    EXPECT_EQ(s.Set[0].Pattern[kVolPattern], before);
    EXPECT_EQ(s.Set[1].Pattern[kVolPattern][1], 3);
    EXPECT_EQ(s.Set[0].Pattern[kHzPattern][1], 1200);
}

TEST_F(Undo, NothingIsTakenBackWhileTheMouseDraws) {
    s.GraphColumns = {4, 4, 4};
    Load(0, "bells.wav");
    GraphEvent event{.What = Phase::Down, .Button = kLeftButton, .At = {300, 100}, .From = {}, .Size = {1000, 500}};
    PatternGraph_Gesture(s, kVolPattern, event);
    const std::string before = Portrait();
    Undo_Click(s);
    Redo_Click(s);
    EXPECT_EQ(Portrait(), before);
    EXPECT_EQ(s.StatusText, "Nothing is taken back while the mouse draws");
    event.What = Phase::Up;
    PatternGraph_Gesture(s, kVolPattern, event);
    EXPECT_EQ(LastText(), "Drawing of the Vol pattern of A");
    Undo_Click(s);
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Loaded, False);
}

TEST_F(Undo, AnErasedPatternIsAStep) {
    s.Set[0].Pattern[kHzPattern][2] = 700;
    s.Set[0].NSteps = 9;
    const std::string before = Portrait();
    EraserDrop(s, kHzPattern);
    GoBackAndForth(before, "Erasing of the Freq pattern of A");
}

TEST_F(Undo, CopiesOfPatternsAndTimingAreSteps) {
    Load(0, "bells.wav");
    Load(1, "drum.wav", true);
    s.Set[0].Pattern[kVolPattern][1] = 40;
    s.Set[0].Swing = 12;
    s.Set[0].NSteps = 20;
    Forget();
    std::string before = Portrait();
    DropPattern(s, 1, {drags::kPatternGraph, kVolPattern, ""});
    GoBackAndForth(before, "Copy of the pattern of A to B");
    before = Portrait();
    DropTimingElement(s, 1, {drags::kCloneTime, 2, ""});
    DropAllTiming(s, 2, {drags::kAllTiming, 0, ""});
    EXPECT_EQ(LastText(), "Copy of the timing of A to C");
    Undo_Click(s);
    Undo_Click(s);
    EXPECT_EQ(Portrait(), before);
    DropSequence(s, 1, {drags::kTabControl, 0, ""});
    GoBackAndForth(before, "Copy of the sequence of A to B");
}

TEST_F(Undo, TheDropperIsAStep) {
    Load(0, "bells.wav", true);
    std::int16_t vol = 200;
    LoopVolChange(s, 1, vol, TakeHold::Yes, UpdateDisplay::Yes);
    s.Set[1].PlayMode = kDrum;
    Forget();
    const std::string before = Portrait();
    DropDropperOnLetter(s, 1, {drags::kLetr, 0, clsDropperManager().DropTo(0)});
    ASSERT_EQ(s.Set[0].Vol, 200);
    GoBackAndForth(before, "Dropper from B to A");
}

TEST_F(Undo, AWireSetIsAStep) {
    const std::string before = Portrait();
    SetChannel_Click(s, 7);
    GoBackAndForth(before, "Wire set All to 1");
}

TEST_F(Undo, AScatterIsAStepAndAWanderIsNone) {
    Chance.Rest = 0.8;
    const std::string before = Portrait();
    PosMacros_Click(s, kMacroScatterAbs);
    GoBackAndForth(before, "Scatter Abs");
    Forget();
    PosMacros_Click(s, kMacroWander);
    WanderStep(s, 200);
    EXPECT_EQ(LastText(), "");
}

TEST_F(Undo, GesturesOnBandsAndSelectionAreSteps) {
    std::string before = Portrait();
    Bands_Gesture(s, 2, 0, Phase::Down);
    Bands_Gesture(s, 2, 1, Phase::Move);
    Bands_Gesture(s, 2, 2, Phase::Move);
    Bands_Gesture(s, 2, 2, Phase::Up);
    GoBackAndForth(before, "Change of the bands");
    before = Portrait();
    Selected_MouseDown(s, 0, kLeftButton);
    Selected_DragOver(s, 1);
    Selected_DragOver(s, 2);
    Selected_DragEnd(s);
    GoBackAndForth(before, "Change of the selection");
    before = Portrait();
    SlctGroup_Click(s, " Toggle ");
    GoBackAndForth(before, "Selection Toggle");
    before = Portrait();
    SelectorRadio_DblClick(s, 3);
    GoBackAndForth(before, "Change of what is in control");
}

TEST_F(Undo, ClipsThatWereDeletedComeBackToTheirPlace) {
    for (const char* name : {"bells.wav", "drum.wav", "hum.wav"}) {
        Load(0, name);
        ClipBoardList_DragDrop(s, {drags::kDropDown, 0, ""});
    }
    Forget();
    std::string before = Portrait();
    DeleteClip(s, 1);
    GoBackAndForth(before, "Deletion of the clip drum");
    Undo_Click(s);
    before = Portrait();
    ClearClip_Click(s);
    GoBackAndForth(before, "Clear of the clipboard");
    ClipBoardList_DragDrop(s, {drags::kDropDown, 0, ""});
    Undo_Click(s);
    ASSERT_EQ(s.Clips.ClipStore.size(), 4U) << "what the hand has added since stays";
    EXPECT_EQ(s.Clips.ClipTop, 3);
}

TEST_F(Undo, ClipsForWhichThereIsNoRoomAnyMoreWaitForTheNextTime) {
    Load(0, "bells.wav");
    for (int n = 0; n < kMostClips; ++n) {
        ClipBoardList_DragDrop(s, {drags::kDropDown, 0, ""});
        s.Clips.ClipStore.back().Vol = static_cast<std::int16_t>(n % 500);
    }
    Forget();
    const std::vector<LoopTrackSet> all = s.Clips.ClipStore;
    ClearClip_Click(s);
    Load(1, "drum.wav");
    ClipBoardList_DragDrop(s, {drags::kDropDown, 1, ""});
    Desk.Boxes.clear();
    Undo_Click(s);
    EXPECT_EQ(Desk.Boxes.size(), 0U);
    Undo_Click(s);
    ASSERT_EQ(Desk.Boxes.size(), 1U);
    EXPECT_EQ(Desk.LastBox(), "Too many LoopTracks on ClipBoard.");
    EXPECT_EQ(s.Clips.ClipStore.size(), static_cast<std::size_t>(kMostClips));
    EXPECT_EQ(s.Clips.List.size(), s.Clips.ClipStore.size());
    EXPECT_EQ(s.Clips.ClipTop, kMostClips - 1);
    EXPECT_EQ(s.Clips.ClipStore[1999], all[1999]);
    EXPECT_EQ(s.Clips.ClipStore[2000].FileName, Sample("drum.wav")) << "what the hand has added stays";
    Redo_Click(s);
    EXPECT_EQ(s.Clips.ClipStore.size(), 1U);
    DeleteClip(s, 0);
    Undo_Click(s);
    Undo_Click(s);
    EXPECT_EQ(s.Clips.ClipStore.size(), static_cast<std::size_t>(kMostClips)) << "one is the hand's again";
    Redo_Click(s);
    s.Clips.ClipStore.clear();
    s.Clips.List.clear();
    s.Clips.ClipTop = -1;
    Desk.Boxes.clear();
    Undo_Click(s);
    EXPECT_EQ(s.Clips.ClipStore, all) << "the last one has waited";
    EXPECT_EQ(Desk.Boxes.size(), 0U) << "all have come back";
}

TEST_F(Undo, AClipOnARowIsAStep) {
    Load(0, "bells.wav", true);
    ClipBoardList_DragDrop(s, {drags::kDropDown, 0, ""});
    Load(1, "drum.wav", true);
    Forget();
    const std::string before = Portrait();
    s.Clips.Selected = 0;
    DropClip(s, 1, {drags::kClipBoardList, 0, "1"});
    GoBackAndForth(before, "Clip bells onto B");
}

TEST_F(Undo, ARowThatComesBackPlaysOnFromItsPlaceInItsModeAndStep) {
    Load(0, "bells.wav", true);
    LoopSetPlayModeRows(s, 0, kTrack);
    s.Run[0].Step = 2;
    s.Run[0].StepElapsed = 17;
    Buffer(0).Position = 1240;
    Load(0, "drum.wav", true);
    Buffer(0).Position = 888;
    Undo_Click(s);
    EXPECT_EQ(Buffer(0).Position, 1240);
    EXPECT_EQ(Buffer(0).Status, buffer_status::kPlaying | buffer_status::kLooping);
    EXPECT_EQ(s.Run[0].Step, 2);
    EXPECT_EQ(s.Run[0].StepElapsed, 17);
    EXPECT_EQ(s.Set[0].PlayMode, kTrack);
    Redo_Click(s);
    EXPECT_EQ(Buffer(0).Position, 888);
}

TEST_F(Undo, ARowThatWasThinnedByTheStepPlaysAgain) {
    s.Limit = 1;
    Load(0, "bells.wav", true);
    Buffer(0).Position = 400;
    Load(1, "drum.wav", true);
    ASSERT_EQ(s.Run[0].Playing, False);
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, True);
    EXPECT_EQ(Buffer(0).Position, 400);
    EXPECT_EQ(s.ThinList, "A");
}

TEST_F(Undo, WhatTheLimitStopsWhileAStepIsTakenBackPlaysOnWhenItIsDoneAgain) {
    TakeBackOverTheLimit();
    ASSERT_EQ(s.Run[0].Playing, False);
    ASSERT_EQ(s.Run[1].Playing, True);
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, True);
    EXPECT_TRUE(Sounds(0));
    EXPECT_EQ(Buffer(0).Position, 400);
    EXPECT_EQ(s.ThinList, "A");
}

TEST_F(Undo, ARowThatOnlyTheTakenBackStateHasPlayedStopsNoOtherWhenTheStepBringsALimit) {
    Load(1, "drum.wav");
    Load(3, "bells.wav");
    s.Limit = 1;
    ASSERT_TRUE(Save("one.mvn"));
    s.Limit = kNoLimit;
    LoopPlay(s, 3, true);
    Forget();
    ASSERT_TRUE(Open("one.mvn"));
    ASSERT_EQ(s.Run[3].Playing, False);
    LoopPlay(s, 1, true);
    Undo_Click(s);
    ASSERT_EQ(s.Run[3].Playing, True);
    Redo_Click(s);
    EXPECT_EQ(s.Limit, 1);
    EXPECT_EQ(s.Run[3].Playing, False);
    EXPECT_EQ(s.Run[1].Playing, True);
    EXPECT_EQ(s.ThinList, "B");
}

TEST_F(Undo, ARowThatTheHandHasStoppedSinceDoesNotComeBackIntoTheOrderOfThinning) {
    Load(0, "bells.wav", true);
    Load(1, "drum.wav", true);
    Load(2, "hum.wav");
    LoadSilentInTheOrder(3);
    Forget();
    LoopClearRows(s, 1);
    ASSERT_EQ(s.ThinList, "AD");
    Undo_Click(s);
    ASSERT_EQ(s.ThinList, "ABD");
    LoopStop(s, 0);
    Redo_Click(s);
    EXPECT_EQ(s.ThinList, "D");
    s.Limit = 2;
    LoopPlay(s, 2, true);
    EXPECT_EQ(s.ThinList, "DC") << "nothing had to stop";
}

TEST_F(Undo, ASilentRowThatTheHandHasTakenOutOfTheOrderOfThinningSinceDoesNotComeBackIntoIt) {
    Load(1, "drum.wav", true);
    LoadSilentInTheOrder(3);
    Forget();
    LoopClearRows(s, 1);
    Undo_Click(s);
    ASSERT_EQ(s.ThinList, "BD");
    LoopStop(s, 3);
    Redo_Click(s);
    EXPECT_EQ(s.ThinList, "");
    Undo_Click(s);
    EXPECT_EQ(s.ThinList, "B");
}

TEST_F(Undo, ASilentRowThatTheStepHasPushedOutOfTheOrderOfThinningComesBackIntoIt) {
    LoadSilentInTheOrder(3);
    s.Limit = 1;
    Load(0, "bells.wav", true);
    ASSERT_EQ(s.ThinList, "A");
    Undo_Click(s);
    EXPECT_EQ(s.ThinList, "D");
    Redo_Click(s);
    EXPECT_EQ(s.ThinList, "A");
}

TEST_F(Undo, ARowThatTheHandHasStartedAnewSinceIsTheYoungestInTheOrderOfThinning) {
    LoadThree();
    Forget();
    LoopClearRows(s, 2);
    LoopStop(s, 0);
    LoopPlay(s, 0, true);
    ASSERT_EQ(s.ThinList, "BA");
    Undo_Click(s);
    EXPECT_EQ(s.ThinList, "BCA");
    Redo_Click(s);
    EXPECT_EQ(s.ThinList, "BA");
}

TEST_F(Undo, ARowThatTheStepHasStoppedAndTheHandStartedIsTheYoungestInTheOrderOfThinning) {
    s.Limit = 2;
    LoadThree();
    ASSERT_EQ(s.ThinList, "BC");
    LoopStop(s, 2);
    LoopPlay(s, 0, true);
    Undo_Click(s);
    EXPECT_EQ(s.ThinList, "BA");
}

TEST_F(Undo, ARowThatTheHandHasStoppedStaysOutOfTheOrderOfThinningWhenOnlyItsFlagComesBack) {
    Load(0, "bells.wav", true);
    s.Set[0].Thinnable = False;
    ASSERT_TRUE(Save("one.mvn"));
    s.Set[0].Thinnable = True;
    ASSERT_EQ(s.ThinList, "A");
    ASSERT_TRUE(Open("one.mvn"));
    LoopPlay(s, 0, true);
    LoopStop(s, 0);
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].Thinnable, True);
    ASSERT_EQ(s.Run[0].Playing, False);
    EXPECT_EQ(s.ThinList, "");
}

TEST_F(Undo, WhatWaitsForADeviceIsNotTakenForStoppedByTheLimit) {
    LoadThree();
    s.ThinList = "CAB";
    Forget();
    LoopClearRows(s, 2);
    Undo_Click(s);
    EXPECT_EQ(s.ThinList, "CAB");
    cboDrivers_Click(s, 2);
    ASSERT_FALSE(s.DSReady);
    Redo_Click(s);
    EXPECT_EQ(s.ThinList, "AB");
    cboDrivers_Click(s, 0);
    Undo_Click(s);
    EXPECT_EQ(s.ThinList, "CAB");
}

TEST_F(Undo, ARowThatHasRunOutSinceTheLimitLetItBeDoesNotStart) {
    TakeBackOverTheLimit();
    Redo_Click(s);
    ASSERT_TRUE(Sounds(0));
    s.Limit = kNoLimit;
    Undo_Click(s);
    ASSERT_TRUE(Sounds(0));
    s.Run[0].Playing = False;  // as a One shot that has ended, which stays in the order
    Buffer(0).Status = 0;
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, False);
    EXPECT_FALSE(Sounds(0));
}

TEST_F(Undo, AFadeThatComesBackDoesNotMoveTheLevelAtWhichTheLimitHasStoppedIt) {
    s.Limit = 1;
    Load(0, "bells.wav", true);
    s.Set[0].Vol = 300;
    LoopFadeTo(s, 0, 0, kOwnBand);
    Load(1, "drum.wav", true);
    ASSERT_EQ(s.Run[0].FadeState, kNoFade);
    Undo_Click(s);
    StepFades(s, 1000);
    ASSERT_LT(s.Set[0].Vol, 300);
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, False);
    EXPECT_EQ(s.Set[0].Vol, 300);
}

TEST_F(Undo, ARowThatTheLimitStopsAgainWhileItFadesIsAsLoudAsWhenItStoodStill) {
    ThinWhileItFades();
    Redo_Click(s);
    EXPECT_EQ(s.Set[0].Vol, 300) << "the fade goes on from where it was";
    StepFades(s, 1000);
    const std::int16_t faded = s.Set[0].Vol;
    ASSERT_LT(faded, 300);
    Undo_Click(s);
    ExpectA(false, 500);
    EXPECT_EQ(s.SndDisp[0].Line, LineOfA);
    Redo_Click(s);
    EXPECT_EQ(s.Set[0].Vol, faded);
    s.Limit = kNoLimit;
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, True);
    EXPECT_EQ(s.Set[0].Vol, faded) << "it fades on, for nothing stops it";
}

TEST_F(Undo, ARowThatTheLimitStopsAgainAfterItsFadeHasEndedIsAsLoudAsWhenItStoodStill) {
    ThinWhileItFades();
    Redo_Click(s);
    for (int ticks = 0; ticks < 100 && s.Run[0].FadeState != kNoFade; ++ticks) StepFades(s, 1000);
    ASSERT_EQ(s.Run[0].FadeState, kNoFade);
    ASSERT_EQ(s.Run[0].Playing, True);
    ASSERT_EQ(s.Set[0].Vol, 200);
    Undo_Click(s);
    ExpectA(false, 500);
    Redo_Click(s);
    ExpectA(true, 200);
}

TEST_F(Undo, AFadeOfTheHandStaysWhereItWasWhenTheLimitStopsItsRowAgain) {
    TakeBackOverTheLimit();
    Redo_Click(s);
    const std::int16_t faded = FadeOutAWhile();
    ASSERT_EQ(s.Run[0].FadeState, kFalling);
    ASSERT_LT(faded, 500);
    Undo_Click(s);
    ASSERT_EQ(s.Run[0].Playing, False);
    EXPECT_EQ(s.Set[0].Vol, faded);
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].FadeState, kFalling);
    EXPECT_EQ(s.Set[0].Vol, faded);
}

TEST_F(Undo, AFadeOfTheHandStaysWhereItWasWhenARowPlaysOnThatTheLimitHadStopped) {
    TakeBackOverTheLimit();
    const std::int16_t faded = FadeOutAWhile();
    ASSERT_LT(faded, 500);
    ASSERT_EQ(s.ThinList, "B");
    Redo_Click(s);
    ExpectA(true, faded);
}

TEST_F(Undo, WhatTheLimitHasStoppedPlaysOnWithoutADeviceToo) {
    TakeBackOverTheLimit();
    cboDrivers_Click(s, 2);
    ASSERT_FALSE(s.DSReady);
    Redo_Click(s);
    EXPECT_EQ(s.ThinList, "A");
    cboDrivers_Click(s, 0);
    EXPECT_EQ(s.Run[0].Playing, True);
    EXPECT_TRUE(Sounds(0));
    EXPECT_EQ(Buffer(0).Position, 400);
    EXPECT_EQ(s.ThinList, "A");
}

TEST_F(Undo, ARowThatFallsSilentWithTheStepLeavesTheOrderOfThinning) {
    Load(0, "bells.wav");
    Forget();
    Load(0, "drum.wav");
    LoopPlay(s, 0, true);
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, False);
    EXPECT_EQ(s.ThinList, "");
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, True);
    EXPECT_EQ(s.ThinList, "A");
}

TEST_F(Undo, WhatComesBackInPlaceOfWhatTheLimitStopsGivesWayToItAgain) {
    Load(0, "bells.wav");
    Load(1, "drum.wav", true);
    Forget();
    Load(0, "hum.wav", true);
    Undo_Click(s);
    s.Limit = 1;
    Redo_Click(s);
    ASSERT_EQ(s.ThinList, "A") << "the older one has been stopped";
    const std::string after = Portrait();
    for (int times = 0; times < 3; ++times) {
        Undo_Click(s);
        EXPECT_EQ(s.ThinList, "B");
        EXPECT_EQ(s.Run[0].Playing, False);
        EXPECT_TRUE(Sounds(1));
        Redo_Click(s);
        EXPECT_EQ(Portrait(), after);
    }
    Undo_Click(s);
    s.Limit = kNoLimit;
    Redo_Click(s);
    EXPECT_EQ(s.ThinList, "BA") << "nothing has to stop any more";
    EXPECT_TRUE(Sounds(1));
}

TEST_F(Undo, WhatTheHandStartsAndStopsAfterTheLimitHasStoppedItStaysSilentWhenTheStepIsDoneAgain) {
    TakeBackOverTheLimit();
    LoopPlay(s, 0, true);
    LoopStop(s, 0);
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, False);
    EXPECT_FALSE(Sounds(0));
    EXPECT_EQ(s.ThinList, "");
}

TEST_F(Undo, AFadeThatComesBackDoesNotMoveTheLevelOfTheSampleThatWasLoadedOverIt) {
    s.ResetVars = False;
    Load(0, "bells.wav", true);
    s.Set[0].Vol = 400;
    LoopFadeTo(s, 0, 0, kOwnBand);
    ASSERT_EQ(s.Run[0].FadeState, kFalling);
    Forget();
    Load(0, "drum.wav", true);
    ASSERT_EQ(s.Run[0].FadeState, kNoFade);
    Undo_Click(s);
    ASSERT_EQ(s.Run[0].FadeState, kFalling);
    StepFades(s, 1000);
    const std::int16_t faded = s.Set[0].Vol;
    ASSERT_LT(faded, 400);
    Redo_Click(s);
    EXPECT_EQ(s.Set[0].Vol, 400);
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].Vol, faded) << "the fade goes on from where it was";
}

TEST_F(Undo, WhatTheHandStartsAfterTheLimitHasStoppedItIsLeftAloneWhenTheStepIsDoneAgain) {
    TakeBackOverTheLimit();
    LoopPlay(s, 0, true);
    Buffer(0).Position = 800;
    const std::string name = Buffer(0).Name() + " ";
    Sound.Log.clear();
    Redo_Click(s);
    EXPECT_EQ(s.Run[0].Playing, True);
    EXPECT_EQ(Buffer(0).Position, 800);
    for (const std::string& call : Sound.Log) EXPECT_EQ((call + " ").find(" " + name), std::string::npos) << call;
}

TEST_F(Undo, NoCallReachesTheSoundOfARowThatDidNotChange) {
    Load(0, "bells.wav", true);
    Load(1, "drum.wav", true);
    Load(1, "hum.wav", true);
    const std::string name = Buffer(0).Name() + " ";
    Sound.Log.clear();
    Undo_Click(s);
    Redo_Click(s);
    for (const std::string& call : Sound.Log) EXPECT_EQ((call + " ").find(" " + name), std::string::npos) << call;
    EXPECT_FALSE(Sound.Log.empty());
}

TEST_F(Undo, WhatTheHandMovedOnOtherPartsStays) {
    s.ResetVars = false;
    Load(0, "bells.wav");
    Forget();
    Load(0, "drum.wav");
    std::int16_t vol = 123;
    LoopVolChange(s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes);
    vol = 77;
    LoopVolChange(s, 1, vol, TakeHold::Yes, UpdateDisplay::Yes);
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("bells.wav"));
    EXPECT_EQ(s.Set[0].Vol, 123);
    EXPECT_EQ(s.Set[1].Vol, 77);
    EXPECT_NE(Buffer(0).Volume, 0) << "the knob is heard on the sample that came back";
}

TEST_F(Undo, APartThatTheStepChangedGoesToItsValueBeforeTheStepAndAgainToWhatTheHandMadeOfIt) {
    std::int16_t vol = 200;
    LoopVolChange(s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes);
    Load(0, "drum.wav");  // with "Reset on Load" the volume is full again
    vol = 50;
    LoopVolChange(s, 0, vol, TakeHold::Yes, UpdateDisplay::Yes);
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].Vol, 200);
    Redo_Click(s);
    EXPECT_EQ(s.Set[0].Vol, 50);
}

TEST_F(Undo, AFadeThatRunsDuringADrawingGoesOn) {
    s.GraphColumns = {4, 4, 4};
    GraphEvent event{.What = Phase::Down, .Button = kLeftButton, .At = {300, 100}, .From = {}, .Size = {1000, 500}};
    PatternGraph_Gesture(s, kVolPattern, event);
    std::int16_t vol = 260;
    LoopVolChange(s, 2, vol, TakeHold::Yes, UpdateDisplay::No);
    event.What = Phase::Up;
    event.At.Y = 300;
    PatternGraph_Gesture(s, kVolPattern, event);
    Undo_Click(s);
    EXPECT_EQ(s.Set[2].Vol, 260);
}

TEST_F(Undo, AFadeThatRanGoesOnWhenItsRowComesBack) {
    Load(0, "bells.wav", true);
    LoopFadeTo(s, 0, 100, kOwnBand);
    StepFades(s, 100);
    const std::int16_t vol = s.Set[0].Vol;
    ASSERT_EQ(s.Run[0].FadeState, kFalling);
    Forget();
    for (int times = 0; times < 2; ++times) {
        times == 0 ? LoopClearRows(s, 0) : Redo_Click(s);
        StepFades(s, 100);
        Undo_Click(s);
        EXPECT_EQ(s.Set[0].Vol, vol);
        EXPECT_EQ(s.Run[0].FadeState, kFalling);
    }
    StepFades(s, 10);
    EXPECT_LT(s.Set[0].Vol, vol);
    StepFades(s, 60000);
    EXPECT_EQ(s.Set[0].Vol, 100);
    EXPECT_EQ(s.Run[0].FadeState, kNoFade);
}

TEST_F(Undo, FiftyStepsAreKept) {
    for (int n = 0; n < 60; ++n) SelectorRadio_Click(s, n % 2);
    int steps = 0;
    for (; !LastText().empty(); ++steps) Undo_Click(s);
    EXPECT_EQ(steps, 50);
}

TEST_F(Undo, AStepThatChangesNothingIsNone) {
    Load(0, "bells.wav");
    Forget();
    Load(0, "bells.wav");
    Bands_DblClick(s, 2);
    LoopClearRows(s, 3);
    SetChannel_Click(s, 0);
    const std::string last = LastText();
    SetChannel_Click(s, 0);
    Undo_Click(s);
    EXPECT_EQ(LastText(), "") << "after " << last;
}

TEST_F(Undo, ANewStepEndsWhatCouldBeDoneAgain) {
    Load(0, "bells.wav");
    Undo_Click(s);
    ASSERT_EQ(RedoText(s), "Load of bells into A");
    Load(1, "drum.wav");
    EXPECT_EQ(RedoText(s), "");
    Redo_Click(s);
    EXPECT_EQ(s.StatusText, "There is nothing to do again");
    Undo_Click(s);
    Undo_Click(s);
    EXPECT_EQ(s.StatusText, "There is nothing to take back");
}

TEST_F(Undo, AStepThatIsDoneAgainBringsTheBallOfThePadBackToWhereTheHandHadPutIt) {
    PadRecentre(s);
    s.PadTable[s.PadTypeIndex].Function = kFadeAfterCentre;
    ASSERT_TRUE(Save("curve.mvn"));
    s.PadTable[s.PadTypeIndex].Function = kFadeDiagonal;
    Forget();
    ASSERT_TRUE(Open("curve.mvn"));
    ASSERT_EQ(s.PadTable[s.PadTypeIndex].Function, kFadeAfterCentre);
    PadMove(s, 0.25, -0.125, 1, {.Apply = true});
    ASSERT_GT(s.PadTable[s.PadTypeIndex].X, 0);
    const std::string moved = Portrait();
    Undo_Click(s);
    EXPECT_EQ(s.PadTable[s.PadTypeIndex].X, 0) << "the curve of before centres the ball";
    Redo_Click(s);
    EXPECT_EQ(Portrait(), moved);
}

TEST_F(Undo, KnobsAndPlayingAreNoSteps) {
    Load(0, "bells.wav");
    Forget();
    LoopVolChangeGang(s, 0, 300, UpdateDisplay::Yes);
    LoopHzChangeGang(s, 0, 800);
    Play_MouseUp(s, 0, kLeftButton);
    PadRecentre(s);
    EXPECT_EQ(LastText(), "");
}

TEST_F(Undo, OnNoSoundTheSampleWaitsForTheNextDevice) {
    Load(0, "bells.wav", true);
    Forget();
    LoopClearRows(s, 0);
    cboDrivers_Click(s, 2);
    ASSERT_FALSE(s.DSReady);
    Undo_Click(s);
    EXPECT_EQ(s.StatusText, "Taken back: Clear of A; waits for a device: bells");
    EXPECT_EQ(s.Run[0].InHand.FileName, Sample("bells.wav"));
    cboDrivers_Click(s, 0);
    EXPECT_EQ(s.Set[0].FileName, Sample("bells.wav"));
    EXPECT_TRUE(Sounds(0));
}

TEST_F(Undo, ARowThatWaitedBeforeTheStepWaitsAgainAsItDid) {
    Load(0, "bells.wav", true);
    LoopSetPlayModeRows(s, 0, kDrum);
    std::int32_t start = 1;
    LoopSetBeatStart(s, 0, start);
    ASSERT_EQ(start, 1);
    LoopReverse(s, 0);
    Buffer(0).Position = 444;
    cboDrivers_Click(s, 2);
    ASSERT_FALSE(s.DSReady);
    ASSERT_EQ(s.Run[0].InHand.BeatStart, 1);
    Forget();
    const std::string before = Portrait();
    LoopClearRows(s, 0);
    Undo_Click(s);
    EXPECT_EQ(Portrait(), before);
    cboDrivers_Click(s, 0);
    EXPECT_EQ(s.Set[0].BeatStart, 1);
    EXPECT_EQ(s.Run[0].Reversed, True);
    EXPECT_EQ(Buffer(0).Position, 444);
}

TEST_F(Undo, ARowThatWaitedBeforeTheStepComesBackWithDirectionAndBeatStartWhenThereIsADevice) {
    Load(0, "bells.wav", true);
    const auto forwards = Buffer(0).Sample->Bytes;
    std::int32_t start = 1;
    LoopSetBeatStart(s, 0, start);
    LoopReverse(s, 0);
    const std::int32_t bytes = s.Run[0].BeatStartBytes;
    ASSERT_GT(bytes, 0);
    cboDrivers_Click(s, 2);
    LoopClearRows(s, 0);
    cboDrivers_Click(s, 0);
    Undo_Click(s);
    ASSERT_EQ(s.Run[0].Loaded, True);
    EXPECT_NE(Buffer(0).Sample->Bytes, forwards);
    EXPECT_EQ(s.Run[0].Reversed, True);
    EXPECT_EQ(s.Set[0].BeatStart, 1);
    EXPECT_EQ(s.Run[0].BeatStartBytes, bytes);
    EXPECT_TRUE(Sounds(0));
}

TEST(UndoParts, WhetherASilentSampleWouldLoopIsNoDifference) {
    RowState looping;
    looping.InHand.FileName = "bells.wav";
    looping.InHand.Loops = true;
    RowState once = looping;
    once.InHand.Loops = false;
    EXPECT_EQ(DifferentParts(looping, once), 0U);
    looping.InHand.Sounds = once.InHand.Sounds = true;
    EXPECT_EQ(DifferentParts(looping, once), kSoundingPart);
}

TEST_F(Undo, AThinningTakenBackOnNoSoundIsHeardWithTheNextDevice) {
    s.Limit = 1;
    Load(0, "bells.wav", true);
    Buffer(0).Position = 400;
    Load(1, "drum.wav", true);
    ASSERT_EQ(s.Run[0].Playing, False);
    cboDrivers_Click(s, 2);
    Undo_Click(s);
    cboDrivers_Click(s, 0);
    EXPECT_TRUE(Sounds(0));
    EXPECT_EQ(Buffer(0).Position, 400);
    EXPECT_EQ(Buffer(0).Status, buffer_status::kPlaying | buffer_status::kLooping);
}

TEST_F(Undo, AReversalTakenBackOnNoSoundIsHeardWithTheNextDevice) {
    Load(0, "bells.wav");
    const auto forwards = Buffer(0).Sample->Bytes;
    s.LoopDropTarget = 0;
    s.HistoryChoice = kHistoryReverse;
    HistoryList_DragDrop(s);
    const auto backwards = Buffer(0).Sample->Bytes;
    cboDrivers_Click(s, 2);
    Undo_Click(s);
    EXPECT_EQ(s.StatusText, "Taken back: Reverse of A");
    cboDrivers_Click(s, 0);
    EXPECT_EQ(Buffer(0).Sample->Bytes, forwards);
    cboDrivers_Click(s, 2);
    Redo_Click(s);
    cboDrivers_Click(s, 0);
    EXPECT_EQ(Buffer(0).Sample->Bytes, backwards);
}

TEST_F(Undo, TimingCopiedOnNoSoundReachesTheRowThatWaitsAndIsTakenBack) {
    Load(0, "bells.wav");
    Load(1, "drum.wav");
    std::int32_t start = 1;
    LoopSetBeatStart(s, 0, start);
    cboDrivers_Click(s, 2);
    DropAllTiming(s, 1, {drags::kAllTiming, 0, ""});
    EXPECT_EQ(s.Run[1].InHand.BeatStart, 1);
    Undo_Click(s);
    EXPECT_EQ(s.Run[1].InHand.BeatStart, 0);
    Redo_Click(s);
    cboDrivers_Click(s, 0);
    EXPECT_EQ(s.Set[1].BeatStart, 1);
}

TEST_F(Undo, TheMemoryOfASampleThatCouldNotComeInIsKept) {
    Load(0, "bells.wav");
    Forget();
    Load(0, "drum.wav");
    std::filesystem::remove(Sample("bells.wav"));
    Sound.Failures["CreateSoundBufferFromKept"] = sound_error::kOutOfMemory;
    Undo_Click(s);
    ASSERT_EQ(s.Run[0].Loaded, False);
    EXPECT_EQ(s.StatusText, "Taken back: Load of drum into A; could not come back: bells");
    Sound.Failures.clear();
    Redo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("drum.wav"));
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Loaded, True);
    EXPECT_EQ(s.Set[0].FileName, Sample("bells.wav"));
}

TEST_F(Undo, APauseThatTheStepHasEndedIsAPauseAgain) {
    Load(0, "bells.wav", true);
    Play_MouseDown(s, 0, kRightButton);
    ASSERT_FALSE(Sounds(0));
    Forget();
    {
        const UndoStep step(s, "Resume of A");
        LoopPlay(s, 0, true);
    }
    ASSERT_TRUE(Sounds(0));
    Undo_Click(s);
    EXPECT_EQ(s.StatusText, "Taken back: Resume of A");
    EXPECT_FALSE(Sounds(0));
    EXPECT_NE(s.Run[0].Paused, False);
}

TEST_F(Undo, AfterAChangeOfDeviceSamplesComeBackFromMemory) {
    Load(0, "bells.wav", true);
    Forget();
    LoopClearRows(s, 0);
    cboDrivers_Click(s, 1);
    std::filesystem::remove(Sample("bells.wav"));
    const int reads = Reads();
    Undo_Click(s);
    EXPECT_EQ(Reads(), reads);
    EXPECT_EQ(s.Set[0].FileName, Sample("bells.wav"));
    EXPECT_TRUE(Sounds(0));
}

TEST_F(Undo, AChangeOfDeviceIsNoStep) {
    Load(0, "bells.wav", true);
    LoopReverse(s, 0);
    Forget();
    cboDrivers_Click(s, 1);
    Enable3d_Click(s, true);
    EXPECT_EQ(LastText(), "");
}

TEST_F(Undo, BeyondTheMemoryThatIsKeptTheOldestSamplesComeBackFromTheirFiles) {
    s.Undo = std::make_shared<UndoSteps>(5300);
    for (const char* name : {"bells.wav", "drum.wav", "hum.wav"}) Load(0, name);
    LoopClearRows(s, 0);
    int reads = Reads();
    Undo_Click(s);
    EXPECT_EQ(Reads(), reads) << "hum has 5200 bytes";
    reads = Reads();
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("drum.wav"));
    EXPECT_EQ(Reads(), reads + 1);
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("bells.wav"));
}

TEST_F(Undo, ASampleWhoseMemoryAndFileHaveGoneIsNamed) {
    s.Undo = std::make_shared<UndoSteps>(0);
    Load(0, "bells.wav");
    Load(0, "drum.wav");
    std::filesystem::remove(Sample("bells.wav"));
    Undo_Click(s);
    EXPECT_EQ(s.StatusText, "Taken back: Load of drum into A; could not come back: bells");
    EXPECT_EQ(s.Run[0].Loaded, False);
    Redo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("drum.wav"));
}

TEST_F(Undo, TheMemoryOfASampleCountsWithWhatTheServiceHasMadeOfIt) {
    struct Planes : FakeSample {
        std::size_t Memory() const override { return 2 * Bytes.size(); }
    };
    s.Undo = std::make_shared<UndoSteps>(5300);
    Load(0, "hum.wav");
    auto heavy = std::make_shared<Planes>();
    heavy->Bytes.resize(5200);
    Buffer(0).Sample = heavy;
    std::weak_ptr<FakeSample> kept = heavy;
    heavy.reset();
    Load(0, "drum.wav");
    EXPECT_TRUE(kept.expired()) << "its 5200 bytes take 10400";
}

TEST_F(Undo, ALoadForWhichMemoryEndsTakesThatOfTheOldestSamples) {
    for (const char* name : {"bells.wav", "drum.wav", "hum.wav"}) Load(0, name);
    std::weak_ptr<KeptSample> bells;
    std::weak_ptr<KeptSample> drum;
    Undo_Click(s);
    drum = Buffer(0).Keep();
    Undo_Click(s);
    bells = Buffer(0).Keep();
    Redo_Click(s);
    Redo_Click(s);
    int tries = 0;
    Sound.OnCall = [&](const std::string& call) {
        if (call != "CreateSoundBufferFromFile") return;
        ++tries;
        if (!bells.expired()) throw SoundError(sound_error::kOutOfMemory);
    };
    Load(1, "rain.wav");
    EXPECT_EQ(tries, 2);
    EXPECT_EQ(s.Set[1].FileName, Sample("rain.wav"));
    EXPECT_FALSE(drum.expired()) << "one is enough";
    EXPECT_TRUE(Desk.Boxes.empty());
    Sound.OnCall = nullptr;
    Undo_Click(s);
    Undo_Click(s);
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("bells.wav")) << "it comes back from its file";
}

TEST_F(Undo, ASampleThatIsTooLongForAnyMemoryTakesThatOfNoOther) {
    for (const char* name : {"bells.wav", "drum.wav"}) Load(0, name);
    std::weak_ptr<KeptSample> drum = Buffer(0).Keep();
    Sound.OnCall = [](const std::string& call) {
        if (call == "CreateSoundBufferFromFile") throw SoundTooLong();
    };
    Load(0, "rain.wav");
    Sound.OnCall = nullptr;
    EXPECT_EQ(Desk.Boxes.size(), 1U);
    EXPECT_FALSE(drum.expired());
    const int reads = Reads();
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("drum.wav"));
    EXPECT_EQ(Reads(), reads) << "it comes back from memory";
}

TEST_F(Undo, ALoadForWhichNoMemoryCanBeMadeFailsAsEver) {
    for (const char* name : {"bells.wav", "drum.wav"}) Load(0, name);
    Load(2, "hum.wav");
    std::weak_ptr<KeptSample> held = Buffer(2).Keep();
    Sound.Failures["CreateSoundBufferFromFile"] = sound_error::kOutOfMemory;
    Load(0, "rain.wav");
    Sound.Failures.clear();
    EXPECT_EQ(s.Run[0].Loaded, False);
    EXPECT_EQ(Desk.Boxes.size(), 1U);
    EXPECT_EQ(Buffer(2).Keep(), held.lock()) << "what is in a row is not given up";
    const int reads = Reads();
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("drum.wav"));
    EXPECT_EQ(Reads(), reads + 1) << "its memory had to go, too";
}

TEST_F(Undo, AReversalForWhichMemoryEndsTakesThatOfTheOldestSamples) {
    for (const char* name : {"bells.wav", "drum.wav"}) Load(0, name);
    Undo_Click(s);
    std::weak_ptr<KeptSample> bells = Buffer(0).Keep();
    Redo_Click(s);
    Sound.OnCall = [&](const std::string& call) {
        if (call == "WriteBuffer" && !bells.expired()) throw SoundError(sound_error::kOutOfMemory);
    };
    LoopReverse(s, 0);
    EXPECT_EQ(s.Run[0].Reversed, True);
    EXPECT_TRUE(Desk.Boxes.empty());
}

/// A buffer for whose sample there is no memory once.
struct OnceHungryBuffer : FakeSound::Buffer {
    using FakeSound::Buffer::Buffer;
    std::shared_ptr<KeptSample> Keep() override {
        if (std::exchange(Hungry, false)) throw std::bad_alloc();
        return FakeSound::Buffer::Keep();
    }
    bool Hungry = true;
};

TEST_F(Undo, WhenMemoryEndsBeforeAStepTheOldestSampleGivesWayToIt) {
    for (const char* name : {"bells.wav", "hum.wav"}) Load(0, name);
    Load(1, "drum.wav");
    s.Run[1].Buffer = std::make_unique<OnceHungryBuffer>(Sound, 77, buffer_flags::kSample, Buffer(1).Sample);
    LoopClearRows(s, 0);
    EXPECT_EQ(LastText(), "Clear of A");
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("hum.wav"));
    Undo_Click(s);
    const int reads = Reads();
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].FileName, Sample("bells.wav"));
    EXPECT_EQ(Reads(), reads + 1);
}

TEST_F(Undo, WhenMemoryEndsWithoutSamplesTheOldestStepGivesWay) {
    SelectorRadio_Click(s, 0);
    SelectorRadio_Click(s, 1);
    Load(1, "drum.wav");
    s.Run[1].Buffer = std::make_unique<OnceHungryBuffer>(Sound, 77, buffer_flags::kSample, Buffer(1).Sample);
    SelectorRadio_Click(s, 2);
    int steps = 0;
    for (; !LastText().empty(); ++steps) Undo_Click(s);
    EXPECT_EQ(steps, 3) << "four, but for the oldest";
}

/// A buffer for whose sample there is no memory any more.
struct HungryBuffer : FakeSound::Buffer {
    using FakeSound::Buffer::Buffer;
    std::shared_ptr<KeptSample> Keep() override { throw std::bad_alloc(); }
};

TEST_F(Undo, WhenMemoryEndsBeforeAStepTheHistoryIsForgottenAndTheGestureGoesOn) {
    Load(0, "bells.wav");
    Load(1, "drum.wav");
    s.Run[1].Buffer = std::make_unique<HungryBuffer>(Sound, 77, buffer_flags::kSample, Buffer(1).Sample);
    LoopClearRows(s, 0);
    EXPECT_EQ(s.Run[0].Loaded, False);
    EXPECT_EQ(LastText(), "");
    EXPECT_EQ(s.StatusText, "No memory is left to keep what can be taken back; what was kept is forgotten");
    LoopClearRows(s, 1);
    Load(2, "hum.wav");
    EXPECT_EQ(LastText(), "Load of hum into C") << "later steps are kept again";
}

TEST_F(Undo, AStepThatCannotBeTakenBackWholeEndsTheHistory) {
    Load(0, "bells.wav");
    Load(1, "drum.wav");
    Load(2, "hum.wav");
    Undo_Click(s);
    s.Run[1].Buffer = std::make_unique<HungryBuffer>(Sound, 77, buffer_flags::kSample, Buffer(1).Sample);
    Undo_Click(s);
    EXPECT_EQ(LastText() + RedoText(s), "");
    EXPECT_EQ(s.StatusText, "That could not be taken back whole; what was kept is forgotten");
    LoopClearRows(s, 1);
    Load(3, "rain.wav");
    EXPECT_EQ(LastText(), "Load of rain into D");
}

TEST_F(Undo, WithoutAHistoryNothingIsKept) {
    EndUndo(s);
    Load(0, "bells.wav");
    Undo_Click(s);
    EXPECT_EQ(s.Run[0].Loaded, True);
    EXPECT_EQ(UndoText(s) + RedoText(s), "");
}

TEST_F(Undo, AStepInsideADragStandsBesideIt) {
    Selected_MouseDown(s, 0, kLeftButton);
    Load(3, "bells.wav");
    Selected_DragOver(s, 1);
    Selected_DragEnd(s);
    EXPECT_EQ(LastText(), "Change of the selection");
    Undo_Click(s);
    EXPECT_EQ(s.Set[1].Selected, False);
    EXPECT_EQ(s.Set[0].Selected, True);
    Undo_Click(s);
    EXPECT_EQ(s.Run[3].Loaded, False);
    EXPECT_EQ(s.Set[0].Selected, True);
    Undo_Click(s);
    EXPECT_EQ(s.Set[0].Selected, False);
}

}  // namespace
}  // namespace marvolin::test
