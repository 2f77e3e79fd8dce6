/// \file
/// Any bytes as a script, with the whole instrument behind it: the text is run, hears each event, and its delayed calls
/// come.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "core/loops/loop_track.h"
#include "parameters/scroll_events.h"
#include "performance/map/scatter.h"
#include "scripting/lua_rig.h"
#include "scripting/script_host.h"
#include "sequencing/loop_clock.h"
#include "time_limit.h"

namespace {

using namespace marvolin;

/// The processor's time that an input may take, sanitizers included. The engine's clock goes by hand, a millisecond a
/// look, so its budgets end an input after a thousand looks. A loop that repeats a long text takes six seconds for
/// those; what takes much longer stands still where nobody asks for the time.
constexpr int kMostSeconds = 20;

/// A sample that is quickly made anew for each input.
test::FakeSample BriefSample() {
    test::FakeSample sample;
    sample.Bytes.resize(4096);
    return sample;
}

/// What a script must not be able to bring about.
void Check(const Session& s) {
    for (Row row = 0; row < kRows; ++row) {
        const LoopTrackSet& set = s.Set[row];
        const bool sound = set.Vol >= 0 && set.Vol <= kVolFull && set.Pan >= 0 && set.Pan <= kPanRight && set.Hz >= 1 &&
                           set.Hz <= kHzTop && set.NSteps >= 0 && set.NSteps < kPatternSteps;
        if (!sound || set.PlayMode < kOneShot || set.PlayMode > kDrum) std::abort();
    }
    if (s.Limit < 1 || s.Limit > 4 || s.ScriptBusy) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::FakeSample brief = BriefSample();
    const fuzz::TimeLimit limit(kMostSeconds);
    test::LuaRig i({.Sample = &brief});
    i.Look = 1'000'000;  // an event ends after twenty looks
    i.s.CurrentFolder = "/nowhere/";
    if (!i.Engine.Available()) std::abort();
    RunScript(i.s, i.Host, std::string(data, data + size), "fuzz.mvs");
    Check(i.s);
    for (int event = 0; event < kScriptEvents; ++event) {
        SendScriptEvent(i.s, static_cast<ScriptEvent>(event), std::vector<double>{1, 250, 3, 0.5, -1});
        Check(i.s);
    }
    for (int tick = 0; tick < 5; ++tick) {
        const std::vector<test::FakeTimers::Timer*> timers = i.Timers.Live;
        i.Now += 10'000'000;
        for (auto* timer : timers) {
            if (timer->Enabled) timer->OnTick(10);
        }
        LoopTimer_Timer(i.s, 10);
        FadeTimer_Timer(i.s, 40);
        Check(i.s);
    }
    EndScript(i.s, i.Host);
    if (i.Engine.Memory() != 0) std::abort();
    return 0;
}
