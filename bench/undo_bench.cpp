/// \file
/// The cost of taking back a load of four samples of 10 MB, and of announcing a step, on the real sound service.

#include <benchmark/benchmark.h>

#include "audio/loop_clearing.h"
#include "core/undo/undo_step.h"
#include "performance/heard_rig.h"
#include "persistence/undo/undo_commands.h"

namespace marvolin {
namespace {

constexpr int kFrames = 10 * 1024 * 1024 / 4;  // of 16 bit stereo: 10 MB

struct FourLarge : test::HeardInstrument {
    FourLarge() {
        StartUndo(s);
        std::vector<std::int32_t> numbers(2 * kFrames);
        for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = static_cast<std::int32_t>(i % 20000);
        test::Wave wave;
        wave.Channels = 2;
        wave.Data = test::Pcm(numbers, 16);
        const UndoStep step(s, "Load of 4 samples");
        for (Row row = 0; row < kLoopTracks; ++row) {
            const std::string name = "large" + std::to_string(row) + ".wav";
            Folder.Write(name, test::WaveBytes(wave));
            LoadSample(s, {.Path = Folder.Path(name), .Target = row, .Play = true});
        }
    }
};

// The four samples go, and with the next run come back; each run is one of both.
void BM_TakeBackALoadOfFourSamplesOf10MB(benchmark::State& state) {
    FourLarge world;
    for (auto _ : state) {
        Undo_Click(world.s);
        state.PauseTiming();
        world.Render(256);
        Redo_Click(world.s);
        world.Render(256);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_TakeBackALoadOfFourSamplesOf10MB)->Unit(benchmark::kMillisecond);

void BM_DoALoadOfFourSamplesOf10MBAgain(benchmark::State& state) {
    FourLarge world;
    for (auto _ : state) {
        state.PauseTiming();
        Undo_Click(world.s);
        world.Render(256);
        state.ResumeTiming();
        Redo_Click(world.s);
        state.PauseTiming();
        world.Render(256);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_DoALoadOfFourSamplesOf10MBAgain)->Unit(benchmark::kMillisecond);

// What every load, clear or drop pays for being a step.
void BM_AnnounceAStep(benchmark::State& state) {
    FourLarge world;
    for (Row row = 0; row < 5; ++row) {
        for (int n = 0; n < 20; ++n) world.s.History[row].push_back("/music/samples/history" + std::to_string(n));
    }
    for (auto _ : state) const UndoStep step(world.s, "Load of Bells into A");
}
BENCHMARK(BM_AnnounceAStep)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace marvolin
