// What the mouse does on a control, done by its keys.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>
#include <QTextEdit>
#include <QTreeView>
#include <filesystem>
#include <fstream>

#include "core/routines.h"
#include "key_hand.h"
#include "parameters/position.h"
#include "parameters/wires.h"
#include "performance/ball_hand.h"
#include "performance/map/sound_map.h"
#include "performance/selection/bands.h"
#include "window/controls/knob.h"
#include "window/descriptions/described.h"

namespace marvolin {
namespace {

using test::KeyHand;
using testing::ElementsAre;
using testing::IsEmpty;

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

TEST(PressKeys, ReturnDoesWhatSpaceDoesOnEveryControlOfTheMainWindow) {
    KeyHand hand;
    hand.LookAway();
    int pressed = 0;
    int changed = 0;
    for (QWidget* widget : hand.Controls()) {
        const std::string name = widget->objectName().toStdString();
        const Description& row = DescribedOf(*widget)->Row();
        // A closed list opens at Space alone, and the lists that are open have a test of their own.
        const bool list = row.Role == QAccessible::ComboBox || row.Role == QAccessible::List;
        const bool other = widget->window() != hand.Form.get() || list || row.Role == QAccessible::Tree;
        // The box of the 3D sound makes all sounds anew, and other tests press it.
        if (!Takes(row.Taken, Keys::Press) || other || name == "Enable3d") continue;
        SCOPED_TRACE(name);
        const auto after = [&](Qt::Key key) {
            hand.Begin();
            hand.Go(*widget);
            const test::Facts before = test::FactsOf(hand.s);
            hand.Forms.Log.clear();
            hand.Key(key);
            std::vector<std::string> facts = test::Changed(before, test::FactsOf(hand.s));
            for (const std::string& form : hand.Forms.Log) facts.push_back(form);
            for (const std::string& shown : hand.Shown()) facts.push_back(shown);
            return facts;
        };
        const std::vector<std::string> space = after(Qt::Key_Space);
        EXPECT_EQ(after(Qt::Key_Return), space);
        EXPECT_EQ(after(Qt::Key_Enter), space);
        ++pressed;
        changed += space.empty() ? 0 : 1;
    }
    EXPECT_GT(pressed, 60);
    EXPECT_GT(changed, 40);
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

TEST(BallKeys, ArrowsMoveTheTwistFourPixelsWithShiftOnePageKeysTenStepsAndSpaceCentresIt) {
    KeyHand hand;
    hand.On("TwistBall", Qt::Key_Right);
    EXPECT_EQ(hand.s.TwistPosition, 60);
    hand.Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(hand.s.TwistPosition, 45);
    hand.Key(Qt::Key_PageUp);
    EXPECT_EQ(hand.s.TwistPosition, 645);
    hand.Key(Qt::Key_Space);
    EXPECT_EQ(hand.s.TwistPosition, 0);
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

/// The events that the script has got, by number of the procedure and ball.
std::vector<std::string> EventsOf(const KeyHand& hand) {
    std::vector<std::string> events;
    for (const test::FakeScripts::Event& event : hand.Scripts.Events) {
        events.push_back(std::string(kScriptEventNames[static_cast<std::size_t>(event.Which)]) + " " +
                         NumberText(event.Arguments[0]));
    }
    return events;
}

struct ScriptedHand : KeyHand {
    ScriptedHand() {
        s.EventWanted[ScriptEvent::OnPositionScroll] = 1;
        s.EventWanted[ScriptEvent::OnPositionChange] = 1;
        s.ScrollSensitivity[1] = 100;
    }
};

TEST(BallKeys, AStepOnTheMapTellsTheScriptWhatTheEndOfADragTells) {
    ScriptedHand hand;
    hand.On("PosBall_2", Qt::Key_Right);
    EXPECT_THAT(EventsOf(hand), ElementsAre("OnPositionChange 3", "OnPositionScroll 3"));
    ASSERT_EQ(hand.Scripts.Events.size(), 2U);
    EXPECT_NEAR(hand.Scripts.Events[0].Arguments[1], hand.s.Set[2].PositionX, 1e-6);
    EXPECT_GT(hand.Scripts.Events[1].Arguments[3], 0) << "the way of the step";
    hand.Scripts.Events.clear();
    hand.On("PosBall_4", Qt::Key_Down);
    EXPECT_THAT(EventsOf(hand), ElementsAre("OnPositionChange 5", "OnPositionScroll 5"));
}

// The map's events report positions, and a turn changes none; turning by mouse sends nothing either.
TEST(BallKeys, ATurnOfTheListenerTellsTheScriptAsLittleAsTheMouseDoes) {
    ScriptedHand hand;
    hand.s.ListenerAngle = 0;
    hand.On("PosBall_4", Qt::Key_PageDown);
    EXPECT_EQ(hand.s.ListenerAngle, 15);
    EXPECT_THAT(EventsOf(hand), IsEmpty());
    QWidget& listener = hand.Named("PosBall_4");
    const test::Spot spot = hand.SpotOn(listener);
    hand.PressAt(spot, Qt::RightButton);
    hand.MoveTo(spot, {0, 20});
    hand.ReleaseAt(spot, Qt::RightButton, {0, 20});
    EXPECT_NE(hand.s.ListenerAngle, 15);
    EXPECT_THAT(EventsOf(hand), IsEmpty());
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

/// A list that opens over the window, and the control at which it opens.
struct OpenedList {
    const char* Opener;
    const char* List;
};
constexpr OpenedList kOpenedLists[] = {
    {"SelectPopUp", "SlctGroup"}, {"DropDown_0", "HistoryList"}, {"QuickLoadPop", "QuickLoad"}};

TEST(ListKeys, AKeyThatIsHeldOpensAListAndNeitherTakesAnEntryNorClosesIt) {
    KeyHand hand;
    for (const OpenedList& one : kOpenedLists) {
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            SCOPED_TRACE(one.List);
            hand.Begin();
            QWidget& opener = hand.Go(one.Opener);
            QTest::keyPress(&opener, key);
            auto& list = dynamic_cast<QListWidget&>(hand.Named(one.List));
            ASSERT_TRUE(list.isVisible());
            list.setCurrentRow(1);
            const test::Facts before = test::FactsOf(hand.s);
            for (int repeat = 0; repeat < 5; ++repeat) KeyHand::Repeat(list, key);
            EXPECT_TRUE(list.isVisible());
            EXPECT_THAT(test::Changed(before, test::FactsOf(hand.s)), IsEmpty());
            QTest::keyClick(&list, Qt::Key_Escape);
            EXPECT_FALSE(list.isVisible());
        }
    }
}

TEST(ListKeys, ARepeatedArrowGoesOnThroughTheList) {
    KeyHand hand;
    hand.On("SelectPopUp", Qt::Key_Space);
    auto& list = dynamic_cast<QListWidget&>(hand.Named("SlctGroup"));
    list.setCurrentRow(0);
    for (int repeat = 0; repeat < 3; ++repeat) KeyHand::Repeat(list, Qt::Key_Down);
    EXPECT_EQ(list.currentRow(), 3);
    list.hide();
}

TEST(LetterKeys, PlayWhileAListIsOpenAndTheListStaysAsItIs) {
    KeyHand hand;
    for (const OpenedList& one : kOpenedLists) {
        SCOPED_TRACE(one.List);
        hand.Begin();
        hand.On(one.Opener, Qt::Key_Space);
        auto& list = dynamic_cast<QListWidget&>(hand.Named(one.List));
        ASSERT_TRUE(list.isVisible());
        list.setCurrentRow(0);
        hand.Keys.clear();
        // Letters with which entries begin, among others.
        for (const Qt::Key key : {Qt::Key_B, Qt::Key_N, Qt::Key_P}) QTest::keyClick(&list, key);
        QTest::keyClick(&list, Qt::Key_C, Qt::ShiftModifier);
        EXPECT_THAT(hand.Keys, ElementsAre("B", "N", "P", "C+shift"));
        EXPECT_TRUE(list.isVisible());
        EXPECT_EQ(list.currentRow(), 0);
        QTest::keyClick(&list, Qt::Key_Escape);
    }
    QWidget& type = hand.Go("PadType");
    auto& box = dynamic_cast<QComboBox&>(type);
    const int before = box.currentIndex();
    box.showPopup();
    hand.Keys.clear();
    QTest::keyClick(box.view(), Qt::Key_P);
    EXPECT_THAT(hand.Keys, ElementsAre("P"));
    EXPECT_TRUE(box.view()->isVisible());
    box.hidePopup();
    EXPECT_EQ(box.currentIndex(), before);
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

TEST(BinKeys, AFolderWhoseNameIsNoUtf8IsTakenByADropAndTheTreeDoesNoHarmToIt) {
    KeyHand hand;
    const std::string folder = hand.Own.In("b\xe4sse");
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/deep.wav") << "sample";
    auto files = std::make_unique<QMimeData>();
    files->setData("text/uri-list",
                   "file://" + QByteArray::fromStdString(hand.Own.Path()).toPercentEncoding("/") + "/b%E4sse\r\n");
    ASSERT_TRUE(hand.DropOn(hand.Part("PickDir_2"), std::move(files)));
    EXPECT_EQ(hand.s.Bins[2].Folder, folder);
    EXPECT_EQ(hand.s.Bins[2].Rows.size(), 1U);
    // The tree cannot show it, so nothing is chosen there, and Return gives nothing.
    hand.On("PickDir_2", Qt::Key_Space);
    auto& tree = dynamic_cast<QTreeView&>(hand.Named("FolderTreeview1"));
    ASSERT_TRUE(tree.isVisible());
    EXPECT_FALSE(tree.currentIndex().isValid());
    hand.Key(Qt::Key_Return);
    EXPECT_TRUE(tree.isVisible());
    EXPECT_EQ(hand.s.Bins[2].Folder, folder);
    // Its neighbours are there.
    const std::string after = hand.Own.In("after");
    std::filesystem::create_directories(after);
    tree.setCurrentIndex(dynamic_cast<QFileSystemModel&>(*tree.model()).index(QString::fromStdString(after)));
    hand.Key(Qt::Key_Return);
    EXPECT_FALSE(tree.isVisible());
    EXPECT_EQ(hand.s.Bins[2].Folder, after);
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
