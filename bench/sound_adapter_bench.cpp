/// The cost of mixing, loading and duplicating with the real audio service, without an output.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "audio/device_abilities.h"
#include "audio/openal/sound.h"
#include "audio/output/output_chain.h"
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
    Bed(std::size_t bytes, int channels, int bits, int rate = kRate, std::shared_ptr<CardClock> clock = nullptr)
        : Renderer(std::move(clock)) {
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

/// Four loops around the listener, for speakers (0) or for headphones (1).
struct Around {
    explicit Around(bool headphones) : Bed_(4 * kRate * 2, 1, 16) {
        Switch().SetHeadphones(headphones);
        for (int i = 0; i < 4; ++i) {
            Loops.push_back(i == 0 ? Bed_.Device->CreateSoundBufferFromFile(Bed_.Path, buffer_flags::kSample3D)
                                   : Bed_.Device->DuplicateSoundBuffer(*Loops[0]));
            Places.push_back(Loops.back()->GetDirectSound3dBuffer());
            Places.back()->SetPosition({i % 2 == 0 ? 1.0F : -1.0F, 0, i < 2 ? 1.0F : -1.0F});
            Loops.back()->SetFrequency(kRate * 137 / 100);
            Loops.back()->Play(1);
        }
    }
    HeadphoneSwitch& Switch() { return dynamic_cast<HeadphoneSwitch&>(*Bed_.Device); }
    void Render() { Bed_.Renderer.Render(Out.data(), 128); }
    Bed Bed_;
    std::vector<std::unique_ptr<DirectSoundBuffer>> Loops;
    std::vector<std::unique_ptr<DirectSound3DBuffer>> Places;
    std::vector<std::int16_t> Out = std::vector<std::int16_t>(2 * 128);
};

/// "times_real" is seconds of sound per second of one core.
void RenderFourLoopsAround(benchmark::State& state) {
    Around around(state.range(0) != 0);
    for (auto _ : state) around.Render();
    state.counters["times_real"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * 128 / kRate, benchmark::Counter::kIsRate);
}
BENCHMARK(RenderFourLoopsAround)->ArgName("headphones")->Arg(0)->Arg(1);

/// The switch for headphones, there and back, while four loops sound. An output that asks meanwhile waits so long.
void SwitchHeadphones(benchmark::State& state) {
    Around around(false);
    bool on = false;
    for (auto _ : state) {
        around.Switch().SetHeadphones(on = !on);
        state.PauseTiming();
        for (int i = 0; i < 8; ++i) around.Render();
        state.ResumeTiming();
    }
}
BENCHMARK(SwitchHeadphones)->Unit(benchmark::kMicrosecond);

constexpr int kPeriod = 128;
constexpr double kPeriodMicroseconds = 1e6 * kPeriod / kRate;

/// Four loops that begin again every 10 ms, each with a new volume, pan and pitch, as a tick asks for them.
struct Stepping {
    explicit Stepping(Bed& bed) {
        for (int i = 0; i < 4; ++i) {
            Loops.push_back(i == 0 ? bed.Load() : bed.Device->DuplicateSoundBuffer(*Loops[0]));
            Loops.back()->Play(1);
        }
    }
    void Tick(CardClock& clock, Instant at) {
        const CallGroup tick(clock, at);
        ++Ticks;
        for (auto& loop : Loops) {
            loop->SetCurrentPosition(0);
            loop->SetVolume(-(Ticks % 1000));
            loop->SetPan(Ticks % 1000 - 500);
            loop->SetFrequency(40000 + Ticks % 10000);
        }
    }
    std::vector<std::unique_ptr<DirectSoundBuffer>> Loops;
    int Ticks = 0;
};

/// `prefix`: of the names of the figures.
void PrintTimes(benchmark::State& state, std::vector<double>& microseconds, const std::string& prefix = "") {
    std::sort(microseconds.begin(), microseconds.end());
    const auto at = [&](double share) {
        return microseconds[static_cast<std::size_t>(share * static_cast<double>(microseconds.size() - 1))];
    };
    state.counters[prefix + "median_us"] = at(0.5);
    state.counters[prefix + "p99.9_us"] = at(0.999);
    state.counters[prefix + "longest_us"] = at(1);
    state.counters[prefix + "p99.9_share_of_period"] = at(0.999) / kPeriodMicroseconds;
}

/// Time that the calling thread has had a core, so that what others take does not count.
double BusyMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return 1e6 * static_cast<double>(now.tv_sec) + 1e-3 * static_cast<double>(now.tv_nsec);
}

double Microseconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - since).count();
}

/// The callback's time over 100,000 periods of 128 frames, everything on one thread: on a core, and by the clock on the
/// wall, which contains what others took of the core.
void CallbackWithFourStepping(benchmark::State& state) {
    std::atomic<std::int64_t> frames{0};
    const auto clock = std::make_shared<CardClock>([&] { return frames * 1'000'000'000 / kRate; });
    for (auto _ : state) {
        Bed bed(4 * kRate * 2, 2, 16, kRate, clock);
        Stepping stepping(bed);
        std::vector<std::int16_t> out(2 * kPeriod);
        std::vector<double> times;
        std::vector<double> wall;
        Instant next = static_cast<Instant>(clock->Now());
        for (int i = 0; i < 100'000; ++i) {
            for (; static_cast<double>(next) <= clock->Now(); next += 441) stepping.Tick(*clock, next);
            const auto now = std::chrono::steady_clock::now();
            const double begin = BusyMicroseconds();
            bed.Renderer.Render(out.data(), kPeriod);
            times.push_back(BusyMicroseconds() - begin);
            wall.push_back(Microseconds(now));
            frames += kPeriod;
        }
        PrintTimes(state, times);
        PrintTimes(state, wall, "wall_");
        state.counters["late_calls"] = static_cast<double>(OpenAlCallCounts(*bed.Root).Late);
    }
}
BENCHMARK(CallbackWithFourStepping)->Iterations(1)->Unit(benchmark::kMillisecond);

/// The same in real time for a quarter of a minute, while this thread makes 10,000 calls a second, and writes a sample
/// of ten seconds again and again.
void CallbackWhileAnotherThreadCalls(benchmark::State& state) {
    const auto clock = std::make_shared<CardClock>();
    for (auto _ : state) {
        Bed bed(4 * kRate * 10, 2, 16, kRate, clock);
        Stepping stepping(bed);
        const std::vector<std::uint8_t> noise = Noise(1000);
        std::vector<double> times;
        std::atomic<bool> on{true};
        std::thread card([&] {
            std::vector<std::int16_t> out(2 * kPeriod);
            auto due = std::chrono::steady_clock::now();
            for (int i = 0; i < 15 * kRate / kPeriod; ++i) {
                const auto begin = std::chrono::steady_clock::now();
                bed.Renderer.Render(out.data(), kPeriod);
                times.push_back(Microseconds(begin));
                due += std::chrono::nanoseconds(static_cast<std::int64_t>(1000 * kPeriodMicroseconds));
                std::this_thread::sleep_until(due);
            }
            on = false;
        });
        // A tick that this thread needs longer for than the budget is late by itself.
        double longest = 0;
        int slow = 0;
        for (int i = 0; on; ++i) {
            const auto begin = std::chrono::steady_clock::now();
            stepping.Tick(*clock, static_cast<Instant>(clock->Now()));
            const double took = Microseconds(begin);
            longest = std::max(longest, took);
            if (took > 1000 * kLatenessBudget) ++slow;
            if (i % 100 == 0) stepping.Loops[0]->WriteBuffer(0, noise);
            std::this_thread::sleep_for(std::chrono::microseconds(1600));
        }
        card.join();
        PrintTimes(state, times);
        const CallCounts counts = OpenAlCallCounts(*bed.Root);
        state.counters["late_calls"] = static_cast<double>(counts.Late);
        state.counters["latest_frames"] = static_cast<double>(counts.LongestLate);
        state.counters["longest_tick_us"] = longest;
        state.counters["slow_ticks"] = slow;
    }
}
BENCHMARK(CallbackWhileAnotherThreadCalls)->Iterations(1)->Unit(benchmark::kMillisecond);

/// What meter and recording add to a callback of four loops. "share" is theirs of the time that the rendering takes,
/// "share_of_period" of the time there is.
void MeterAndRecording(benchmark::State& state) {
    constexpr int kCallbacks = 100'000;
    Bed bed(4 * kRate * 2, 2, 16);
    std::vector<std::unique_ptr<DirectSoundBuffer>> loops;
    for (int i = 0; i < 4; ++i) {
        loops.push_back(i == 0 ? bed.Load() : bed.Device->DuplicateSoundBuffer(*loops[0]));
        loops.back()->SetVolume(-1500);
        loops.back()->Play(1);
    }
    OutputChain chain;
    std::vector<std::int16_t> out(2 * kPeriod);
    for (auto _ : state) {
        double rendering = BusyMicroseconds();
        for (int i = 0; i < kCallbacks; ++i) bed.Renderer.Render(out.data(), kPeriod);
        rendering = BusyMicroseconds() - rendering;
        double passing = BusyMicroseconds();
        for (int i = 0; i < kCallbacks; ++i) {
            // Before there is no room left.
            if (i % 8000 == 0) chain.BeginRecording();
            chain.Pass_rt(out.data(), kPeriod);
        }
        passing = BusyMicroseconds() - passing;
        state.counters["rendering_us"] = rendering / kCallbacks;
        state.counters["meter_and_recording_us"] = passing / kCallbacks;
        state.counters["share"] = passing / rendering;
        state.counters["share_of_period"] = passing / kCallbacks / kPeriodMicroseconds;
        state.counters["missed_frames"] = static_cast<double>(chain.Recorded().Missed());
    }
}
BENCHMARK(MeterAndRecording)->Iterations(1)->Unit(benchmark::kMillisecond);

/// The cost of one call to the user-interface thread, by hand and in a tick, with the system's clock.
void CostOfACall(benchmark::State& state) {
    constexpr int kCalls = 1000;
    const auto clock = std::make_shared<CardClock>();
    Bed bed(4 * kRate, 2, 16, kRate, clock);
    auto loop = bed.Load();
    loop->Play(1);
    std::vector<std::int16_t> out(2 * 2048);
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        {
            std::optional<CallGroup> tick;
            if (state.range(0) != 0) tick.emplace(*clock, static_cast<Instant>(clock->Now()));
            for (int i = 0; i < kCalls; ++i) loop->SetVolume(-i);
        }
        state.SetIterationTime(1e-6 * Microseconds(begin) / kCalls);
        bed.Renderer.Render(out.data(), 2048);
    }
}
BENCHMARK(CostOfACall)->ArgName("tick")->Arg(0)->Arg(1)->UseManualTime()->Iterations(500);

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
