// Lists, boxes, gauges and sliders of the pad, the map and the joystick.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <array>

#include "hand.h"
#include "settings_stage.h"

namespace marvolin {
namespace {

using test::Settings;

QStringList Texts(const QComboBox& list) {
    QStringList texts;
    for (int entry = 0; entry < list.count(); ++entry) texts << list.itemText(entry);
    return texts;
}

TEST(JoystickTab, ListsButtonsAndAxesAndShowsTheDefaults) {
    Settings stage;
    stage.OpenJoystick();
    const QStringList buttons{"1", "2", "3", "4", "5", "6", "7", "8", "None"};
    const std::array<const char*, 5> shown{"1", "3", "2", "6", "5"};
    for (std::size_t action = 0; action < 5; ++action) {
        auto& list = stage.Find<QComboBox>("JButton_" + std::to_string(action));
        EXPECT_EQ(Texts(list), buttons);
        EXPECT_EQ(list.currentText(), shown[action]);
        EXPECT_TRUE(list.isEnabled());
    }
    EXPECT_EQ(Texts(stage.Find<QComboBox>("JAxis_0")), (QStringList{"Z", "RZ", "None"}));
    EXPECT_EQ(stage.Find<QComboBox>("JAxis_0").currentText(), "Z");
    EXPECT_EQ(stage.Find<QComboBox>("JAxis_1").currentText(), "RZ");
}

TEST(JoystickTab, AChoiceTakesTheButtonOrAxisFromTheOtherList) {
    Settings stage;
    stage.OpenJoystick();
    test::Choose(stage.Find<QComboBox>("JButton_3"), 2);
    EXPECT_EQ(stage.s.Joy.Button[3], 2);
    EXPECT_EQ(stage.Find<QComboBox>("JButton_1").currentText(), "None");
    EXPECT_EQ(stage.s.Joy.Button[1], kNoButtonEntry);
    test::Choose(stage.Find<QComboBox>("JAxis_1"), 0);
    EXPECT_EQ(stage.s.Joy.Axis[1], kAxisZ);
    EXPECT_EQ(stage.Find<QComboBox>("JAxis_0").currentText(), "None");
    EXPECT_EQ(stage.s.Joy.Axis[0], kAxisNone);
}

TEST(JoystickTab, TheSlidersMoveInSmallAndLargeSteps) {
    Settings stage;
    stage.OpenJoystick();
    const std::array<int, 3> start{500, 1500, 1000};
    for (int factor = 0; factor < 3; ++factor) {
        SCOPED_TRACE(factor);
        auto& slider = stage.Find<QSlider>("JoyFactor_" + std::to_string(factor));
        EXPECT_EQ(slider.minimum(), 100);
        EXPECT_EQ(slider.maximum(), 3000);
        EXPECT_EQ(slider.value(), start[static_cast<std::size_t>(factor)]);
        QTest::keyClick(&slider, Qt::Key_Right);
        QTest::keyClick(&slider, Qt::Key_PageUp);
        EXPECT_EQ(stage.s.Joy.Factor[factor], start[static_cast<std::size_t>(factor)] + 110);
    }
}

TEST(JoystickTab, WithoutAJoystickTheListsAreDisabledAndShowNoChoice) {
    Settings stage(false);
    stage.OpenJoystick();
    for (const char* name : {"JButton_0", "JButton_4", "JAxis_0", "JAxis_1"}) {
        auto& list = stage.Find<QComboBox>(name);
        EXPECT_FALSE(list.isEnabled()) << name;
        EXPECT_EQ(list.currentIndex(), -1) << name;
    }
}

TEST(JoyRelative, EachBoxShowsAndSetsTheSettingOfItsTab) {
    Settings stage;
    for (int tab = 0; tab < 2; ++tab) {
        SCOPED_TRACE(tab);
        SetTab(stage.s, static_cast<std::int16_t>(tab));
        auto& box = stage.Find<QCheckBox>("JoyRelative_" + std::to_string(tab));
        EXPECT_EQ(box.text(), tab == 0 ? "Relative JStick Movement (Pad)" : "Relative JStick Movement (Map)");
        EXPECT_TRUE(box.isChecked());
        box.click();
        EXPECT_EQ(stage.s.Joy.Relative[tab], False);
        SetJoyRelative(stage.s, tab, true);
        EXPECT_TRUE(box.isChecked());
    }
}

TEST(PositionUpdate, TheBoxesShowAndSetTheFlagsOfListenerLoopAndRotation) {
    Settings stage;
    SetTab(stage.s, kOptionTab);
    const std::array<const char*, 3> texts{"Listener", "Loop", "Listener Rotation"};
    for (int member = 0; member < 3; ++member) {
        auto& box = stage.Find<QCheckBox>("PositionUpdate_" + std::to_string(member));
        EXPECT_EQ(box.text(), texts[static_cast<std::size_t>(member)]);
        const bool was = stage.s.PositionUpdate[member];
        EXPECT_EQ(box.isChecked(), was);
        box.click();
        EXPECT_EQ(stage.s.PositionUpdate[member], !was);
    }
}

TEST(MapControls, TheBallsFollowALeftDragOfTheSizeAndIgnoreARightDrag) {
    Settings stage;
    stage.OpenMap();
    const double y = stage.Middle("MapSize").y();
    stage.Press("MapSize", {120, y}, Qt::RightButton);
    stage.Move("MapSize", {200, y});
    stage.Release("MapSize", {200, y}, Qt::RightButton);
    EXPECT_EQ(stage.s.MapSize, 30);
    EXPECT_EQ(stage.s.MapRange, 1.5);
    stage.Press("MapSize", {120, y});
    stage.Move("MapSize", {228, y});
    EXPECT_EQ(stage.s.MapRange, 5);
    EXPECT_EQ(stage.s.StatusText, "10. x 10.");
    stage.Move("MapSize", {10, y});
    EXPECT_EQ(stage.s.StatusText, ".5 x .5");
    stage.Release("MapSize", {10, y});
    EXPECT_EQ(stage.s.MapRange, 0.25);
}

TEST(MapControls, TheListOfMacrosAndTheBoxOf3DStayEnabledWithout3D) {
    Settings stage;
    SetTab(stage.s, kMapTab);
    for (const char* name : {"PosMacros", "Enable3d", "PosPop"}) EXPECT_TRUE(stage.At(name)->isEnabled()) << name;
    EXPECT_EQ(Texts(stage.Find<QComboBox>("PosMacros")),
              (QStringList{"Off", "Scatter Abs", "Scatter Rel", "Wander", "Wander Jump"}));
    auto& box = stage.Find<QCheckBox>("Enable3d");
    EXPECT_FALSE(box.isChecked());
    box.click();
    EXPECT_TRUE(stage.s.Use3D);
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(stage.At("CentreAll")->isEnabled());
    box.click();
    EXPECT_FALSE(stage.s.Use3D);
    EXPECT_FALSE(stage.At("CentreAll")->isEnabled());
}

TEST(MapControls, ShowTheirHints) {
    Settings stage;
    stage.OpenMap();
    const std::vector<std::pair<const char*, const char*>> hints{
        {"PosPop", "clk Bring Listner to Front"},
        {"CentreAll", "clk Center All"},
        {"PosBall_4", "drag to Location; rtdrg Rotate; dblclk Centre"},
        {"PosBall_1", "drg to Location; dblclk Centre; rtclk Fade"}};
    PosMove(stage.s, 600, 600, 1, {.Absolute = true, .Apply = false});
    PosMove(stage.s, -600, 600, 4, {.Absolute = true, .Apply = false});
    for (const auto& [name, hint] : hints) {
        stage.Move(name, stage.Middle(name));
        EXPECT_EQ(stage.s.StatusText, hint) << name;
    }
}

TEST(PadLists, ShowTheirEntriesInOrder) {
    Settings stage;
    EXPECT_EQ(Texts(stage.Find<QComboBox>("PadType")), (QStringList{"300 Pitch", "400 Pitch", "Vol", "Pan"}));
    EXPECT_EQ(Texts(stage.Find<QComboBox>("PadFunction")),
              (QStringList{"Fde Dgnl", "Fde aftr Centr", "Fde aftr Side Centr"}));
    EXPECT_EQ(Texts(stage.Find<QComboBox>("SetChannel")),
              (QStringList{"Groups of 4", "Groups of 3", "Groups of 2", "Alternate by 4", "Alternate by 3",
                           "Alternate by 2", "Groups of 8", "All to 1", "All to 0"}));
    EXPECT_EQ(stage.Find<QComboBox>("PadType").currentText(), "Vol");
    EXPECT_EQ(stage.Find<QComboBox>("PadFunction").currentText(), "Fde aftr Centr");
}

TEST(JoystickTab, SaysThatNoJoystickWasFound) {
    for (const bool stick : {true, false}) {
        Settings stage(stick);
        stage.OpenJoystick();
        bool shown = false;
        for (const QLabel* label : stage.At("JoystickPage")->findChildren<QLabel*>()) {
            shown = shown || (label->isVisible() && label->text().startsWith("There is no joystick"));
        }
        EXPECT_NE(shown, stick);
    }
}

}  // namespace
}  // namespace marvolin
