// What each control tells the status line, beyond the table that hints_test.cpp walks: all others, the disabled ones,
// and when a hint comes and goes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <map>

#include "all_forms.h"
#include "browser/destinations.h"
#include "core/routines.h"
#include "fakes/file_bytes.h"
#include "page_text.h"
#include "performance/map/scatter.h"
#include "performance/pad/pad_tables.h"
#include "performance/pad/wire_sets.h"
#include "performance/selection/selection.h"
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
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

struct Hinted {
    const char* Name;
    const char* Hint;
};

constexpr Hinted kHints[] = {
    {"LoopRow_1", "drop Sample, LoopTrack, Pattern or Clip to put it here"},
    {"SlctGroup", "Freq High: clk Select those above 100 %"},
    {"HistoryList", "clk Use on this LoopTrack; drg to another LoopTrack"},
    {"QuickLoad", "clk Load Session"},
    {"StatusBar2", "Today; Sound Driver, its Period & Delay; Session; Recording; Load of the Sound"},
    {"Pad", "drg Ball to mix Vol of the Channels: each Corner is one, Flags wire LoopTracks to it"},
    {"ChannelLevels",
     "Channels by their Flags: 1 W both white, 2 WB white & black, 3 BW black & white, 4 B both black"},
    {"TwistIndicator", "drg Ball to fade Pan of the Channels: W & B at the left, WB & BW at the right"},
    {"JoyRelative_0", "clk On: Joystick moves on from where the Ball is; Off: Ball is where the Stick is"},
    {"JoyRelative_1", "clk On: Joystick moves on from where the Ball is; Off: Ball is where the Stick is"},
    {"Map", "drg Letters to where LoopTracks sound, L to where they are heard"},
    {"CurrentLoop", "LoopTrack shown here; clk a Thumb to show another; rtdrg Copy All Patterns"},
    {"StepReadOut", "Step that sounds, of 4"},
    {"PercentReadOut_0", "Step Duration as % of the Sample; dblclk 100%"},
    {"PercentReadOut_1", "Swing as % of the Step Duration; dblclk 0%"},
    {"PercentReadOut_2", "Sample Start as % of the Sample; dblclk 0%"},
    {"cboDrivers", "slct Sound Driver; the LoopTracks play on there"},
    {"ResetVars",
     "clk On: a Sample that loads puts Vol to full, Pan to Centre, Freq to 100%, Patterns & Timing to Plain"},
    {"PlayOnLoad", "clk On: a Sample that is dropped on a LoopTrack plays at once"},
    {"OptionHelp", "clk Open Help on the Options"},
    {"OptionSubTab_0", "clk Open Options of the Joystick"},
    {"OptionSubTab_1", "clk Open Options of the Mouse: Knobs, 3d Position"},
    {"OptionSubTab_2", "clk Open Options of Scripting: Moves an Event"},
    {"OptionSubTab_3", "clk Open Options of Timing: Interval of the Step Clock"},
    {"JButton_0", "slct Joystick Button: while it is held, the Hat is ignored"},
    {"JButton_1", "slct Joystick Button that puts Ball or Listener on the Centre"},
    {"JButton_2", "slct Joystick Button that puts the Twist on the Centre"},
    {"JButton_3", "slct Joystick Button that flips Relative Movement"},
    {"JButton_4", "slct Joystick Button by which the Stick lets the Twist go, or takes it"},
    {"JAxis_0", "slct Joystick Axis that turns the Master Volume"},
    {"JAxis_1", "slct Joystick Axis that moves the Twist"},
    {"JoyFactor_0", "drg Reach of a Relative Movement: 0.5 x"},
    {"JoyFactor_1", "drg Reach of the whole Stick: 1.5 x"},
    {"JoyFactor_2", "drg Reach of the Twist: 1 x"},
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
    {"ElementsFold", "clk Show or Hide the Elements to save and to open"},
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

/// A hint without its values.
std::string WithoutNumbers(const std::string& hint) {
    std::string words;
    for (const char c : hint) {
        if ((c < '0' || c > '9') && c != '.' && c != ' ') words += c;
    }
    return words;
}

// What a control shows at run time its page shows, too: word for word, but for values and names.
TEST(EveryHint, StandsOnThePageOfItsControl) {
    AllForms forms;
    std::vector<std::string> missing;
    int shown = 0;
    forms.Each([&](const std::string& form, QWidget& window) {
        if (form == "frmScripts") return;  // its events have hints of their own
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const Described* described = DescribedOf(*widget);
            if (described == nullptr || widget->objectName().startsWith("PickFile")) continue;  // names of samples
            const std::string path = std::string(MARVOLIN_FOLDER) + "/Help/" + std::to_string(described->Row().Topic);
            const std::string page = WithoutNumbers(test::ReadBytes(path + ".html"));
            // What the entries of a list do has lines of its own on the page.
            const bool list = described->Row().Role == QAccessible::ComboBox || widget->objectName() == "SlctGroup";
            for (int part = 0; part <= (list ? 0 : 2); ++part) {
                const std::string hint = described->Hint(part, false);
                const bool off = hint.starts_with("off");  // why it is has a line of its own
                for (const QString& piece : QString::fromStdString(off ? hint.substr(hint.rfind(": ") + 2) : hint)
                                                .split("; ", Qt::SkipEmptyParts)) {
                    // A tempo is a value.
                    if (piece.startsWith("4 Steps a Beat")) continue;
                    const std::string words = WithoutNumbers(help::Escaped(piece.toStdString()));
                    if (page.find(words) == std::string::npos) {
                        missing.push_back(widget->objectName().toStdString() + ": " + piece.toStdString());
                    }
                    ++shown;
                }
            }
        }
    });
    EXPECT_THAT(missing, IsEmpty());
    EXPECT_GT(shown, 400);
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

TEST(EveryHint, AnOpenListTellsWhatItsEntriesDo) {
    AllForms forms;
    const auto hint = [&](const char* name, int entry) {
        auto& list = dynamic_cast<QComboBox&>(*forms.Form->findChild<QWidget*>(name));
        forms.s.StatusText.clear();
        emit list.highlighted(entry);
        return forms.s.StatusText;
    };
    for (std::size_t entry = 0; entry < kPadTypeTexts.size(); ++entry) {
        EXPECT_THAT(hint("PadType", static_cast<int>(entry)), StartsWith(std::string(kPadTypeTexts[entry]) + ": "));
    }
    for (std::size_t entry = 0; entry < kPadCurves.size(); ++entry) {
        EXPECT_THAT(hint("PadFunction", static_cast<int>(entry)),
                    StartsWith(std::string(kPadCurves[entry].Text) + ": "));
    }
    for (std::size_t entry = 0; entry < kPosMacros.size(); ++entry) {
        EXPECT_THAT(hint("PosMacros", static_cast<int>(entry)), StartsWith(std::string(kPosMacros[entry]) + ": "));
    }
    // What the wire sets are said to do is what they do.
    for (std::size_t entry = 0; entry < kWireSets.size(); ++entry) {
        const std::string text = hint("SetChannel", static_cast<int>(entry));
        EXPECT_THAT(text, StartsWith(std::string(kWireSets[entry]) + ": "));
        WireSet(forms.s, kWireSets[entry]);
        std::string wires;
        for (Row row = 0; row < kLoopTracks; ++row) {
            wires += (row == 0 ? "" : ", ") + std::to_string(forms.s.Set[row].Channel);
        }
        const std::map<std::string, std::string> told{{"1, 1, 1, 1", "A, B, C & D on Channel 1"},
                                                      {"1, 1, 1, 2", "A, B & C on Channel 1, D on Channel 2"},
                                                      {"1, 1, 2, 2", "A & B on Channel 1, C & D on Channel 2"}};
        const auto group = told.find(wires);
        EXPECT_THAT(text, EndsWith(group == told.end() ? "A, B, C, D on Channels " + wires : group->second));
    }
    auto& destination = dynamic_cast<QComboBox&>(forms.Part("FileDestination_0"));
    emit destination.highlighted(kAllDistribute);
    EXPECT_TRUE(forms.Shows("Distribute (All): Bin 1 loads into A, Bin 2 into B, Bin 3 into C"));
    emit destination.highlighted(2);
    EXPECT_TRUE(forms.Shows("clk on a Sample loads it into LoopTrack C"));
}

TEST(EveryHint, TheRulesOfSelectionSayWhatTheySelect) {
    Stage stage;
    auto& list = dynamic_cast<QListWidget&>(*stage.At("SlctGroup"));
    stage.Screen.ShowSelectList(true);
    stage.Settle();
    EXPECT_EQ(list.count(), static_cast<int>(kSelectRules.size()));
    for (int row = 0; row < list.count(); ++row) {
        QTest::mouseMove(list.viewport(), list.visualItemRect(list.item(row)).center());
        EXPECT_THAT(stage.s.StatusText, StartsWith(list.item(row)->text().toStdString() + ": clk Select "));
    }
    EXPECT_EQ(DescribedOf(list)->Hint(8, false), "Channel 1: clk Select those with the Flag W, white & white");
    stage.s.StatusText.clear();
    list.setCurrentRow(11);
    EXPECT_EQ(stage.s.StatusText, "Vol Low: clk Select those at Vol 250 or less");
    list.hide();
}

TEST(EveryHint, ASampleThatIsDoubleClickedWhereItCanOnlyBeDraggedSaysSo) {
    AllForms forms;
    forms.s.Bins[0].Destination = kDragDestination;
    QWidget& list = forms.Part("PickFile_0");
    const std::string told = "Drg Drp: drg to a LoopTrack; or slct a LoopTrack above, then clk loads";
    QTest::mouseDClick(&list, Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_TRUE(forms.Shows(told));
    QTest::mouseRelease(&list, Qt::LeftButton, {}, QPoint(20, 10));
    forms.Hover(list, {22, 10});
    EXPECT_TRUE(forms.Shows(told));
    EXPECT_EQ(forms.s.Run[0].Loaded, False);
    forms.Hover(list, {22, 34});
    EXPECT_FALSE(forms.Shows(told));
    forms.s.Bins[0].Destination = 2;
    QTest::mouseDClick(&list, Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_FALSE(forms.Shows(told));
}

TEST(EveryHint, TheDigitsOfAStepTellTheTempoOfFourSteps) {
    Stage stage;
    const auto hint = [&](const char* name) { return DescribedOf(*stage.At(name))->Hint(0, false); };
    stage.s.Set[0].StepDuration = 15;
    EXPECT_EQ(hint("TimeDigit_0"), "drg Digits -/+; 4 Steps a Beat: 100.0 bpm");
    EXPECT_EQ(hint("TimeDigit_5"), "drg Digits -/+");
    EXPECT_EQ(hint("TimeDigit_14"), "drg Digits -/+");
    stage.s.CurrentLoop = 2;
    stage.s.Set[2].StepDuration = 13;
    EXPECT_EQ(hint("TimeDigit_4"), "drg Digits -/+; 4 Steps a Beat: 115.4 bpm");
    stage.s.Set[2].StepDuration = 0;  // as a file may say
    EXPECT_EQ(hint("TimeDigit_4"), "drg Digits -/+; 4 Steps a Beat: 1500.0 bpm");
}

TEST(EveryHint, TheTempoFollowsTheHandThatDragsADigit) {
    Stage stage;
    stage.Fill(0);
    stage.s.ActiveTab = kPatternTab;
    stage.s.Set[0].StepDuration = 15;
    stage.Screen.ShowTab();
    stage.Press("TimeDigit_0", stage.Middle("TimeDigit_0"));
    stage.Move("TimeDigit_0", stage.Middle("TimeDigit_0") - QPointF(0, 17));
    EXPECT_EQ(stage.s.Set[0].StepDuration, 21);
    EXPECT_EQ(stage.s.StatusText, "drg Digits -/+; 4 Steps a Beat: 71.4 bpm");
    stage.Release("TimeDigit_0", stage.Middle("TimeDigit_0") - QPointF(0, 17));
}

TEST(EveryHint, TheGroundOfTheSoundMapTellsWhyItRests) {
    Stage stage;
    const auto hint = [&](const char* name) { return DescribedOf(*stage.At(name))->Hint(0, false); };
    EXPECT_EQ(hint("MapPage"), "off until 3D Sound is on: clk the Box above");
    EXPECT_EQ(hint("Map"),
              "off until 3D Sound is on: drg Letters to where LoopTracks sound, L to where they are heard");
    stage.s.MapEnabled = true;
    EXPECT_EQ(hint("MapPage"), "");
    EXPECT_EQ(hint("Map"), "drg Letters to where LoopTracks sound, L to where they are heard");
}

TEST(EveryHint, AnEmptyBinSaysThatAClickChoosesAFolder) {
    AllForms forms;
    forms.s.Bins[1].Rows.clear();
    EXPECT_EQ(DescribedOf(forms.Part("PickFile_1"))->Hint(-1, false), "clk Choose a Folder for this Bin");
}

}  // namespace
}  // namespace marvolin
