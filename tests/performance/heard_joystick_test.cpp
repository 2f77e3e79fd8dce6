// A joystick that comes and goes while the instrument plays: the real joystick service and the real sound.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "performance/heard_rig.h"
#include "performance/joystick/joystick.h"
#include "performance/joystick/joystick_plug.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_waiting.h"
#include "performance/joystick/sdl_input.h"
#include "performance/pad/wire_sets.h"
#include "performance/virtual_stick.h"

namespace marvolin {
namespace {

using test::HeardInstrument;
using test::VirtualStick;

/// Four LoopTracks that sound, and no joystick at the start.
struct OnAStage : HeardInstrument {
    JoystickWatch Watch;

    OnAStage() {
        for (Row row = 0; row < kLoopTracks; ++row) Sound(row, 2000);
        SetChannel_Click(s, 3);  // "Alternate by 4"
        s.World.CreateDirectInput = CreateSdlInput;
        InitDirectInput(s);
        Plain = Heard().Left;
    }
    /// What the window does meanwhile; the card asks for its periods before and after it.
    template <typename Work>
    void While(Work work) {
        Render(512);
        work();
        const std::vector<std::int16_t> out = Render(512);
        const double quietest = *std::min_element(out.begin(), out.end());
        EXPECT_GT(quietest, 0.98 * Plain) << "a gap";
    }
    void Poll() {
        SDL_JoystickUpdate();
        JoyTimer_Timer(s);
    }
    double Plain = 0;
};

TEST(HeardJoystick, AStickThatIsPluggedInWhileLoopTracksSoundMovesThemAndSilencesNone) {
    OnAStage i;
    ASSERT_GT(i.Plain, 4000);
    ASSERT_FALSE(i.s.JoyEnabled) << "no stick may be plugged into the machine of this test";
    JoyAssignButton(i.s, kJoyCentre, 7);
    SetJoyRelative(i.s, 0, false);
    {
        VirtualStick stick(4, 12, 1);
        i.While([&] { i.Watch.Look(i.s); });
        ASSERT_TRUE(i.s.JoyEnabled);
        EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 7) << "what a set had assigned";
        i.While([&] { i.Poll(); });
        stick.Axis(0, 32767);
        i.Poll();
        EXPECT_LT(i.Heard().Left, 0.8 * i.Plain) << "the ball has gone to the edge";
        stick.Axis(0, 0);
        stick.Button(7, true);
        i.Poll();
        EXPECT_NEAR(i.Heard().Left, i.Plain, 0.01 * i.Plain);
    }
    for (int look = 0; look < JoystickWatch::kAwayLooks; ++look) i.While([&] { i.Watch.Look(i.s); });
    EXPECT_FALSE(i.s.JoyEnabled);
    EXPECT_EQ(JoyButtonToKeep(i.s, kJoyCentre), 7);
    VirtualStick again(4, 12, 1);
    i.While([&] { i.Watch.Look(i.s); });
    EXPECT_TRUE(i.s.JoyEnabled);
    EXPECT_EQ(i.s.Joy.Button[kJoyCentre], 7);
}

}  // namespace
}  // namespace marvolin
