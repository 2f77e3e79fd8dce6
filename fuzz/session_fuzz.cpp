/// \file
/// Any bytes as a session file, and as a package.

#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "fakes/instrument.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "persistence/session_reader.h"
#include "sequencing/loop_clock.h"

namespace {

/// A folder of this process, removed at its end.
struct OwnFolder {
    std::filesystem::path Path;
    OwnFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "marvolin-fuzz-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) std::abort();
        Path = name;
    }
    ~OwnFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;
};

/// A plain file in memory with the input, under a given name.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size, const std::string& name) : file_(::memfd_create("fuzz", 0)) {
        static const OwnFolder folder;
        if (file_ < 0 || ::write(file_, data, size) != static_cast<ssize_t>(size)) std::abort();
        link_ = folder.Path / name;
        std::filesystem::create_symlink("/proc/self/fd/" + std::to_string(file_), link_);
    }
    ~MemoryFile() {
        std::error_code ignored;
        std::filesystem::remove(link_, ignored);
        ::close(file_);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    std::string Path() const { return link_.string(); }

private:
    int file_;
    std::filesystem::path link_;
};

void LoadAndPlay(const std::string& path) {
    marvolin::test::Instrument i;
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
    for (int tick = 0; tick < 40; ++tick) marvolin::LoopTimer_Timer(i.s, 1000);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const char* name : {"fuzz.mvn", "fuzz.mvp"}) {
        const MemoryFile file(data, size, name);
        LoadAndPlay(file.Path());
    }
    return 0;
}
