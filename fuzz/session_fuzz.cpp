/// \file
/// Any bytes as a session file, and as a package.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fakes/instrument.h"
#include "memory_file.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/session_reader.h"
#include "sequencing/loop_clock.h"
#include "time_limit.h"

namespace {

/// Of the processor, sanitizers included.
constexpr int kMostSeconds = 10;

/// The sample that each LoopTrack gets, quickly made anew for each input.
marvolin::test::FakeSample BriefSample() {
    marvolin::test::FakeSample sample;
    sample.Bytes.resize(4096);
    return sample;
}

void LoadAndPlay(const std::string& path) {
    static const marvolin::test::FakeSample brief = BriefSample();
    marvolin::test::Instrument i;
    i.Sound.Samples.emplace("/samples/one.WAV", brief);
    i.s.DSEnum = i.s.DX->GetDSEnum();
    i.s.Drivers = {"Primary Sound Driver", "Second Device", "No Sound"};
    i.s.Driver = 0;
    i.s.JoyEnabled = true;
    i.s.EmptyBlankSetting = 1;
    marvolin::PadGeometryInit(i.s, 4500, 4500);
    marvolin::PadTablesInit(i.s);
    const bool loaded = marvolin::LoadSession(i.s, path, marvolin::SetAsCurrent::Yes, marvolin::AllSwitches(),
                                              marvolin::AdoptSwitches::Yes);
    // A load that fails shows a message; one that succeeds leaves a working instrument.
    if (!loaded && i.Desk.Boxes.empty()) std::abort();
    for (marvolin::Row row = 0; row < marvolin::kLoopTracks; ++row) {
        if (i.s.Set[row].NSteps < 0 || i.s.Set[row].NSteps >= marvolin::kPatternSteps) std::abort();
        i.Fill(row);
        i.s.Run[row].Playing = marvolin::True;
        i.s.Set[row].PlayMode = marvolin::kDrum;
    }
    for (int tick = 0; tick < 16; ++tick) marvolin::LoopTimer_Timer(i.s, 1000);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const marvolin::fuzz::TimeLimit limit(kMostSeconds);
    for (const char* name : {"fuzz.mvn", "fuzz.mvp"}) {
        const marvolin::fuzz::MemoryFile file(data, size, name);
        LoadAndPlay(file.Path());
    }
    return 0;
}
