/// \file
/// Any bytes as a session file, and as a package. What opens as a set must be one that can be saved and opened again.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>

#include "fakes/instrument.h"
#include "memory_file.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/session_reader.h"
#include "persistence/session_writer.h"
#include "sequencing/loop_clock.h"
#include "time_limit.h"

namespace {

using namespace marvolin;
using test::FakeSample;

/// Of the processor, sanitizers included.
constexpr int kMostSeconds = 10;

/// Quickly made anew for each input.
FakeSample BriefSample() {
    FakeSample sample;
    sample.Bytes.resize(4096);
    return sample;
}

/// The samples that the first inputs name, beside the set, where those of a set are looked for.
std::map<std::string, FakeSample> SamplesBesideTheSet() {
    std::map<std::string, FakeSample> samples{{"/samples/one.WAV", BriefSample()}};
    for (const char* name : {"a.wav", "c.wav", "d.wav", "clip.wav"}) {
        const std::filesystem::path path = fuzz::FolderOfTheRun() / name;
        std::ofstream{path};
        samples.emplace(path.string(), BriefSample());
    }
    return samples;
}

/// An instrument as a set finds it.
struct Rig : test::Instrument {
    Rig() {
        static const std::map<std::string, FakeSample> samples = SamplesBesideTheSet();
        Sound.Samples = samples;
        s.DSEnum = s.DX->GetDSEnum();
        s.Drivers = {"Primary Sound Driver", "Second Device", "No Sound"};
        s.Driver = 0;
        s.JoyEnabled = true;
        s.EmptyBlankSetting = 1;
        PadGeometryInit(s, 4500, 4500);
        PadTablesInit(s);
    }
    bool Open(const std::string& path) {
        return LoadSession(s, path, SetAsCurrent::Yes, AllSwitches(), AdoptSwitches::Yes);
    }
};

/// Saves what was opened, and opens that.
void SaveAndOpen(Session& s) {
    RecordWriter records;
    WriteSet(s, records, LoopsSaved::All, AllSwitches());
    const std::string_view bytes = records.Bytes();
    const fuzz::MemoryFile file(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size(), "saved.mvn");
    Rig other;
    if (!other.Open(file.Path())) std::abort();
}

void LoadAndPlay(const std::string& path, bool save) {
    Rig i;
    const bool loaded = i.Open(path);
    // A load that fails shows a message; one that succeeds leaves a working instrument.
    if (!loaded && i.Desk.Boxes.empty()) std::abort();
    if (loaded && save) SaveAndOpen(i.s);
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackRun& run = i.s.Run[row];
        if (i.s.Set[row].NSteps < 0 || i.s.Set[row].NSteps >= kPatternSteps) std::abort();
        if ((run.Loaded != False) != (run.Buffer != nullptr)) std::abort();
        if (run.Loaded == False && i.s.DSReady) i.Fill(row);  // a set may have chosen "No Sound"
        i.s.Run[row].Playing = run.Loaded;
        i.s.Set[row].PlayMode = kDrum;
    }
    for (int tick = 0; tick < 16; ++tick) LoopTimer_Timer(i.s, 1000);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::TimeLimit limit(kMostSeconds);
    for (const bool package : {false, true}) {
        const fuzz::MemoryFile file(data, size, package ? "fuzz.mvp" : "fuzz.mvn");
        LoadAndPlay(file.Path(), !package);
    }
    return 0;
}
