// Reversal and outline of a long sample, with plain memory instead of the audio service.

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "audio/reverse.h"
#include "audio/waveform.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

constexpr std::int64_t kBytes = 24 * 4'166'666;  // 100 MB, whole frames of every format

/// An instrument whose row 0 holds 100 MB of 16-bit stereo, 24-bit stereo, ...
void Fill(test::Instrument& i, std::int16_t channels, std::int16_t bits) {
    test::FakeSample sample;
    sample.Format.Channels = channels;
    sample.Format.BitsPerSample = bits;
    sample.Bytes.assign(static_cast<std::size_t>(kBytes), 1);
    i.Sound.Samples["/long.WAV"] = std::move(sample);
    i.Fill(0, "/long.WAV");
}

void PlainCopy(benchmark::State& state) {
    const std::vector<std::uint8_t> from(static_cast<std::size_t>(kBytes), 1);
    std::vector<std::uint8_t> to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}
BENCHMARK(PlainCopy)->Unit(benchmark::kMillisecond);

// All of it: copy out, swaps, copy in.
void Reverse(benchmark::State& state) {
    test::Instrument i;
    Fill(i, static_cast<std::int16_t>(state.range(0)), static_cast<std::int16_t>(state.range(1)));
    for (auto _ : state) LoopReverse(i.s, 0);
    state.SetBytesProcessed(state.iterations() * kBytes);
}
BENCHMARK(Reverse)->Args({1, 8})->Args({1, 16})->Args({2, 16})->Args({2, 24})->Args({2, 32})->Unit(
    benchmark::kMillisecond);

void Outline(benchmark::State& state) {
    test::Instrument i;
    Fill(i, static_cast<std::int16_t>(state.range(0)), static_cast<std::int16_t>(state.range(1)));
    for (auto _ : state) benchmark::DoNotOptimize(LoopWaveform(i.s, 0, 1024));
    state.SetBytesProcessed(state.iterations() * kBytes);
}
BENCHMARK(Outline)->Args({1, 8})->Args({2, 16})->Args({2, 24})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marvolin
