// How the sound map sounds.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "parameters/position.h"
#include "parameters/setters.h"
#include "performance/heard_rig.h"
#include "performance/map/listener.h"
#include "performance/map/use_3d.h"

namespace marvolin {
namespace {

using test::HeardInstrument;
using test::Sides;

constexpr double kMapNear = 12;  ///< tolerance for rounding and the mixer's filters

/// Inverse distance with roll-off, as samples are loaded: whole up to 1 map unit, no softer beyond 4.
double Expected(double level, double distance, double rollOff) {
    return level / (1 + rollOff * (std::clamp(distance, 1.0, 4.0) - 1));
}

void ExpectSides(HeardInstrument& i, double left, double right) {
    const Sides heard = i.Heard();
    EXPECT_NEAR(heard.Left, left, kMapNear);
    EXPECT_NEAR(heard.Right, right, kMapNear);
}

/// In row 0 a mono sample, or a stereo one of the same mean.
struct Source {
    const char* Name;
    int Channels;
};
constexpr std::array<Source, 2> kSources{{{"mono", 1}, {"stereo", 2}}};
constexpr double kMapLevel = 8000;

void SoundOf(HeardInstrument& i, const Source& source) {
    i.Silence();
    if (source.Channels == 1) {
        i.Sound(0, 8000);
    } else {
        i.Sound(0, 9500, 6500);
    }
}

TEST(HeardMap, AWalkFromSideToSideAndOutwardsSoftensAsTheInverseOfTheDistance) {
    HeardInstrument i;
    SetUse3D(i.s, true);
    for (const Source& source : kSources) {
        SCOPED_TRACE(source.Name);
        SoundOf(i, source);
        for (const double rollOff : {1.0, 0.0, 0.5, 2.0}) {
            SCOPED_TRACE(rollOff);
            SetRollOff(i.s, static_cast<float>(rollOff));
            for (const double x : {0.25, 1.0, 1.5, 2.0, 3.0, 4.0, 4.5, 5.0}) {
                SCOPED_TRACE(x);
                const double level = Expected(kMapLevel, x, rollOff);
                i.Place(0, -x, 0);
                ExpectSides(i, level, 0);
                i.Place(0, x, 0);
                ExpectSides(i, 0, level);
            }
        }
        SetRollOff(i.s, 1);
        // Ahead (down on the map) and behind, both sides are equally loud; behind is softer; both soften with distance.
        for (const double way : {1.0, -1.0}) {
            SCOPED_TRACE(way);
            i.Place(0, 0, way);
            const double near = i.Heard().Left;
            EXPECT_GT(near, kMapLevel / 4);
            for (const double y : {1.0, 2.0, 3.0, 5.0}) {
                SCOPED_TRACE(y);
                i.Place(0, 0, way * y);
                const double level = Expected(near, y, 1);
                ExpectSides(i, level, level);
            }
        }
    }
}

TEST(HeardMap, TheListenersBallMovesWhatIsHeardTheOtherWay) {
    HeardInstrument i;
    SetUse3D(i.s, true);
    i.Sound(0, 8000);
    i.Place(kListenerBall, 3, 0);
    ExpectSides(i, Expected(kMapLevel, 3, 1), 0);
    i.Place(kListenerBall, -2, 0);
    ExpectSides(i, 0, Expected(kMapLevel, 2, 1));
    // 22 radians are nearly half a turn: left and right change places.
    RotateListener(i.s, 22, Apply::Yes);
    const Sides turned = i.Heard();
    EXPECT_GT(turned.Left, 50 * std::abs(turned.Right));
}

TEST(HeardMap, With3DOffThePanIsHeardAndThePlaceIsNot) {
    HeardInstrument i;
    for (const Source& source : kSources) {
        SCOPED_TRACE(source.Name);
        SoundOf(i, source);
        const double left = source.Channels == 1 ? 8000 : 9500;
        const double right = source.Channels == 1 ? 8000 : 6500;
        i.Place(0, -3, 2);
        ExpectSides(i, left, right);
        for (const std::int16_t pan :
             {std::int16_t{0}, std::int16_t{400}, std::int16_t{500}, std::int16_t{600}, std::int16_t{1000}}) {
            SCOPED_TRACE(pan);
            std::int16_t value = pan;
            LoopPanChange(i.s, 0, value, TakeHold::Yes);
            // Hundredths of a decibel taken from the far side: 12 a unit, one short on the left.
            const double toLeft = pan == 0 ? 10000 : pan < 500 ? (499 - pan) * 12 : 0;
            const double toRight = pan == 1000 ? 10000 : pan > 500 ? (pan - 500) * 12 : 0;
            ExpectSides(i, toRight >= 10000 ? 0 : left * std::pow(10, -toRight / 2000),
                        toLeft >= 10000 ? 0 : right * std::pow(10, -toLeft / 2000));
        }
    }
}

TEST(HeardMap, SwitchingThereAndBackKeepsSamplesSettingsAndPatternsAndIsHeard) {
    HeardInstrument i;
    i.Sound(0, 8000);
    i.Sound(2, 0);
    std::int16_t pan = 1000;
    std::int16_t vol = 321;
    std::int16_t hz = 1234;
    LoopPanChange(i.s, 0, pan, TakeHold::Yes);
    LoopVolChange(i.s, 2, vol, TakeHold::Yes, UpdateDisplay::Yes);
    LoopHzChange(i.s, 2, hz, TakeHold::Yes);
    i.Place(0, -2, 0);
    i.Place(kListenerBall, 1, 0);
    i.s.Set[0].Pattern[kPanPattern][3] = 77;
    i.s.Set[0].Pattern[kVolPattern][3] = 88;
    const std::string file = i.s.Set[0].FileName;
    for (const bool on : {true, false, true, false}) {
        SCOPED_TRACE(on);
        Enable3d_Click(i.s, on);
        if (on) {
            ExpectSides(i, Expected(kMapLevel, 3, 1), 0);
        } else {
            ExpectSides(i, 0, kMapLevel);
        }
        EXPECT_EQ(i.s.Use3D, on);
        EXPECT_EQ(i.s.Set[0].FileName, file);
        EXPECT_EQ(i.s.Run[2].Loaded, True);
        EXPECT_EQ(i.s.Run[2].Playing, True);
        EXPECT_EQ(i.s.Set[2].Vol, 321);
        EXPECT_EQ(i.s.Set[2].Hz, 1234);
        EXPECT_EQ(i.s.Set[0].Pan, 1000);
        EXPECT_FLOAT_EQ(i.s.Set[0].PositionX, -2);
        EXPECT_DOUBLE_EQ(i.s.ListenerX, 1);
        EXPECT_EQ(i.s.Set[0].Pattern[kPanPattern][3], 77);
        EXPECT_EQ(i.s.Set[0].Pattern[kVolPattern][3], 88);
        EXPECT_EQ(i.s.MapRange, 5);
        EXPECT_TRUE(i.Desk.Boxes.empty()) << i.Desk.LastBox();
    }
}

TEST(HeardMap, NoSoundAndBackIsHeardFromTheSamePlaces) {
    HeardInstrument i;
    SetUse3D(i.s, true);
    i.s.DeviceSwapArmed = true;
    i.Sound(0, 8000);
    SetRollOff(i.s, 2);
    i.Place(0, -1, 0);
    i.Place(kListenerBall, 2, 0);
    ExpectSides(i, Expected(kMapLevel, 3, 2), 0);
    const auto noSound = static_cast<std::int16_t>(i.s.Drivers.size() - 1);
    cboDrivers_Click(i.s, noSound);
    EXPECT_FALSE(i.s.DSReady);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_TRUE(i.s.Use3D);
    // What is placed in silence is heard afterwards.
    i.Place(kListenerBall, 3, 0);
    cboDrivers_Click(i.s, 0);
    EXPECT_EQ(i.s.Run[0].Playing, True);
    ExpectSides(i, Expected(kMapLevel, 4, 2), 0);
    EXPECT_TRUE(i.Desk.Boxes.empty()) << i.Desk.LastBox();
}

TEST(HeardMap, AnotherDeviceGetsTheListenersPlaceAndHeading) {
    HeardInstrument i;
    SetUse3D(i.s, true);
    i.s.DeviceSwapArmed = true;
    i.Sound(0, 8000);
    SetRollOff(i.s, 2);
    i.Place(kListenerBall, 3, 0);
    ExpectSides(i, Expected(kMapLevel, 3, 2), 0);
    cboDrivers_Click(i.s, 0);
    ExpectSides(i, Expected(kMapLevel, 3, 2), 0);
}

}  // namespace
}  // namespace marvolin
