#include "parameters/mapping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Instrument;

/// A fraction of whole numbers, as the expected values are computed.
struct Fraction {
    std::int64_t Top = 0;
    std::int64_t Bottom = 1;
    Fraction Times(std::int64_t top, std::int64_t bottom) const { return {Top * top, Bottom * bottom}; }
};

/// True when `whole` is the nearest whole number to the fraction. In a tie either neighbour is right: the tests of ties
/// decide between them, with fractions that a double holds exactly.
bool IsNearest(std::int64_t whole, Fraction f) {
    const std::int64_t distance = 2 * (f.Top - whole * f.Bottom);
    return distance <= f.Bottom && distance >= -f.Bottom;
}

::testing::AssertionResult IsVolume(std::int64_t sent, Fraction level) {
    const auto failure = [&](std::int64_t wanted) {
        return ::testing::AssertionFailure() << sent << " sent, about " << wanted << " wanted";
    };
    if (level.Top >= 500 * level.Bottom) return sent == 0 ? ::testing::AssertionSuccess() : failure(0);
    if (level.Top <= 0) return sent == -10000 ? ::testing::AssertionSuccess() : failure(-10000);
    const Fraction line{6 * (level.Top - 499 * level.Bottom), level.Bottom};
    if (line.Top > 0) return sent == 0 ? ::testing::AssertionSuccess() : failure(0);
    return IsNearest(sent, line) ? ::testing::AssertionSuccess() : failure(line.Top / line.Bottom);
}

::testing::AssertionResult IsRate(std::int64_t sent, Fraction rate) {
    if (rate.Top < 100 * rate.Bottom && sent == 100) return ::testing::AssertionSuccess();
    if (rate.Top > 100000 * rate.Bottom && sent == 100000) return ::testing::AssertionSuccess();
    if (sent >= 100 && sent <= 100000 && IsNearest(sent, rate)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << sent << " sent, about " << rate.Top / rate.Bottom << " wanted";
}

std::int32_t VolumeSent(Instrument& i, Row row = 0) {
    i.Buffer(row).Volume = 1;
    MapVol(i.s, row);
    i.Sound.Log.clear();
    return i.Buffer(row).Volume;
}

std::int32_t PanSent(Instrument& i, Row row = 0) {
    i.Buffer(row).Pan = 1;
    MapPan(i.s, row);
    i.Sound.Log.clear();
    return i.Buffer(row).Pan;
}

std::int32_t RateSent(Instrument& i, Row row = 0) {
    i.Buffer(row).Frequency = 1;
    MapHZ(i.s, row);
    i.Sound.Log.clear();
    return i.Buffer(row).Frequency;
}

void SetPattern(Instrument& i, int patternRow, std::int16_t value, std::int16_t spread = 0) {
    for (int step = 0; step < kPatternSteps; ++step) i.s.Set[0].Pattern[patternRow][step] = value;
    i.s.Set[0].Pattern[patternRow][kPatternOffset] = spread;
}

TEST(MapVol, EveryVolumeIsTheProductOfSettingChannelMasterAndPatternInDecibels) {
    Instrument i;
    i.Fill(0);
    for (const std::int16_t channelVol : std::initializer_list<std::int16_t>{0, 1, 137, 250, 499, 500}) {
        for (const std::int16_t master : std::initializer_list<std::int16_t>{500, 499, 333, 1, 0}) {
            for (const std::int16_t pattern :
                 std::initializer_list<std::int16_t>{-1, 500, 250, 77, 0}) {  // -1: in Loop mode
                SCOPED_TRACE("channel " + std::to_string(channelVol) + " master " + std::to_string(master) +
                             " pattern " + std::to_string(pattern));
                i.s.ChannelVol[1] = channelVol;
                i.s.Set[kMasterRow].Vol = master;
                i.s.Set[0].PlayMode = pattern < 0 ? kLoop : kTrack;
                if (pattern >= 0) SetPattern(i, kVolPattern, pattern);
                for (std::int16_t vol = 0; vol <= 500; ++vol) {
                    i.s.Set[0].Vol = vol;
                    Fraction level = Fraction{vol}.Times(500 - channelVol, 500).Times(master, 500);
                    if (pattern >= 0) level = level.Times(pattern, 500);
                    ASSERT_TRUE(IsVolume(VolumeSent(i), level)) << "volume " << vol;
                }
            }
        }
    }
}

TEST(MapVol, SilenceAndTheEndsOfTheScaleAreExact) {
    Instrument i;
    i.Fill(0);
    const auto sent = [&](std::int16_t vol, std::int16_t attenuation) {
        i.s.Set[0].Vol = vol;
        i.s.ChannelVol[1] = attenuation;
        return VolumeSent(i);
    };
    EXPECT_EQ(sent(0, 0), -10000);
    EXPECT_EQ(sent(500, 500), -10000);
    EXPECT_EQ(sent(1, 0), -2988);
    EXPECT_EQ(sent(499, 0), 0);
    EXPECT_EQ(sent(500, 0), 0);
    EXPECT_EQ(sent(498, 0), -6);
}

TEST(MapVol, ATieGoesToTheEvenNumber) {
    Instrument i;
    i.Fill(0);
    i.s.ChannelVol[1] = 499;
    i.s.Set[0].Vol = 125;  // a quarter of a unit: -2992.5
    EXPECT_EQ(VolumeSent(i), -2992);
    i.s.Set[0].Vol = 375;  // three quarters: -2989.5
    EXPECT_EQ(VolumeSent(i), -2990);
}

TEST(MapVol, APatternAboveFullRaisesTheProductAndIsCappedAtFullLevel) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    i.Chance.Rest = 0.999;
    SetPattern(i, kVolPattern, 500, 500);  // 1000 of 500
    i.s.Set[0].Vol = 200;
    EXPECT_EQ(VolumeSent(i), (499 - 400) * -6);
    i.s.Set[0].Vol = 250;
    EXPECT_EQ(VolumeSent(i), 0);
    i.s.Set[0].Vol = 400;
    EXPECT_EQ(VolumeSent(i), 0);
}

TEST(MapVol, AProductBetweenTheLastTwoUnitsIsNeverLouderThanFullLevel) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    i.Chance.Rest = 0.999;
    SetPattern(i, kVolPattern, 500, 1);
    i.s.Set[0].Vol = 499;  // times 501/500: 499.998
    EXPECT_EQ(VolumeSent(i), 0);
}

TEST(MapPan, EveryPanIsTheSumOfSettingChannelAndPatternOnTheLopsidedScale) {
    Instrument i;
    i.Fill(0);
    for (const std::int16_t channelPan : std::initializer_list<std::int16_t>{500, 0, 1000, 499, 501, 733}) {
        for (const std::int16_t pattern :
             std::initializer_list<std::int16_t>{-1, 500, 0, 1000, 320}) {  // -1: in Loop mode
            SCOPED_TRACE("channel " + std::to_string(channelPan) + " pattern " + std::to_string(pattern));
            i.s.ChannelPan[1] = channelPan;
            i.s.Set[0].PlayMode = pattern < 0 ? kOneShot : kDrum;
            if (pattern >= 0) SetPattern(i, kPanPattern, pattern);
            for (std::int16_t pan = 0; pan <= 1000; ++pan) {
                i.s.Set[0].Pan = pan;
                const int place = pan + (channelPan - 500) + (pattern < 0 ? 0 : pattern - 500);
                int wanted = 0;
                if (place > 500) wanted = 12 * place - 6000;
                if (place < 500) wanted = 12 * place - 5988;
                if (place >= 1000) wanted = 10000;
                if (place <= 0) wanted = -10000;
                ASSERT_EQ(PanSent(i), wanted) << "pan " << pan;
            }
        }
    }
}

TEST(MapPan, TheLeftSideIsOneUnitShort) {
    Instrument i;
    i.Fill(0);
    const auto sent = [&](std::int16_t pan) {
        i.s.Set[0].Pan = pan;
        return PanSent(i);
    };
    EXPECT_EQ(sent(499), 0);
    EXPECT_EQ(sent(500), 0);
    EXPECT_EQ(sent(501), 12);
    EXPECT_EQ(sent(1), -5976);
    EXPECT_EQ(sent(999), 5988);
    EXPECT_EQ(sent(0), -10000);
    EXPECT_EQ(sent(1000), 10000);
}

TEST(MapPan, ThePatternsSpreadPushesToTheRight) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    SetPattern(i, kPanPattern, 500, 100);
    i.Chance.Sequence = {0.5, 0.0, 0.999};
    EXPECT_EQ(PanSent(i), 50 * 12);
    EXPECT_EQ(PanSent(i), 0);
    EXPECT_EQ(PanSent(i), 100 * 12);
}

TEST(MapPan, WithThreeDimensionsNothingIsSent) {
    Instrument i;
    i.s.Use3D = true;
    i.Fill(0);
    MapPan(i.s, 0);
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(MapHZ, EveryFrequencyIsTheProductOfSettingRateChannelAndPattern) {
    Instrument i;
    i.Fill(0);
    for (const std::int32_t sampleRate : {8000, 11025, 44100, 96000}) {
        for (const std::int16_t channelHz : std::initializer_list<std::int16_t>{1000, 1, 517, 2000, 4000}) {
            for (const std::int16_t pattern :
                 std::initializer_list<std::int16_t>{-1, 1000, 1, 1999}) {  // -1: in Loop mode
                SCOPED_TRACE("rate " + std::to_string(sampleRate) + " channel " + std::to_string(channelHz) +
                             " pattern " + std::to_string(pattern));
                i.s.Set[0].SampleRate = sampleRate;
                i.s.ChannelHz[1] = channelHz;
                i.s.Set[0].PlayMode = pattern < 0 ? kLoop : kDrum;
                if (pattern >= 0) SetPattern(i, kHzPattern, pattern);
                for (std::int16_t hz = 1; hz <= 4000; ++hz) {
                    i.s.Set[0].Hz = hz;
                    Fraction rate = Fraction{hz}.Times(sampleRate, 1000).Times(channelHz, 1000);
                    if (pattern >= 0) rate = rate.Times(pattern, 1000);
                    ASSERT_TRUE(IsRate(RateSent(i), rate)) << "frequency " << hz;
                }
            }
        }
    }
}

TEST(MapHZ, TheRateIsLimitedToWhatTheServiceTakes) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Hz = 4000;
    i.s.Set[0].SampleRate = 44100;  // 176400
    EXPECT_EQ(RateSent(i), 100000);
    i.s.Set[0].Hz = 1;
    i.s.Set[0].SampleRate = 8000;  // 8
    EXPECT_EQ(RateSent(i), 100);
}

TEST(MapHZ, ATieGoesToTheEvenNumber) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Hz = 500;
    i.s.Set[0].SampleRate = 8001;
    EXPECT_EQ(RateSent(i), 4000);
    i.s.Set[0].SampleRate = 8003;
    EXPECT_EQ(RateSent(i), 4002);
}

TEST(Map, AWireOfFiveOrMoreFollowsNoChannel) {
    Instrument i;
    i.Fill(0);
    for (int channel = 1; channel <= 4; ++channel) {
        i.s.ChannelVol[channel] = static_cast<std::int16_t>(100 * channel);
        i.s.ChannelPan[channel] = static_cast<std::int16_t>(500 + 10 * channel);
        i.s.ChannelHz[channel] = static_cast<std::int16_t>(100 * channel);
    }
    for (std::uint8_t wire = 1; wire <= 8; ++wire) {
        SCOPED_TRACE(static_cast<int>(wire));
        i.s.Set[0].Channel = wire;
        const bool wired = wire < 5;
        EXPECT_EQ(VolumeSent(i), wired ? (499 - (500 - 100 * wire)) * -6 : 0);
        EXPECT_EQ(PanSent(i), wired ? 120 * wire : 0);
        EXPECT_EQ(RateSent(i), wired ? 4410 * wire : 44100);
    }
}

TEST(Map, InLoopAndOneShotModesPatternsHaveNoEffectAndNoRandomNumberIsDrawn) {
    Instrument i;
    i.Fill(0);
    SetPattern(i, kVolPattern, 100, 50);
    SetPattern(i, kHzPattern, 100, 50);
    SetPattern(i, kPanPattern, 100, 50);
    for (const std::int16_t mode : {kOneShot, kLoop}) {
        SCOPED_TRACE(mode);
        i.s.Set[0].PlayMode = mode;
        EXPECT_EQ(VolumeSent(i), 0);
        EXPECT_EQ(PanSent(i), 0);
        EXPECT_EQ(RateSent(i), 44100);
    }
    EXPECT_EQ(i.Chance.Draws, 0);
}

TEST(Map, InTheClockedModesThePatternOfTheCurrentStepCounts) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Pattern[kHzPattern][kPatternOffset] = 0;
    i.s.Set[0].Pattern[kVolPattern][7] = 250;
    i.s.Set[0].Pattern[kPanPattern][7] = 600;
    i.s.Set[0].Pattern[kHzPattern][7] = 2000;
    i.s.Run[0].Step = 7;
    for (const std::int16_t mode : {kTrack, kDrum}) {
        SCOPED_TRACE(mode);
        i.s.Set[0].PlayMode = mode;
        EXPECT_EQ(VolumeSent(i), (499 - 250) * -6);
        EXPECT_EQ(PanSent(i), 1200);
        EXPECT_EQ(RateSent(i), 88200);
    }
}

TEST(Map, EveryCallDrawsANewRandomPart) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].PlayMode = kTrack;
    SetPattern(i, kVolPattern, 100, 100);
    SetPattern(i, kHzPattern, 1000, 1000);
    i.Chance.Sequence = {0.0, 0.5, 0.0, 0.5};
    EXPECT_EQ(VolumeSent(i), (499 - 100) * -6);
    EXPECT_EQ(VolumeSent(i), (499 - 150) * -6);
    EXPECT_EQ(RateSent(i), 44100);
    EXPECT_EQ(RateSent(i), 66150);
    EXPECT_EQ(i.Chance.Draws, 4);
}

TEST(Map, ARowWithoutASampleSendsNothingAndRaisesNothing) {
    Instrument i;
    for (Row row = 0; row < kRows; ++row) {
        MapVol(i.s, row);
        MapPan(i.s, row);
        MapHZ(i.s, row);
    }
    EXPECT_TRUE(i.Sound.Log.empty());
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(Map, TheRoutinesForAllRowsSendRowsZeroToThreeInOrder) {
    Instrument i;
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    MapVolAll(i.s);
    MapPanAll(i.s);
    MapHZAll(i.s);
    EXPECT_THAT(i.Sound.Log, ::testing::ElementsAre("SetVolume b0 0", "SetVolume b1 0", "SetVolume b2 0",
                                                    "SetVolume b3 0", "SetPan b0 0", "SetPan b1 0", "SetPan b2 0",
                                                    "SetPan b3 0", "SetFrequency b0 44100", "SetFrequency b1 44100",
                                                    "SetFrequency b2 44100", "SetFrequency b3 44100"));
}

TEST(Map, AFailureOfTheServiceIsShownWithTheWordsOfTheRoutine) {
    struct Case {
        void (*Map)(Session&, Row);
        std::string Operation;
        std::string Words;
    };
    const std::vector<Case> cases{{MapVol, "SetVolume", "setting volume"},
                                  {MapPan, "SetPan", "panning"},
                                  {MapHZ, "SetFrequency", "setting frequency"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Words);
        Instrument i;
        i.Fill(0);
        i.Sound.Failures[c.Operation] = sound_error::kInvalidArgument;
        EXPECT_NO_THROW(c.Map(i.s, 0));
        ASSERT_EQ(i.Desk.Boxes.size(), 1U);
        EXPECT_THAT(i.Desk.LastBox(), ::testing::StartsWith("Error " + c.Words + ": "));
    }
}

TEST(Map, ASumBeyondSixteenBitsFailsWithTheOverflowErrorAndSendsNothing) {
    struct Case {
        void (*Map)(Session&, Row);
        int PatternRow;
        std::string Words;
    };
    const std::vector<Case> cases{{MapVol, kVolPattern, "setting volume"},
                                  {MapPan, kPanPattern, "panning"},
                                  {MapHZ, kHzPattern, "setting frequency"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Words);
        Instrument i;
        i.Fill(0);
        i.s.Set[0].PlayMode = kTrack;
        i.s.Set[0].Pan = 0;
        i.Chance.Rest = 0.999999;
        SetPattern(i, c.PatternRow, std::numeric_limits<std::int16_t>::max(), 30000);
        c.Map(i.s, 0);
        EXPECT_EQ(i.Desk.LastBox(), "Error " + c.Words + ": ");
        EXPECT_TRUE(i.Sound.Log.empty());
    }
}

TEST(Map, TheSumOfThePanIsFormedFromLeftToRight) {
    Instrument i;
    i.Fill(0);
    i.s.Set[0].Pan = 1000;
    i.s.ChannelPan[1] = 32000;  // the first sum exceeds 32767, the whole sum would not
    MapPan(i.s, 0);
    EXPECT_EQ(i.Desk.LastBox(), "Error panning: ");
    EXPECT_TRUE(i.Sound.Log.empty());
}

TEST(Map, ARowOutsideTheTableIsASubscriptError) {
    Instrument i;
    EXPECT_THROW(MapVol(i.s, 6), SubscriptError);
    EXPECT_THROW(MapPan(i.s, -1), SubscriptError);
    EXPECT_THROW(MapHZ(i.s, 6), SubscriptError);
}

/// A row in Track mode whose volume pattern cannot be summed at its first step.
void Overflow(Instrument& i, Row row) {
    i.Fill(row);
    i.s.Set[row].PlayMode = kTrack;
    i.s.Set[row].Pattern[kVolPattern][0] = 32767;
    i.s.Set[row].Pattern[kVolPattern][kPatternOffset] = 32767;
    i.Chance.Rest = 0.9;
}

TEST(MapFailures, TheSameFailureOfARowIsShownOnceUntilItHasWorkedAgain) {
    Instrument i;
    i.Fill(0);
    i.Fill(1);
    i.Sound.Failures = {{"SetVolume", sound_error::kGeneric},
                        {"SetPan", sound_error::kGeneric},
                        {"SetFrequency", sound_error::kGeneric}};
    for (int n = 0; n < 3; ++n) {
        MapVol(i.s, 0);
        MapPan(i.s, 0);
        MapHZ(i.s, 0);
    }
    EXPECT_EQ(i.Desk.Boxes.size(), 3U);
    MapVol(i.s, 1);
    EXPECT_EQ(i.Desk.Boxes.size(), 4U);
    i.Sound.Failures["SetVolume"] = sound_error::kBufferLost;
    MapVol(i.s, 0);
    EXPECT_EQ(i.Desk.Boxes.size(), 5U);
    i.Sound.Failures.clear();
    MapVol(i.s, 0);
    i.Sound.Failures["SetVolume"] = sound_error::kBufferLost;
    MapVol(i.s, 0);
    EXPECT_EQ(i.Desk.Boxes.size(), 6U);
}

TEST(MapFailures, APatternThatFailsAtSomeOfItsStepsShowsItsBoxOnceAPlay) {
    Instrument i;
    Overflow(i, 0);
    for (int round = 0; round < 3; ++round) {
        for (std::int16_t step = 0; step < 4; ++step) {
            i.s.Run[0].Step = step;
            if (step > 0) i.s.Set[0].Pattern[kVolPattern][kPatternOffset] = 0;
            MapVol(i.s, 0);
            i.s.Set[0].Pattern[kVolPattern][kPatternOffset] = 32767;
        }
    }
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
    LoopPlay(i.s, 0, true);
    i.s.Run[0].Step = 0;
    MapVol(i.s, 0);
    EXPECT_EQ(i.Desk.Boxes.size(), 2U);
    LoopStop(i.s, 0);
    EXPECT_EQ(i.Desk.Boxes.size(), 3U);
}

}  // namespace
}  // namespace marvolin
