// What each control tells the status line, beyond the table that hints_test.cpp walks: all others, the disabled ones,
// and when a hint comes and goes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QLineEdit>

#include "all_forms.h"
#include "core/routines.h"
#include "performance/tabs.h"
#include "whole_hand.h"
#include "window/controls/control.h"
#include "window/descriptions/described.h"
#include "window/editor/find_bar.h"
#include "window/editor/script_status.h"
#include "window/forms/frm_browse.h"

namespace marvolin {
namespace {

using test::AllForms;
using test::Stage;
using test::WholeHand;
using testing::IsEmpty;

struct Hinted {
    const char* Name;
    const char* Hint;
};

constexpr Hinted kHints[] = {
    {"LoopRow_1", "drop Sample, LoopTrack, Pattern or Clip to put it here"},
    {"SlctGroup", "clk Select LoopTracks by Rule"},
    {"HistoryList", "clk Use on this LoopTrack; drg to another LoopTrack"},
    {"QuickLoad", "clk Load Session"},
    {"StatusBar2", "Today; Sound Driver, its Period & Delay; Session; Load of the Sound"},
    {"Pad", "drg Ball to mix Vol of the Channels: each Corner is one, Flags wire LoopTracks to it"},
    {"ChannelLevels", "Levels of the Channels: W both Colours white, WB white & black, BW black & white, B both black"},
    {"TwistIndicator", "Twist: a mark for an Axis of the Joystick, which moves no sound"},
    {"JoyRelative_0", "clk On: Joystick moves on from where the Ball is; Off: Ball is where the Stick is"},
    {"JoyRelative_1", "clk On: Joystick moves on from where the Ball is; Off: Ball is where the Stick is"},
    {"Map", "drg Letters to where LoopTracks sound, L to where they are heard"},
    {"CurrentLoop", "LoopTrack shown here; clk a Thumb to show another; rtdrg Copy All Patterns"},
    {"StepReadOut", "Step that sounds, of 4"},
    {"PercentReadOut_0", "Step Duration as % of the Sample; dblclk 100%"},
    {"PercentReadOut_1", "Swing as % of the Step Duration; dblclk 0%"},
    {"PercentReadOut_2", "Sample Start as % of the Sample; dblclk 0%"},
    {"cboDrivers", "slct Sound Driver; the LoopTracks play on there"},
    {"ResetVars", "clk On: a Sample that loads puts Vol, Pan, Freq, Patterns & Timing back to Plain"},
    {"PlayOnLoad", "clk On: a Sample that is dropped on a LoopTrack plays at once"},
    {"OptionHelp", "clk Open Help on the Options"},
    {"OptionSubTab_0", "clk Open Options of the Joystick"},
    {"OptionSubTab_1", "clk Open Options of the Mouse: Knobs, 3d Position"},
    {"OptionSubTab_2", "clk Open Options of Scripting: Moves an Event"},
    {"OptionSubTab_3", "clk Open Options of Timing: Interval of the Step Clock"},
    {"JButton_0", "slct Joystick Button: while it is held, the Hat is ignored"},
    {"JButton_1", "slct Joystick Button that puts Ball or Listener on the Centre"},
    {"JButton_2", "slct Joystick Button \"Twist Centre\", which moves no sound"},
    {"JButton_3", "slct Joystick Button that flips Relative Movement"},
    {"JButton_4", "slct Joystick Button \"ToggleTwist\", which moves no sound"},
    {"JAxis_0", "slct Joystick Axis that turns the Master Volume"},
    {"JAxis_1", "slct Joystick Axis \"Twist\", which moves no sound"},
    {"JoyFactor_0", "drg Reach of a Relative Movement: 0.5 x"},
    {"JoyFactor_1", "drg Reach of the whole Stick: 1.5 x"},
    {"JoyFactor_2", "drg Reach of the Twist, which moves no sound: 1 x"},
    {"DragAxisSelect", "slct Direction in which Knobs are dragged"},
    {"PositionUpdate_0", "clk On: Sound follows the Drag; Off: Sound follows when the Drag ends"},
    {"PositionUpdate_2", "clk On: Sound follows the Drag; Off: Sound follows when the Drag ends"},
    {"ResReadout", "Timer Resolution: 10 ms"},
    {"Sstab", "clk Open Tab: 1-3 the Sample Bins, ClipBrd the Clipboard"},
    {"PickDir_1", "clk Open FolderExplorer"},
    {"FileDestination_0", "slct Destination for Sounds"},
    {"ClickPlay_2", "clk On: the LoopTrack plays at once when a Sample loads into it"},
    {"PickFile_0", "three (0k) drg to Target"},
    {"FolderTreeview1", "drg Folder to Sample Bin; rtclk to Close"},
    {"ClipBoardList", "drg Copy to LoopTrack; rtdrg Copy by Element"},
    {"Components_3", "clk On: a right drag of a Clip copies this"},
    {"Trash", "drop Clip here to Trash it"},
    {"ClearClip", "clk Remove all Clips; you are asked first"},
    {"Selector_0", "slct Elements to save, many at once"},
    {"Selector_1", "slct Elements to open, many at once"},
    {"Elements_0_4", "clk On: Save this Element"},
    {"Elements_1_4", "clk On: Open this Element, if it was saved"},
    {"SelectionsOnly", "clk On: Save only the LoopTracks that are selected"},
    {"EmptyBlank", "clk On: Empty LoopTracks without a Sample in the Session; Off: leave them as they are"},
    {"Session", "type the Name that Snapshots begin with"},
    {"SaveIt", "clk Save under the Name in the Title"},
    {"SaveItAs", "clk Choose a Name and Save"},
    {"Reload", "clk Open the Session in the Title"},
    {"OpenIt", "clk Choose a Session and Open it"},
};

struct Pointed : WholeHand {
    Pointed() { Begin(); }
    /// What the bar of the widget's window shows, or the main window's.
    std::string Shown(const QWidget& widget) {
        if (widget.window() != &Window) return s.StatusText;
        return dynamic_cast<BrowseStatus&>(Part("BrowseStatusBar1")).Text().toStdString();
    }
    /// What it shows when the pointer comes to the widget.
    std::string At(QWidget& widget) {
        Reveal(widget);
        const test::Spot spot = SpotOn(widget);
        EXPECT_NE(spot.Widget, nullptr) << widget.objectName().toStdString();
        s.StatusText.clear();
        Window.ShowHint("");
        if (spot.Widget == nullptr) return "";
        MoveTo(spot, {1, 0});
        MoveTo(spot, {});
        Settle();
        return Shown(widget);
    }
};

TEST(EveryHint, APointerOverAControlShowsItsHint) {
    Pointed stage;
    for (const Hinted& one : kHints) {
        SCOPED_TRACE(one.Name);
        stage.Begin();
        EXPECT_EQ(stage.At(stage.Named(one.Name)), one.Hint);
    }
}

TEST(EveryHint, NoControlIsWithoutOne) {
    Pointed stage;
    std::vector<std::string> without;
    const std::vector<QWidget*> controls = stage.Controls();
    EXPECT_GT(controls.size(), 180U);
    for (QWidget* widget : controls) {
        bool any = false;
        for (const int part : {0, 1, 2}) any = any || !DescribedOf(*widget)->Hint(part, false).empty();
        // The captions of the tabs lie on it; its own hint is about the sequence and shows where that can be dragged.
        if (!any && widget->objectName() != "TabControl") without.push_back(widget->objectName().toStdString());
    }
    EXPECT_THAT(without, IsEmpty());
}

TEST(EveryHint, ButtonsListsAndFieldsOfTheOtherFormsAndOfDialoguesShowTheirsInTheMainWindow) {
    AllForms forms;
    int shown = 0;
    forms.Each([&](const std::string& form, QWidget& window) {
        // The window of scripts has a bar of its own: `TheWindowOfScriptsShowsItsHintsItself`.
        if (form == "frmMain" || form == "frmBrowse" || form == "frmSave" || form == "frmScripts") return;
        window.show();
        forms.Settle();
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const Described* described = DescribedOf(*widget);
            if (described == nullptr || !widget->isVisible()) continue;
            auto* scrolled = qobject_cast<QAbstractScrollArea*>(widget);
            QWidget& pointed = scrolled == nullptr ? *widget : *scrolled->viewport();
            forms.s.StatusText.clear();
            forms.Hover(pointed, QRectF(pointed.rect()).center());
            EXPECT_NE(forms.s.StatusText, "") << form << " " << widget->objectName().toStdString();
            EXPECT_EQ(forms.s.StatusText, described->Hint(0, false));
            ++shown;
        }
    });
    EXPECT_GT(shown, 28);
}

TEST(EveryHint, TheWindowOfScriptsShowsItsHintsItself) {
    AllForms forms;
    forms.Scripts.show();
    forms.Scripts.Find->Open();
    forms.Settle();
    forms.s.StatusText.clear();
    std::vector<std::string> wrong;
    int shown = 0;
    for (QWidget* widget : forms.Scripts.findChildren<QWidget*>()) {
        const Described* described = DescribedOf(*widget);
        if (described == nullptr || !widget->isVisible() || described->Hint(0, false).empty()) continue;
        auto* scrolled = qobject_cast<QAbstractScrollArea*>(widget);
        QWidget& pointed = scrolled == nullptr ? *widget : *scrolled->viewport();
        forms.Scripts.ShowHint("");
        // Each event in the list has a hint of its own: the first one is at the top.
        const bool list = widget->objectName() == "EventList";
        const QRectF rect(pointed.rect());
        forms.Hover(pointed, list ? rect.topLeft() + QPointF(20, 8) : rect.center());
        if (forms.Scripts.Status->Hint().toStdString() != described->Hint(0, false)) {
            wrong.push_back(widget->objectName().toStdString() + ": " + forms.Scripts.Status->Hint().toStdString());
        }
        ++shown;
    }
    EXPECT_THAT(wrong, IsEmpty());
    EXPECT_GT(shown, 17);
    EXPECT_EQ(forms.s.StatusText, "");
}

TEST(EveryHint, ADisabledControlTellsWhyInFrontOfItsHint) {
    AllForms forms;
    const auto hint = [&](const char* name) {
        QWidget* widget = forms.Form->findChild<QWidget*>(name);
        if (widget == nullptr) widget = forms.Save.findChild<QWidget*>(name);
        EXPECT_FALSE(widget->isEnabled()) << name;
        return DescribedOf(*widget)->Hint(0, false);
    };
    forms.s.PanKnobOn[0] = false;
    forms.Screen.ShowEnabled(0);
    EXPECT_EQ(hint("PanKnob_0"), "off until a Sample is loaded: drg Pan -/+; rtdrg Fine; dblclk Centre");
    EXPECT_EQ(hint("CentreAll"), "off until 3D Sound is on: clk Center All");
    EXPECT_EQ(hint("MapSize"), "off until 3D Sound is on: 3. x 3.");
    EXPECT_EQ(hint("RollOff"), "off until 3D Sound is on: RollOff =1");
    EXPECT_EQ(hint("PosBall_2"), "off until 3D Sound is on: drg to Location; dblclk Centre; rtclk Fade");
    forms.Screen.ShowJoystick();
    EXPECT_EQ(hint("JAxis_0"), "off without a Joystick: slct Joystick Axis that turns the Master Volume");
    EXPECT_TRUE(hint("JButton_3").starts_with("off without a Joystick: "));
    forms.Save.Refresh();
    EXPECT_EQ(hint("SaveIt"), "off until Save As has given a Name: clk Save under the Name in the Title");
    EXPECT_EQ(hint("Reload"), "off until the Title names a Session: clk Open the Session in the Title");
    EXPECT_NE(hint("Scripts"), "");
}

TEST(EveryHint, APointerOverADisabledControlShowsIt) {
    Stage stage;
    stage.At("PanKnob_1")->setEnabled(false);
    stage.Move("PanKnob_1", stage.Middle("PanKnob_1"));
    EXPECT_EQ(stage.s.StatusText, "off until a Sample is loaded: drg Pan -/+; rtdrg Fine; dblclk Centre");
}

TEST(EveryHint, AHintGoesWithThePointerAndAReportStays) {
    Stage stage;
    const QPoint ground(4, stage.Form->height() - 60);
    stage.Move("Browse", stage.Middle("Browse"));
    EXPECT_EQ(stage.s.StatusText, "clk Open Browser Window");
    QTest::mouseMove(stage.Form->windowHandle(), ground);
    EXPECT_EQ(stage.s.StatusText, "");
    stage.Move("Browse", stage.Middle("Browse"));
    ShowStatus(stage.s, "Not a sample: readme.txt");
    QTest::mouseMove(stage.Form->windowHandle(), ground);
    EXPECT_EQ(stage.s.StatusText, "Not a sample: readme.txt");
}

TEST(EveryHint, TheHintFollowsTheTabKeyAndNotAClick) {
    Stage stage;
    stage.At("VolKnob_3")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(stage.s.StatusText, "drg Vol -/+; rtdrg Fine; dblclk Toggle Mute");
    stage.At("HzKnob_3")->setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(stage.s.StatusText, "drg Hz -/+; rtdrg Fine; dblclk 100%");
    stage.At("PanKnob_3")->setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(stage.s.StatusText, "drg Hz -/+; rtdrg Fine; dblclk 100%");
}

TEST(EveryHint, QuickLoadTellsWhatItsButtonDecided) {
    Stage stage;
    const Described& list = *DescribedOf(*stage.At("QuickLoad"));
    stage.s.QuickLoadTag = kLeftButton;
    EXPECT_EQ(list.Hint(0, false), "clk Load Session");
    stage.s.QuickLoadTag = kRightButton;
    EXPECT_EQ(list.Hint(0, false), "clk Open Session in the Save/Open Dialogue");
}

TEST(EveryHint, AnEmptyBinSaysThatAClickChoosesAFolder) {
    AllForms forms;
    forms.s.Bins[1].Rows.clear();
    EXPECT_EQ(DescribedOf(forms.Part("PickFile_1"))->Hint(-1, false), "clk Choose a Folder for this Bin");
}

}  // namespace
}  // namespace marvolin
