// Every control as assistive technology sees it: role, name, value, range, state and actions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <cmath>
#include <functional>

#include "all_forms.h"
#include "core/routines.h"
#include "performance/ball_hand.h"
#include "whole_hand.h"
#include "window/controls/control.h"
#include "window/descriptions/described.h"

namespace marvolin {
namespace {

using test::AllForms;
using test::WholeHand;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

QAccessibleInterface& Seen(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }

struct Eyes : WholeHand {
    Eyes() { Begin(); }
    QAccessibleInterface& Of(const char* name) { return Seen(Named(name)); }
    double Number(const char* name) { return Of(name).valueInterface()->currentValue().toDouble(); }
    void Set(const char* name, double value) { Of(name).valueInterface()->setCurrentValue(value); }
    void Act(const char* name, const QString& action) { Of(name).actionInterface()->doAction(action); }
};

/// Calls `act` with everything below and with `object` itself.
void EachObject(QAccessibleInterface* object, int depth, const std::function<void(QAccessibleInterface&)>& act) {
    if (object == nullptr || !object->isValid() || depth > 20) return;
    act(*object);
    for (int child = 0; child < object->childCount(); ++child) EachObject(object->child(child), depth + 1, act);
}

/// Whether somebody can do something with it.
bool IsForHands(QAccessibleInterface& object) {
    const QAccessible::State state = object.state();
    if (state.focusable && object.role() != QAccessible::Window && object.role() != QAccessible::Dialog) return true;
    switch (object.role()) {
        case QAccessible::Button:
        case QAccessible::CheckBox:
        case QAccessible::RadioButton:
        case QAccessible::ComboBox:
        case QAccessible::SpinBox:
        case QAccessible::Slider:
        case QAccessible::Dial:
        case QAccessible::EditableText:
        case QAccessible::PageTab:
            return true;
        default:
            return false;
    }
}

/// Parts that the toolkit makes inside its own controls and gives no names: arrows and strips of scroll bars, the
/// arrows of a strip of tabs that is too narrow, the list within a drop-down list.
bool IsPartOfAControl(QAccessibleInterface& object) {
    if (object.role() == QAccessible::ScrollBar) return true;
    const QString name = object.object() == nullptr ? QString() : object.object()->objectName();
    if (name == "ScrollLeftButton" || name == "ScrollRightButton") return true;
    const QAccessibleInterface* above = object.parent();
    if (above == nullptr) return false;
    const bool list = object.role() == QAccessible::List && above->role() == QAccessible::ComboBox;
    // Files whose folder is still being read have no names yet.
    const bool entry = object.role() == QAccessible::ListItem || object.role() == QAccessible::TreeItem;
    const QString within = above->object() == nullptr ? QString() : above->object()->objectName();
    return above->role() == QAccessible::ScrollBar || list || (entry && (within == "listView" || within == "treeView"));
}

std::string Words(QAccessibleInterface& object) {
    const QString name = object.object() == nullptr ? QString() : object.object()->objectName();
    QAccessibleInterface* above = object.parent();
    const QString within = above == nullptr || above->object() == nullptr ? QString() : above->object()->objectName();
    return "in " + within.toStdString() + " role " + std::to_string(object.role()) + " " + name.toStdString() + " '" +
           object.text(QAccessible::Name).toStdString() + "'";
}

TEST(Accessible, EveryObjectOfEveryFormHasARoleAndWhatHandsCanUseAName) {
    AllForms forms;
    std::vector<std::string> withoutRole;
    std::vector<std::string> withoutName;
    int objects = 0;
    int named = 0;
    forms.Each([&](const std::string& form, QWidget& window) {
        window.show();
        forms.Settle();
        EachObject(QAccessible::queryAccessibleInterface(&window), 0, [&](QAccessibleInterface& object) {
            ++objects;
            if (object.role() == QAccessible::NoRole) withoutRole.push_back(form + ": " + Words(object));
            if (!IsForHands(object) || IsPartOfAControl(object)) return;
            ++named;
            if (object.text(QAccessible::Name).isEmpty()) withoutName.push_back(form + ": " + Words(object));
        });
    });
    EXPECT_THAT(withoutRole, IsEmpty());
    EXPECT_THAT(withoutName, IsEmpty());
    EXPECT_GT(objects, 400);
    EXPECT_GT(named, 200);
}

TEST(Accessible, EveryControlWithAValueTellsItInWords) {
    WholeHand hand;
    hand.Begin();
    std::vector<std::string> without;
    int told = 0;
    const std::vector<QWidget*> controls = hand.Controls();
    hand.s.PercentText[0] = hand.s.PercentText[1] = hand.s.PercentText[2] = "25 %";
    for (QWidget* widget : controls) {
        const Description& row = DescribedOf(*widget)->Row();
        const bool value = !row.Value.Empty() || row.Scale != nullptr;
        if (!value || dynamic_cast<Control*>(widget) == nullptr) continue;
        QAccessibleInterface& seen = Seen(*widget);
        const QString words = seen.text(QAccessible::Value);
        EXPECT_EQ(words, seen.text(QAccessible::Description));
        // No script runs, so the button of the scripts has nothing to tell.
        if (words.isEmpty() && widget->objectName() != "Scripts") without.push_back(widget->objectName().toStdString());
        ++told;
    }
    EXPECT_THAT(without, IsEmpty());
    EXPECT_GT(told, 70);
}

TEST(Accessible, EveryControlWithAScaleHasItsRangeAndTakesANumberWithinIt) {
    WholeHand hand;
    int scales = 0;
    std::vector<std::string> deaf;
    hand.Begin();
    for (QWidget* widget : hand.Controls()) {
        const std::string name = widget->objectName().toStdString();
        // A digit is limited by the others, and by the length of the sample.
        if (DescribedOf(*widget)->Row().Scale == nullptr || name.starts_with("TimeDigit")) continue;
        SCOPED_TRACE(name);
        hand.Begin();
        hand.s.Joy.Axis[0] = 0;  // else the stick holds the master
        QAccessibleValueInterface* value = Seen(*widget).valueInterface();
        ASSERT_NE(value, nullptr);
        const double low = value->minimumValue().toDouble();
        const double high = value->maximumValue().toDouble();
        const double step = value->minimumStepSize().toDouble();
        EXPECT_LT(low, high);
        EXPECT_GT(step, 0);
        const double now = value->currentValue().toDouble();
        EXPECT_GE(now, low);
        EXPECT_LE(now, high);
        const double other = now + step <= high ? now + step : now - step;
        value->setCurrentValue(other);
        if (std::abs(value->currentValue().toDouble() - other) > step / 2) deaf.push_back(name);
        value->setCurrentValue(high + 1000);
        EXPECT_LE(value->currentValue().toDouble(), high);
        ++scales;
    }
    EXPECT_THAT(deaf, IsEmpty());
    EXPECT_GT(scales, 35);
}

TEST(Accessible, NumbersAreThoseOfTheReadouts) {
    Eyes eyes;
    eyes.s.Set[3].Pan = 500;
    eyes.s.Set[3].Hz = 1000;
    EXPECT_EQ(eyes.Number("PanKnob_3"), 0);
    EXPECT_EQ(eyes.Number("HzKnob_3"), 100);
    eyes.Set("PanKnob_3", -500);
    EXPECT_EQ(eyes.s.Set[3].Pan, 0);
    eyes.Set("HzKnob_3", 200);
    EXPECT_EQ(eyes.s.Set[3].Hz, 2000);
    eyes.Set("VolKnob_3", 321);
    EXPECT_EQ(eyes.s.Set[3].Vol, 321);
    eyes.Set("SndDisp_3", 77);
    EXPECT_EQ(eyes.s.Set[3].Vol, 77);
    eyes.Set("LoopIt_3", kTrack);
    EXPECT_EQ(eyes.s.Set[3].PlayMode, kTrack);
    eyes.Set("Limiter", 2);
    EXPECT_EQ(eyes.s.Limit, 2);
    eyes.Set("NSteps", 16);
    EXPECT_EQ(eyes.s.Set[eyes.s.CurrentLoop].NSteps, 15);
    eyes.Set("MapSize", 7.5);
    EXPECT_EQ(eyes.s.MapSize, 75);
    eyes.s.TimeText[0] = "000.25";
    eyes.s.Set[eyes.s.CurrentLoop].StepDuration = 25;
    eyes.Set("TimeDigit_1", 5);
    EXPECT_EQ(eyes.s.Set[eyes.s.CurrentLoop].StepDuration, 55);
    eyes.Set("FadeFactor", 1000);
    EXPECT_EQ(eyes.s.FadeStep, 2);
}

TEST(Accessible, ActionsDoWhatTheKeysDo) {
    Eyes eyes;
    const QString press = QAccessibleActionInterface::pressAction();
    const QString toggle = QAccessibleActionInterface::toggleAction();
    const QString menu = QAccessibleActionInterface::showMenuAction();
    eyes.Act("Play_3", toggle);
    EXPECT_EQ(eyes.s.Run[3].Playing, True);
    eyes.Act("Selected_1", toggle);
    EXPECT_NE(eyes.s.Set[1].Selected, False);
    eyes.Act("ChannelFlag_3", menu);
    EXPECT_GT(eyes.s.Set[3].Channel, kChannels);
    eyes.s.Set[3].Vol = 100;
    eyes.Act("VolKnob_3", QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(eyes.s.Set[3].Vol, 101);
    eyes.Act("VolKnob_3", QAccessibleActionInterface::decreaseAction());
    eyes.Act("VolKnob_3", press);
    EXPECT_EQ(eyes.s.Set[3].Vol, 0);
    eyes.Act("Tab_1", toggle);
    EXPECT_EQ(eyes.s.ActiveTab, kMapTab);
    QApplication::setActiveWindow(eyes.Form.get());
    eyes.Act("HzKnob_2", QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(eyes.Named("HzKnob_2").hasFocus());
}

TEST(Accessible, ADisabledControlOffersNothingAndDoesNothing) {
    Eyes eyes;
    eyes.Named("PanKnob_3").setEnabled(false);
    QAccessibleInterface& knob = eyes.Of("PanKnob_3");
    EXPECT_TRUE(knob.state().disabled);
    EXPECT_THAT(knob.actionInterface()->actionNames(), IsEmpty());
    knob.valueInterface()->setCurrentValue(100);
    knob.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(eyes.s.Set[3].Pan, 303);
    EXPECT_TRUE(knob.text(QAccessible::Help).startsWith("off until a Sample is loaded"));
}

TEST(Accessible, StatesTellWhatIsTickedLitAndOpen) {
    Eyes eyes;
    EXPECT_TRUE(eyes.Of("Selected_0").state().checked);
    EXPECT_TRUE(eyes.Of("Selected_1").state().checkable);
    EXPECT_FALSE(eyes.Of("Selected_1").state().checked);
    eyes.s.Run[1].Playing = True;
    EXPECT_TRUE(eyes.Of("Play_1").state().pressed);
    EXPECT_EQ(eyes.Of("Play_1").text(QAccessible::Value), "plays");
    eyes.s.ActiveTab = kMapTab;
    EXPECT_TRUE(eyes.Of("Tab_1").state().selected);
    EXPECT_FALSE(eyes.Of("Tab_0").state().selected);
    EXPECT_TRUE(eyes.Of("VolKnob_0").state().focusable);
    EXPECT_FALSE(eyes.Of("VolKnob_0").state().checkable);
}

/// The parts of a control of several values, by name.
std::vector<std::string> PartsOf(QAccessibleInterface& control) {
    std::vector<std::string> names;
    for (int part = 0; part < control.childCount(); ++part) {
        QAccessibleInterface* object = control.child(part);
        EXPECT_EQ(control.indexOfChild(object), part);
        EXPECT_EQ(object->parent(), &control);
        EXPECT_EQ(control.child(part), object) << "made once";
        names.push_back(object->text(QAccessible::Name).toStdString());
    }
    return names;
}

double NumberIn(QAccessibleInterface& control, int part) {
    return control.child(part)->valueInterface()->currentValue().toDouble();
}
void SetIn(QAccessibleInterface& control, int part, double value) {
    control.child(part)->valueInterface()->setCurrentValue(value);
}

TEST(AccessibleParts, EachStepOfALaneIsReadAndSet) {
    Eyes eyes;
    eyes.s.CurrentLoop = 0;
    eyes.s.Set[0].NSteps = 3;
    eyes.s.GraphColumns[0] = eyes.s.GraphColumns[1] = eyes.s.GraphColumns[2] = 4;
    PatternBlock& vol = eyes.s.Set[0].Pattern[kVolPattern];
    vol[1] = 300;
    eyes.Reveal(eyes.Named("PatternGraph_0"));
    QAccessibleInterface& lane = eyes.Of("PatternGraph_0");
    EXPECT_THAT(PartsOf(lane), ElementsAre("step 1", "step 2", "step 3", "step 4", "random"));
    EXPECT_EQ(NumberIn(lane, 1), 300);
    EXPECT_EQ(lane.child(1)->role(), QAccessible::Slider);
    EXPECT_EQ(lane.child(1)->valueInterface()->maximumValue().toDouble(), 500);
    SetIn(lane, 1, 123);
    EXPECT_EQ(vol[1], 123);
    SetIn(lane, 1, 9999);
    EXPECT_EQ(vol[1], 500);
    SetIn(lane, 4, 70);
    EXPECT_EQ(vol[kPatternOffset], 70);
    lane.child(2)->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(vol[2], 499);
    // Each lies where it is drawn.
    const QRect place = lane.child(2)->rect();
    EXPECT_EQ(lane.childAt(place.center().x(), place.center().y()), lane.child(2));
    EXPECT_EQ(lane.childAt(-50, -50), nullptr);
    // Fewer steps: what was the fourth is gone.
    QAccessibleInterface* last = lane.child(4);
    eyes.s.GraphColumns[0] = 2;
    EXPECT_EQ(lane.childCount(), 3);
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(last->text(QAccessible::Name), "");
}

TEST(AccessibleParts, ABallIsReadAndSetInBothDirectionsAndTheListenerTurned) {
    Eyes eyes;
    eyes.s.MapEnabled = true;
    BallCentre(eyes.s, kPadBall);
    QAccessibleInterface& pad = eyes.Of("PadBall");
    EXPECT_THAT(PartsOf(pad), ElementsAre("to the right", "down"));
    EXPECT_NEAR(NumberIn(pad, 0), 50, 0.5);
    SetIn(pad, 0, 100);
    SetIn(pad, 1, 25);
    EXPECT_NEAR(NumberIn(pad, 0), 100, 0.5);
    EXPECT_NEAR(NumberIn(pad, 1), 25, 0.5);
    EXPECT_NEAR(eyes.s.PadTable[eyes.s.PadTypeIndex].X, eyes.s.Geometry.PadHalfX, 15);

    QAccessibleInterface& twist = eyes.Of("TwistBall");
    EXPECT_THAT(PartsOf(twist), ElementsAre("to the right"));
    SetIn(twist, 0, -40);
    EXPECT_NEAR(NumberIn(twist, 0), -40, 1);
    EXPECT_NEAR(eyes.s.TwistPosition, -0.4 * eyes.s.Geometry.PadHalfX, 15);

    eyes.Reveal(eyes.Named("PosBall_1"));
    QAccessibleInterface& ball = eyes.Of("PosBall_1");
    SetIn(ball, 0, -0.75);
    SetIn(ball, 1, 0.5);
    EXPECT_NEAR(eyes.s.Set[1].PositionX, -0.75, 0.02);
    EXPECT_NEAR(eyes.s.Set[1].PositionY, 0.5, 0.02);
    EXPECT_NEAR(NumberIn(ball, 0), -0.75, 0.02);
    SetIn(ball, 0, 1000);
    EXPECT_NEAR(eyes.s.Set[1].PositionX, eyes.s.MapRange, 0.02);

    QAccessibleInterface& listener = eyes.Of("PosBall_4");
    EXPECT_THAT(PartsOf(listener), ElementsAre("to the right", "down", "heading"));
    SetIn(listener, 2, 90);
    EXPECT_EQ(eyes.s.ListenerAngle, 90);
    EXPECT_EQ(NumberIn(listener, 2), 90);
}

TEST(AccessibleParts, TheSamplesOfABinAreEntriesThatAreChosenAndLoaded) {
    Eyes eyes;
    eyes.s.Bins[1].Destination = 3;
    QAccessibleInterface& bin = eyes.Of("PickFile_1");
    const std::vector<BinRow>& rows = eyes.s.Bins[1].Rows;
    ASSERT_EQ(bin.childCount(), static_cast<int>(rows.size()));
    EXPECT_EQ(bin.child(2)->text(QAccessible::Name).toStdString(), rows[2].Name + " (" + rows[2].Size + "k)");
    EXPECT_EQ(bin.child(2)->role(), QAccessible::ListItem);
    EXPECT_EQ(bin.child(2)->valueInterface(), nullptr);
    bin.child(2)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(eyes.s.Bins[1].Selected, 2);
    EXPECT_TRUE(bin.child(2)->state().selected);
    EXPECT_FALSE(bin.child(0)->state().selected);
    bin.child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(eyes.s.Bins[1].Selected, 0);
    EXPECT_EQ(eyes.s.Set[3].FileName, (eyes.Folder / rows[0].File).string());
    const QRect place = bin.child(1)->rect();
    EXPECT_EQ(bin.childAt(place.center().x(), place.center().y()), bin.child(1));
}

TEST(AccessibleParts, OfADisabledControlAreReadAndNotSet) {
    Eyes eyes;
    QWidget& ball = eyes.Named("PadBall");
    ball.setEnabled(false);
    QAccessibleInterface& right = *Seen(ball).child(0);
    EXPECT_TRUE(right.state().disabled);
    EXPECT_THAT(right.actionInterface()->actionNames(), IsEmpty());
    const float before = static_cast<float>(eyes.s.PadTable[eyes.s.PadTypeIndex].X);
    right.valueInterface()->setCurrentValue(99);
    EXPECT_EQ(static_cast<float>(eyes.s.PadTable[eyes.s.PadTypeIndex].X), before);
    ball.setEnabled(true);
}

TEST(Accessible, TheStatusLineTellsTheReadoutBehindTheHint) {
    Eyes eyes;
    ShowStatus(eyes.s, "drg Vol -/+");
    ShowReadout(eyes.s, "Vol: 320");
    EXPECT_EQ(eyes.Of("StatusBar1").text(QAccessible::Value), "drg Vol -/+; Vol: 320");
    ShowStatus(eyes.s, "");
    ShowReadout(eyes.s, "Vol: 321");
    EXPECT_EQ(eyes.Of("StatusBar1").text(QAccessible::Value), "Vol: 321");
}

}  // namespace
}  // namespace marvolin
