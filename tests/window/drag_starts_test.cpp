// Where drags begin, what they carry, and the pictures that go with the pointer.

#include <gtest/gtest.h>

#include <QListWidget>
#include <QPixmap>
#include <set>

#include "browser_stage.h"
#include "core/routines.h"
#include "hand.h"
#include "performance/tabs.h"
#include "window/controls/clip_list.h"
#include "window/descriptions/described.h"
#include "window/toolkit/drag.h"
#include "window/toolkit/drop_words.h"

namespace marvolin {
namespace {

using test::Stage;

void Send(QWidget& to, QEvent::Type type, QPointF place, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, place, to.mapToGlobal(place), button, held, {});
    QApplication::sendEvent(&to, &event);
}

/// Presses at `place`, moves well away and releases there.
void Pull(QWidget& from, QPointF place, Qt::MouseButton button) {
    const QPointF away = place + QPointF(20, 20);
    Send(from, QEvent::MouseButtonPress, place, button, button);
    Send(from, QEvent::MouseMove, away, Qt::NoButton, button);
    Send(from, QEvent::MouseButtonRelease, away, button, {});
}

/// What a pull from a place of the control drags, if it drags anything.
std::optional<DragSource> DragFrom(Stage& stage, const char* name, QPointF place,
                                   Qt::MouseButton button = Qt::LeftButton) {
    const QPoint at = stage.InWindow(name, place);
    QWidget& pressed = *stage.Form->childAt(at);
    return test::DragOf(*stage.Form, [&] { Pull(pressed, pressed.mapFrom(stage.Form.get(), at), button); });
}

std::optional<DragSource> DragFrom(Stage& stage, const char* name, Qt::MouseButton button = Qt::LeftButton) {
    return DragFrom(stage, name, stage.Middle(name), button);
}

void OpenPatterns(Stage& stage) {
    SetTab(stage.s, kPatternTab);
    stage.Settle();
}

TEST(DragStart, ALeftDragOfALetterIsTheDropperARightDragTheFade) {
    Stage stage;
    EXPECT_EQ(DragFrom(stage, "Letr_1"), (DragSource{"Letr", 1, "Dropper~~1"}));
    EXPECT_EQ(DragFrom(stage, "Letr_4"), (DragSource{"Letr", 4, "Dropper~~4"}));
    EXPECT_EQ(DragFrom(stage, "Letr_1", Qt::RightButton), (DragSource{"Letr", 1, "4"}));
    EXPECT_EQ(DragFrom(stage, "Letr_1", Qt::MiddleButton), std::nullopt);
}

TEST(DragStart, ALetterDraggedWithTheRightButtonAndDroppedFadesTheTwoLoopTracks) {
    Stage stage;
    stage.Fill(0);
    stage.Fill(2);
    const auto source = DragFrom(stage, "Letr_0", Qt::RightButton);
    ASSERT_TRUE(source);
    stage.DropControl("Letr_2", *source);
    EXPECT_EQ(stage.s.Run[0].FadeState, kFalling);
    EXPECT_EQ(stage.s.Run[2].FadeState, kRising);
}

TEST(DragStart, MeanwhileTheStatusLineSaysWhatADropDoes) {
    Stage stage;
    QWidget& letter = *stage.Form->findChild<QWidget*>("Letr_1");
    ShowStatus(stage.s, "");
    {
        const DropWordsShown shown(stage.s, letter, "drop on a Letter");
        EXPECT_EQ(stage.s.StatusText, "drop on a Letter");
    }
    EXPECT_EQ(stage.s.StatusText, "");
    {
        const DropWordsShown shown(stage.s, letter, "drop on a Letter");
        ShowStatus(stage.s, "a report");
    }
    EXPECT_EQ(stage.s.StatusText, "a report");
    ASSERT_TRUE(DragFrom(stage, "Letr_1"));
    EXPECT_FALSE(stage.s.StatusText.starts_with("drop on "));
}

TEST(DragStart, WhatStoodInTheStatusLineComesBackAfterIt) {
    Stage stage;
    QWidget& letter = *stage.Form->findChild<QWidget*>("Letr_1");
    ShowStatus(stage.s, "a report");
    { const DropWordsShown shown(stage.s, letter, "drop on a Letter"); }
    EXPECT_EQ(stage.s.StatusText, "a report");
    DescribedOf(letter)->ShowHint(0, false);
    const std::string hint = stage.s.StatusText;
    ASSERT_NE(hint, "a report");
    { const DropWordsShown shown(stage.s, letter, "drop on a Letter"); }
    EXPECT_EQ(stage.s.StatusText, "") << "the pointer is elsewhere";
    letter.setAttribute(Qt::WA_UnderMouse);
    DescribedOf(letter)->ShowHint(0, false);
    { const DropWordsShown shown(stage.s, letter, "drop on a Letter"); }
    EXPECT_EQ(stage.s.StatusText, hint);
    DescribedOf(letter)->TakeHintAway();
    EXPECT_EQ(stage.s.StatusText, "") << "it goes with the pointer";
}

TEST(DragStart, AReportOfBeforeDoesNotComeBackAfterADropButAHintDoes) {
    Stage stage;
    QWidget& letter = *stage.Form->findChild<QWidget*>("Letr_1");
    ShowStatus(stage.s, "a report");
    {
        DropWordsShown shown(stage.s, letter, "drop on a Letter");
        shown.Dropped();
    }
    EXPECT_EQ(stage.s.StatusText, "");
    letter.setAttribute(Qt::WA_UnderMouse);
    DescribedOf(letter)->ShowHint(0, false);
    const std::string hint = stage.s.StatusText;
    ASSERT_NE(hint, "");
    {
        DropWordsShown shown(stage.s, letter, "drop on a Letter");
        shown.Dropped();
    }
    EXPECT_EQ(stage.s.StatusText, hint);
}

TEST(DragStart, TheWordsOfADropAreThoseOfWhatIsDragged) {
    EXPECT_EQ(DropWords({"Letr", 3, kFadeTag}),
              "drop on another LoopTrack: cross-fades D with it; on D: fades D in or out");
    EXPECT_EQ(DropWords({"Letr", 1, "Dropper~~1"}),
              "drop on a Letter: B takes its Vol, Pan, Freq & Mode; on a Sound: B takes its Vol");
    EXPECT_EQ(DropWords({"PosBall", 0, kFadeTag}),
              "drop on another LoopTrack: cross-fades A with it; on A: fades A in or out");
    EXPECT_EQ(DropWords({"StatusBar1", 0, std::string(kHelpDragName)}), "drop on a Control: opens its Page of Help");
    EXPECT_EQ(DropWords({"Eraser", 0, ""}), "drop on a Pattern: resets it");
    EXPECT_EQ(DropWords({"Browse", 0, ""}), "");
    std::set<std::string> words;
    for (const char* name : {"PickFile", "PickDir", "ClipBoardList", "HistoryList", "DropDown", "Eraser", "Patterns",
                             "AllTiming", "CloneTime", "PatternGraph", "TabControl"}) {
        const std::string one = DropWords({name, 0, ""});
        EXPECT_TRUE(one.starts_with("drop on ")) << name;
        words.insert(one);
    }
    EXPECT_EQ(words.size(), 7U);  // what copies patterns and timing has one text
}

TEST(DragStart, FramesLabelsAndEraserOfThePatternTabAreDraggedWithAnyButton) {
    struct Start {
        const char* Name;
        QPointF Place;  ///< where nothing else lies over it
        DragSource Source;
    };
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        Stage stage;
        OpenPatterns(stage);
        for (const Start& start : {Start{"Patterns", {20, 8}, {"Patterns", 0, ""}},
                                   {"AllTiming", {30, 10}, {"AllTiming", 0, ""}},
                                   {"CloneTime_0", {40, 10}, {"CloneTime", 0, ""}},
                                   {"CloneTime_1", {40, 10}, {"CloneTime", 1, ""}},
                                   {"CloneTime_2", {40, 10}, {"CloneTime", 2, ""}},
                                   {"Eraser", {30, 20}, {"Eraser", 0, ""}}}) {
            SCOPED_TRACE(start.Name);
            EXPECT_EQ(DragFrom(stage, start.Name, start.Place, button), start.Source) << button;
        }
    }
}

TEST(DragStart, ARightDragOfAGraphCopiesItAndDrawsNothing) {
    Stage stage;
    OpenPatterns(stage);
    for (Row row = 0; row < kPatternRows; ++row) {
        const std::string name = "PatternGraph_" + std::to_string(row);
        const PatternBlock before = stage.s.Set[0].Pattern[row];
        EXPECT_EQ(DragFrom(stage, name.c_str(), Qt::RightButton), (DragSource{"PatternGraph", row, ""}));
        EXPECT_EQ(stage.s.Set[0].Pattern[row], before);
    }
    EXPECT_EQ(DragFrom(stage, "PatternGraph_0"), std::nullopt);
}

TEST(DragStart, ARightDragOfTheTabsCopiesTheSequenceWhilePtrnIsOpen) {
    Stage stage;
    EXPECT_EQ(DragFrom(stage, "Tab_2", Qt::RightButton), std::nullopt);
    OpenPatterns(stage);
    const DragSource sequence{"TabControl", 0, ""};
    EXPECT_EQ(DragFrom(stage, "Tab_2", Qt::RightButton), sequence);
    EXPECT_EQ(DragFrom(stage, "Tab_0", Qt::RightButton), sequence);
    EXPECT_EQ(DragFrom(stage, "TabControl", {600, 12}, Qt::RightButton), sequence);
    EXPECT_EQ(DragFrom(stage, "PatternPage", {300, 300}, Qt::RightButton), sequence);
    EXPECT_EQ(DragFrom(stage, "PatternPage", {300, 300}), std::nullopt);
    EXPECT_EQ(stage.s.ActiveTab, kPatternTab);
    SetTab(stage.s, kOptionTab);
    EXPECT_EQ(DragFrom(stage, "OptionPage", {300, 300}, Qt::RightButton), std::nullopt);
    EXPECT_EQ(DragFrom(stage, "OptionSubTab_2", Qt::RightButton), std::nullopt);
}

TEST(DragStart, AnEntryOfThePaletteIsDraggedAndActsWhereItIsDropped) {
    Stage stage;
    stage.Fill(0);
    stage.Fill(2);
    stage.Click("DropDown_0");
    auto* list = stage.Form->findChild<QListWidget*>("HistoryList");
    const QPoint entry = list->viewport()->mapTo(stage.Form.get(), list->visualItemRect(list->item(1)).center());
    const QPointF place = list->mapFrom(stage.Form.get(), entry);
    EXPECT_EQ(DragFrom(stage, "HistoryList", place), (DragSource{"HistoryList", 0, ""}));
    EXPECT_EQ(stage.s.Run[0].Loaded, True);
    stage.DropControl("SndDisp_2", {"HistoryList", 0, ""});
    EXPECT_EQ(stage.s.Run[2].Loaded, False);
    EXPECT_EQ(stage.s.Run[0].Loaded, True);
}

TEST(DragStart, TheGripOfANameIsDraggedAndWhatLiesBelowItIsNot) {
    Stage stage;
    stage.Fill(3);
    EXPECT_EQ(DragFrom(stage, "DropDown_3", {60, 4}), (DragSource{"DropDown", 3, ""}));
    EXPECT_EQ(DragFrom(stage, "DropDown_3", {60, 15}), std::nullopt);
}

struct Pictured : test::Browser {
    Pictured() {
        s.Clips.List = {"one", "two"};
        s.Clips.Selected = 1;
        s.HistoryEntries = {"<Close>", "<Empty Looptrack>", "<Reverse Looptrack>", "hat"};
        s.HistoryChoice = 3;
        s.Bins[1].Selected = 0;
        s.CurrentLoop = 1;
    }
    std::string Name(const DragSource& source) { return DragName(s, source); }
};

TEST(DragPicture, NamesWhatIsDragged) {
    Pictured stage;
    stage.Fill(2);
    EXPECT_EQ(stage.Name({"DropDown", 2, ""}), "one");
    EXPECT_EQ(stage.Name({"DropDown", 0, ""}), "LoopTrack A");
    EXPECT_EQ(stage.Name({"DropDown", 4, ""}), "LoopTrack Z");
    EXPECT_EQ(stage.Name({"HistoryList", 0, ""}), "hat");
    EXPECT_EQ(stage.Name({"PickFile", 1, ""}), stage.s.Bins[1].Rows[0].Name);
    EXPECT_EQ(stage.Name({"PickDir", 1, ""}), stage.s.Bins[1].Caption);
    EXPECT_EQ(stage.Name({"ClipBoardList", 0, "1"}), "two");
    EXPECT_EQ(stage.Name({"Eraser", 0, ""}), "Eraser");
    EXPECT_EQ(stage.Name({"Patterns", 0, ""}), "Patterns of B");
    EXPECT_EQ(stage.Name({"AllTiming", 0, ""}), "Timing of B");
    EXPECT_EQ(stage.Name({"CloneTime", 2, ""}), "Swing of B");
    EXPECT_EQ(stage.Name({"PatternGraph", 1, ""}), "Frequency pattern of B");
    EXPECT_EQ(stage.Name({"TabControl", 0, ""}), "Patterns & Timing of B");
    stage.s.Bins[1].Selected = -1;
    stage.s.Clips.Selected = -1;
    EXPECT_EQ(stage.Name({"PickFile", 1, ""}), "");
    EXPECT_EQ(stage.Name({"ClipBoardList", 0, "1"}), "");
}

TEST(DragPicture, DropperFadeAndLabelsAreSmallAndEachIsAnother) {
    Pictured stage;
    std::vector<QImage> pictures;
    for (const DragSource& source : {DragSource{"Letr", 0, "Dropper~~0"},
                                     {"Letr", 1, "Dropper~~1"},
                                     {"Letr", 0, "4"},
                                     {"PosBall", 1, "4"},
                                     {"HistoryList", 0, ""},
                                     {"Patterns", 0, ""},
                                     {"TabControl", 0, ""}}) {
        SCOPED_TRACE(source.Name);
        const QImage picture = DragPicture(stage.s, source).toImage();
        EXPECT_LE(picture.width(), 240);
        EXPECT_LE(picture.height(), 34);
        for (const QImage& other : pictures) EXPECT_NE(picture, other);
        pictures.push_back(picture);
    }
    EXPECT_EQ(DragPicture(stage.s, {"PosBall", 0, "4"}).toImage(), pictures[2]);
}

TEST(DragPicture, ALongNameIsShortenedAndAFineScreenGetsAFinePicture) {
    Pictured stage;
    stage.s.HistoryEntries[3] = std::string(255, 'x');
    const QPixmap label = DragPicture(stage.s, {"HistoryList", 0, ""});
    EXPECT_LE(label.width(), 240);
    const QPixmap fine = DragPicture(stage.s, {"HistoryList", 0, ""}, 2);
    EXPECT_EQ(fine.width(), 2 * label.width());
    EXPECT_EQ(fine.deviceIndependentSize(), label.deviceIndependentSize());
}

/// The picture of the drag that a gesture starts.
QImage PictureOf(QWidget& from, const std::function<void()>& gesture) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QImage seen;
    QTimer catcher;
    catcher.callOnTimeout([&] {
        const auto* drag = from.findChild<QDrag*>();
        if (drag == nullptr || !seen.isNull()) return;
        seen = drag->pixmap().toImage();
        QDrag::cancel();
    });
    catcher.start(0);
    gesture();
    // A drag that ended by itself is deleted when the event loop runs again.
    const auto* over = from.findChild<QDrag*>();
    if (seen.isNull() && over != nullptr) seen = over->pixmap().toImage();
    QCoreApplication::processEvents();
    return seen;
}

TEST(DragPicture, GoesWithThePointer) {
    Pictured stage;
    QWidget& letter = *stage.At("Letr_1");
    EXPECT_EQ(PictureOf(letter,
                        [&] {
                            Pull(letter, {15, 15}, Qt::LeftButton);
                        }),
              DragPicture(stage.s, {"Letr", 1, "Dropper~~1"}).toImage());
    EXPECT_EQ(PictureOf(letter,
                        [&] {
                            Pull(letter, {15, 15}, Qt::RightButton);
                        }),
              DragPicture(stage.s, {"Letr", 1, "4"}).toImage());

    QWidget& bin = stage.Part("PickFile_1");
    const QImage sample = PictureOf(bin, [&] { Pull(bin, {bin.width() - 25.0, 12}, Qt::LeftButton); });
    EXPECT_EQ(sample, DragPicture(stage.s, {"PickFile", 1, ""}).toImage());

    stage.OpenTab(3);
    stage.Screen.ShowClips();
    auto& clips = dynamic_cast<QListWidget&>(stage.Part("ClipBoardList"));
    const QPointF second = clips.visualItemRect(clips.item(1)).center();
    const QImage clip = PictureOf(clips, [&] { Pull(*clips.viewport(), second, Qt::LeftButton); });
    EXPECT_EQ(clip, DragPicture(stage.s, {"ClipBoardList", 0, "1"}).toImage());
}

}  // namespace
}  // namespace marvolin
