#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QtTest/QTest>
#include <set>
#include <string>
#include <vector>

#include "all_forms.h"
#include "audio/play_modes.h"
#include "browser/destinations.h"
#include "core/routines.h"
#include "painted_texts.h"
#include "parameters/position.h"
#include "parameters/setters.h"
#include "performance/map/sound_map.h"
#include "performance/selection/selection.h"
#include "settings_stage.h"
#include "window/descriptions/described.h"
#include "window/descriptions/parts.h"

namespace marvolin {
namespace {

using test::AllForms;
using test::Stage;

struct Hinted {
    const char* Name;
    const char* Hint;
    QPointF Place = {0.5, 0.5};  ///< as shares of the control's width and height
};

void Expect(Stage& stage, const std::vector<Hinted>& controls) {
    for (const Hinted& one : controls) {
        SCOPED_TRACE(one.Name);
        const QWidget& widget = *stage.At(one.Name);
        ASSERT_TRUE(widget.isVisible());
        const QPointF place(one.Place.x() * widget.width(), one.Place.y() * widget.height());
        // From beside the control, where another hint or a report may have been shown.
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(stage.At(one.Name), &leave);
        stage.s.StatusText.clear();
        stage.Move(one.Name, place);
        EXPECT_EQ(stage.s.StatusText, one.Hint);
    }
}

TEST(Hints, APartWithoutAHintTakesTheHintOfThePartBesideItAway) {
    Stage stage;
    const QPointF size(stage.At("PlayStop")->width(), stage.At("PlayStop")->height());
    const auto move = [&](double share) { stage.Move("PlayStop", {size.x() / 2, size.y() * share}); };
    move(0.2);
    ASSERT_EQ(stage.s.StatusText, "clk Play All Sounds");
    move(0.5);
    EXPECT_EQ(stage.s.StatusText, "");
    move(0.8);
    ASSERT_EQ(stage.s.StatusText, "clk Stop All Sounds");
    ShowStatus(stage.s, "A report");
    move(0.5);
    EXPECT_EQ(stage.s.StatusText, "A report");
}

TEST(Hints, AReportStaysWhileThePointerMovesWithinTheControl) {
    Stage stage;
    const QPointF middle = stage.Middle("Play_1");
    stage.Move("Play_1", middle);
    ASSERT_EQ(stage.s.StatusText, "clk Toggle Play; rtclk Pause");
    ShowStatus(stage.s, "B plays at volume 0: Shift+B fades B in");
    stage.Move("Play_1", middle + QPointF(1, 0));
    EXPECT_EQ(stage.s.StatusText, "B plays at volume 0: Shift+B fades B in");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(stage.At("Play_1"), &leave);
    stage.Move("Play_1", middle);
    EXPECT_EQ(stage.s.StatusText, "clk Toggle Play; rtclk Pause");
}

TEST(Hints, TheHintOfAnEntryGoesWhenItsListCloses) {
    test::Settings stage;
    stage.OpenMap();
    auto& list = dynamic_cast<QComboBox&>(*stage.At("PosMacros"));
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(1, 0));
    emit list.highlighted(1);
    ASSERT_NE(stage.s.StatusText, "");
    QTest::keyClick(list.view(), Qt::Key_Escape);
    EXPECT_FALSE(list.view()->isVisible());
    EXPECT_EQ(stage.s.StatusText, "");
}

TEST(Hints, AMoveOverAControlShowsItsHint) {
    Stage stage;
    Expect(stage, {{"Browse", "clk Open Browser Window"},
                   {"SaveOpen", "clk Save/Open Dialogue"},
                   {"QuickLoadPop", "clk Open QuickLoad Dropdown"},
                   {"SnapShot", "clk Save Snapshot"},
                   {"PlayStop", "clk Play All Sounds", {0.5, 0.2}},
                   {"PlayStop", "", {0.5, 0.5}},
                   {"PlayStop", "clk Stop All Sounds", {0.5, 0.8}},
                   {"Limiter", "drg -/+ to Thin to N Playing LoopTracks"},
                   {"FadeFactor", "set Fade Speed"},
                   {"ToTop", "clk Toggle Mini/Regular Window"},
                   {"VolKnob_0", "drg Vol -/+; rtdrg Fine; dblclk Toggle Mute"},
                   {"VolKnob_5", "drg Vol -/+; rtdrg Fine; dblclk Toggle Mute"},
                   {"PanKnob_1", "drg Pan -/+; rtdrg Fine; dblclk Centre"},
                   {"HzKnob_4", "drg Hz -/+; rtdrg Fine; dblclk 100%"},
                   {"LoopIt_2", "drg Play Mode -/+; rtclk Jump to Beginning; Loop (sample loops continuously)"},
                   {"ChannelFlag_3", "drg Wire -/+; click Flip Colour; rtclk tggle Connect"},
                   {"Play_4", "clk Toggle Play; rtclk Pause"},
                   {"DropDown_1", "drg Copy Sample to LoopTrack, or Copy LoopTrack to Clipboard", {0.5, 0.1}},
                   {"DropDown_1", "clk Open Palette & History", {0.5, 0.6}},
                   {"SndDisp_0", "clk/drg along top: Vol Jump; clk/drg along bottom: Vol Fade; rtclk Fade"},
                   {"Letr_2", "drg Start Dropper Op; rtdrg Start Fade Drg & Drop; dblclk Toggle Thinnable"},
                   {"Thumb_0", "clk Select Pattern/LoopTrack Position; dblclk Open Pattern"},
                   {"Selected_3", "drg Select LoopTracks; rtdrg Deselect LoopTracks (drg over to select/deselect)"},
                   {"SelectPopUp", "clk Open Selection Tool Dropdown"},
                   {"SelectorRadio_2", "clk Toggle Control of Selection/Band; dblclk Control Selection/Band"},
                   {"Bands", "drg Band over LoopTracks; clk Add/Remove; dblclk Empty"},
                   {"Tab_0", "clk Open Mix Pad: one Ball mixes the four Channels"},
                   {"StatusBar1", "drg Question Mark to Control for Help", {0.977, 0.5}},
                   {"StatusBar1", "", {0.3, 0.5}}});
}

TEST(Hints, TheMixPadShowsItsHints) {
    Stage stage;
    stage.s.PadTable[kVolPad].TwistTarget = kPanPad;
    Expect(stage, {{"PadType", "slct What the Ball Moves"},
                   {"PadFunction", "slct Where the Fade Begins"},
                   {"SetChannel", "slct Wires of all LoopTracks"},
                   {"PadBall", "drg Mix Channels; dblclk Centre"},
                   {"TwistBall", "drg Fade Pan of the Channels; dblclk Centre"}});
}

TEST(Hints, TheSoundMapShowsItsHints) {
    test::Settings stage;
    stage.OpenMap();
    PosMove(stage.s, 600, 600, 1, {.Absolute = true, .Apply = false});
    PosMove(stage.s, 2400, 600, kListenerBall, {.Absolute = true, .Apply = false});
    stage.Settle();
    Expect(stage, {{"Enable3d", "clk Toggle 3D Sound"},
                   {"MapSize", "3. x 3."},
                   {"RollOff", "RollOff =1"},
                   {"PosMacros", "slct Scatter or Wander"},
                   {"CentreAll", "clk Center All"},
                   {"PosPop", "clk Bring Listner to Front"},
                   {"PosBall_1", "drg to Location; dblclk Centre; rtclk Fade"},
                   {"PosBall_4", "drag to Location; rtdrg Rotate; dblclk Centre"}});
}

TEST(Hints, TheGaugesOfTheMapShowTheirValues) {
    test::Settings stage;
    stage.OpenMap();
    SetMapSize(stage.s, 4.5);
    stage.s.RollOff = 35;
    Expect(stage, {{"MapSize", "4.5 x 4.5"}, {"RollOff", "3.5"}});
}

TEST(Hints, ThePatternPageShowsItsHints) {
    Stage stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    Expect(stage, {{"Patterns", "rtdrg Copy All Patterns", {0.03, 0.03}},
                   {"LoopIt_5", "drg Play Mode -/+; rtclk Jump to Beginning; Loop (sample loops continuously)"},
                   {"NSteps", "drg #Steps -/+"},
                   {"Eraser", "drg onto Pattern to Reset Pattern"},
                   {"PatternGraph_2", "clk, drg Draw Pattern; rtdrg Copy Pattern"},
                   {"AllTiming", "rtdrg Copy All Timing Elements", {0.1, 0.03}},
                   {"CloneTime_1", "rtdrg Copy Timing Element"},
                   {"TimeDigit_9", "drg Digits -/+"},
                   {"Tab_2", "rtdrg Copy All Patterns & Timing Elements"}});
}

TEST(Hints, TheTabsShowWhereTheSequenceIsDragged) {
    Stage stage;
    Expect(stage, {{"Tab_1", "clk Open Sound Map: LoopTracks around a Listener"}, {"TabControl", "", {0.6, 0.03}}});
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    const char* hint = "rtdrg Copy All Patterns & Timing Elements";
    Expect(stage, {{"Tab_0", hint},
                   {"TabControl", hint, {0.6, 0.03}},
                   {"PatternPage", hint, {0.5, 0.01}},
                   {"PatternPage", hint, {0.5, 0.97}},
                   {"PatternPage", hint, {0.005, 0.5}}});
}

TEST(Hints, LoopItNamesItsModeBehindItsHint) {
    Stage stage;
    const std::string hint = "drg Play Mode -/+; rtclk Jump to Beginning; ";
    stage.s.Set[0].PlayMode = kDrum;
    stage.s.Set[1].PlayMode = kOneShot;
    stage.s.Set[2].PlayMode = kTrack;
    stage.s.CurrentLoop = 2;
    Expect(stage,
           {{"LoopIt_0", (hint + "Drum (track Vol,Pan & Freq pattern, restart sample each beat)").c_str()},
            {"LoopIt_1", (hint + "One shot (sample plays once, stops)").c_str()},
            {"LoopIt_2", (hint + "Track (sample loops continuously, track the Vol, Freq & Pan patterns)").c_str()},
            {"LoopIt_3", (hint + "Loop (sample loops continuously)").c_str()}});
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    Expect(stage,
           {{"LoopIt_5", (hint + "Track (sample loops continuously, track the Vol, Freq & Pan patterns)").c_str()}});
    EXPECT_EQ(stage.s.ReadoutText, "");
}

TEST(Hints, TheHintOfLoopItFollowsItsMode) {
    Stage stage;
    const auto ends = [&](const char* text) { return stage.s.StatusText.ends_with(text); };
    stage.Press("LoopIt_0", stage.Middle("LoopIt_0"));
    stage.Move("LoopIt_0", stage.Middle("LoopIt_0") - QPointF(0, 7));
    EXPECT_TRUE(ends("Track (sample loops continuously, track the Vol, Freq & Pan patterns)")) << stage.s.StatusText;
    stage.Move("LoopIt_0", stage.Middle("LoopIt_0") - QPointF(0, 14));
    EXPECT_TRUE(ends("Drum (track Vol,Pan & Freq pattern, restart sample each beat)")) << stage.s.StatusText;
    stage.Release("LoopIt_0", stage.Middle("LoopIt_0") - QPointF(0, 14));
    stage.Move("LoopIt_0", stage.Middle("LoopIt_0"));
    stage.DoubleClick("LoopIt_0");
    EXPECT_TRUE(ends("Loop (sample loops continuously)")) << stage.s.StatusText;
    stage.Wheel("LoopIt_0", -1);
    EXPECT_TRUE(ends("One shot (sample plays once, stops)")) << stage.s.StatusText;
    stage.Move("Play_0", stage.Middle("Play_0"));
    stage.Wheel("LoopIt_1", 1);
    EXPECT_TRUE(ends("Track (sample loops continuously, track the Vol, Freq & Pan patterns)")) << stage.s.StatusText;
    stage.Move("Play_1", stage.Middle("Play_1"));
    LoopSetPlayModeRows(stage.s, 1, kDrum);
    EXPECT_EQ(stage.s.StatusText, "clk Toggle Play; rtclk Pause");
}

/// Adds the hints of all controls of a form.
void AddHints(const QWidget& form, std::set<std::string>& hints) {
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        const Described* described = DescribedOf(*widget);
        if (described == nullptr) continue;
        // Parts of a control, or entries of a list.
        for (int part = kDragOnlyPart; part <= static_cast<int>(kSelectRules.size()); ++part) {
            hints.insert(described->Hint(part, false));
        }
    }
    hints.erase("");
}

TEST(Hints, NoHintIsCutInItsPanel) {
    AllForms forms;
    std::set<std::string> hints;
    for (std::int16_t mode = kOneShot; mode <= kDrum; ++mode) {
        for (Row row = 0; row < kRows; ++row) forms.s.Set[row].PlayMode = mode;
        for (const QWidget* form :
             std::initializer_list<const QWidget*>{forms.Form.get(), &forms.Save, &forms.Query, &forms.Help}) {
            AddHints(*form, hints);
        }
    }
    EXPECT_GT(hints.size(), 80U);
    for (const std::string& hint : hints) {
        forms.s.StatusText = hint;
        EXPECT_EQ(test::PaintedTexts(*forms.At("StatusBar1")).front(), hint);
    }
}

TEST(Hints, NoHintIsCutInTheBrowserAtItsSmallest) {
    AllForms forms;
    const std::string name = "Hat closed 120 bpm";
    std::set<std::string> hints;
    for (const auto destination : std::initializer_list<std::int16_t>{3, kDragDestination}) {
        for (SampleBin& bin : forms.s.Bins) {
            bin.Destination = destination;
            bin.Rows.assign(3, {name, "12345", "", name + ".wav"});
        }
        AddHints(forms.Window, hints);
    }
    EXPECT_GT(hints.size(), 20U);
    EXPECT_THAT(hints, testing::Contains(testing::StartsWith(name)));
    forms.Window.resize(forms.Window.minimumSize());
    forms.Settle();
    for (const std::string& hint : hints) {
        forms.Window.ShowHint(hint);
        EXPECT_EQ(test::PaintedTexts(forms.Part("BrowseStatusBar1")).front(), hint);
    }
}

TEST(Hints, NoReadoutIsCutInItsPanel) {
    Stage stage;
    for (const std::string& text :
         {Vol2Text(500), Pan2Text(1), Pan2Text(999), Pan2Text(500), Hz2Text(4000),
          std::string("Freq: Original Hz Restored"), "Step: 32 " + Hz2Text(3999), "Step: 32 " + Pan2Text(1),
          "Random: " + Hz2Text(3999), "Random: " + Pan2Text(999)}) {
        stage.s.ReadoutText = text;
        EXPECT_THAT(test::PaintedTexts(*stage.At("StatusBar1")), testing::Contains(text));
    }
}

TEST(Hints, MapSizeAndRollOffShowTheirValues) {
    test::Settings stage;
    stage.OpenMap();
    SetMapSize(stage.s, 0.5);
    SetRollOff(stage.s, 2.5F);
    Expect(stage, {{"MapSize", ".5 x .5"}, {"RollOff", "2.5"}});
    SetMapSize(stage.s, 10);
    SetRollOff(stage.s, 0);
    Expect(stage, {{"MapSize", "10. x 10."}, {"RollOff", "."}});
    // A held gauge shows the number under the hand also where it passes the default.
    const double y = stage.Middle("RollOff").y();
    stage.Press("RollOff", {20, y});
    for (double x = 20; x < 60 && stage.s.RollOff != 10; ++x) stage.Move("RollOff", {x, y});
    EXPECT_EQ(stage.s.RollOff, 10);
    EXPECT_EQ(stage.s.StatusText, "1.");
    stage.Release("RollOff", {20, y});
}

TEST(Hints, TheOptionsShowTheirValues) {
    Stage stage;
    stage.s.ActiveTab = kOptionTab;
    stage.s.ActiveSubTab = 2;
    stage.s.ScrollSensitivity[1] = 7;
    stage.s.TimingRes = 12;
    stage.Screen.ShowTab();
    stage.Screen.ShowOptions();
    Expect(stage, {{"ScrollSensitivity_1", "Send scroll event every 7 moves"}});
    stage.s.ActiveSubTab = 3;
    stage.Screen.ShowTab();
    Expect(stage, {{"ResSlider", "Timer Resolution: 12 ms"}});
}

TEST(Hints, ADragOfTheBallOfThePadShowsTheChannelsAndNotTheHint) {
    test::Settings stage;
    stage.Press("PadBall", stage.Middle("PadBall"));
    stage.s.StatusText.clear();
    stage.Move("PadBall", stage.Middle("PadBall") + QPointF(20, 20));
    EXPECT_TRUE(stage.s.StatusText.starts_with("W: ")) << stage.s.StatusText;
    stage.Release("PadBall", stage.Middle("PadBall"));
}

TEST(Hints, AStepOfTheWheelShowsTheHintOfWhatItTurns) {
    Stage stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    for (const char* name : {"VolKnob_0", "Limiter", "NSteps", "TimeDigit_3"}) {
        stage.s.StatusText.clear();
        stage.Wheel(name, 1);
        EXPECT_EQ(stage.s.StatusText, DescribedOf(*stage.At(name))->Hint(0, false)) << name;
    }
}

TEST(Hints, TheBrowserShowsThemInItsOwnBar) {
    AllForms forms;
    const std::string main = forms.s.StatusText;
    for (const char* name : {"PickDir_0", "FileDestination_1", "FolderTreeview1", "ClipBoardList", "Trash"}) {
        QWidget& widget = forms.Part(name);
        auto* scrolled = qobject_cast<QAbstractScrollArea*>(&widget);
        forms.Hover(scrolled == nullptr ? widget : *scrolled->viewport(), {5, 5});
        EXPECT_TRUE(forms.Shows(DescribedOf(widget)->Hint(0, false))) << name;
    }
    EXPECT_EQ(forms.s.StatusText, main);
}

}  // namespace
}  // namespace marvolin
