/// What happens to the sound on its way to the card: silence, the meter, and what is recorded.

#include "audio/output/output_chain.h"

#include <cmath>
#include <cstdlib>
#include <thread>

#include "audio/loopback_rig.h"
#include "audio/openal/context.h"

namespace marvolin::test {
namespace {

constexpr int kPeriod = 128;

/// Interleaved frames, each channel at a level.
std::vector<std::int16_t> Frames(int count, int left, int right) {
    std::vector<std::int16_t> frames;
    for (int i = 0; i < count; ++i)
        frames.insert(frames.end(), {static_cast<std::int16_t>(left), static_cast<std::int16_t>(right)});
    return frames;
}

std::vector<std::int16_t> Passed(OutputChain& chain, std::vector<std::int16_t> frames) {
    chain.Pass_rt(frames.data(), static_cast<int>(frames.size() / 2));
    return frames;
}

std::vector<std::int16_t> Recorded(OutputChain& chain) {
    std::vector<std::int16_t> frames(2 * OutputChain::kRecordedFrames);
    frames.resize(2 * chain.Recorded().Read(frames));
    return frames;
}

TEST(OutputChain, SoundPassesUnchanged) {
    OutputChain chain;
    EXPECT_EQ(Passed(chain, Frames(kPeriod, 1234, -32768)), Frames(kPeriod, 1234, -32768));
}

TEST(OutputChain, SilenceComesWithinOnePeriodAndStays) {
    OutputChain chain;
    chain.SetSilent(true);
    const auto ramp = Passed(chain, Frames(kPeriod, 10000, -10000));
    EXPECT_EQ(ramp[2 * kPeriod - 2], 0);
    EXPECT_EQ(ramp[2 * kPeriod - 1], 0);
    EXPECT_EQ(Passed(chain, Frames(kPeriod, 10000, -10000)), Frames(kPeriod, 0, 0));
}

TEST(OutputChain, AShortPeriodIsSilentAtItsEndToo) {
    OutputChain chain;
    chain.SetSilent(true);
    EXPECT_EQ(Passed(chain, Frames(16, 10000, 10000)).back(), 0);
}

TEST(OutputChain, InALongPeriodTheRampIsAsShortAsInAShortOne) {
    OutputChain chain;
    chain.SetSilent(true);
    const auto frames = Passed(chain, Frames(2048, 10000, 10000));
    EXPECT_GT(frames[2 * (OutputChain::kRampFrames - 2)], 0);
    for (std::size_t i = 2 * (OutputChain::kRampFrames - 1); i < frames.size(); ++i) ASSERT_EQ(frames[i], 0) << i;
}

TEST(OutputChain, TheRampHasNoStepThatClicks) {
    OutputChain chain;
    int before = 30000;
    for (const bool silent : {true, false}) {
        chain.SetSilent(silent);
        const auto frames = Passed(chain, Frames(kPeriod, 30000, 30000));
        for (std::size_t i = 0; i < frames.size(); i += 2) {
            // The steepest part of half a wave of a cosine over the ramp.
            EXPECT_LE(std::abs(frames[i] - before), 30000 * 3.1416 / 2 / OutputChain::kRampFrames + 1) << i;
            EXPECT_EQ(frames[i], frames[i + 1]);
            before = frames[i];
        }
    }
    EXPECT_EQ(before, 30000);
}

TEST(OutputChain, AfterSilenceTheSoundIsHeardAgain) {
    OutputChain chain;
    chain.SetSilent(true);
    Passed(chain, Frames(kPeriod, 10000, 10000));
    chain.SetSilent(false);
    const auto ramp = Passed(chain, Frames(kPeriod, 10000, 10000));
    EXPECT_LT(ramp.front(), 100);
    EXPECT_EQ(ramp.back(), 10000);
    EXPECT_EQ(Passed(chain, Frames(kPeriod, 10000, 10000)), Frames(kPeriod, 10000, 10000));
}

TEST(OutputChain, TheMeterHasThePeakOfEachChannelSinceItWasLastRead) {
    OutputChain chain;
    Passed(chain, Frames(kPeriod, 100, -200));
    Passed(chain, Frames(kPeriod, -300, 50));
    EXPECT_EQ(chain.TakeLevels().Peak, (std::array<int, 2>{300, 200}));
    EXPECT_EQ(chain.TakeLevels().Peak, (std::array<int, 2>{0, 0}));
    Passed(chain, Frames(1, -32768, 0));
    EXPECT_EQ(chain.TakeLevels().Peak, (std::array<int, 2>{32768, 0}));
}

TEST(OutputChain, ThePeakIsFoundWhereverItStandsInAPeriodOfAnyLength) {
    OutputChain chain;
    for (int count = 1; count <= 40; ++count) {
        for (int place = 0; place < 2 * count; ++place) {
            std::vector<std::int16_t> frames = Frames(count, 5, -7);
            frames[static_cast<std::size_t>(place)] = static_cast<std::int16_t>(place % 3 == 0 ? 9000 : -9000);
            Passed(chain, frames);
            const auto peak = chain.TakeLevels().Peak;
            ASSERT_EQ(peak, (place % 2 == 0 ? std::array{9000, 7} : std::array{5, 9000})) << place << " of " << count;
        }
    }
}

TEST(OutputChain, TheMeterShowsWhatIsHeardNotWhatIsSilenced) {
    OutputChain chain;
    chain.SetSilent(true);
    Passed(chain, Frames(kPeriod, 10000, 10000));
    chain.TakeLevels();
    Passed(chain, Frames(kPeriod, 32767, 32767));
    const OutputLevels levels = chain.TakeLevels();
    EXPECT_EQ(levels.Peak, (std::array<int, 2>{0, 0}));
    EXPECT_FALSE(levels.CutOff);
}

TEST(OutputChain, TwoFramesInARowAtFullScaleInOneChannelAreASumThatWasCutOff) {
    for (const int full : {32767, -32768}) {
        OutputChain chain;
        Passed(chain, Frames(2, 0, full));
        EXPECT_TRUE(chain.TakeLevels().CutOff) << full;
        EXPECT_FALSE(chain.TakeLevels().CutOff) << "told twice";
    }
}

TEST(OutputChain, TheyCountAcrossTwoPeriods) {
    OutputChain chain;
    Passed(chain, Frames(1, 32767, 0));
    EXPECT_FALSE(chain.TakeLevels().CutOff);
    Passed(chain, Frames(1, 32767, 0));
    EXPECT_TRUE(chain.TakeLevels().CutOff);
}

TEST(OutputChain, APeakThatOnlyReachesFullScaleIsNotCutOff) {
    OutputChain chain;
    std::vector<std::int16_t> frames = Frames(4, 32766, 100);
    frames[2] = 32767;
    Passed(chain, frames);
    EXPECT_FALSE(chain.TakeLevels().CutOff);
    // One channel after the other.
    Passed(chain, {32767, 0, 0, 32767, 32767, 0});
    EXPECT_FALSE(chain.TakeLevels().CutOff);
}

TEST(OutputChain, WhatPassesWhileARecordingRunsIsRecordedAndNothingElse) {
    OutputChain chain;
    Passed(chain, Frames(kPeriod, 1, 2));
    chain.BeginRecording();
    const auto first = Passed(chain, Frames(kPeriod, 3, 4));
    chain.SetSilent(true);
    const auto second = Passed(chain, Frames(kPeriod, 5000, 6000));
    chain.EndRecording();
    Passed(chain, Frames(kPeriod, 7, 8));

    std::vector<std::int16_t> expected = first;
    expected.insert(expected.end(), second.begin(), second.end());
    EXPECT_EQ(Recorded(chain), expected);
    EXPECT_EQ(chain.Recorded().Missed(), 0U);
}

TEST(OutputChain, ASecondRecordingBeginsWithNothingOfTheFirst) {
    OutputChain chain;
    chain.BeginRecording();
    Passed(chain, Frames(kPeriod, 1, 2));
    chain.EndRecording();
    chain.BeginRecording();
    Passed(chain, Frames(2, 3, 4));
    EXPECT_EQ(Recorded(chain), Frames(2, 3, 4));
}

TEST(OutputChain, WhatTheDiskDoesNotTakeInTimeIsCounted) {
    OutputChain chain;
    chain.BeginRecording();
    const auto all = static_cast<int>(OutputChain::kRecordedFrames);
    Passed(chain, Frames(all - 10, 1, 1));
    Passed(chain, Frames(25, 2, 2));
    EXPECT_EQ(chain.Recorded().Missed(), 15U);
    EXPECT_EQ(Recorded(chain).size(), 2 * OutputChain::kRecordedFrames);
    EXPECT_EQ(Recorded(chain), Frames(15, 0, 0));
    Passed(chain, Frames(5, 3, 3));
    EXPECT_EQ(Recorded(chain), Frames(5, 3, 3)) << "there is room again";
    chain.BeginRecording();
    EXPECT_EQ(chain.Recorded().Missed(), 0U) << "of the former recording";
}

TEST(OutputChain, WhatTheDiskDidNotTakeInTimeIsSilenceInItsPlace) {
    FrameRing ring(64);
    const auto write = [&](int count, int level) {
        const auto frames = Frames(count, level, level);
        ring.Write_rt(frames.data(), static_cast<std::size_t>(count));
    };
    std::vector<std::int16_t> all;
    const auto read = [&](std::size_t frames) {
        std::vector<std::int16_t> piece(2 * frames);
        piece.resize(2 * ring.Read(piece));
        all.insert(all.end(), piece.begin(), piece.end());
        return piece.size() / 2;
    };
    write(60, 1);
    write(10, 2);  // six of them are lost
    write(10, 3);  // and all of these
    read(20);
    write(30, 4);  // ten are lost
    while (read(7) > 0) {
    }
    write(5, 5);
    while (read(7) > 0) {
    }
    std::vector<std::int16_t> expected;
    for (const auto& [count, level] : {std::pair{60, 1}, {4, 2}, {16, 0}, {20, 4}, {10, 0}, {5, 5}}) {
        const auto part = Frames(count, level, level);
        expected.insert(expected.end(), part.begin(), part.end());
    }
    EXPECT_EQ(all, expected);
    EXPECT_EQ(ring.Missed(), 26U);
}

TEST(OutputChain, AGapThatGrowsWhileItIsReadIsAsLongAsItWas) {
    FrameRing ring(16);
    const auto write = [&](int count, int level) {
        const auto frames = Frames(count, level, level);
        ring.Write_rt(frames.data(), static_cast<std::size_t>(count));
    };
    std::vector<std::int16_t> out(2 * 64);
    write(20, 1);
    EXPECT_EQ(ring.Read(out), 16U);
    EXPECT_EQ(ring.Read(std::span(out).first(4)), 2U);
    EXPECT_EQ(ring.Read(out), 2U);
    EXPECT_EQ(ring.Read(out), 0U);
    write(20, 2);
    EXPECT_EQ(ring.Read(out), 16U);
    EXPECT_EQ(out[0], 2);
    EXPECT_EQ(ring.Read(out), 4U);
    EXPECT_EQ(out[0], 0);
    write(20, 3);
    ring.Clear();
    write(3, 4);
    EXPECT_EQ(ring.Read(out), 3U) << "a gap of before was not forgotten";
}

TEST(OutputChain, FramesComeOutInOrderWhileTheyAreWrittenOnAnotherThread) {
    FrameRing ring(256);
    constexpr int kFrames = 100'000;
    std::atomic<int> taken{0};
    std::thread writer([&] {
        for (int i = 0; i < kFrames;) {
            // Waits for room, as a card never would, so that all can be compared.
            if (i - taken >= 128) {
                std::this_thread::yield();
                continue;
            }
            const std::array<std::int16_t, 2> frame{static_cast<std::int16_t>(i % 30000),
                                                    static_cast<std::int16_t>(-(i % 30000))};
            ring.Write_rt(frame.data(), 1);
            ++i;
        }
    });
    std::array<std::int16_t, 2 * 48> out{};
    int wrong = 0;
    while (taken < kFrames) {
        const auto count = static_cast<int>(ring.Read(out));
        if (count == 0) std::this_thread::yield();
        for (int i = 0; i < count; ++i) {
            const int expected = (taken + i) % 30000;
            wrong += out[static_cast<std::size_t>(2 * i)] != expected ||
                     out[static_cast<std::size_t>(2 * i + 1)] != -expected;
        }
        taken += count;
    }
    writer.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(ring.Missed(), 0U);
}

TEST(OutputChain, WhatADeviceThatWasPulledOutAsksForIsNeitherMeasuredNorRecorded) {
    OutputChain chain;
    chain.BeginRecording();
    Passed(chain, Frames(kPeriod, 1, 2));
    chain.TakeLevels();
    std::vector<std::int16_t> gone = Frames(kPeriod, 32767, 32767);
    chain.Pass_rt(gone.data(), kPeriod, true);
    const OutputLevels levels = chain.TakeLevels();
    EXPECT_EQ(levels.Peak, (std::array<int, 2>{0, 0}));
    EXPECT_FALSE(levels.CutOff);
    Passed(chain, Frames(kPeriod, 3, 4));
    std::vector<std::int16_t> expected = Frames(kPeriod, 1, 2);
    const auto again = Frames(kPeriod, 3, 4);
    expected.insert(expected.end(), again.begin(), again.end());
    EXPECT_EQ(Recorded(chain), expected) << "it goes on in the same file";
}

/// The mixer with a chain behind it.
class OutputOfTheMixer : public LoopbackRig {
protected:
    OutputOfTheMixer() : OutputOfTheMixer(std::make_shared<OutputChain>()) {}
    explicit OutputOfTheMixer(std::shared_ptr<OutputChain> chain) : chain_(chain) {
        renderer_ = LoopbackRenderer(nullptr, kPeriod, chain_);
        root_ = renderer_.Root();
        device_ = root_->DirectSoundCreate("");
    }
    std::shared_ptr<OutputChain> chain_;
};

TEST_F(OutputOfTheMixer, WhatIsRenderedIsMeasuredAndRecordedAsItIsHeard) {
    auto buffer = LoadLevels(6000, 3000, 44100);
    buffer->Play(1);
    chain_->BeginRecording();
    const Heard heard = Render(1000);
    const auto recorded = Recorded(*chain_);
    ASSERT_EQ(recorded.size(), 2000U);
    for (std::size_t i = 0; i < 1000; ++i) {
        ASSERT_EQ(recorded[2 * i], heard.Left[i]);
        ASSERT_EQ(recorded[2 * i + 1], heard.Right[i]);
    }
    const OutputLevels levels = chain_->TakeLevels();
    EXPECT_NEAR(levels.Peak[0], 6000, kStep);
    EXPECT_NEAR(levels.Peak[1], 3000, kStep);
    EXPECT_FALSE(levels.CutOff);
}

TEST(MixerOfAGoneDevice, RendersOnButNothingOfItIsRecorded) {
    const auto chain = std::make_shared<OutputChain>();
    OpenAlContext mixer(std::make_shared<LoadMeter>(), chain);
    chain->BeginRecording();
    std::vector<std::int16_t> out(2 * kPeriod);
    mixer.Render_rt(out.data(), kPeriod);
    for (int i = 0; i < 10; ++i) mixer.Render_rt(out.data(), kPeriod, true);
    mixer.Render_rt(out.data(), kPeriod);
    EXPECT_EQ(Recorded(*chain).size(), 4U * kPeriod);
}

TEST_F(OutputOfTheMixer, TwoLoudSamplesAreCutOffAndOneIsNot) {
    auto first = LoadLevels(20000, 100, 44100);
    auto second = LoadLevels(20000, 100, 44100);
    first->Play(1);
    Render(1000);
    EXPECT_FALSE(chain_->TakeLevels().CutOff);
    second->Play(1);
    Render(1000);
    EXPECT_TRUE(chain_->TakeLevels().CutOff);
}

TEST_F(OutputOfTheMixer, SilencedSamplesGoOnAndAreHeardWhereTheyWouldBe) {
    auto buffer = LoadRamp(3000);
    buffer->Play(0);
    Render(500);
    chain_->SetSilent(true);
    ExpectSilence(Render(500), kPeriod);
    chain_->SetSilent(false);
    Render(kPeriod);
    ExpectRamp(Render(500), 0, 500, 1000 + kPeriod);
}

TEST_F(OutputOfTheMixer, SilenceAndARecordingOutliveTheDevice) {
    chain_->BeginRecording();
    Render(100);
    device_.reset();
    device_ = root_->DirectSoundCreate("");
    Render(100);
    EXPECT_EQ(Recorded(*chain_).size(), 400U);
    chain_->SetSilent(true);
    device_.reset();
    device_ = root_->DirectSoundCreate("");
    auto buffer = LoadLevels(6000, 6000, 44100);
    buffer->Play(1);
    ExpectSilence(Render(500), kPeriod);
}

}  // namespace
}  // namespace marvolin::test
