/// The two threads at full speed.

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

#include "audio/clocked_rig.h"

namespace marvolin::test {
namespace {

/// A card on a thread of its own. It asks for sound as fast as it can, and says where it is.
class Card {
public:
    Card(LoopbackRenderer& renderer, HandTime& time, int period)
        : thread_([this, &renderer, &time, period] { Run(renderer, time, period); }) {}
    ~Card() { End(); }
    Card(const Card&) = delete;
    Card& operator=(const Card&) = delete;
    /// Returns everything heard.
    std::vector<std::int16_t> End() {
        on_ = false;
        if (thread_.joinable()) thread_.join();
        return std::move(heard_);
    }
    /// Waits until so many more frames have been rendered.
    void Await(std::int64_t frames) const {
        const std::int64_t until = rendered_ + frames;
        while (rendered_ < until) std::this_thread::yield();
    }

private:
    void Run(LoopbackRenderer& renderer, HandTime& time, int period) {
        std::vector<std::int16_t> frames(static_cast<std::size_t>(2 * period));
        while (on_) {
            renderer.Render(frames.data(), period);
            heard_.insert(heard_.end(), frames.begin(), frames.end());
            time.PassFrames(period);
            rendered_ += period;
        }
    }
    std::atomic<bool> on_{true};
    std::atomic<std::int64_t> rendered_{0};
    std::vector<std::int16_t> heard_;
    std::thread thread_;
};

class SoundAdapterThreads : public ClockedRig {};

TEST_F(SoundAdapterThreads, FourStartsInAGroupStartAtOneFrameAlways) {
    std::vector<std::unique_ptr<DirectSoundBuffer>> buffers;
    for (int i = 0; i < 4; ++i) buffers.push_back(LoadLevels(5000, 5000, 44100));
    Card card(renderer_, Time, kPeriod);
    std::mt19937 chance(7);
    constexpr int kStarts = 100;
    for (int i = 0; i < kStarts; ++i) {
        {
            const CallGroup gesture(*Clock);
            for (auto& buffer : buffers) {
                buffer->SetCurrentPosition(0);
                buffer->Play(1);
                for (auto spin = chance() % 2000; spin > 0; --spin) std::atomic_signal_fence(std::memory_order_seq_cst);
            }
        }
        card.Await(1024);
        {
            const CallGroup gesture(*Clock);
            for (auto& buffer : buffers) buffer->Stop();
        }
        card.Await(512);
    }
    const std::vector<std::int16_t> heard = card.End();
    int onsets = 0;
    for (std::size_t i = 2; i < heard.size(); i += 2) {
        if (std::abs(heard[i - 2]) > kStep || std::abs(heard[i]) <= kStep) continue;
        ++onsets;
        ASSERT_NEAR(heard[i], 20000, 4 * kStep) << "frame " << i / 2;
    }
    EXPECT_EQ(onsets, kStarts);
}

TEST_F(SoundAdapterThreads, AGroupThatIsNotEndedHoldsNothingUp) {
    auto sounding = LoadLevels(1000, 1000, 44100);
    auto waiting = LoadLevels(kLevel, kLevel, 44100);
    sounding->Play(1);
    Play(1024);
    const CallGroup gesture(*Clock);
    for (int i = 0; i < 100; ++i) waiting->SetVolume(-i);
    waiting->Play(1);
    Card card(renderer_, Time, kPeriod);
    card.Await(44100);
    const std::vector<std::int16_t> heard = card.End();
    for (std::size_t i = 0; i < heard.size(); ++i) ASSERT_NEAR(heard[i], 1000, kStep) << i;
}

TEST_F(SoundAdapterThreads, EveryCallIsTakenWhileTheCardAsksAsFastAsItCan) {
    auto primary = device_->CreateSoundBuffer(17);
    auto listener = primary->GetDirectSound3dListener();
    auto first = LoadLevels(3000, 3000, 44100);
    auto second = device_->DuplicateSoundBuffer(*first);
    auto spatial = Load(std::vector<std::int32_t>(44100, 3000), 1, buffer_flags::kSample3D);
    auto place = spatial->GetDirectSound3dBuffer();
    Card card(renderer_, Time, kPeriod);
    first->Play(1);
    spatial->Play(1);
    const ByteList bytes = Pcm(std::vector<std::int32_t>(2000, -1000), 16);
    for (int i = 0; i < 3000; ++i) {
        std::optional<Instant> tick;
        if (i % 3 == 0) tick = static_cast<Instant>(Clock->Now());
        const CallGroup group(*Clock, tick);
        first->SetVolume(-(i % 5000));
        first->SetPan(i % 4000 - 2000);
        first->SetFrequency(i % 4 == 0 ? 44100 : 30000 + i);
        second->SetCurrentPosition(i * 8 % 80000);
        second->Play(i % 2);
        EXPECT_EQ(second->GetStatus(), i % 2 == 0 ? 1 : 5);
        if (i % 7 == 0) {
            second->Stop();
            EXPECT_EQ(second->GetStatus(), 0);
        }
        if (i % 50 == 0) second = device_->DuplicateSoundBuffer(*first);
        if (i % 100 == 0) first->WriteBuffer(i, bytes);
        place->SetPosition({static_cast<float>(i % 10) - 5, 0, 1});
        listener->SetRolloffFactor(static_cast<float>(i % 10));
        listener->SetPosition({0, 0, static_cast<float>(i % 3)});
        EXPECT_EQ(first->GetStatus(), 5);
        EXPECT_GE(first->GetCurrentPosition(), 0);
    }
    card.End();
    EXPECT_EQ(Counts().Refused, 0U);
    second->Stop();
    spatial->Stop();
    // Calls that found the ring full follow with the groups.
    for (int i = 0; i < 400; ++i) {
        const CallGroup group(*Clock);
        Play(kPeriod);
    }
    // Behind what has been written.
    first->SetCurrentPosition(40000);
    first->SetFrequency(44100);
    Play(4096);
    const double gain = std::pow(10.0, -2999 / 2000.0);
    EXPECT_NEAR(LeftAt(Rendered() - 1), 3000 * gain * std::pow(10.0, -999 / 2000.0), kStep);
    EXPECT_NEAR(All.Right.back(), 3000 * gain, kStep);
    EXPECT_EQ(first->GetFrequency(), 44100);
}

TEST_F(SoundAdapterThreads, SourcesAndBuffersNeverRunOut) {
    auto kept = LoadLevels(1000, 1000, 441);
    kept->Play(1);
    const std::string path =
        folder_.Write("small.wav", WaveBytes({.Data = Pcm(std::vector<std::int32_t>(200, 3000), 16)}));
    Card card(renderer_, Time, kPeriod);
    const ByteList bytes = Pcm(std::vector<std::int32_t>(50, -1000), 16);
    std::unique_ptr<DirectSoundBuffer> loaded;
    for (int i = 0; i < 5000; ++i) {
        loaded = device_->CreateSoundBufferFromFile(path, buffer_flags::kSample);
        loaded->Play(1);
        kept->WriteBuffer(i % 300, bytes);
        // No player loads more than fifty samples in a period.
        if (i % 50 == 0) card.Await(kPeriod);
    }
    EXPECT_EQ(kept->GetStatus(), 5);
    card.End();
    EXPECT_EQ(Counts().Refused, 0U);
}

}  // namespace
}  // namespace marvolin::test
