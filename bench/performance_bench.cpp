/// \file
/// The cost of a move of the mix pad and of a poll of the joystick: on fakes that do nothing, and on the real audio
/// service.

#include <benchmark/benchmark.h>

#include "fakes/instrument.h"
#include "performance/heard_rig.h"
#include "performance/joystick/joystick.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_gesture.h"
#include "performance/pad/pad_tables.h"
#include "performance/pad/wire_sets.h"

namespace marvolin {
namespace {

/// A display that does not log what the pad shows.
struct QuietDisplay : test::FakeDisplay {
    void ShowStatusText() override {}
    void ShowPadBall() override {}
};

/// A buffer that only accepts its values.
struct QuietBuffer : test::FakeSound::Buffer {
    using Buffer::Buffer;
    void SetVolume(std::int32_t hundredths) override { Volume = hundredths; }
    void SetFrequency(std::int32_t hertz) override { Frequency = hertz; }
};

/// A joystick at rest.
struct QuietStick : DirectInputDevice {
    void SetCommonDataFormat(std::int32_t) override {}
    void SetCooperativeLevel(std::int32_t) override {}
    void GetCapabilities() override {}
    std::vector<std::int32_t> GetDeviceObjectsEnum() override { return {0, 4}; }
    void SetProperty(const JoyPropertyRecord&) override {}
    void Acquire() override {}
    void Poll() override {}
    void GetDeviceStateJoystick(DIJOYSTATE& state) override { state = Rest; }
    DIJOYSTATE Rest{5000, 5000, 0, 0, 0, 0, {}, {-1, -1, -1, -1}, {}};
};

struct Bench : test::Instrument {
    QuietDisplay Quiet;
    Session q{For(Quiet)};

    Bench() {
        PadGeometryInit(q, 4500, 4500);
        PadTablesInit(q);
        q.PadTable[2].Function = 1;
    }
    void FillAll() {
        for (Row row = 0; row < kLoopTracks; ++row) {
            auto sample = std::make_shared<test::FakeSample>();
            q.Run[row].Buffer = std::make_unique<QuietBuffer>(Sound, row, buffer_flags::kSample, std::move(sample));
            q.Run[row].Loaded = True;
            q.Set[row].SampleRate = 44100;
        }
    }
};

void PadMixWithReadout(benchmark::State& state) {
    Bench b;
    double at = 0;
    for (auto _ : state) {
        at = at > 2000 ? -2000 : at + 37;
        double x = at;
        double y = -at / 2;
        PadMix(b.q, x, y, static_cast<std::int16_t>(state.range(0)), {.Absolute = true, .Apply = false});
        benchmark::DoNotOptimize(b.q.StatusText.data());
    }
}
BENCHMARK(PadMixWithReadout)->DenseRange(0, 3)->ArgName("type");

void PadDragWithFourLoopTracks(benchmark::State& state) {
    Bench b;
    b.FillAll();
    double move = 45;
    for (auto _ : state) {
        if (b.q.PadTable[2].X > 2000 || b.q.PadTable[2].X < -2000) move = -move;
        PadBallGesture(b.q, Phase::Move, kLeftButton, 225 + move, 225 - move);
    }
}
BENCHMARK(PadDragWithFourLoopTracks);

/// A pad drag at 125 moves a second and the sound between the moves; with `range(0)` 0 the sound alone. Four stereo
/// LoopTracks play under the pad type `range(1)`. "core_percent" is the share of a core that drag and sound use.
void HeardPadDrag(benchmark::State& state) {
    constexpr int kRate = 44100;
    constexpr int kMoves = 125;
    constexpr int kFrames = 352;  // between two moves
    test::HeardInstrument i;
    std::vector<std::int32_t> noise;
    std::uint32_t seed = 1;
    for (int n = 0; n < 2 * kRate; ++n) {
        seed = seed * 1664525U + 1013904223U;
        noise.push_back(static_cast<std::int32_t>(seed >> 19) - 4096);
    }
    for (Row row = 0; row < kLoopTracks; ++row) i.Sound(row, noise, 2);
    SetChannel_Click(i.s, 3);
    PadType_Click(i.s, static_cast<std::int16_t>(state.range(1)));
    PadFunction_Click(i.s, 1);
    std::vector<std::int16_t> out(2 * kFrames);
    double move = 45;
    for (auto _ : state) {
        if (state.range(0) != 0) {
            const double x = i.s.PadTable[i.s.PadTypeIndex].X;
            if (x > 2000 || x < -2000) move = -move;
            PadBallGesture(i.s, Phase::Move, kLeftButton, 225 + move, 225 - move);
        }
        i.Renderer.Render(out.data(), kFrames);
        i.Screen.Log.clear();
    }
    state.counters["core_percent"] = benchmark::Counter(static_cast<double>(state.iterations()) / kMoves / 100,
                                                        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(HeardPadDrag)->ArgNames({"drag", "type"})->Args({0, 2})->Args({1, 2})->Args({1, 0})->Args({1, 3});

void PollThatChangesNothing(benchmark::State& state) {
    Bench b;
    InitDirectInput(b.q);
    b.q.JoyDevice = std::make_unique<QuietStick>();
    JoyTimer_Timer(b.q);
    for (auto _ : state) {
        JoyTimer_Timer(b.q);
        benchmark::DoNotOptimize(b.q.Joy.LastX);
    }
}
BENCHMARK(PollThatChangesNothing);

}  // namespace
}  // namespace marvolin
