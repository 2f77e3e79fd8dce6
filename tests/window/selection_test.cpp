#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QTest>

#include "stage.h"

namespace marvolin {
namespace {

using test::Stage;

void DoubleClick(Stage& stage, const char* name, QPointF place, Qt::MouseButton button) {
    QTest::mouseDClick(stage.Form->windowHandle(), button, {}, stage.InWindow(name, place));
}

TEST(Selected, ADragOverTheFlagsSelectsThem) {
    Stage stage;
    const QPointF start = stage.Middle("Selected_0");
    stage.Press("Selected_0", start);
    stage.Move("Selected_1", stage.Middle("Selected_1"));
    stage.Move("Selected_2", stage.Middle("Selected_2"));
    stage.Release("Selected_2", stage.Middle("Selected_2"));
    EXPECT_EQ(stage.s.Set[0].Selected, True);
    EXPECT_EQ(stage.s.Set[1].Selected, True);
    EXPECT_EQ(stage.s.Set[2].Selected, True);
    EXPECT_EQ(stage.s.Set[3].Selected, False);
    stage.Move("Selected_3", stage.Middle("Selected_3"));
    EXPECT_EQ(stage.s.Set[3].Selected, False);
}

TEST(Selected, ARightDragDeselectsEachFlagThatItCrosses) {
    Stage stage;
    for (Row row = 0; row < kLoopTracks; ++row) stage.s.Set[row].Selected = True;
    stage.Press("Selected_3", stage.Middle("Selected_3"), Qt::RightButton);
    stage.Move("Selected_2", stage.Middle("Selected_2"));
    stage.Release("Selected_2", stage.Middle("Selected_2"), Qt::RightButton);
    EXPECT_EQ(stage.s.Set[3].Selected, False);
    EXPECT_EQ(stage.s.Set[2].Selected, False);
    EXPECT_EQ(stage.s.Set[1].Selected, True);
}

TEST(Selected, AFastDragSkipsNoFlag) {
    for (const bool moves : {true, false}) {
        SCOPED_TRACE(moves);
        Stage stage;
        stage.Press("Selected_0", stage.Middle("Selected_0"));
        if (moves) stage.Move("Selected_3", stage.Middle("Selected_3"));
        stage.Release("Selected_3", stage.Middle("Selected_3"));
        for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(stage.s.Set[row].Selected, True) << row;
    }
}

TEST(Selected, ADragBesideTheFlagsSelectsNone) {
    Stage stage;
    stage.Press("Selected_0", stage.Middle("Selected_0"));
    stage.Move("SndDisp_0", stage.Middle("SndDisp_0"));
    stage.Move("SndDisp_3", stage.Middle("SndDisp_3"));
    stage.Move("Selected_3", stage.Middle("Selected_3"));
    stage.Release("Selected_3", stage.Middle("Selected_3"));
    EXPECT_EQ(stage.s.Set[0].Selected, True);
    EXPECT_EQ(stage.s.Set[1].Selected, False);
    EXPECT_EQ(stage.s.Set[2].Selected, False);
    EXPECT_EQ(stage.s.Set[3].Selected, True);
}

TEST(SelectionTools, ShowTheirHints) {
    Stage stage;
    const std::vector<std::pair<const char*, const char*>> hints{
        {"Selected_2", "drg Select LoopTracks; rtdrg Deselect LoopTracks (drg over to select/deselect)"},
        {"SelectPopUp", "clk Open Selection Tool Dropdown"},
        {"SelectorRadio_0", "clk Toggle Control of Selection/Band; dblclk Control Selection/Band"},
        {"Thumb_1", "clk Select Pattern/LoopTrack Position; dblclk Open Pattern"},
        {"SelectorRadio_6", "clk Toggle Control of Selection/Band; dblclk Control Selection/Band"},
        {"Bands", "drg Band over LoopTracks; clk Add/Remove; dblclk Empty"}};
    for (const auto& [name, hint] : hints) {
        stage.Move(name, stage.Middle(name));
        EXPECT_EQ(stage.s.StatusText, hint) << name;
    }
}

TEST(SelectPopUp, APressOutsideTheRulesClosesThem) {
    Stage stage;
    auto* list = stage.Form->findChild<QListWidget*>("SlctGroup");
    stage.Click("SelectPopUp");
    ASSERT_TRUE(list->isVisible());
    QTest::mouseClick(list->windowHandle(), Qt::LeftButton, {}, {list->width() + 20, 20});
    EXPECT_FALSE(list->isVisible());
}

TEST(SelectPopUp, OpensTheRulesAndAppliesTheChosenOne) {
    Stage stage;
    stage.Fill(2);
    auto* list = stage.Form->findChild<QListWidget*>("SlctGroup");
    ASSERT_NE(list, nullptr);
    EXPECT_FALSE(list->isVisible());
    stage.Click("SelectPopUp");
    EXPECT_TRUE(list->isVisible());
    EXPECT_EQ(list->count(), 16);
    EXPECT_EQ(list->currentRow(), -1);
    const QListWidgetItem* filled = list->findItems("Filled", Qt::MatchExactly).at(0);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(filled).center());
    EXPECT_EQ(stage.s.Set[2].Selected, True);
    EXPECT_EQ(stage.s.Set[0].Selected, False);
    EXPECT_FALSE(list->isVisible());
}

TEST(SelectPopUp, TheKeysChooseAndEscapeChoosesNothing) {
    Stage stage;
    auto* list = stage.Form->findChild<QListWidget*>("SlctGroup");
    stage.Click("SelectPopUp");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(stage.s.Set[0].Selected, False);
    stage.Click("SelectPopUp");
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(stage.s.Set[0].Selected, False);
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(stage.s.Set[0].Selected, True);
    EXPECT_FALSE(list->isVisible());
}

TEST(SelectorRadio, AClickTogglesAndADoubleClickIsExclusive) {
    Stage stage;
    stage.Click("SelectorRadio_0");
    EXPECT_FALSE(stage.s.SelectionControlled);
    stage.Click("SelectorRadio_2");
    EXPECT_EQ(stage.s.BandTable[1].Controlled, True);
    stage.DoubleClick("SelectorRadio_3");
    EXPECT_EQ(stage.s.BandTable[1].Controlled, False);
    EXPECT_EQ(stage.s.BandTable[2].Controlled, True);
    EXPECT_FALSE(stage.s.SelectionControlled);
}

TEST(SelectorRadio, OnlyTheLeftButtonActs) {
    Stage stage;
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        stage.Click("SelectorRadio_0", button);
        DoubleClick(stage, "SelectorRadio_3", stage.Middle("SelectorRadio_3"), button);
    }
    EXPECT_TRUE(stage.s.SelectionControlled);
    EXPECT_EQ(stage.s.BandTable[2].Controlled, False);
}

TEST(BandsControl, ADragOverALaneMakesABand) {
    Stage stage;
    const QSizeF size = stage.At("Bands")->size();
    const double lane = size.height() / 6;
    const double column = size.width() / 4;
    stage.Press("Bands", {column * 1.5, lane * 2.5});
    stage.Move("Bands", {column * 2.5, lane * 2.5});
    stage.Release("Bands", {column * 2.5, lane * 2.5});
    EXPECT_EQ(stage.s.BandTable[2].First, 1);
    EXPECT_EQ(stage.s.BandTable[2].Last, 2);
    EXPECT_EQ(stage.s.Run[1].InBand, True);
    EXPECT_EQ(stage.s.Run[2].Band, 2);
}

TEST(BandsControl, AClickAddsADoubleClickEmptiesAndTheOtherButtonsDoNothing) {
    Stage stage;
    const QSizeF size = stage.At("Bands")->size();
    const QPointF place(size.width() / 8 * 5, size.height() / 12 * 9);
    stage.Click("Bands", place);
    EXPECT_EQ(stage.s.BandTable[4].First, 2);
    EXPECT_EQ(stage.s.BandTable[4].Last, 2);
    stage.Click("Bands", {size.width() / 8, place.y()});
    EXPECT_EQ(stage.s.BandTable[4].First, 0);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        stage.Click("Bands", place, button);
        DoubleClick(stage, "Bands", place, button);
    }
    EXPECT_EQ(stage.s.BandTable[4].First, 0);
    EXPECT_EQ(stage.s.BandTable[4].Last, 2);
    DoubleClick(stage, "Bands", place, Qt::LeftButton);
    EXPECT_EQ(stage.s.BandTable[4].First, 5);
    EXPECT_EQ(stage.s.Run[0].InBand, False);
}

TEST(BandsControl, AnotherButtonDuringADragDoesNotEndIt) {
    Stage stage;
    const QSizeF size = stage.At("Bands")->size();
    const double y = size.height() / 12;
    stage.Press("Bands", {size.width() / 8, y});
    stage.Press("Bands", {size.width() / 8, y}, Qt::RightButton);
    stage.Release("Bands", {size.width() / 8, y}, Qt::RightButton);
    EXPECT_EQ(stage.s.Run[0].InBand, False);
    stage.Release("Bands", {size.width() / 8, y});
    EXPECT_EQ(stage.s.Run[0].InBand, True);
}

TEST(Thumb, AClickChoosesTheLoopTrackADoubleClickOpensItsPattern) {
    Stage stage;
    stage.Click("Thumb_2");
    EXPECT_EQ(stage.s.CurrentLoop, 2);
    EXPECT_EQ(stage.s.ActiveTab, kMixPadTab);
    stage.DoubleClick("Thumb_1");
    EXPECT_EQ(stage.s.CurrentLoop, 1);
    EXPECT_EQ(stage.s.ActiveTab, kPatternTab);
    EXPECT_TRUE(stage.At("PatternPage")->isVisible());
}

TEST(Thumb, OnlyALeftClickThatEndsOnItCounts) {
    Stage stage;
    stage.Click("Thumb_2", Qt::RightButton);
    stage.Click("Thumb_2", Qt::MiddleButton);
    stage.Press("Thumb_2", stage.Middle("Thumb_2"));
    stage.Release("Thumb_0", stage.Middle("Thumb_0"));
    DoubleClick(stage, "Thumb_2", stage.Middle("Thumb_2"), Qt::RightButton);
    EXPECT_EQ(stage.s.CurrentLoop, 0);
    EXPECT_EQ(stage.s.ActiveTab, kMixPadTab);
}

TEST(SndDisp, ADragAlongTheTopIsHeardWhileItMoves) {
    Stage stage;
    stage.Fill(1);
    const double width = stage.At("SndDisp_1")->width();
    stage.Press("SndDisp_1", {width / 2, 6});
    EXPECT_NEAR(stage.s.Set[1].Vol, 250, 2);
    stage.Move("SndDisp_1", {width / 4, 6});
    EXPECT_LT(stage.s.Set[1].Vol, 130);
    stage.Release("SndDisp_1", {width - 1, 6});
    EXPECT_EQ(stage.s.Set[1].Vol, 500);
    EXPECT_EQ(stage.s.Run[1].FadeState, kNoFade);
}

TEST(SndDisp, AClickAlongTheBottomFadesThere) {
    Stage stage;
    stage.Fill(1);
    const QSizeF size = stage.At("SndDisp_1")->size();
    stage.Click("SndDisp_1", {size.width() / 2, size.height() - 6});
    EXPECT_EQ(stage.s.Set[1].Vol, 500);
    EXPECT_EQ(stage.s.Run[1].FadeState, kFalling);
    EXPECT_NEAR(stage.s.Run[1].FadeTarget, 250, 2);
    EXPECT_EQ(stage.s.Run[1].FadeToMark, True);
}

TEST(SndDisp, ARightClickTogglesTheFade) {
    Stage stage;
    stage.Fill(1);
    stage.Click("SndDisp_1", {30, 30}, Qt::RightButton);
    EXPECT_EQ(stage.s.Run[1].FadeState, kFalling);
    EXPECT_EQ(stage.s.Run[1].FadeTarget, 0);
}

TEST(DropDown, AClickOpensThePaletteAndAClickChoosesAnEntry) {
    Stage stage;
    stage.Fill(0);
    auto* list = stage.Form->findChild<QListWidget*>("HistoryList");
    ASSERT_NE(list, nullptr);
    stage.Click("DropDown_0");
    ASSERT_TRUE(list->isVisible());
    EXPECT_EQ(list->item(1)->text(), "<Empty Looptrack>");
    EXPECT_TRUE(stage.Form->rect().contains(list->geometry()));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(stage.s.Run[0].Loaded, False);
    EXPECT_FALSE(list->isVisible());
}

TEST(DropDown, ThePaletteOpensBelowItsButtonOrAboveWhereItHasNoRoom) {
    for (const bool mini : {false, true}) {
        for (const int samples : {0, 2, 20}) {
            SCOPED_TRACE(std::to_string(samples) + (mini ? " Mini" : ""));
            Stage stage;
            if (mini) stage.Click("ToTop");
            stage.Settle();
            for (const Row row : {Row{0}, Row{1}, Row{2}, Row{3}, kSelectionRow}) {
                SCOPED_TRACE(row);
                for (int i = 0; i < samples; ++i) stage.s.History[row].push_back("/s/" + std::to_string(i) + ".wav");
                const std::string name = "DropDown_" + std::to_string(row);
                const QRect button(stage.InWindow(name.c_str(), {}), stage.At(name.c_str())->size());
                stage.Click(name.c_str(), stage.Middle(name.c_str()) + QPointF(0, 6));
                auto* list = stage.Form->findChild<QListWidget*>("HistoryList");
                ASSERT_TRUE(list->isVisible());
                const QRect place = list->geometry();
                EXPECT_FALSE(place.intersects(button));
                EXPECT_TRUE(stage.Form->rect().contains(place));
                EXPECT_GE(place.height(), 3 * list->sizeHintForRow(0) + 10);
                EXPECT_EQ(place.left(), button.left());
                const int whole = qMin(list->count(), 14) * list->sizeHintForRow(0) + 10;
                const int below = stage.Form->height() - place.height() - button.bottom();
                if (place.top() < button.top()) {
                    EXPECT_LT(stage.Form->height() - button.bottom() - 2, whole);
                    EXPECT_EQ(place.bottom(), button.top() - 3);
                } else {
                    EXPECT_EQ(place.top(), button.bottom() + 2);
                    EXPECT_TRUE(place.height() == whole || below == 2);
                }
                QTest::keyClick(list, Qt::Key_Escape);
            }
        }
    }
}

TEST(DropDown, CloseOnlyClosesThePalette) {
    Stage stage;
    stage.Fill(3);
    auto* list = stage.Form->findChild<QListWidget*>("HistoryList");
    stage.Click("DropDown_3");
    ASSERT_TRUE(list->isVisible());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(stage.s.Run[3].Loaded, True);
}

TEST(Letr, TheDropperCopiesTheSettingsOfTheRowItIsDroppedOn) {
    Stage stage;
    stage.s.Set[2].Vol = 123;
    stage.s.Set[2].Pan = 800;
    stage.DropControl("Letr_2", {"Letr", 0, "Dropper~~0"});
    EXPECT_EQ(stage.s.Set[0].Vol, 123);
    EXPECT_EQ(stage.s.Set[0].Pan, 800);
    stage.s.Set[2].Pan = 100;
    stage.s.Set[2].Vol = 99;
    stage.DropControl("SndDisp_2", {"Letr", 0, "Dropper~~0"});
    EXPECT_EQ(stage.s.Set[0].Vol, 99);
    EXPECT_EQ(stage.s.Set[0].Pan, 800);
}

}  // namespace
}  // namespace marvolin
