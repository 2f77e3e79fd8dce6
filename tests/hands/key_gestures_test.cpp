// What the mouse does on a control, done by its keys.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileSystemModel>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>
#include <QTextEdit>
#include <QTreeView>

#include "parameters/position.h"
#include "parameters/wires.h"
#include "performance/ball_hand.h"
#include "performance/map/sound_map.h"
#include "performance/selection/bands.h"
#include "whole_hand.h"
#include "window/controls/knob.h"

namespace marvolin {
namespace {

using test::WholeHand;

/// Real keys on the control that has the focus.
struct KeyHand : WholeHand {
    KeyHand() { Begin(); }
    QWidget& Go(const char* name) {
        QWidget& widget = Named(name);
        Reveal(widget);
        QApplication::setActiveWindow(widget.window());
        widget.setFocus(Qt::TabFocusReason);
        EXPECT_TRUE(widget.hasFocus()) << name;
        return widget;
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier, int times = 1) {
        for (int i = 0; i < times; ++i) QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    void On(const char* name, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier, int times = 1) {
        Go(name);
        Key(key, held, times);
    }
};

TEST(ValueKeys, ArrowsTurnAKnobCoarselyWithShiftFinelyAndThePageKeysTenTimesAsFar) {
    KeyHand hand;
    hand.s.Set[3].Vol = 100;
    hand.On("VolKnob_3", Qt::Key_Up);
    EXPECT_EQ(hand.s.Set[3].Vol, 110);
    hand.Key(Qt::Key_Left);
    EXPECT_EQ(hand.s.Set[3].Vol, 100);
    hand.Key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Set[3].Vol, 101);
    hand.Key(Qt::Key_PageUp);
    EXPECT_EQ(hand.s.Set[3].Vol, 201);
    hand.Key(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Set[3].Vol, 191);
    hand.On("HzKnob_3", Qt::Key_Down);
    EXPECT_EQ(hand.s.Set[3].Hz, 893);
    hand.On("PanKnob_3", Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Set[3].Pan, 304);
}

TEST(ValueKeys, TheFadeSpeedAndTheSlidersHaveAFineStepToo) {
    KeyHand hand;
    hand.On("FadeFactor", Qt::Key_Right);
    const double coarse = hand.s.FadeStep;
    hand.Key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_LT(hand.s.FadeStep, coarse);
    EXPECT_NEAR(hand.s.FadeStep, coarse, 0.0021);
    auto& reach = dynamic_cast<QSlider&>(hand.Go("JoyFactor_0"));
    const int before = reach.value();
    hand.Key(Qt::Key_Right);
    EXPECT_EQ(reach.value(), before + 10);
    hand.Key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(reach.value(), before + 11);
    hand.Key(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(reach.value(), before + 1);
}

TEST(ValueKeys, AWireGoesThroughTheChannelsAndSpaceCutsIt) {
    KeyHand hand;
    hand.s.Set[3].Channel = 4;
    hand.On("ChannelFlag_3", Qt::Key_Down);
    EXPECT_EQ(hand.s.Set[3].Channel, 3);
    hand.Key(Qt::Key_Space);
    EXPECT_EQ(hand.s.Set[3].Channel, 7);
    hand.Key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Set[3].Channel, 3);
}

TEST(PressKeys, ShiftAndSpaceHoldTheRightButtonAsLongAsTheKeyIsDown) {
    KeyHand hand;
    QWidget& play = hand.Go("Play_1");
    hand.Key(Qt::Key_Space);
    ASSERT_EQ(hand.s.Run[1].Playing, True);
    QTest::keyPress(&play, Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Run[1].Paused, True);
    QTest::keyRelease(&play, Qt::Key_Space);
    EXPECT_EQ(hand.s.Run[1].Paused, False);
    QTest::keyPress(&play, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Run[1].Paused, True);
    hand.Go("Play_2");  // the focus goes while the key is down
    EXPECT_EQ(hand.s.Run[1].Paused, False);
}

TEST(PressKeys, ShiftAndSpaceJumpToTheBeginningTurnAFadeRoundAndOpenInTheDialogue) {
    KeyHand hand;
    hand.s.Run[3].Playing = True;
    hand.Sound.Log.clear();
    hand.On("LoopIt_3", Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_FALSE(hand.Sound.Log.empty());
    hand.On("SndDisp_3", Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_NE(hand.s.Run[3].FadeState, kNoFade);
    hand.On("RollOff", Qt::Key_Right, Qt::NoModifier, 5);
    EXPECT_NE(hand.s.RollOff, kPlainRollOff);
    hand.Key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.RollOff, kPlainRollOff);
    hand.On("QuickLoadPop", Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.QuickLoadTag, kRightButton);
    hand.Named("QuickLoad").hide();
}

TEST(PressKeys, CtrlAndSpaceAreADoubleClick) {
    KeyHand hand;
    hand.s.ActiveTab = kMixPadTab;
    hand.On("Thumb_2", Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(hand.s.CurrentLoop, 2);
    EXPECT_EQ(hand.s.ActiveTab, kPatternTab);
    hand.On("SelectorRadio_3", Qt::Key_Space, Qt::ControlModifier);
    EXPECT_NE(hand.s.BandTable[2].Controlled, False);
    EXPECT_FALSE(hand.s.SelectionControlled);
    hand.s.Set[3].PlayMode = kDrum;
    hand.On("LoopIt_3", Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(hand.s.Set[3].PlayMode, kLoop);
}

TEST(PressKeys, WithoutARightClickTheRightButtonOfTheKeysDoesNothing) {
    KeyHand hand;
    QWidget& knob = hand.Go("VolKnob_0");
    QTest::keyPress(&knob, Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Drag.Dragging, False);
    QTest::keyRelease(&knob, Qt::Key_Space);
}

TEST(PressKeys, CtrlAndSpaceOnASelectionFlagLeavesNothingHeld) {
    KeyHand hand;
    const auto before = hand.s.Set[1].Selected;
    hand.On("Selected_1", Qt::Key_Space, Qt::ControlModifier);
    EXPECT_NE(hand.s.Set[1].Selected, before);
    hand.On("Selected_1", Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(hand.s.Set[1].Selected, before);
}

TEST(SoundKeys, LeftAndRightJumpUpAndDownMoveTheTargetAndSpaceFadesThere) {
    KeyHand hand;
    hand.s.Set[3].Vol = 100;
    hand.s.SndDisp[3] = {100, 100, 0};
    hand.On("SndDisp_3", Qt::Key_Right);
    EXPECT_EQ(hand.s.Set[3].Vol, 110);
    hand.Key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Set[3].Vol, 109);
    hand.Key(Qt::Key_PageUp, Qt::NoModifier, 2);
    EXPECT_EQ(hand.s.SndDisp[3].Line, 309);
    EXPECT_EQ(hand.s.Set[3].Vol, 109);
    EXPECT_EQ(hand.s.ReadoutText, "Fade to Vol: 309");
    hand.Key(Qt::Key_Space);
    EXPECT_EQ(hand.s.Run[3].FadeState, kRising);
    EXPECT_EQ(hand.s.Run[3].FadeTarget, 309);
}

TEST(SoundKeys, EscapePutsTheTargetBackUnlessItFadesThere) {
    KeyHand hand;
    hand.s.SndDisp[3] = {103, 103, 0};
    hand.On("SndDisp_3", Qt::Key_Up);
    EXPECT_EQ(hand.s.SndDisp[3].Line, 113);
    hand.Key(Qt::Key_Escape);
    EXPECT_EQ(hand.s.SndDisp[3].Line, 103);
    EXPECT_EQ(hand.s.Run[3].FadeState, kNoFade);
    hand.Key(Qt::Key_Up);
    hand.Key(Qt::Key_Space);
    hand.Key(Qt::Key_Escape);
    EXPECT_EQ(hand.s.SndDisp[3].Line, 113);
}

TEST(BandKeys, ArrowsChooseSpaceClicksShiftDrawsAndDeleteEmpties) {
    KeyHand hand;
    for (Row band = 0; band < kBands; ++band) SetBand(hand.s, band, {});
    hand.On("Bands", Qt::Key_Down, Qt::NoModifier, 2);
    EXPECT_EQ(hand.s.ReadoutText, "Band 2, A");
    hand.Key(Qt::Key_Right);
    hand.Key(Qt::Key_Space);
    EXPECT_EQ(DrawnBand(hand.s, 2), (BandRun{1, 1}));
    hand.Key(Qt::Key_Right, Qt::ShiftModifier, 2);
    EXPECT_EQ(DrawnBand(hand.s, 2), (BandRun{1, 3}));
    hand.Key(Qt::Key_Left, Qt::ShiftModifier, 3);
    EXPECT_EQ(DrawnBand(hand.s, 2), (BandRun{0, 1}));
    hand.Key(Qt::Key_Up);
    hand.Key(Qt::Key_Delete);
    EXPECT_EQ(DrawnBand(hand.s, 2), (BandRun{0, 1}));
    hand.Key(Qt::Key_Down);
    hand.Key(Qt::Key_Delete);
    EXPECT_TRUE(DrawnBand(hand.s, 2).Empty());
}

TEST(PatternKeys, ArrowsChooseAStepDeleteResetsItAndWithShiftTheLane) {
    KeyHand hand;
    hand.s.CurrentLoop = 0;
    hand.s.Set[0].NSteps = 3;
    hand.s.GraphColumns[0] = hand.s.GraphColumns[1] = hand.s.GraphColumns[2] = 4;
    PatternBlock& vol = hand.s.Set[0].Pattern[kVolPattern];
    vol[0] = vol[1] = 300;
    vol[kPatternOffset] = 0;
    hand.On("PatternGraph_0", Qt::Key_Down);
    EXPECT_EQ(vol[0], 290);
    EXPECT_EQ(hand.s.ReadoutText, "Step: 1 Vol: 290");
    hand.Key(Qt::Key_Right);
    EXPECT_EQ(hand.s.ReadoutText, "Step: 2 Vol: 300");
    hand.Key(Qt::Key_PageDown);
    hand.Key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(vol[1], 201);
    EXPECT_EQ(vol[0], 290);
    hand.Key(Qt::Key_PageUp, Qt::NoModifier, 9);
    EXPECT_EQ(vol[1], 500);
    hand.Key(Qt::Key_Home);
    hand.Key(Qt::Key_Left);
    hand.Key(Qt::Key_PageUp);
    EXPECT_EQ(vol[kPatternOffset], 100);
    EXPECT_EQ(hand.s.ReadoutText, "Random: Vol: 100");
    hand.Key(Qt::Key_End);
    EXPECT_TRUE(hand.s.ReadoutText.starts_with("Step: 4 "));
    vol[3] = 7;
    hand.Key(Qt::Key_Delete);
    EXPECT_EQ(vol[3], 500);
    EXPECT_EQ(vol[0], 290);
    EXPECT_EQ(vol[kPatternOffset], 100);
    hand.Key(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(vol[0], 500);
    EXPECT_EQ(vol[kPatternOffset], 0);
}

TEST(BallKeys, ArrowsMoveABallFourPixelsWithShiftOneAndPageKeysTurnTheListener) {
    KeyHand hand;
    BallCentre(hand.s, kPadBall);
    const BallPoint pad = BallPlace(hand.s, kPadBall);
    hand.On("PadBall", Qt::Key_Right);
    EXPECT_DOUBLE_EQ(BallPlace(hand.s, kPadBall).X, pad.X + 60);
    hand.Key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_DOUBLE_EQ(BallPlace(hand.s, kPadBall).X, pad.X + 45);
    hand.Key(Qt::Key_PageDown);
    EXPECT_DOUBLE_EQ(BallPlace(hand.s, kPadBall).Y, pad.Y + 600);
    hand.Key(Qt::Key_Space);
    EXPECT_DOUBLE_EQ(BallPlace(hand.s, kPadBall).Y, pad.Y);
    hand.s.ListenerAngle = 0;
    hand.On("PosBall_4", Qt::Key_PageDown, Qt::NoModifier, 2);
    EXPECT_EQ(hand.s.ListenerAngle, 30);
    hand.Key(Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.ListenerAngle, 25);
    hand.On("PosBall_3", Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_NE(hand.s.Run[3].FadeState, kNoFade);
}

TEST(TabKeys, LeftAndRightOpenTheTabBesideAndStopAtTheEnds) {
    KeyHand hand;
    hand.s.ActiveTab = kMixPadTab;
    hand.Screen.ShowTab();
    hand.On("Tab_0", Qt::Key_Left);
    EXPECT_EQ(hand.s.ActiveTab, kMixPadTab);
    hand.Key(Qt::Key_Right, Qt::NoModifier, 9);
    EXPECT_EQ(hand.s.ActiveTab, kOptionTab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "Tab_3");
    hand.On("OptionSubTab_0", Qt::Key_Right, Qt::NoModifier, 2);
    EXPECT_EQ(hand.s.ActiveSubTab, 2);
    EXPECT_EQ(hand.s.ActiveTab, kOptionTab);
}

TEST(ListKeys, SpaceTakesAnEntryAndEscapeClosesAndTheFocusComesBack) {
    KeyHand hand;
    hand.On("SelectPopUp", Qt::Key_Space);
    ASSERT_TRUE(hand.Named("SlctGroup").isVisible());
    QTest::keyClick(&hand.Named("SlctGroup"), Qt::Key_Home);
    QTest::keyClick(&hand.Named("SlctGroup"), Qt::Key_Space);
    EXPECT_FALSE(hand.Named("SlctGroup").isVisible());
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_NE(hand.s.Set[row].Selected, False);

    hand.On("DropDown_0", Qt::Key_Space);
    auto& palette = dynamic_cast<QListWidget&>(hand.Named("HistoryList"));
    ASSERT_TRUE(palette.hasFocus());
    hand.Key(Qt::Key_Escape);
    EXPECT_FALSE(palette.isVisible());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "DropDown_0");
    hand.Key(Qt::Key_Space);
    palette.setCurrentRow(1);
    hand.Key(Qt::Key_Space);  // "<Empty Looptrack>"
    EXPECT_EQ(hand.s.Run[0].Loaded, False);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "DropDown_0");

    hand.On("QuickLoadPop", Qt::Key_Space);
    ASSERT_TRUE(hand.Named("QuickLoad").isVisible());
    QTest::keyClick(&hand.Named("QuickLoad"), Qt::Key_Escape);
    EXPECT_FALSE(hand.Named("QuickLoad").isVisible());
}

TEST(BinKeys, ReturnLoadsIntoTheDestinationShiftPlaysItAndTheTreeGivesAFolder) {
    KeyHand hand;
    hand.s.Bins[1].Destination = 3;
    hand.s.Bins[1].Selected = 0;
    hand.On("PickFile_1", Qt::Key_Down);
    EXPECT_EQ(hand.s.Bins[1].Selected, 1);
    hand.s.Run[3].Playing = False;
    hand.Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.Run[3].Playing, True);
    hand.Key(Qt::Key_Return);
    EXPECT_EQ(hand.s.Set[3].FileName, (hand.Folder / hand.s.Bins[1].Rows[1].File).string());

    const std::string folder = hand.Own.In("other");
    std::filesystem::create_directories(folder);
    auto& tree = dynamic_cast<QTreeView&>(hand.Named("FolderTreeview1"));
    hand.On("PickDir_2", Qt::Key_Space);
    ASSERT_TRUE(tree.hasFocus());
    hand.Key(Qt::Key_Escape);
    EXPECT_FALSE(tree.isVisible());
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "PickDir_2");
    hand.Key(Qt::Key_Space);
    auto& model = dynamic_cast<QFileSystemModel&>(*tree.model());
    tree.setCurrentIndex(model.index(QString::fromStdString(folder)));
    hand.Key(Qt::Key_Return);
    EXPECT_FALSE(tree.isVisible());
    EXPECT_EQ(hand.s.Bins[2].Folder, folder);
}

TEST(EscapeKey, LetsGoOfWhatTheMouseHolds) {
    KeyHand hand;
    hand.s.Set[3].Vol = 100;
    QWidget& knob = hand.Named("VolKnob_3");
    const QPoint middle = knob.rect().center();
    QTest::mousePress(&knob, Qt::LeftButton, {}, middle);
    QTest::mouseMove(&knob, middle - QPoint(4, 0));
    const std::int16_t reached = hand.s.Set[3].Vol;
    EXPECT_NE(reached, 100);
    QTest::keyClick(hand.Form.get(), Qt::Key_Escape);
    EXPECT_EQ(hand.s.Drag.Dragging, False);
    QTest::mouseMove(&knob, middle - QPoint(30, 0));
    QTest::mouseRelease(&knob, Qt::LeftButton, {}, middle - QPoint(30, 0));
    EXPECT_EQ(hand.s.Set[3].Vol, reached);
}

TEST(LetterKeys, PlayWhileHelpHasTheFocusButNotWithCtrlAndNotInItsSearch) {
    test::Stage stage;
    QWidget help;
    help.setObjectName("frmHelp");
    QTextEdit page(&help);
    page.setReadOnly(true);
    QLineEdit find(&help);
    help.show();
    QApplication::setActiveWindow(&help);
    page.setFocus();
    QTest::keyClick(&page, Qt::Key_B);
    QTest::keyClick(&page, Qt::Key_C, Qt::ShiftModifier);
    QTest::keyClick(&page, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(stage.Keys, (std::vector<std::string>{"B", "C+shift"}));
    find.setFocus();
    QTest::keyClick(&find, Qt::Key_B);
    EXPECT_EQ(find.text(), "b");
    EXPECT_EQ(stage.Keys.size(), 2U);
}

}  // namespace
}  // namespace marvolin
