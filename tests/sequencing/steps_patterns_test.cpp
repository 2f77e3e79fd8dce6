/// The patterns of a Drum LoopTrack, with their random amounts, as they are heard.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "core/loops/loop_track.h"
#include "steps_rig.h"

namespace marvolin {
namespace {

using test::SteppedInstrument;
using test::Weather;

constexpr int kFrames = 800;  // of the sample
constexpr int kStep = 4;      // hundredths of a second
constexpr int kStepFrames = 4 * 441;
constexpr std::size_t kDraws = 1000;
constexpr int kLevel = 16000;
constexpr int kSlope = 25;  // of a rising sample, a frame

/// What is heard of each step.
struct HeardStep {
    double Left = 0;  ///< level
    double Right = 0;
    double Rise = 0;  ///< of the left side, a frame
};

/// One LoopTrack stepped in bad weather, with one pattern that has a value at each step and a random amount.
struct PatternRun {
    SteppedInstrument I;
    std::vector<double> Chances;
    std::vector<HeardStep> Steps;

    PatternRun(int pattern, std::int16_t value, std::int16_t random, bool rising) {
        I.Outside.Card = Lateness(3 * 128 * 1e9 / 44100, 1);
        I.Outside.Loop = Lateness(3.9 * Weather::kMillisecond, 2);
        I.Run(2);
        std::vector<std::int32_t> numbers;
        for (int k = 0; k < kFrames; ++k) numbers.insert(numbers.end(), 2, rising && k > 0 ? kSlope * k : kLevel);
        I.Load(0, kDrum, kStep, numbers, "pattern.wav");
        I.s.Set[0].Pattern[pattern][0] = value;
        I.s.Set[0].Pattern[pattern][kPatternOffset] = random;
        std::mt19937 chance(4);
        for (std::size_t k = 0; k < kDraws; ++k)
            Chances.push_back(std::uniform_real_distribution<double>(0, 1)(chance));
        PlayAll(I.s);
        I.Chance.Sequence.assign(Chances.begin(), Chances.end());
        I.KeepsSound = true;
        I.Run(30);
        ReadSteps();
    }
    /// The random part of the k-th step that was drawn for: a whole number from 0 to `most`, or from `most` to 0.
    int Part(std::size_t k, int most) const {
        return most > 0 ? static_cast<int>(std::floor(Chances[k] * (most + 1)))
                        : static_cast<int>(std::floor(Chances[k] * (1 - most))) + most;
    }

private:
    static std::function<std::int64_t()> Lateness(double most, unsigned seed) {
        return [most, random = std::mt19937(seed)]() mutable {
            return static_cast<std::int64_t>(std::uniform_real_distribution<double>(0, most)(random));
        };
    }
    double At(std::int64_t frame, int side) const { return I.Sound[static_cast<std::size_t>(2 * frame + side)]; }
    void ReadSteps() {
        const auto frames = static_cast<std::int64_t>(I.Sound.size() / 2);
        std::int64_t last = -kStepFrames;
        int quiet = kStepFrames;
        for (std::int64_t f = 0; f + kFrames < frames; ++f) {
            const bool sounds = std::max(At(f, 0), At(f, 1)) > 1000;
            // The start itself is not one of the steps.
            if (sounds && quiet > 100) {
                if (last >= 0) {
                    EXPECT_TRUE(Steps.size() < 2 || f - last == kStepFrames) << f - last;
                    Steps.push_back({At(f + 100, 0), At(f + 100, 1), (At(f + 500, 0) - At(f + 100, 0)) / 400});
                }
                last = f;
            }
            quiet = sounds ? 0 : quiet + 1;
        }
    }
};

double GainOf(double hundredths) { return std::pow(10.0, hundredths / 2000); }

TEST(StepsPatterns, ThePanPatternAndItsRandomAmountAreHeardAsDrawnAtEachStep) {
    for (const int random : {100, -90}) {
        PatternRun run(kPanPattern, 500, static_cast<std::int16_t>(random), false);
        ASSERT_GE(run.Steps.size(), 700U);
        std::vector<int> drawn;
        for (std::size_t k = 0; k < 700; ++k) {
            const int pan = run.Part(k, random);
            drawn.push_back(pan);
            const double left = pan > 0 ? GainOf(-12.0 * pan) : 1;
            // The left side is a unit shorter.
            const double right = pan < 0 ? GainOf(-12.0 * (-pan - 1)) : 1;
            ASSERT_NEAR(run.Steps[k].Left, kLevel * left, 6) << k << ", " << pan;
            ASSERT_NEAR(run.Steps[k].Right, kLevel * right, 6) << k << ", " << pan;
        }
        std::sort(drawn.begin(), drawn.end());
        EXPECT_EQ(drawn.front(), std::min(random, 0));
        EXPECT_EQ(drawn.back(), std::max(random, 0));
    }
}

TEST(StepsPatterns, TheFrequencyPatternAndItsRandomAmountAreHeardAsDrawnAtEachStep) {
    for (const int random : {300, -300}) {
        PatternRun run(kHzPattern, 1000, static_cast<std::int16_t>(random), true);
        ASSERT_GE(run.Steps.size(), 700U);
        for (std::size_t k = 0; k < 700; ++k) {
            const double pitch = (1000 + run.Part(k, random)) / 1000.0;
            ASSERT_NEAR(run.Steps[k].Rise, kSlope * pitch, 0.02) << k << ", " << pitch;
        }
    }
}

TEST(StepsPatterns, TheVolumePatternAndItsRandomAmountAreHeardAsDrawnAtEachStep) {
    for (const int random : {40, -40}) {
        PatternRun run(kVolPattern, 450, static_cast<std::int16_t>(random), false);
        ASSERT_GE(run.Steps.size(), 700U);
        for (std::size_t k = 0; k < 700; ++k) {
            const double volume = 450 + run.Part(k, random);
            // Six hundredths of a decibel a unit.
            const double gain = GainOf(std::min(-6 * (499 - volume), 0.0));
            ASSERT_NEAR(run.Steps[k].Left, kLevel * gain, 6) << k << ", " << volume;
        }
    }
}

}  // namespace
}  // namespace marvolin
