/// The thread that calls is stopped, as by a debugger, wherever it is.

#include <pthread.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <ctime>
#include <random>
#include <thread>

#include "audio/clocked_rig.h"
#include "audio/vanishing_output.h"

namespace marvolin::test {
namespace {

constexpr int kStoppedPeriod = 128;
constexpr int kStops = 400;
constexpr int kPeriodsOfAStop = 20;
constexpr long kLongestStop = 10;  // seconds

// A handler of a signal reaches nothing else.
std::atomic<int> stops{0};
std::atomic<int> resumed{0};
std::atomic<bool> gaveUp{false};

long Seconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec;
}

/// The thread stays here until it is resumed.
void StayStopped(int) {
    const int mine = ++stops;
    const long begin = Seconds();
    while (resumed < mine) {
        if (Seconds() - begin <= kLongestStop) continue;
        gaveUp = true;
        return;
    }
}

/// Calls, loads, duplicates and writes without a pause, on a thread of its own, to which the service belongs.
void Player(LoopbackRenderer& renderer, CardClock& clock, const std::string& path, std::atomic<bool>& ready,
            const std::atomic<bool>& ended) {
    const auto root = renderer.Root();
    const auto device = root->DirectSoundCreate("");
    auto buffer = device->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    buffer->Play(1);
    ready = true;
    const ByteList bytes = Pcm(std::vector<std::int32_t>(500, 3000), 16);
    for (int i = 0; !ended; ++i) {
        std::optional<Instant> tick;
        if (i % 2 == 0) tick = static_cast<Instant>(clock.Now());
        const CallGroup group(clock, tick);
        buffer->SetVolume(-(i % 10));
        auto other = device->DuplicateSoundBuffer(*buffer);
        other->SetVolume(-10000);
        other->Play(0);
        if (i % 10 == 0) buffer->WriteBuffer(0, bytes);
        if (i % 25 == 0) other = device->CreateSoundBufferFromFile(path, buffer_flags::kSample);
    }
}

TEST(SoundAdapterStopped, TheCardGoesOnWhileTheCallingThreadIsStoppedInTheMiddleOfACallOfTheLibrary) {
    HandTime time;
    const auto clock = time.MakeClock();
    LoopbackRenderer renderer(clock, kStoppedPeriod);
    const SampleFolder folder;
    const std::string path =
        folder.Write("level.wav", WaveBytes({.Channels = 1, .Data = Pcm(std::vector<std::int32_t>(4410, 3000), 16)}));
    struct sigaction action {};
    struct sigaction before {};
    action.sa_handler = StayStopped;
    sigaction(SIGUSR1, &action, &before);
    std::atomic<bool> ready{false};
    std::atomic<bool> ended{false};
    std::thread player([&] { Player(renderer, *clock, path, ready, ended); });
    ASSERT_TRUE(Eventually([&] { return ready.load(); }));

    std::vector<std::int16_t> out(2 * kStoppedPeriod);
    std::mt19937 chance(1);
    bool heard = false;
    bool sounds = true;
    const auto render = [&] {
        renderer.Render(out.data(), kStoppedPeriod);
        time.PassFrames(kStoppedPeriod);
        heard = heard || out[0] > 2000;
        // Once it sounds, no period is silent.
        sounds = sounds && (!heard || out[0] > 2000);
    };
    for (int stop = 1; stop <= kStops && !gaveUp; ++stop) {
        for (auto spin = chance() % 30000; spin > 0; --spin) std::atomic_signal_fence(std::memory_order_seq_cst);
        render();
        pthread_kill(player.native_handle(), SIGUSR1);
        ASSERT_TRUE(Eventually([&] { return stops >= stop; }));
        for (int i = 0; i < kPeriodsOfAStop; ++i) render();
        resumed = stop;
    }
    ended = true;
    player.join();
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_FALSE(gaveUp) << "the card waited for the stopped thread";
    EXPECT_TRUE(heard);
    EXPECT_TRUE(sounds) << "a period was silent";
}

}  // namespace
}  // namespace marvolin::test
