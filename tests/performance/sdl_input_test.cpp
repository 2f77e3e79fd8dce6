#include "performance/joystick/sdl_input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/errors.h"
#include "performance/joystick/joystick.h"
#include "performance/joystick/joystick_plug.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/surfaces.h"
#include "performance/virtual_stick.h"

namespace marvolin {
namespace {

using test::VirtualStick;
using testing::ElementsAre;

/// The service with one virtual stick, opened as the instrument does it.
struct Service {
    std::unique_ptr<DirectInput> Input = CreateSdlInput();
    VirtualStick Stick{4, 12, 1};
    std::unique_ptr<DirectInputDevice> Device = Input->CreateDevice(Stick.Guid());

    Service() {
        Device->SetCommonDataFormat(3);
        Device->SetCooperativeLevel(10);
        Device->GetCapabilities();
        for (std::int32_t axis : {0, 4}) {
            Device->SetProperty({JoyProperty::DeadZone, 20, axis, 1, 1000, 0});
            Device->SetProperty({JoyProperty::Saturation, 20, axis, 1, 9500, 0});
        }
        Device->SetProperty({JoyProperty::Range, 24, 0, 0, 0, 10000});
        Device->Acquire();
    }
    DIJOYSTATE Read() const {
        DIJOYSTATE state;
        Device->Poll();
        Device->GetDeviceStateJoystick(state);
        return state;
    }
};

std::uint32_t ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}

TEST(SdlInput, ListsTheAttachedJoysticksOfItsClassOnly) {
    const std::unique_ptr<DirectInput> input = CreateSdlInput();
    const std::size_t before = input->GetDIEnumDevices(4, 1).size();
    VirtualStick stick(2, 2, 0);
    const std::vector<std::string> devices = input->GetDIEnumDevices(4, 1);
    EXPECT_EQ(devices.size(), before + 1);
    EXPECT_THAT(devices, testing::Contains(stick.Guid()));
    EXPECT_TRUE(input->GetDIEnumDevices(2, 1).empty());
    EXPECT_NE(ErrorOf([&] { input->CreateDevice("nobody"); }), 0u);
}

TEST(SdlInput, ReportsTheOffsetsOfItsAxes) {
    Service i;
    EXPECT_THAT(i.Device->GetDeviceObjectsEnum(), ElementsAre(0, 4, 8, 20));
}

TEST(SdlInput, ScalesXAndYWithDeadZoneAndSaturation) {
    Service i;
    // 0.095 is in the dead zone, 0.525 is the middle between 0.1 and 0.95, 0.95 is full.
    for (const auto& [raw, expected] : {std::pair{0, 5000},
                                        {3113, 5000},
                                        {-3113, 5000},
                                        {3276, 5000},
                                        {17203, 7500},
                                        {-17203, 2500},
                                        {31129, 10000},
                                        {32767, 10000},
                                        {-32768, 0},
                                        {-31131, 0}}) {
        i.Stick.Axis(0, raw);
        i.Stick.Axis(1, -raw > 32767 ? 32767 : -raw);
        const DIJOYSTATE state = i.Read();
        EXPECT_NEAR(state.x, expected, 1) << raw;
        EXPECT_NEAR(state.y, 10000 - expected, 1) << raw;
    }
}

TEST(SdlInput, TheOtherAxesRunEvenlyOverTheWholeRange) {
    Service i;
    for (const auto& [raw, expected] :
         {std::pair{0, 5000}, {-32768, 0}, {32767, 10000}, {3277, 5500}, {-16384, 2500}}) {
        i.Stick.Axis(2, raw);
        i.Stick.Axis(3, raw);
        const DIJOYSTATE state = i.Read();
        EXPECT_EQ(state.z, expected);
        EXPECT_EQ(state.rz, expected);
        EXPECT_EQ(state.rx, 0);
    }
}

TEST(SdlInput, TheHatIsInHundredthsOfADegreeAndMinusOneWhenCentred) {
    Service i;
    EXPECT_THAT(i.Read().POV, ElementsAre(-1, -1, -1, -1));
    const std::array<int, 8> hats{SDL_HAT_UP,   SDL_HAT_RIGHTUP,  SDL_HAT_RIGHT, SDL_HAT_RIGHTDOWN,
                                  SDL_HAT_DOWN, SDL_HAT_LEFTDOWN, SDL_HAT_LEFT,  SDL_HAT_LEFTUP};
    for (int direction = 0; direction < 8; ++direction) {
        i.Stick.Hat(0, hats[static_cast<std::size_t>(direction)]);
        EXPECT_EQ(i.Read().POV[0], direction * 4500);
    }
    i.Stick.Hat(0, SDL_HAT_CENTERED);
    EXPECT_EQ(i.Read().POV[0], -1);
}

TEST(SdlInput, ReadsEveryButton) {
    Service i;
    for (int button = 0; button < 12; ++button) {
        i.Stick.Button(button, true);
        DIJOYSTATE state = i.Read();
        for (std::size_t other = 0; other < state.buttons.size(); ++other) {
            EXPECT_EQ(state.buttons[other] != 0, other == static_cast<std::size_t>(button));
        }
        i.Stick.Button(button, false);
    }
    const DIJOYSTATE state = i.Read();
    EXPECT_THAT(state.buttons, testing::Each(0));
}

TEST(SdlInput, WorksWithoutAnSdlWindow) {
    Service i;
    EXPECT_STREQ(SDL_GetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS), "1");
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0u);
    i.Stick.Axis(0, 32767);
    EXPECT_EQ(i.Read().x, 10000);
}

TEST(SdlInput, TheStateIsRefusedBeforeTheDeviceIsAcquired) {
    const std::unique_ptr<DirectInput> input = CreateSdlInput();
    VirtualStick stick(2, 2, 0);
    const auto device = input->CreateDevice(stick.Guid());
    DIJOYSTATE state;
    EXPECT_EQ(ErrorOf([&] { device->GetDeviceStateJoystick(state); }), input_error::kNotAcquired);
    device->Acquire();
    EXPECT_EQ(ErrorOf([&] { device->GetDeviceStateJoystick(state); }), 0u);
}

TEST(SdlInput, AStickThatIsPulledOutInMidPollIsLostThenNotAcquiredAndComesBack) {
    Service i;
    i.Device->Poll();
    i.Stick.Detach();
    DIJOYSTATE state;
    state.x = 77;
    EXPECT_EQ(ErrorOf([&] { i.Device->GetDeviceStateJoystick(state); }), input_error::kInputLost);
    EXPECT_EQ(state.x, 77);
    EXPECT_EQ(ErrorOf([&] { i.Device->Acquire(); }), input_error::kInputLost);
    EXPECT_EQ(ErrorOf([&] { i.Device->Poll(); }), 0u);
    EXPECT_EQ(ErrorOf([&] { i.Device->GetDeviceStateJoystick(state); }), input_error::kNotAcquired);
    i.Stick.Attach();
    i.Device->Poll();
    i.Device->Acquire();
    i.Stick.Axis(0, 32767);
    EXPECT_EQ(i.Read().x, 10000);
}

TEST(SdlInput, APropertyOfAMissingAxisIsRefused) {
    Service i;
    EXPECT_NE(ErrorOf([&] { i.Device->SetProperty({JoyProperty::DeadZone, 20, 12, 1, 500, 0}); }), 0u);
    EXPECT_NE(ErrorOf([&] { i.Device->SetProperty({JoyProperty::DeadZone, 24, 0, 1, 500, 0}); }), 0u);
    EXPECT_EQ(ErrorOf([&] { i.Device->SetProperty({JoyProperty::DeadZone, 20, 8, 1, 500, 0}); }), 0u);
}

TEST(SdlInput, ADeviceMayOutliveTheService) {
    Service i;
    i.Input.reset();
    i.Stick.Button(3, true);
    EXPECT_NE(i.Read().buttons[3], 0);
}

TEST(SdlInput, DrivesTheInstrumentAndItsLossEndsNothing) {
    const std::unique_ptr<DirectInput> first = CreateSdlInput();
    VirtualStick stick(4, 12, 1);
    test::Surfaces i;
    i.s.World.CreateDirectInput = [] { return CreateSdlInput(); };
    InitDirectInput(i.s);
    // A real joystick may be attached to the machine: the test moves the virtual one.
    i.s.JoyDevice = i.s.DI->CreateDevice(stick.Guid());
    JoyFindAxes(i.s, *i.s.JoyDevice);
    JoySetProperties(i.s);
    i.s.JoyDevice->Acquire();
    SetJoyRelative(i.s, 0, false);
    stick.Axis(0, 32767);
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTable[2].X, test::Surfaces::kHalf);
    stick.Hat(0, SDL_HAT_RIGHTDOWN);
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTypeIndex, 3);
    stick.Detach();
    for (int poll = 0; poll < 5; ++poll) JoyTimer_Timer(i.s);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_TRUE(i.s.JoyEnabled);
    stick.Attach();
    JoyTimer_Timer(i.s);
    stick.Axis(0, -32768);
    stick.Hat(0, SDL_HAT_RIGHT);
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTypeIndex, 2);
}

TEST(SdlInput, AStickThatIsPluggedInWhileTheProgramRunsWorksWithItsAssignments) {
    test::Surfaces i;
    i.s.World.CreateDirectInput = [] { return CreateSdlInput(); };
    InitDirectInput(i.s);
    ASSERT_FALSE(i.s.JoyEnabled) << "this machine has a stick";
    JoystickWatch watch;
    watch.Look(i.s);
    EXPECT_FALSE(i.s.JoyEnabled);

    VirtualStick stick{4, 12, 1};
    watch.Look(i.s);
    ASSERT_TRUE(i.s.JoyEnabled);
    JButton_Click(i.s, kJoyCentre, 3);
    SetJoyRelative(i.s, 0, false);
    stick.Axis(0, 32767);
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTable[2].X, test::Surfaces::kHalf);
    // The fourth axis is the twist.
    stick.Axis(3, -32768);
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.TwistPosition, -2130);

    stick.Detach();
    for (int look = 0; look < JoystickWatch::kAwayLooks; ++look) watch.Look(i.s);
    EXPECT_FALSE(i.s.JoyEnabled);
    VirtualStick another{2, 6, 0};
    watch.Look(i.s);
    ASSERT_TRUE(i.s.JoyEnabled);
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 3);
    PadMove(i.s, 100, 100, 500, {.Absolute = true, .Apply = true});
    another.Button(3, true);
    JoyTimer_Timer(i.s);
    EXPECT_EQ(i.s.PadTable[2].X, 0);
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

}  // namespace
}  // namespace marvolin
