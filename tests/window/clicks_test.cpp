// A press is not a drop: what a click and a double click without movement change, and in which rows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QListWidget>

#include "performance/drops/palette.h"
#include "whole_hand.h"

namespace marvolin {
namespace {

using test::Changed;
using test::FactsOf;
using test::Spot;
using test::WholeHand;
using testing::ElementsAreArray;
using testing::IsEmpty;

// In the stage, A and B are a band, A and C are selected; the modes of A to D are One Shot, Loop, Track and Drum, the
// volumes 100 to 103, the pans 300 to 303, the frequencies 900 to 903, the wires 1 to 4. D is alone.
using ClickFacts = std::vector<std::string>;

struct Clicked {
    const char* Control;
    Qt::MouseButton Button;
    ClickFacts Click;
    ClickFacts DoubleClick;
    QPointF Place{0.5, 0.5};  ///< shares of the control
};

std::string NameOf(const testing::TestParamInfo<Clicked>& info) {
    return std::string(info.param.Control) + "Button" + std::to_string(info.param.Button) + "At" +
           std::to_string(static_cast<int>(info.param.Place.x() * 100)) + "x" +
           std::to_string(static_cast<int>(info.param.Place.y() * 100));
}

/// A place on a control by shares of its size; in a list its last entry, in the tree its folder.
Spot SpotAt(WholeHand& hand, QWidget& widget, QPointF place) {
    if (qobject_cast<QAbstractItemView*>(&widget) != nullptr) return hand.SpotOn(widget);
    const QPointF at(widget.width() * place.x(), widget.height() * place.y());
    return {&widget, widget.mapTo(widget.window(), at)};
}

class Click : public testing::TestWithParam<Clicked> {
protected:
    /// What is different in the session and in what the windows show, and what was done with files.
    ClickFacts After(const std::function<void(const Spot&)>& act) {
        hand_.Begin();
        QWidget& widget = hand_.Named(GetParam().Control);
        hand_.Reveal(widget);
        const auto before = FactsOf(hand_.s);
        const ClickFacts shown = hand_.Shown();
        act(SpotAt(hand_, widget, GetParam().Place));
        hand_.FinishDrags();
        EXPECT_THAT(hand_.Drags, IsEmpty());
        ClickFacts changed = Changed(before, FactsOf(hand_.s));
        const std::string own = hand_.Own.Path() + "/";
        for (std::string& fact : changed) {
            if (const auto at = fact.find(own); at != std::string::npos) fact.erase(at, own.size());
        }
        AddMissing(shown, hand_.Shown(), "no ", changed);
        AddMissing(hand_.Shown(), shown, "", changed);
        for (const std::string& file : hand_.Store.Log) changed.push_back(file.substr(0, file.find(' ')));
        return changed;
    }
    WholeHand hand_;

private:
    /// Adds what is in `all` and not in `some`.
    static void AddMissing(const ClickFacts& all, const ClickFacts& some, const std::string& prefix,
                           ClickFacts& changed) {
        for (const std::string& each : all) {
            if (std::find(some.begin(), some.end(), each) == some.end()) changed.push_back(prefix + each);
        }
    }
};

TEST_P(Click, ChangesNoMoreThanAClickDoes) {
    EXPECT_THAT(After([&](const Spot& spot) { hand_.ClickAt(spot, GetParam().Button); }),
                ElementsAreArray(GetParam().Click));
}

TEST_P(Click, TwiceChangesNoMoreThanADoubleClickDoes) {
    EXPECT_THAT(After([&](const Spot& spot) { hand_.DoubleClickAt(spot, GetParam().Button); }),
                ElementsAreArray(GetParam().DoubleClick));
}

constexpr Qt::MouseButton kLeft = Qt::LeftButton;
constexpr Qt::MouseButton kRight = Qt::RightButton;

// What the load of a sample sets by itself, with the boxes as they are.
const ClickFacts kLoadedFromThePalette = {"A.FileName marvolin browse test/one.wav",
                                          "A.Hz 1000",
                                          "A.Level 500",
                                          "A.Line 500",
                                          "A.Pan 500",
                                          "A.Playing -1",
                                          "A.StepDuration 100",
                                          "A.Vol 500",
                                          "B.FileName marvolin browse test/one.wav",
                                          "B.Hz 1000",
                                          "B.Level 500",
                                          "B.Line 500",
                                          "B.Pan 500",
                                          "B.Playing -1",
                                          "B.StepDuration 100",
                                          "B.Vol 500",
                                          "ThinList AB",
                                          "Z.Playing -1",
                                          "no HistoryList"};
const ClickFacts kLoadedFromTheBin = {"Bin1.Selected 1", "D.FileName marvolin browse test/three.wav",
                                      "D.Hz 1000",       "D.Level 500",
                                      "D.Line 500",      "D.Pan 500",
                                      "D.Playing -1",    "D.StepDuration 100",
                                      "D.Vol 500",       "ThinList D"};

// A click on a knob sets its gang to the value of the knob, as any release does.
const Clicked kClicks[] = {
    {"Letr_0", kLeft, {}, {"A.Thinnable 0"}},
    {"Letr_0", kRight, {}, {}},
    {"Letr_0", Qt::MiddleButton, {}, {}},
    {"Letr_4", kLeft, {}, {}},
    {"Letr_4", kRight, {}, {}},
    {"LoopIt_0", kLeft, {}, {"A.PlayMode 1"}},
    {"LoopIt_0", kRight, {}, {}},
    {"LoopIt_4", kLeft, {}, {}},
    {"LoopIt_5", kLeft, {}, {"A.PlayMode 1"}},
    {"ChannelFlag_0", kLeft, {"A.Channel 3", "B.Channel 3"}, {"B.Channel 1"}, {0.1, 0.5}},
    {"ChannelFlag_0", kLeft, {}, {}, {0.5, 0.5}},
    {"ChannelFlag_0", kLeft, {"A.Channel 2"}, {"B.Channel 1"}, {0.9, 0.5}},
    {"ChannelFlag_0", kRight, {"A.Channel 5", "B.Channel 5"}, {"B.Channel 1"}},
    {"ChannelFlag_3", kLeft, {"D.Channel 2"}, {}, {0.1, 0.5}},
    {"ChannelFlag_4", kLeft, {"A.Channel 2", "C.Channel 2", "Z.Channel 2"}, {"C.Channel 1"}, {0.9, 0.5}},
    {"ChannelFlag_4", kLeft, {}, {}, {0.5, 0.5}},
    {"VolKnob_0",
     kLeft,
     {"B.Level 100", "B.Line 100", "B.Vol 100"},
     {"A.Level 0", "A.Line 0", "A.Vol 0", "B.Level 0", "B.Line 0", "B.Vol 0"}},
    {"VolKnob_3", kLeft, {}, {"D.Level 0", "D.Line 0", "D.Vol 0"}},
    {"VolKnob_4",
     kLeft,
     {"A.Level 500", "A.Line 500", "A.Vol 500", "C.Level 500", "C.Line 500", "C.Vol 500"},
     {"A.Level 0", "A.Line 0", "A.Vol 0", "C.Level 0", "C.Line 0", "C.Vol 0", "Z.Level 0", "Z.Line 0", "Z.Vol 0"}},
    {"VolKnob_5", kLeft, {}, {"Master.Vol 0"}},
    {"PanKnob_0", kLeft, {"B.Pan 300"}, {"A.Pan 500", "B.Pan 500"}},
    {"HzKnob_0", kRight, {"B.Hz 900"}, {"B.Hz 900"}},
    {"Play_0", kLeft, {"A.Playing -1", "B.Playing -1", "ThinList AB", "Z.Playing -1"}, {}},
    {"Play_4", kLeft, {"A.Playing -1", "C.Playing -1", "ThinList AC", "Z.Playing -1"}, {}},
    {"SndDisp_0",
     kLeft,
     {"A.Level 250", "A.Line 250", "A.Vol 250", "B.Level 250", "B.Line 250", "B.Vol 250"},
     {"A.Level 250", "A.Line 250", "A.Vol 250", "B.Level 250", "B.Line 250", "B.Vol 250"},
     {0.5, 0.2}},
    {"SndDisp_3",
     kLeft,
     {"D.Level 250", "D.Line 250", "D.Vol 250"},
     {"D.Level 250", "D.Line 250", "D.Vol 250"},
     {0.5, 0.2}},
    {"Selected_1", kLeft, {"B.Selected -1"}, {"B.Selected -1"}},
    {"Selected_0", kRight, {"A.Selected 0"}, {"A.Selected 0"}},
    {"Thumb_1", kLeft, {"CurrentLoop 1"}, {"ActiveTab 2", "CurrentLoop 1"}},
    {"SelectorRadio_1", kLeft, {"Band0.Controlled -1"}, {"Band0.Controlled -1", "SelectionControlled 0"}},
    {"DropDown_0", kLeft, {}, {}, {0.5, 0.1}},
    {"DropDown_0", kLeft, {"HistoryList"}, {"HistoryList"}, {0.5, 0.6}},
    {"PosBall_4", kRight, {}, {}},
    {"PatternGraph_0", kRight, {}, {}},
    {"Patterns", kLeft, {}, {}, {0.03, 0.03}},
    {"AllTiming", kRight, {}, {}, {0.3, 0.03}},
    {"CloneTime_1", kLeft, {}, {}},
    {"Eraser", kLeft, {}, {}},
    {"TabControl", kRight, {}, {}, {0.999, 0.5}},
    {"Tab_2", kRight, {}, {}},
    {"NSteps", kLeft, {}, {}},
    {"TimeDigit_2", kLeft, {}, {}},
    {"Limiter", kLeft, {}, {}},
    // Lists that open over the window; a click is on their last entry.
    {"HistoryList", kLeft, kLoadedFromThePalette, kLoadedFromThePalette},
    {"HistoryList", kRight, kLoadedFromThePalette, kLoadedFromThePalette},
    {"SlctGroup",
     kLeft,
     {"A.Selected 0", "C.Selected 0", "no SlctGroup"},
     {"A.Selected 0", "C.Selected 0", "no SlctGroup"}},
    {"SlctGroup", kRight, {}, {}},
    {"QuickLoad", kLeft, {"no QuickLoad", "Load"}, {"no QuickLoad", "Load"}},
    {"QuickLoad", kRight, {"no QuickLoad", "Load"}, {"no QuickLoad", "Load"}},
    {"FolderTreeview1", kLeft, {}, {}},
    {"FolderTreeview1", kRight, {"no FolderTreeview1"}, {"no FolderTreeview1"}},
    // The browser: the first bin is to be dragged from, the second loads into D.
    {"PickFile_0", kLeft, {"Bin0.Selected 1"}, {"Bin0.Selected 1"}, {0.2, 0.1}},
    {"PickFile_0", kRight, {"Bin0.Selected 1"}, {"Bin0.Selected 1"}, {0.2, 0.1}},
    {"PickFile_1", kLeft, kLoadedFromTheBin, kLoadedFromTheBin, {0.2, 0.1}},
    {"PickFile_1", kRight, {"Bin1.Selected 1", "D.Playing -1", "ThinList D"}, {"Bin1.Selected 1"}, {0.2, 0.1}},
    {"PickDir_0", kLeft, {"FolderTreeview1"}, {"FolderTreeview1"}},
    {"PickDir_0", kRight, {"FolderTreeview1"}, {"FolderTreeview1"}},
    {"ClipBoardList", kLeft, {}, {}},
    {"ClipBoardList", kRight, {}, {}},
    {"Trash", kLeft, {}, {}},
    // Save/Open, which stays open on this stage.
    {"ElementsFold", kLeft, {}, {}},
    {"Elements_0_3", kLeft, {"Elements_0_3"}, {}, {0.05, 0.5}},
    {"Elements_0_3", kRight, {}, {}, {0.05, 0.5}},
    {"SaveIt", kLeft, {"Save"}, {"Save", "Save"}},
    {"SaveIt", kRight, {}, {}},
    {"SaveItAs", kLeft, {"dialogue 1"}, {"dialogue 1", "dialogue 2"}},
    {"Reload", kLeft, {"Load"}, {"Load", "Load"}},
    {"OpenIt", kLeft, {"dialogue 1"}, {"dialogue 1", "dialogue 2"}},
};

INSTANTIATE_TEST_SUITE_P(EachKindOfControl, Click, testing::ValuesIn(kClicks), NameOf);

TEST(DoubleClick, OnAnEntryThatClosesItsListReachesNothingBeneath) {
    WholeHand hand;
    for (const char* name : {"HistoryList", "SlctGroup", "QuickLoad"}) {
        auto& list = dynamic_cast<QListWidget&>(hand.Named(name));
        for (int entry = 0; entry < 4; ++entry) {
            for (const int x : {6, 40, 70, 90, 110}) {
                SCOPED_TRACE(std::string(name) + " " + std::to_string(entry) + " " + std::to_string(x));
                hand.Begin();
                hand.Reveal(list);
                if (entry >= list.count() || entry == kHistoryEmpty) continue;  // an empty row would stay empty
                const QRect row = list.visualItemRect(list.item(entry));
                const Spot spot{&list, QPointF(list.viewport()->mapTo(list.window(), QPoint(x, row.center().y())))};
                hand.ClickAt(spot);
                const auto once = FactsOf(hand.s);
                ASSERT_THAT(hand.OpenLists(), IsEmpty());
                hand.Begin();
                hand.Reveal(list);
                hand.DoubleClickAt(spot);
                hand.FinishDrags();
                EXPECT_THAT(Changed(once, FactsOf(hand.s)), IsEmpty());
                EXPECT_THAT(hand.OpenLists(), IsEmpty());
            }
        }
    }
}

TEST(DoubleClick, ASlowSecondClickOrOneElsewhereReachesWhatIsBeneathTheClosedList) {
    WholeHand hand;
    hand.Begin();
    auto& list = dynamic_cast<QListWidget&>(hand.Named("SlctGroup"));
    for (const bool slow : {true, false}) {
        hand.Reveal(list);
        hand.ClickAt(hand.SpotOn(list));
        ASSERT_THAT(hand.OpenLists(), IsEmpty());
        const Spot spot = hand.SpotOn(hand.Named("Thumb_1"));
        if (!slow) QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        hand.s.CurrentLoop = 0;
        hand.ClickAt(spot);
        EXPECT_EQ(hand.s.CurrentLoop, 1);
    }
}

/// The sources of drags, a button that drags each, and where.
struct Source {
    const char* Name;
    Qt::MouseButton Button;
    QPointF Place{0.5, 0.5};
};
const Source kSources[] = {{"Letr_0", Qt::LeftButton},
                           {"Letr_0", Qt::RightButton},
                           {"Letr_4", Qt::LeftButton},
                           {"DropDown_0", Qt::LeftButton, {0.5, 0.1}},
                           {"PosBall_1", Qt::RightButton},
                           {"PatternGraph_1", Qt::RightButton},
                           {"Patterns", Qt::RightButton, {0.03, 0.03}},
                           {"AllTiming", Qt::LeftButton, {0.3, 0.03}},
                           {"CloneTime_1", Qt::RightButton},
                           {"Eraser", Qt::LeftButton},
                           {"TabControl", Qt::RightButton, {0.999, 0.02}},
                           {"Tab_2", Qt::RightButton},
                           {"PickDir_0", Qt::LeftButton},
                           {"PickFile_0", Qt::LeftButton, {0.2, 0.1}},
                           {"PickFile_1", Qt::RightButton, {0.8, 0.1}},
                           {"ClipBoardList", Qt::LeftButton},
                           {"HistoryList", Qt::LeftButton},
                           {"FolderTreeview1", Qt::LeftButton}};

TEST(Drags, BeginAtTheDragDistanceAndNotBefore) {
    WholeHand hand;
    for (const Source& source : kSources) {
        SCOPED_TRACE(source.Name);
        for (const int way : {0, QApplication::startDragDistance() - 1, QApplication::startDragDistance()}) {
            hand.Begin();
            QWidget& widget = hand.Named(source.Name);
            hand.Reveal(widget);
            const Spot spot = SpotAt(hand, widget, source.Place);
            hand.PressAt(spot, source.Button);
            hand.MoveTo(spot, QPointF(way, 0));
            hand.ReleaseAt(spot, source.Button, QPointF(way, 0));
            hand.FinishDrags();
            const bool far = way >= QApplication::startDragDistance();
            ASSERT_EQ(hand.Drags.size(), far ? 1U : 0U) << way;
            if (far) {
                // A caption of the tabs is dragged as the tabs.
                const std::string name = source.Name == std::string("Tab_2") ? "TabControl" : source.Name;
                EXPECT_TRUE(name.starts_with(hand.Drags[0].Name));
            }
        }
    }
}

}  // namespace
}  // namespace marvolin
