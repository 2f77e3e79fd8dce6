#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "core/session.h"
#include "fakes/fake_display.h"
#include "fakes/fake_services.h"
#include "sequencing/loop_clock.h"

namespace marvolin {
namespace {

/// A buffer that plays forever and does nothing.
class IdleBuffer : public DirectSoundBuffer {
public:
    BufferCaps GetCaps() override { return {buffer_flags::kSample, 176400}; }
    WaveFormat GetFormat() override { return {1, 2, 44100, 16, 4, 176400, 0}; }
    void SetFormat(const WaveFormat&) override {}
    std::int32_t GetFrequency() override { return 44100; }
    void SetFrequency(std::int32_t hertz) override { benchmark::DoNotOptimize(hertz); }
    std::int32_t GetStatus() override { return buffer_status::kPlaying; }
    std::int32_t GetCurrentPosition() override { return 0; }
    void SetCurrentPosition(std::int32_t bytes) override { benchmark::DoNotOptimize(bytes); }
    void Play(std::int32_t flags) override { benchmark::DoNotOptimize(flags); }
    void Stop() override {}
    void SetVolume(std::int32_t hundredths) override { benchmark::DoNotOptimize(hundredths); }
    void SetPan(std::int32_t hundredths) override { benchmark::DoNotOptimize(hundredths); }
    void ReadBuffer(std::int32_t, std::span<std::uint8_t>) override {}
    void WriteBuffer(std::int32_t, std::span<const std::uint8_t>) override {}
    std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() override { return nullptr; }
    std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() override { return nullptr; }
};

struct World : test::FakeServices {
    test::FakeDisplay Screen;
    Session s{For(Screen)};

    /// Four rows playing in `mode`, all selected, with steps of `stepDuration` hundredths.
    World(std::int16_t mode, std::int32_t stepDuration) {
        s.DSReady = true;
        Chance.Rest = 0.5;
        for (Row row = 0; row < kLoopTracks; ++row) {
            LoopTrackSet& set = s.Set[row];
            set.SampleRate = 44100;
            set.BufferBytes = 176400;
            set.AvgBytesPerSec = 176400;
            set.Length = 1;
            set.PlayMode = mode;
            set.StepDuration = stepDuration;
            set.NSteps = 31;
            set.Selected = True;
            s.Run[row].Buffer = std::make_unique<IdleBuffer>();
            s.Run[row].Loaded = True;
            s.Run[row].Playing = True;
        }
        s.Run[kSelectionRow].Playing = True;
    }
};

/// Keeps the running clock below the next second, so that only the rows are measured.
void Tick(World& world, std::int32_t milliseconds) {
    LoopTimer_Timer(world.s, milliseconds);
    world.s.Clock.ClockMsPart = 0;
}

void FourDrumsAllStepping(benchmark::State& state) {
    World world(kDrum, 1);
    for (auto _ : state) Tick(world, 10);
}
BENCHMARK(FourDrumsAllStepping);

void FourDrumsWithSwingAllStepping(benchmark::State& state) {
    World world(kDrum, 1);
    for (Row row = 0; row < kLoopTracks; ++row) {
        world.s.Set[row].Swing = 1;
        for (int patternRow = 0; patternRow < kPatternRows; ++patternRow) {
            world.s.Set[row].Pattern[patternRow][kPatternOffset] = 100;
        }
    }
    for (auto _ : state) Tick(world, 20);
}
BENCHMARK(FourDrumsWithSwingAllStepping);

void NothingDueInFourDrums(benchmark::State& state) {
    World world(kDrum, 99999);
    for (auto _ : state) {
        Tick(world, 1);
        for (Row row = 0; row < kLoopTracks; ++row) world.s.Run[row].StepElapsed = 0;
    }
}
BENCHMARK(NothingDueInFourDrums);

void NothingDueInFourLoops(benchmark::State& state) {
    World world(kLoop, 100);
    for (auto _ : state) Tick(world, 1);
}
BENCHMARK(NothingDueInFourLoops);

}  // namespace
}  // namespace marvolin
