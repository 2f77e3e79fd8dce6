#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <string>
#include <vector>

#include "all_forms.h"
#include "parameters/position.h"
#include "performance/map/sound_map.h"
#include "settings_stage.h"
#include "window/descriptions/described.h"

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
        stage.s.StatusText.clear();
        stage.Move(one.Name, {one.Place.x() * widget.width(), one.Place.y() * widget.height()});
        EXPECT_EQ(stage.s.StatusText, one.Hint);
    }
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
                   {"LoopIt_2", "drg Play Mode -/+; rtclk Jump to Beginning"},
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
                   {"Tab_0", ""},
                   {"StatusBar1", "drg Question Mark to Control for Help", {0.977, 0.5}},
                   {"StatusBar1", "", {0.3, 0.5}}});
}

TEST(Hints, TheMixPadShowsItsHints) {
    Stage stage;
    Expect(stage, {{"PadType", "slct What the Ball Moves"},
                   {"PadFunction", "slct Where the Fade Begins"},
                   {"SetChannel", "slct Wires of all LoopTracks"},
                   {"PadBall", "drg Mix Channels; dblclk Centre"}});
}

TEST(Hints, TheSoundMapShowsItsHints) {
    test::Settings stage;
    stage.OpenMap();
    PosMove(stage.s, 600, 600, 1, {.Absolute = true, .Apply = false});
    PosMove(stage.s, 2400, 600, kListenerBall, {.Absolute = true, .Apply = false});
    stage.Settle();
    Expect(stage, {{"Enable3d", "clk Toggle 3D Sound"},
                   {"MapSize", "drg Map Size"},
                   {"RollOff", "drg Roll Off; rtclk Roll Off =1"},
                   {"PosMacros", "slct Scatter or Wander"},
                   {"CentreAll", "clk Center All"},
                   {"PosPop", "clk Bring Listner to Front"},
                   {"PosBall_1", "drg to Location; dblclk Centre; rtclk Fade"},
                   {"PosBall_4", "drag to Location; rtdrg Rotate; dblclk Centre"}});
}

TEST(Hints, ThePatternPageShowsItsHints) {
    Stage stage;
    stage.s.ActiveTab = kPatternTab;
    stage.Screen.ShowTab();
    Expect(stage, {{"Patterns", "rtdrg Copy All Patterns", {0.03, 0.03}},
                   {"LoopIt_5", "drg Play Mode -/+; rtclk Jump to Beginning"},
                   {"NSteps", "drg #Steps -/+"},
                   {"Eraser", "drg onto Pattern to Reset Pattern"},
                   {"PatternGraph_2", "clk, drg Draw Pattern; rtdrg Copy Pattern"},
                   {"AllTiming", "rtdrg Copy All Timing Elements", {0.1, 0.03}},
                   {"CloneTime_1", "rtdrg Copy Timing Element"},
                   {"TimeDigit_9", "drg Digits -/+"},
                   {"Tab_2", "rtdrg Copy All Patterns & Timing Elements"}});
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

TEST(Hints, ADisabledControlShowsNone) {
    Stage stage;
    stage.At("PanKnob_0")->setEnabled(false);
    Expect(stage, {{"PanKnob_0", ""}});
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
