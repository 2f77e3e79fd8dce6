#include "parameters/wires.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr double kWidth = 600;
constexpr double kLeft = 100;
constexpr double kMiddle = 300;
constexpr double kRight = 500;

void Press(Instrument& i, Row row, std::int16_t button, double x, double y = 1000) {
    ChannelFlag_Gesture(i.s, row, Phase::Down, button, x, y, kWidth);
}
void MoveTo(Instrument& i, Row row, double y) {
    ChannelFlag_Gesture(i.s, row, Phase::Move, kLeftButton, kLeft, y, kWidth);
}
void Release(Instrument& i, Row row, std::int16_t button, double x, double y = 1000) {
    ChannelFlag_Gesture(i.s, row, Phase::Up, button, x, y, kWidth);
}
int ClickOn(std::uint8_t channel, double x) {
    Instrument i;
    i.s.Set[0].Channel = channel;
    Press(i, 0, kLeftButton, x);
    Release(i, 0, kLeftButton, x);
    return i.s.Set[0].Channel;
}

TEST(WireFlip, FlipsOneBitOfTheValueLessOne) {
    struct Case {
        std::int16_t Value, Right, Left, Connection;
    };
    for (const Case& c : std::vector<Case>{{1, 2, 3, 5},
                                           {2, 1, 4, 6},
                                           {3, 4, 1, 7},
                                           {4, 3, 2, 8},
                                           {5, 6, 7, 1},
                                           {6, 5, 8, 2},
                                           {7, 8, 5, 3},
                                           {8, 7, 6, 4}}) {
        EXPECT_EQ(WireFlip(c.Value, kRightColour), c.Right) << c.Value;
        EXPECT_EQ(WireFlip(c.Value, kLeftColour), c.Left) << c.Value;
        EXPECT_EQ(WireFlip(c.Value, kDisconnected), c.Connection) << c.Value;
    }
}

TEST(WireClamp, KeepsAValueInTheRowsConnectionState) {
    Instrument i;
    for (std::uint8_t channel = 1; channel <= 8; ++channel) {
        i.s.Set[0].Channel = channel;
        for (std::int16_t value = -20; value <= 20; ++value) {
            const int wanted = channel > 4 ? std::clamp<int>(value, 5, 8) : std::clamp<int>(value, 1, 4);
            EXPECT_EQ(WireClamp(i.s, 0, value), wanted);
        }
    }
}

TEST(LoopSetChannel, IsLimitedInPlaceStoredAndShown) {
    Instrument i;
    i.Fill(0);
    std::int16_t value = 0;
    LoopSetChannel(i.s, 0, value, Apply::No);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(i.s.Set[0].Channel, 1);
    value = 9;
    LoopSetChannel(i.s, 0, value, Apply::No);
    EXPECT_EQ(value, 8);
    EXPECT_EQ(i.s.Set[0].Channel, 8);
    EXPECT_THAT(i.Screen.Log, UnorderedElementsAre("ShowWire 0", "ShowCaption 0", "ShowWire 0", "ShowCaption 0"));
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(LoopSetChannel, WithApplySendsVolumePanAndFrequencyInThisOrder) {
    Instrument i;
    i.Fill(0);
    i.s.ChannelVol[3] = 100;
    i.s.ChannelPan[3] = 600;
    i.s.ChannelHz[3] = 500;
    std::int16_t value = 3;
    LoopSetChannel(i.s, 0, value, Apply::Yes);
    EXPECT_THAT(i.Sound.Log, ElementsAre("SetVolume b0 -594", "SetPan b0 1200", "SetFrequency b0 22050"));
}

TEST(LoopSetChannelGang, ReachesTheControlledRowsTheBandOrTheRow) {
    const auto rowsAtEight = [](const Instrument& i) {
        std::vector<Row> rows;
        for (Row row = 0; row < kRows; ++row) {
            if (i.s.Set[row].Channel == 8) rows.push_back(row);
        }
        return rows;
    };
    Instrument selection;
    selection.Select(0);
    selection.Select(2);
    LoopSetChannelGang(selection.s, kSelectionRow, 8, Apply::Yes);
    EXPECT_THAT(rowsAtEight(selection), ElementsAre(0, 2, 4));
    Instrument starting;
    starting.s.GangReady = false;
    starting.Select(0);
    LoopSetChannelGang(starting.s, kSelectionRow, 8, Apply::Yes);
    EXPECT_THAT(rowsAtEight(starting), ElementsAre(4));
    Instrument band;
    band.MakeBand(4, 2, 3);
    LoopSetChannelGang(band.s, 3, 20, Apply::Yes);
    EXPECT_THAT(rowsAtEight(band), ElementsAre(2, 3));
    Instrument alone;
    LoopSetChannelGang(alone.s, 1, 8, Apply::Yes);
    EXPECT_THAT(rowsAtEight(alone), ElementsAre(1));
}

TEST(ChannelFlag, ARightClickTogglesTheConnectionAndTheSoundGoesBackToItsOwnSettings) {
    Instrument i;
    i.Fill(1);
    i.s.ChannelVol[2] = 500;
    i.s.ChannelPan[2] = 1000;
    i.s.ChannelHz[2] = 500;
    Press(i, 1, kRightButton, kMiddle);
    Release(i, 1, kRightButton, kMiddle);
    EXPECT_EQ(i.s.Set[1].Channel, 6);
    EXPECT_EQ(i.Buffer(1).Volume, 0);
    EXPECT_EQ(i.Buffer(1).Pan, 0);
    EXPECT_EQ(i.Buffer(1).Frequency, 44100);
    Press(i, 1, kRightButton, kLeft);
    Release(i, 1, kRightButton, kLeft);
    EXPECT_EQ(i.s.Set[1].Channel, 2);
    EXPECT_EQ(i.Buffer(1).Volume, -10000);
    EXPECT_EQ(i.Buffer(1).Pan, 10000);
    EXPECT_EQ(i.Buffer(1).Frequency, 22050);
    EXPECT_EQ(i.s.Drag.Dragging, False);
}

TEST(ChannelFlag, AClickFlipsTheColourOfTheThirdItHits) {
    EXPECT_EQ(ClickOn(2, kLeft), 4);
    EXPECT_EQ(ClickOn(2, kRight), 1);
    EXPECT_EQ(ClickOn(2, kMiddle), 2);
    EXPECT_EQ(ClickOn(6, kLeft), 8);
    EXPECT_EQ(ClickOn(6, kRight), 5);
}

TEST(ChannelFlag, TheThirdsEndAtTheirBorders) {
    EXPECT_EQ(ClickOn(2, 200), 4);
    EXPECT_EQ(ClickOn(2, 200.01), 2);
    EXPECT_EQ(ClickOn(2, 399.99), 2);
    EXPECT_EQ(ClickOn(2, 400), 1);
    EXPECT_EQ(ClickOn(2, 0), 4);
    EXPECT_EQ(ClickOn(2, 600), 1);
}

TEST(ChannelFlag, AClickIsHeardAtOnceForTheWholeGang) {
    struct Case {
        std::int16_t Button;
        double X;
        int Channel;  ///< from 2
    };
    for (const Case& c :
         std::vector<Case>{{kLeftButton, kLeft, 4}, {kLeftButton, kRight, 1}, {kRightButton, kLeft, 6}}) {
        SCOPED_TRACE(c.Channel);
        Instrument i;
        i.MakeBand(1, 0, 2);
        i.Fill(0);
        i.Fill(2);
        i.s.Set[3].Channel = 3;
        Press(i, 1, c.Button, c.X);
        Release(i, 1, c.Button, c.X);
        for (Row row = 0; row < 3; ++row) EXPECT_EQ(i.s.Set[row].Channel, c.Channel);
        EXPECT_EQ(i.s.Set[3].Channel, 3);
        EXPECT_EQ(i.Sound.Count("SetVolume"), 2);
    }
}

TEST(ChannelFlag, FourTwipsAreAClickFiveADrag) {
    for (const double distance : {-4.0, 4.0}) {
        Instrument i;
        i.s.Set[0].Channel = 2;
        Press(i, 0, kLeftButton, kLeft);
        MoveTo(i, 0, 1000 + distance);
        Release(i, 0, kLeftButton, kLeft, 1000 + distance);
        EXPECT_EQ(i.s.Set[0].Channel, 4) << distance;
    }
    Instrument down;
    down.s.Set[0].Channel = 2;
    Press(down, 0, kLeftButton, kLeft);
    Release(down, 0, kLeftButton, kLeft, 1005);
    EXPECT_EQ(down.s.Set[0].Channel, 1);
    Instrument up;
    up.s.Set[0].Channel = 2;
    Press(up, 0, kLeftButton, kLeft);
    Release(up, 0, kLeftButton, kLeft, 995);
    EXPECT_EQ(up.s.Set[0].Channel, 2);
}

TEST(ChannelFlag, ADragMovesOneChannelForAHundredTwipsUpwardsMore) {
    struct Case {
        double Distance;
        int Channel;
    };
    // Downwards the first step comes as soon as the press is no click any more, because the value is rounded down. The
    // distance is rounded down before.
    for (const Case& c : std::vector<Case>{{0, 2},
                                           {-99, 2},
                                           {-100, 3},
                                           {-199, 3},
                                           {-200, 4},
                                           {-900, 4},
                                           {-99.5, 3},
                                           {4, 2},
                                           {5, 1},
                                           {100, 1},
                                           {900, 1}}) {
        Instrument i;
        i.s.Set[0].Channel = 2;
        Press(i, 0, kLeftButton, kLeft);
        MoveTo(i, 0, 1000 + c.Distance);
        EXPECT_EQ(i.s.Set[0].Channel, c.Channel) << c.Distance;
    }
}

TEST(ChannelFlag, WhileDraggedTheFlagFollowsAndTheSoundOnlyAtTheEnd) {
    Instrument i;
    i.Fill(0);
    Press(i, 0, kLeftButton, kLeft);
    MoveTo(i, 0, 800);
    EXPECT_EQ(i.s.Set[0].Channel, 3);
    EXPECT_THAT(i.Sound.Log, IsEmpty());
    Release(i, 0, kLeftButton, kLeft, 700);
    EXPECT_EQ(i.s.Set[0].Channel, 4);
    EXPECT_EQ(i.Sound.Count("SetVolume"), 1);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    MoveTo(i, 0, 1000);
    Release(i, 0, kLeftButton, kLeft, 1000);
    EXPECT_EQ(i.s.Set[0].Channel, 4);
}

TEST(ChannelFlag, AClickThatTremblesLeavesFlagsAndSoundOfTheBandAlone) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    i.Fill(0);
    Press(i, 0, kLeftButton, kMiddle);
    for (const double y : {1001.0, 1004.9, 995.1, 1003.0}) MoveTo(i, 0, y);
    Release(i, 0, kLeftButton, kMiddle, 1003);
    EXPECT_EQ(i.s.Set[0].Channel, 1);
    EXPECT_EQ(i.s.Set[1].Channel, 2);
    EXPECT_THAT(i.Screen.Log, IsEmpty());
    EXPECT_THAT(i.Sound.Log, IsEmpty());
}

TEST(ChannelFlag, ADragThatComesBackToTheMiddleOfTheFlagIsHeardAsTheFlagShows) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    i.Fill(1);
    i.s.Set[0].Channel = 2;
    i.s.Set[1].Channel = 4;
    Press(i, 0, kLeftButton, kMiddle);
    MoveTo(i, 0, 1050);
    Release(i, 0, kLeftButton, kMiddle, 1002);
    EXPECT_EQ(i.s.Set[0].Channel, 2);
    EXPECT_EQ(i.s.Set[1].Channel, 2);
    EXPECT_EQ(i.Sound.Count("SetVolume"), 1);
}

TEST(ChannelFlag, ADragOverABandRefreshesNoListOfTheBrowser) {
    Instrument i;
    i.MakeBand(1, 0, 3);
    Press(i, 0, kLeftButton, kLeft);
    for (double y = 1000; y > 500; y -= 20) MoveTo(i, 0, y);
    Release(i, 0, kLeftButton, kLeft, 500);
    EXPECT_EQ(i.Screen.Count("ShowDestinations"), 0);
}

TEST(ChannelFlag, ADisconnectedFlagRunsThroughFiveToEightOnly) {
    Instrument i;
    i.s.Set[0].Channel = 6;
    Press(i, 0, kLeftButton, kLeft);
    for (double y = 3000; y >= -3000; y -= 10) {
        MoveTo(i, 0, y);
        ASSERT_GE(i.s.Set[0].Channel, 5);
        ASSERT_LE(i.s.Set[0].Channel, 8);
    }
    EXPECT_EQ(i.s.Set[0].Channel, 8);
    MoveTo(i, 0, 3000);
    EXPECT_EQ(i.s.Set[0].Channel, 5);
}

TEST(ChannelFlag, AnyOtherButtonDrags) {
    Instrument i;
    Press(i, 0, kMiddleButton, kLeft);
    EXPECT_NE(i.s.Drag.Dragging, False);
    EXPECT_EQ(i.s.Set[0].Channel, 1);
}

TEST(ChannelFlag, AMoveWithoutAPressChangesNothing) {
    Instrument i;
    ChannelFlag_Gesture(i.s, 0, Phase::Move, kNoButton, 0, 0, kWidth);
    EXPECT_EQ(i.s.Set[0].Channel, 1);
}

TEST(ChannelFlag, AStepMovesTheChannelOfTheGangAndKeepsTheConnection) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    i.Fill(1);
    i.s.Set[0].Channel = 2;
    ChannelFlag_Step(i.s, 0, 1);
    EXPECT_EQ(i.s.Set[0].Channel, 3);
    EXPECT_EQ(i.s.Set[1].Channel, 3);
    EXPECT_EQ(i.Sound.Count("SetVolume"), 1);
    i.s.Set[2].Channel = 6;
    ChannelFlag_Step(i.s, 2, -10);
    EXPECT_EQ(i.s.Set[2].Channel, 5);
}

TEST(ChannelFlag, AStepBeyondTheEndGivesTheGangNothingAndNorDoesOneDuringADrag) {
    Instrument i;
    i.MakeBand(1, 0, 1);
    i.s.Set[0].Channel = 4;
    i.s.Set[1].Channel = 2;
    ChannelFlag_Step(i.s, 0, 1);
    EXPECT_EQ(i.s.Set[1].Channel, 2);
    Press(i, 2, kLeftButton, kLeft);
    ChannelFlag_Step(i.s, 0, -1);
    EXPECT_EQ(i.s.Set[0].Channel, 4);
    EXPECT_EQ(i.s.Drag.Dragging, True);
}

TEST(ChannelFlag, APressThatLosesThePointerIsNoClick) {
    for (const double x : {kLeft, kMiddle, kRight}) {
        Instrument i;
        i.MakeBand(1, 0, 1);
        i.s.Set[1].Channel = 4;
        Press(i, 0, kLeftButton, x);
        ChannelFlag_PointerLost(i.s, 0);
        EXPECT_EQ(i.s.Set[0].Channel, 1);
        EXPECT_EQ(i.s.Set[1].Channel, 4);
        EXPECT_EQ(i.s.Drag.Dragging, False);
        ChannelFlag_PointerLost(i.s, 0);
        EXPECT_EQ(i.s.Set[0].Channel, 1);
    }
}

TEST(ChannelFlag, ADragThatLosesThePointerIsHeardAsTheFlagShows) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Channel = 2;
    Press(i, 0, kLeftButton, kLeft);
    MoveTo(i, 0, 800);
    MoveTo(i, 0, 1003);  // a release here would be one of a click
    ASSERT_EQ(i.s.Set[0].Channel, 1);
    i.Sound.Log.clear();
    ChannelFlag_PointerLost(i.s, 0);
    EXPECT_EQ(i.s.Set[0].Channel, 1);
    EXPECT_EQ(i.Sound.Count("SetVolume"), 1);
    EXPECT_EQ(i.s.Drag.Dragging, False);
}

}  // namespace
}  // namespace marvolin
