/// The cost of mixing, loading and duplicating with the real audio service, without an output.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "audio/openal/sound.h"
#include "audio/wave_bytes.h"

namespace {

using namespace marvolin;

constexpr int kRate = 44100;
constexpr std::size_t kLargeBytes = 100'000'000;

std::vector<std::uint8_t> Noise(std::size_t bytes) {
    std::vector<std::uint8_t> noise(bytes);
    std::uint32_t state = 1;
    for (std::uint8_t& byte : noise) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<std::uint8_t>(state >> 24);
    }
    return noise;
}

/// A device and one file with noise in it.
struct Bed {
    Bed(std::size_t bytes, int channels, int bits, int rate = kRate) {
        test::Wave wave;
        wave.Rate = static_cast<std::uint32_t>(rate);
        wave.Channels = channels;
        wave.Bits = bits;
        wave.Data = Noise(bytes / 24 * 24);
        Path = Folder.Write("noise.wav", test::WaveBytes(wave));
    }
    std::unique_ptr<DirectSoundBuffer> Load() { return Device->CreateSoundBufferFromFile(Path, buffer_flags::kSample); }
    test::SampleFolder Folder;
    std::string Path;
    LoopbackRenderer Renderer;
    std::unique_ptr<DirectX7> Root = Renderer.Root();
    std::unique_ptr<DirectSound> Device = Root->DirectSoundCreate("");
};

/// Four loops at a pitch of `range(0)` thousandths; "times_real" is seconds of sound per second of one core.
void RenderFourLoops(benchmark::State& state) {
    Bed bed(4 * kRate * 2, static_cast<int>(state.range(1)), 16);
    std::vector<std::unique_ptr<DirectSoundBuffer>> loops;
    for (int i = 0; i < 4; ++i) {
        loops.push_back(i == 0 ? bed.Load() : bed.Device->DuplicateSoundBuffer(*loops[0]));
        loops.back()->SetFrequency(static_cast<std::int32_t>(kRate * state.range(0) / 1000));
        loops.back()->Play(1);
    }
    std::vector<std::int16_t> out(2 * 256);
    for (auto _ : state) bed.Renderer.Render(out.data(), 256);
    state.counters["times_real"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * 256 / kRate, benchmark::Counter::kIsRate);
}
BENCHMARK(RenderFourLoops)->ArgNames({"pitch", "channels"})->Args({1370, 2})->Args({1370, 1})->Args({1000, 2});

/// For comparison with `Load100MB`: the same file into fresh memory.
void ReadPlainly100MB(benchmark::State& state) {
    const Bed bed(kLargeBytes, 2, 16);
    for (auto _ : state) {
        std::ifstream file(bed.Path, std::ios::binary | std::ios::ate);
        std::vector<char> bytes(static_cast<std::size_t>(file.tellg()));
        file.seekg(0);
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(ReadPlainly100MB)->Unit(benchmark::kMillisecond);

void Load100MB(benchmark::State& state) {
    Bed bed(kLargeBytes, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        auto buffer = bed.Load();
        benchmark::DoNotOptimize(buffer.get());
        state.PauseTiming();
        buffer.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(Load100MB)
    ->ArgNames({"channels", "bits"})
    ->Args({2, 16})
    ->Args({1, 16})
    ->Args({2, 24})
    ->Unit(benchmark::kMillisecond);

/// Ten seconds of a rate that is brought down to one that a buffer can play, filtered anew at each load and each change
/// of device; at 96 kHz, for comparison, nothing is filtered.
void LoadTenSecondsOfAHighRate(benchmark::State& state) {
    const auto rate = static_cast<int>(state.range(0));
    const auto channels = static_cast<int>(state.range(1));
    Bed bed(static_cast<std::size_t>(10 * rate * channels * 2), channels, 16, rate);
    for (auto _ : state) {
        auto buffer = bed.Load();
        benchmark::DoNotOptimize(buffer.get());
        state.PauseTiming();
        buffer.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(LoadTenSecondsOfAHighRate)
    ->ArgNames({"rate", "channels"})
    ->ArgsProduct({{96000, 176400, 192000, 384000}, {1, 2}})
    ->Unit(benchmark::kMillisecond);

void Write100MB(benchmark::State& state) {
    Bed bed(kLargeBytes, 2, 16);
    auto buffer = bed.Load();
    const std::vector<std::uint8_t> noise = Noise(static_cast<std::size_t>(buffer->GetCaps().BufferBytes));
    for (auto _ : state) buffer->WriteBuffer(0, noise);
}
BENCHMARK(Write100MB)->Unit(benchmark::kMillisecond);

double ResidentBytes() {
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// "times_file" is the memory of a loaded sample as a multiple of its file.
void MemoryOfASample(benchmark::State& state) {
    Bed bed(kLargeBytes / 2, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        state.PauseTiming();
        malloc_trim(0);
        const double before = ResidentBytes();
        state.ResumeTiming();
        auto buffer = bed.Load();
        state.counters["times_file"] = (ResidentBytes() - before) / buffer->GetCaps().BufferBytes;
    }
}
BENCHMARK(MemoryOfASample)
    ->ArgNames({"channels", "bits"})
    ->ArgsProduct({{1, 2}, {8, 16, 24, 32}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

/// "bytes" is the memory that one more duplicate of 100 MB adds.
void Duplicate100MB(benchmark::State& state) {
    Bed bed(kLargeBytes, 2, 16);
    auto buffer = bed.Load();
    std::vector<std::unique_ptr<DirectSoundBuffer>> duplicates;
    const double before = ResidentBytes();
    for (auto _ : state) duplicates.push_back(bed.Device->DuplicateSoundBuffer(*buffer));
    state.counters["bytes"] = (ResidentBytes() - before) / static_cast<double>(duplicates.size());
}
BENCHMARK(Duplicate100MB)->Iterations(100)->Unit(benchmark::kMicrosecond);

}  // namespace
