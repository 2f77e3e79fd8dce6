#include "stage/hearing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <fstream>

namespace marvolin::stage {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kTurn = 2 * 3.14159265358979;

/// Silence of `ms` on both sides.
Captured Silence(int ms) {
    const auto frames = static_cast<std::size_t>(ms) * 441 / 10;
    return {std::vector<std::int16_t>(frames), std::vector<std::int16_t>(frames)};
}

/// Adds a tone of 1000 Hz from..to ms that falls by 60 dB within `fall` ms (0: keeps its level).
void AddTone(std::vector<std::int16_t>& side, int from, int to, double peak, int fall = 0) {
    for (int i = from * 441 / 10; i < to * 441 / 10; ++i) {
        const double ms = (i - from * 44.1) / 44.1;
        const double level = fall > 0 ? std::pow(10.0, -3 * ms / fall) : 1;
        side[static_cast<std::size_t>(i)] =
            static_cast<std::int16_t>(peak * level * 32767 * std::sin(kTurn * 1000 * i / 44100));
    }
}

TEST(Hearing, LevelIsTheLoudnessInHundredthsOfADecibel) {
    Captured sound = Silence(1000);
    AddTone(sound.left, 0, 1000, 1);
    AddTone(sound.right, 0, 1000, 0.1);
    EXPECT_NEAR(Level(sound.left, 0, 44100), -301, 2);
    EXPECT_NEAR(Level(sound.right, 0, 44100), -2301, 2);
}

TEST(Hearing, ToneLevelIsTheLoudnessOfOneToneAlone) {
    Captured sound = Silence(1000);
    AddTone(sound.left, 0, 1000, 0.1);
    EXPECT_NEAR(ToneLevel(sound.left, 4410, 11025, 1000), -2301, 5);
    EXPECT_LT(ToneLevel(sound.left, 4410, 11025, 1100), -8500);
    EXPECT_EQ(ToneLevel(sound.right, 0, 4410, 1000), kSilence);
    EXPECT_EQ(ToneLevel(sound.left, 44100, 48510, 1000), kSilence);
}

TEST(Hearing, NothingIsSilence) {
    const Captured sound = Silence(100);
    EXPECT_EQ(Level(sound.left, 0, 4410), kSilence);
    EXPECT_EQ(Level(sound.left, 5000, 6000), kSilence);
    EXPECT_EQ(Level({}, 0, 10), kSilence);
    EXPECT_THAT(Sounding(sound, -5000, 100), IsEmpty());
    EXPECT_THAT(Onsets(sound, -5000, 600, 80), IsEmpty());
}

TEST(Hearing, ASoundOnEitherSideIsHeardFromItsBeginningToItsEnd) {
    Captured sound = Silence(1000);
    AddTone(sound.left, 100, 300, 0.5);
    AddTone(sound.right, 600, 900, 0.5);
    EXPECT_THAT(Sounding(sound, -5000, 100), ElementsAre(Stretch{100, 300}, Stretch{600, 900}));
}

TEST(Hearing, AShortSilenceIsPartOfTheSound) {
    Captured sound = Silence(1000);
    AddTone(sound.left, 100, 300, 0.5);
    AddTone(sound.left, 380, 500, 0.5);
    EXPECT_THAT(Sounding(sound, -5000, 100), ElementsAre(Stretch{100, 500}));
    EXPECT_THAT(Sounding(sound, -5000, 60), ElementsAre(Stretch{100, 300}, Stretch{380, 500}));
}

TEST(Hearing, AnOnsetIsWhereTheLevelRisesAgain) {
    Captured sound = Silence(1200);
    for (const int at : {100, 400, 650, 900}) AddTone(sound.left, at, at + 250, 0.5, 300);
    const std::vector<std::int64_t> onsets = Onsets(sound, -5000, 600, 80);
    ASSERT_EQ(onsets.size(), 4u);
    EXPECT_NEAR(static_cast<double>(onsets[0]), 100, 6);
    EXPECT_NEAR(static_cast<double>(onsets[1]), 400, 6);
    EXPECT_NEAR(static_cast<double>(onsets[2]), 650, 6);
    EXPECT_NEAR(static_cast<double>(onsets[3]), 900, 6);
}

TEST(Hearing, ASteadyToneBeginsOnce) {
    Captured sound = Silence(1000);
    AddTone(sound.left, 200, 1000, 0.5);
    EXPECT_EQ(Onsets(sound, -5000, 600, 80).size(), 1u);
}

TEST(Hearing, ACapturedFileIsReadAsFarAsItGoes) {
    std::string name = (std::filesystem::temp_directory_path() / "capturedXXXXXX").string();
    close(mkstemp(name.data()));
    {
        std::ofstream out(name, std::ios::binary);
        out << std::string(44, 'h') << std::string("\x01\x00\xFF\xFF\x02\x01\x00\x80\x05", 9);
    }
    const Captured whole = ReadCaptured(name);
    const Captured rest = ReadCaptured(name, 1);
    const Captured past = ReadCaptured(name, 9);
    std::filesystem::remove(name);
    EXPECT_THAT(whole.left, ElementsAre(1, 258));
    EXPECT_THAT(whole.right, ElementsAre(-1, -32768));
    EXPECT_THAT(rest.left, ElementsAre(258));
    EXPECT_THAT(past.left, IsEmpty());
    EXPECT_THAT(ReadCaptured(name).left, IsEmpty());
}

TEST(Hearing, ClicksAreFoundOnTheirFrame) {
    Captured sound = Silence(1000);
    sound.left[1000] = 16000;
    sound.left[1005] = -16000;  // the same click
    sound.right[5000] = -3000;
    sound.right[5600] = 1999;  // too quiet
    sound.left[6000] = 16000;
    EXPECT_THAT(Clicks(sound, 2000, 441), ElementsAre(1000, 5000, 6000));
    EXPECT_THAT(Clicks(sound, 2000, 2000), ElementsAre(1000, 5000));
    EXPECT_THAT(Clicks(Silence(100), 2000, 441), IsEmpty());
}

TEST(Hearing, DistancesAreGivenInMicroseconds) {
    const Distances even = DistancesOf({100, 11125, 22150, 33175});
    EXPECT_EQ(even.Count, 3);
    EXPECT_EQ(even.Mean, 250'000);
    EXPECT_EQ(even.Deviation, 0);
    const Distances uneven = DistancesOf({0, 11025 - 441, 22050});
    EXPECT_EQ(uneven.Mean, 250'000);
    EXPECT_EQ(uneven.Deviation, 10'000);
    EXPECT_EQ(uneven.Shortest, 240'000);
    EXPECT_EQ(uneven.Longest, 260'000);
    EXPECT_EQ(DistancesOf({7}).Count, 0);
}

}  // namespace
}  // namespace marvolin::stage
