/// \file
/// Any bytes as a session file, and as a package.

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fakes/instrument.h"
#include "performance/mix_pad.h"
#include "performance/pad_tables.h"
#include "persistence/session_reader.h"
#include "sequencing/loop_clock.h"

namespace {

/// A plain file in memory that holds the input.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : file_(::memfd_create("fuzz", 0)) {
        if (file_ < 0 || ::write(file_, data, size) != static_cast<ssize_t>(size)) std::abort();
    }
    ~MemoryFile() { ::close(file_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }

private:
    int file_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    marvolin::test::Instrument i;
    i.s.DSEnum = i.s.DX->GetDSEnum();
    i.s.Drivers = {"Primary Sound Driver", "Second Device", "No Sound"};
    i.s.Driver = 0;
    i.s.JoyEnabled = true;
    i.s.EmptyBlankSetting = 1;
    marvolin::PadGeometryInit(i.s, 4500, 4500);
    marvolin::PadTablesInit(i.s);
    marvolin::clsSwitchRecord switches;
    switches.SetSwitch(true);
    const MemoryFile file(data, size);
    const bool loaded = marvolin::LoadSession(i.s, file.Path(), true, switches, true);
    // A load that fails says so, and one that succeeds leaves an instrument that plays on.
    if (!loaded && i.Desk.Boxes.empty()) std::abort();
    for (marvolin::Row row = 0; row < marvolin::kLoopTracks; ++row) {
        if (i.s.Set[row].NSteps < 0 || i.s.Set[row].NSteps >= marvolin::kPatternSteps) std::abort();
        i.Fill(row);
        i.s.Run[row].Playing = marvolin::True;
        i.s.Set[row].PlayMode = marvolin::kDrum;
    }
    for (int tick = 0; tick < 40; ++tick) marvolin::LoopTimer_Timer(i.s, 1000);
    return 0;
}
