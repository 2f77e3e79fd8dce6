#include "persistence/settings_section.h"

#include <gtest/gtest.h>

#include "audio/transport.h"
#include "parameters/knob_gesture.h"
#include "performance/joystick/joystick_setup.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using namespace test;

/// An instrument with a joystick. Without one its assignments wait.
struct WithJoystick : SetInstrument {
    WithJoystick() { s.JoyEnabled = true; }
};

/// Gives every setting another value than the one at the start.
void ChangeEverySetting(Session& s) {
    s.Limit = 2;
    s.ResetVars = !s.ResetVars;
    s.Driver = 1;
    for (std::int16_t& factor : s.Joy.Factor) factor = static_cast<std::int16_t>(factor + 10);
    for (Boolean& relative : s.Joy.Relative) relative = ToBoolean(relative == False);
    for (std::int16_t& button : s.Joy.Button) button = static_cast<std::int16_t>(button + 1);
    s.Joy.Axis[kMasterAxis] = kAxisRX;
    s.Joy.Axis[kTwistAxis] = kAxisRY;
    for (PadRecord& type : s.PadTable) type.Function = type.Function == 3 ? 1 : 3;
    s.FadeStep = 0.5;
    s.ActiveTab = kOptionTab;
    s.DragAxis = kVerticalDrag;
    for (bool& update : s.PositionUpdate) update = !update;
    s.TimingRes = 33;
}

TEST(Settings, EverySettingIsCollectedAndAppliedAgain) {
    WithJoystick changed;
    ChangeEverySetting(changed.s);
    const KeyedTable table = CollectSettings(changed.s);
    WithJoystick other;
    const KeyedTable before = CollectSettings(other.s);
    for (const auto& [key, value] : table.Pairs()) {
        SCOPED_TRACE(key);
        ASSERT_NE(before.Find(key), nullptr);
        // Both stand for the same machine, which has its own number of drivers.
        EXPECT_EQ(*before.Find(key) == value, key == "NDevices") << "the test has to change it";
    }
    ApplySettings(other.s, table);
    EXPECT_EQ(CollectSettings(other.s).Pairs(), table.Pairs());
}

TEST(Settings, EachSettingAloneIsAppliedAndLeavesTheOthersUnchanged) {
    WithJoystick changed;
    ChangeEverySetting(changed.s);
    const KeyedTable settings = CollectSettings(changed.s);
    for (const auto& [key, value] : settings.Pairs()) {
        if (key == "NDevices" || key == "DeviceNum") continue;  // they count only together
        SCOPED_TRACE(key);
        WithJoystick other;
        KeyedTable expected = CollectSettings(other.s);
        expected.Put(key, value);
        KeyedTable one;
        one.Put(key, value);
        ApplySettings(other.s, one);
        EXPECT_EQ(CollectSettings(other.s).Pairs(), expected.Pairs());
    }
}

TEST(Settings, WhatASetAssignsWaitsForTheFirstJoystickAndIsKeptAsItWasRead) {
    WithJoystick changed;
    ChangeEverySetting(changed.s);
    const KeyedTable table = CollectSettings(changed.s);
    SetInstrument other;
    other.Stick.Devices.clear();
    InitDirectInput(other.s);
    ApplySettings(other.s, table);
    EXPECT_EQ(other.s.Joy.Axis[kMasterAxis], kAxisNone) << "no axis holds the master";
    EXPECT_EQ(other.s.Joy.ButtonChoice[0], -1);
    EXPECT_EQ(CollectSettings(other.s).Pairs(), table.Pairs()) << "a save without a joystick keeps them";
    ASSERT_TRUE(JoyPlugIn(other.s, "stick"));
    EXPECT_EQ(other.s.Joy.Button, changed.s.Joy.Button);
    EXPECT_EQ(other.s.Joy.Axis, changed.s.Joy.Axis);
    EXPECT_EQ(CollectSettings(other.s).Pairs(), table.Pairs());
}

TEST(Settings, TheLimitIsATextTheFadeFactorADoubleAndAllOthersAreIntegers) {
    const WithJoystick i;
    const KeyedTable table = CollectSettings(i.s);
    EXPECT_EQ(table.Pairs().size(), 27U);
    for (const auto& [key, value] : table.Pairs()) {
        SCOPED_TRACE(key);
        EXPECT_EQ(std::holds_alternative<std::string>(value), key == "Limit");
        EXPECT_EQ(std::holds_alternative<double>(value), key == "FadeFactor");
        EXPECT_EQ(std::holds_alternative<std::int16_t>(value), key != "Limit" && key != "FadeFactor");
    }
}

TEST(Settings, AnUnknownKeyChangesNothing) {
    WithJoystick i;
    const KeyedTable before = CollectSettings(i.s);
    KeyedTable table;
    table.Put("JoyFactor", std::int16_t{500});  // without its index
    table.Put("JoyFactor 3", std::int16_t{500});
    table.Put("Volume", std::int16_t{1});
    ApplySettings(i.s, table);
    EXPECT_EQ(CollectSettings(i.s).Pairs(), before.Pairs());
}

TEST(Settings, ALimitThinsAndADragGoesOn) {
    WithJoystick i;
    i.Fill(0);
    i.Fill(1);
    LoopPlay(i.s, 0, true);
    LoopPlay(i.s, 1, true);
    KnobGesture(i.s, Knob::Vol, 2, Phase::Down, kLeftButton, 1000, 0);
    KeyedTable table;
    table.Put("Limit", std::string("1"));
    ApplySettings(i.s, table);
    EXPECT_EQ(i.s.ThinList, "B");
    KnobGesture(i.s, Knob::Vol, 2, Phase::Move, kLeftButton, 900, 0);
    EXPECT_EQ(i.s.Set[2].Vol, 400);
}

TEST(Settings, ADriverWithoutTheNumberOfDriversIsIgnored) {
    WithJoystick i;
    KeyedTable table;
    table.Put("DeviceNum", std::int16_t{1});
    ApplySettings(i.s, table);
    EXPECT_EQ(i.s.Driver, 0);
}

}  // namespace
}  // namespace marvolin
