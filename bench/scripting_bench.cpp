/// \file
/// The cost of a script: at the release of a volume knob, and of an oscillator on four rows.

#include <benchmark/benchmark.h>

#include <array>

#include "core/session.h"
#include "fakes/fake_display.h"
#include "parameters/scroll_events.h"
#include "parameters/setters.h"
#include "scripting/lua_rig.h"
#include "scripting/lua_script.h"
#include "scripting/script_host.h"

namespace marvolin {
namespace {

/// A display that does not log what it shows.
struct QuietDisplay : test::FakeDisplay {
    void ShowKnob(Row, Knob) override {}
    void ShowSoundDisplay(Row) override {}
};

/// The rig with the clock of the system, on a silent instrument: the fakes of the sound would log each call.
struct Bench {
    QuietDisplay Screen;
    std::int64_t Ahead = 0;  ///< ns that the clock is ahead of that of the system
    test::LuaRig Rig{{.Screen = &Screen, .Clock = [this] { return SteadyNanoseconds() + Ahead; }}};
    Session& s = Rig.s;

    explicit Bench(const char* text) {
        for (Row row = 0; row < kLoopTracks; ++row) {
            s.Run[row].Buffer.reset();
            s.Run[row].Loaded = False;
        }
        if (*text != '\0') RunScript(s, Rig.Host, text, "bench.mvs");
    }
};

/// A volume change, and its event.
void Change(benchmark::State& state, const char* text) {
    Bench b(text);
    std::int16_t vol = 0;
    for (auto _ : state) {
        vol = static_cast<std::int16_t>((vol + 1) % 500);
        LoopVolChangeGang(b.s, 0, vol, UpdateDisplay::Yes);
        SendScriptEvent(b.s, ScriptEvent::OnVolChange, std::array<double, 2>{1, static_cast<double>(vol)});
    }
}

void VolumeWithoutAScript(benchmark::State& state) { Change(state, ""); }
void VolumeWithAnEmptyHandler(benchmark::State& state) { Change(state, "function OnVolChange() end"); }
void VolumeWithAHandlerThatSetsAPan(benchmark::State& state) {
    Change(state, "function OnVolChange(row, volume) marvolin.set_pan('B', volume - 250) end");
}

/// `OnClock` that moves the pan of four rows that sound; every 10 ms, this is a share of a core in 10,000,000 ns. The
/// fake of the sound notes each call, which costs more than the real one.
void OscillatorOnFourRows(benchmark::State& state) {
    Bench b(
        "function OnClock(ms, part, seconds)\n local phase = (seconds + part / 1000) * math.pi\n"
        " for row = 0, 3 do marvolin.set_pan(row, math.floor(400 * math.sin(phase + row))) end\nend");
    for (Row row = 0; row < kLoopTracks; ++row) {
        b.Rig.Fill(row, "/samples/one.WAV");
        b.s.Run[row].Playing = True;
    }
    std::int32_t part = 0;
    for (auto _ : state) {
        b.Rig.Sound.Log.clear();
        b.Ahead += 10'000'000;
        b.s.Clock.ClockMsPart = part = (part + 10) % 1000;
        ScriptTimer_Timer(b.s, 10);
    }
    if (!b.Rig.Desk.Boxes.empty()) state.SkipWithError(b.Rig.Desk.LastBox().c_str());
}

void LoadTheLibrary(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(LoadLua());
}

void TakeAText(benchmark::State& state) {
    Bench b("");
    for (auto _ : state) RunScript(b.s, b.Rig.Host, "function OnClock() end", "bench.mvs");
}

BENCHMARK(VolumeWithoutAScript);
BENCHMARK(VolumeWithAnEmptyHandler);
BENCHMARK(VolumeWithAHandlerThatSetsAPan);
BENCHMARK(OscillatorOnFourRows);
BENCHMARK(LoadTheLibrary);
BENCHMARK(TakeAText);

}  // namespace
}  // namespace marvolin
