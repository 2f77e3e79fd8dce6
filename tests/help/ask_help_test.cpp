// The question mark and F1: the page of whatever is asked about, and nothing else happens.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "all_forms.h"
#include "core/files/paths.h"
#include "core/help.h"
#include "fakes/file_bytes.h"
#include "hand.h"
#include "performance/tabs.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/session_writer.h"
#include "whole_hand.h"
#include "window/descriptions/described.h"
#include "window/help/help_asker.h"
#include "window/toolkit/drag.h"
#include "window/toolkit/one_button.h"

namespace marvolin {
namespace {

using test::AllForms;
using test::FactsOf;
using test::Stage;
using test::WholeHand;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kToldHelpFile = "/p/Help/marvolin.chm";

const DragSource kQuestionMark{"StatusBar1", 0, "ForHelp~~"};

/// Drags `source` to a place of a window of the desktop and lets it go there. False when the pointer promises no drop.
bool DropInWindow(QWidget& form, QPointF place, const DragSource& source) {
    const auto data = ToMimeData(source);
    QWindow& window = *form.windowHandle();
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    QDragMoveEvent move(place.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&window, &move);
    if (!enter.isAccepted() || !move.isAccepted()) return false;
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    return drop.isAccepted();
}

std::string Opened(std::int32_t topic) { return "ShowHelpTopic " + std::to_string(topic); }

/// Everything of the session that is set, shown or saved.
std::string Whole(Session& s, const std::string& folder) {
    std::string whole;
    for (const auto& [name, value] : FactsOf(s)) whole += name + "=" + value + "\n";
    const std::string folderBefore = s.CurrentFolder;
    const std::string path = JoinPath(folder, "whole.mvn");
    clsSwitchRecord all;
    all.SetSwitch(true);
    EXPECT_TRUE(SaveSession(s, path, LoopsSaved::All, all));
    EXPECT_EQ(s.CurrentFolder, folderBefore);
    whole += test::ReadBytes(path) + s.StatusText + s.ReadoutText + s.Title + s.CurrentFile + s.SessionName;
    for (const SampleBin& bin : s.Bins) whole += bin.Folder + std::to_string(bin.Selected);
    for (const std::string& entry : s.HistoryEntries) whole += entry;
    return whole + std::to_string(s.QuickLoadTag) + std::to_string(s.HistoryChoice) + s.TreeFolder;
}

struct Asked : WholeHand {
    Asked() {
        s.HelpFile = kToldHelpFile;
        Begin();
    }
    /// All widgets of the windows that have a row of the table.
    std::vector<QWidget*> All() {
        std::vector<QWidget*> all;
        for (QWidget* window : std::initializer_list<QWidget*>{Form.get(), &Window, &Save}) {
            all.push_back(window);
            for (QWidget* widget : window->findChildren<QWidget*>()) {
                if (DescribedOf(*widget) != nullptr) all.push_back(widget);
            }
        }
        return all;
    }
    std::int32_t TopicOf(const char* name) { return DescribedOf(Named(name))->Row().Topic; }
};

TEST(AskHelp, AQuestionMarkDroppedOnAnyControlAsksForItsPageAndChangesNothing) {
    Asked stage;
    stage.LookAway();
    std::set<std::string> covered;
    std::size_t asked = 0;
    const std::string whole = Whole(stage.s, stage.Own.Path());
    for (QWidget* widget : stage.All()) {
        const std::string name = widget->objectName().toStdString();
        SCOPED_TRACE(name);
        stage.Begin();
        stage.Reveal(*widget);
        const test::Spot spot = stage.SpotOn(*widget);
        if (spot.Widget == nullptr || !widget->isVisible()) {
            covered.insert(name);
            continue;
        }
        const test::Facts before = FactsOf(stage.s);
        const std::vector<std::string> lists = stage.OpenLists();
        stage.Desk.Log.clear();
        stage.Forms.Log.clear();
        stage.Sound.Log.clear();
        EXPECT_TRUE(DropInWindow(*widget->window(), spot.Place, kQuestionMark));
        EXPECT_THAT(stage.Desk.Log, ElementsAre(Opened(DescribedOf(*widget)->Row().Topic)));
        EXPECT_THAT(test::Changed(before, FactsOf(stage.s)), IsEmpty());
        EXPECT_EQ(stage.OpenLists(), lists);
        EXPECT_THAT(stage.Forms.Log, IsEmpty());
        EXPECT_THAT(stage.Sound.Log, IsEmpty());
        EXPECT_THAT(stage.Desk.Boxes, IsEmpty());
        ++asked;
    }
    stage.Begin();
    EXPECT_EQ(Whole(stage.s, stage.Own.Path()), whole);
    EXPECT_GT(asked, 190U);
    // These show only where a sample is missing.
    for (Row row = 0; row < kLoopTracks; ++row) covered.erase("FindSample_" + std::to_string(row));
    // Other controls lie over all of these.
    for (const char* name :
         {"frmMain", "frmBrowse", "frmSave", "BrowsePages", "MixPadPage", "PatternPage", "OptionSubPage_0"})
        covered.erase(name);
    EXPECT_THAT(covered, IsEmpty());
}

TEST(AskHelp, AQuestionMarkDroppedWhereASampleIsMissingAsksForThePageOfItsName) {
    Asked stage;
    MissingSample missing;
    missing.Loop.Index = 1;
    missing.Loop.Set.FileName = "/gone/away.wav";
    KeepPlace(stage.s, missing);
    stage.Screen.ShowCaption(1);
    QWidget* find = stage.Form->findChild<QWidget*>("FindSample_1");
    ASSERT_TRUE(find != nullptr && find->isVisible());
    stage.Desk.Log.clear();
    EXPECT_TRUE(DropInWindow(*find->window(), find->mapTo(find->window(), find->rect().center()), kQuestionMark));
    EXPECT_THAT(stage.Desk.Log, ElementsAre(Opened(10025)));
}

TEST(AskHelp, AQuestionMarkAsksInEveryOtherFormAndDialogueToo) {
    AllForms forms;
    forms.s.HelpFile = kToldHelpFile;
    int asked = 0;
    forms.Each([&](const std::string& form, QWidget& window) {
        window.show();
        forms.Settle();
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const Described* described = DescribedOf(*widget);
            if (described == nullptr || !widget->isVisible()) continue;
            const QPoint place = widget->mapTo(&window, widget->rect().center());
            QWidget* hit = window.childAt(place);
            if (hit != widget && (hit == nullptr || hit->parentWidget() != widget)) continue;
            SCOPED_TRACE(form + " " + widget->objectName().toStdString());
            forms.Desk.Log.clear();
            const test::Facts before = FactsOf(forms.s);
            EXPECT_TRUE(DropInWindow(window, place, kQuestionMark));
            EXPECT_THAT(test::Changed(before, FactsOf(forms.s)), IsEmpty());
            EXPECT_THAT(forms.Desk.Log, Contains(Opened(HelpAsker::TopicAt(hit, hit->mapFrom(&window, place)))));
            if (hit == widget) {
                EXPECT_THAT(forms.Desk.Log, ElementsAre(Opened(described->Row().Topic)));
            }
            ++asked;
        }
    });
    EXPECT_GT(asked, 150);
}

TEST(AskHelp, ADisabledControlAnswersToo) {
    Stage stage;
    stage.s.HelpFile = kToldHelpFile;
    ASSERT_FALSE(stage.At("PanKnob_0")->isEnabled() && stage.At("Scripts")->isEnabled());
    for (const char* name : {"PanKnob_0", "Scripts"}) {
        stage.At(name)->setEnabled(false);
        stage.Desk.Log.clear();
        EXPECT_TRUE(DropInWindow(*stage.Form, stage.InWindow(name, stage.Middle(name)), kQuestionMark)) << name;
        EXPECT_THAT(stage.Desk.Log, ElementsAre(Opened(DescribedOf(*stage.At(name))->Row().Topic))) << name;
    }
}

TEST(AskHelp, AFailureIsToldAndTheDropStillDoesNothingElse) {
    Stage stage;
    stage.Fill(0);
    stage.s.HelpFile = kToldHelpFile;
    stage.Desk.HelpFails = true;
    const test::Facts before = FactsOf(stage.s);
    EXPECT_TRUE(DropInWindow(*stage.Form, stage.InWindow("SndDisp_0", {50, 20}), kQuestionMark));
    EXPECT_EQ(stage.Desk.LastBox(), "Error trying to open help file, File not found");
    EXPECT_FALSE(stage.s.HelpShown);
    EXPECT_THAT(test::Changed(before, FactsOf(stage.s)), IsEmpty());
}

TEST(AskHelp, WithoutAHelpFileADropDoesNothingAtAll) {
    Stage stage;
    EXPECT_TRUE(DropInWindow(*stage.Form, stage.InWindow("Letr_0", {5, 5}), kQuestionMark));
    EXPECT_THAT(stage.Desk.Log, IsEmpty());
    EXPECT_THAT(stage.Desk.Boxes, IsEmpty());
}

TEST(AskHelp, OtherDragsPassUntouched) {
    Stage stage;
    stage.s.HelpFile = kToldHelpFile;
    stage.s.Set[1].Vol = 77;
    EXPECT_TRUE(stage.DropControl("SndDisp_1", {"Letr", 0, "Dropper~~0"}));
    EXPECT_EQ(stage.s.Set[0].Vol, 77);
    EXPECT_FALSE(stage.DropControl("Browse", {"Letr", 0, "Dropper~~0"}));
    EXPECT_THAT(stage.Desk.Log, IsEmpty());
}

TEST(AskHelp, APressOnTheQuestionMarkOfEitherBarDragsItAtOnce) {
    WholeHand stage;
    stage.Begin();
    for (const char* name : {"StatusBar1", "BrowseStatusBar1"}) {
        SCOPED_TRACE(name);
        auto& bar = dynamic_cast<HelpBar&>(stage.Named(name));
        const QPoint panel = bar.HelpPanel().center();
        const auto press = [&](QPoint place) { QTest::mousePress(&bar, Qt::LeftButton, {}, place); };
        EXPECT_EQ(test::DragOf(bar, [&] { press(panel); }), kQuestionMark);
        EXPECT_EQ(test::DragOf(bar, [&] { press(QPoint(60, 10)); }), std::nullopt);
    }
}

/// Counts the releases that reach anything.
struct Releases : QObject {
    Releases() { qApp->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        Count += event->type() == QEvent::MouseButtonRelease ? 1 : 0;
        return false;
    }
    int Count = 0;
};

/// A loaded LoopTrack in each row, and a mouse by the desktop's window.
struct TwoButtons : Stage {
    TwoButtons() {
        for (Row row = 0; row < kLoopTracks; ++row) Fill(row);
    }
    QPoint On(const char* name) { return InWindow(name, Middle(name)); }
    void Down(QPoint place, Qt::MouseButton button) { QTest::mousePress(Form->windowHandle(), button, {}, place); }
    void Up(QPoint place, Qt::MouseButton button) { QTest::mouseRelease(Form->windowHandle(), button, {}, place); }
    void ClickOn(const char* name, Qt::MouseButton button) {
        Down(On(name), button);
        Up(On(name), button);
    }
};

TEST(OneButton, WhileSomethingIsDraggedPressAndReleaseOfAnotherReachNothing) {
    TwoButtons stage;
    const QPoint ground(4, stage.Form->height() - 60);
    const test::Facts before = FactsOf(stage.s);
    stage.Down(ground, Qt::LeftButton);
    {
        const OneButton only;
        QCoreApplication::processEvents();
        for (const char* name : {"SndDisp_0", "ChannelFlag_3", "LoopIt_2", "Tab_2"}) {
            stage.ClickOn(name, Qt::RightButton);
            stage.ClickOn(name, Qt::MiddleButton);
        }
        EXPECT_THAT(test::Changed(before, FactsOf(stage.s)), IsEmpty());
    }
    stage.Up(ground, Qt::LeftButton);
    EXPECT_EQ(stage.s.Run[0].FadeState, kNoFade);
    stage.ClickOn("SndDisp_0", Qt::RightButton);
    EXPECT_EQ(stage.s.Run[0].FadeState, kFalling);
}

TEST(OneButton, TheReleaseOfTheButtonThatBeganPasses) {
    TwoButtons stage;
    const QPoint play = stage.On("Play_0");
    stage.Down(play, Qt::LeftButton);
    const OneButton only;
    QCoreApplication::processEvents();
    stage.Up(play, Qt::RightButton);
    EXPECT_EQ(stage.s.Run[0].Playing, False);
    stage.Up(play, Qt::LeftButton);
    EXPECT_EQ(stage.s.Run[0].Playing, True);
}

TEST(OneButton, OfTwoButtonsThatAreDownOnlyTheHoldersReleasePasses) {
    TwoButtons stage;
    const QPoint place = stage.On("Play_0");
    stage.Down(place, Qt::LeftButton);
    stage.Down(place, Qt::RightButton);
    Described& play = *DescribedOf(*stage.At("Play_0"));
    EXPECT_EQ(play.Holder(), Qt::LeftButton);
    Releases seen;  // of several filters the last one comes first
    const OneButton only(play.Holder());
    QCoreApplication::processEvents();
    stage.Up(place, Qt::RightButton);
    EXPECT_EQ(seen.Count, 0);
    stage.Up(place, Qt::LeftButton);
    EXPECT_GT(seen.Count, 0);
    EXPECT_EQ(stage.s.Run[0].Playing, True);
}

TEST(AskHelp, TheQuestionMarkHasItsOwnPointer) {
    Stage stage;
    const QImage pointer = DragPicture(stage.s, kQuestionMark).toImage();
    EXPECT_LE(pointer.width(), 48);
    EXPECT_NE(pointer, DragPicture(stage.s, {"Letr", 0, "Dropper~~0"}).toImage());
    EXPECT_NE(pointer, DragPicture(stage.s, {"Letr", 0, "4"}).toImage());
    EXPECT_GT(qAlpha(pointer.pixel(2, 3)), 200);  // the tip of the arrow
}

TEST(AskHelp, TheQuestionMarkDroppedWhereItCameFromOpensTheContents) {
    Stage stage;
    stage.s.HelpFile = kToldHelpFile;
    auto& bar = dynamic_cast<HelpBar&>(*stage.At("StatusBar1"));
    EXPECT_TRUE(DropInWindow(*stage.Form, bar.mapTo(stage.Form.get(), bar.HelpPanel().center()), kQuestionMark));
    EXPECT_THAT(stage.Desk.Log, ElementsAre(Opened(kHelpContents)));
}

TEST(AskHelp, OptionHelpOpensTheHelpOnTheOptions) {
    Stage stage;
    stage.s.HelpFile = kToldHelpFile;
    stage.s.ActiveTab = kOptionTab;
    stage.Screen.ShowTab();
    stage.Click("OptionHelp");
    EXPECT_THAT(stage.Desk.Log, ElementsAre(Opened(10103)));
    EXPECT_TRUE(stage.s.HelpShown);
}

TEST(AskHelp, F1AsksAboutWhatIsUnderThePointer) {
    Asked stage;
    for (const char* name : {"VolKnob_2", "Browse", "StatusBar2", "PatternGraph_1", "PickFile_1", "OpenIt"}) {
        SCOPED_TRACE(name);
        QWidget& widget = stage.Named(name);
        stage.Begin();
        stage.Reveal(widget);
        stage.MoveTo(stage.SpotOn(widget), {});
        stage.Settle();
        stage.Desk.Log.clear();
        QTest::keyClick(widget.window(), Qt::Key_F1);
        EXPECT_THAT(stage.Desk.Log, ElementsAre(Opened(stage.TopicOf(name))));
    }
}

TEST(AskHelp, F1AsksAboutTheFocusThatTabHasMovedUntilThePointerMoves) {
    Stage stage;
    stage.s.HelpFile = kToldHelpFile;
    stage.Move("Browse", stage.Middle("Browse"));
    stage.At("VolKnob_1")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(stage.At("VolKnob_1"), Qt::Key_F1);
    stage.Move("Browse", stage.Middle("Browse") + QPointF(1, 0));
    QTest::keyClick(stage.At("VolKnob_1"), Qt::Key_F1);
    EXPECT_THAT(stage.Desk.Log, ElementsAre(Opened(10026), Opened(10003)));
}

TEST(AskHelp, F1InAnotherWindowThanThatUnderThePointerAsksAboutTheFocus) {
    Asked stage;
    stage.Reveal(stage.Named("VolKnob_1"));
    stage.Move("VolKnob_1", stage.Middle("VolKnob_1"));
    QWidget& open = stage.Named("OpenIt");
    QTest::keyClick(&open, Qt::Key_F1);
    EXPECT_THAT(stage.Desk.Log, Contains(Opened(stage.TopicOf("OpenIt"))));
    EXPECT_THAT(stage.Desk.Log, testing::Not(Contains(Opened(stage.TopicOf("VolKnob_1")))));
}

TEST(AskHelp, F1OverAnOpenListClosesItAndAsksAboutIt) {
    Asked stage;
    auto& list = dynamic_cast<QComboBox&>(stage.Named("PadType"));
    stage.Reveal(list);
    list.showPopup();
    stage.Settle();
    ASSERT_TRUE(list.view()->isVisible());
    QTest::keyClick(list.view(), Qt::Key_F1);
    EXPECT_FALSE(list.view()->isVisible());
    EXPECT_THAT(stage.Desk.Log, Contains(Opened(stage.TopicOf("PadType"))));
}

TEST(AskHelp, TheQuestionMarkSaysWhatItIsFor) {
    AllForms forms;
    const QString tip = "Drag and drop onto a control to get help on it";
    EXPECT_EQ(forms.At("StatusBar1")->toolTip(), tip);
    EXPECT_EQ(forms.Part("BrowseStatusBar1").toolTip(), tip);
}

TEST(AskHelp, F1AsksOnceWhileItIsHeldAndNotWithShift) {
    Stage stage;
    stage.s.HelpFile = kToldHelpFile;
    QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, "", true);
    QApplication::sendEvent(stage.At("VolKnob_1"), &held);
    QTest::keyClick(stage.At("VolKnob_1"), Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_THAT(stage.Desk.Log, IsEmpty());
}

TEST(AskHelp, APlaceThatIsNoControlBelongsToWhatIsAroundIt) {
    Stage stage;
    QWidget loose;
    EXPECT_EQ(HelpAsker::TopicAt(nullptr, {}), kHelpContents);
    EXPECT_EQ(HelpAsker::TopicAt(&loose, {}), kHelpContents);
    EXPECT_EQ(HelpAsker::TopicAt(stage.Form.get(), {}), 10001);
    const QWidget* viewport = stage.Form->findChild<QAbstractItemView*>("HistoryList")->viewport();
    EXPECT_EQ(HelpAsker::TopicAt(viewport, {}), 10032);
}

}  // namespace
}  // namespace marvolin
