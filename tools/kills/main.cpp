// Kills and full disks, and what they leave of sets, snapshots, scripts, the last state and recordings:
// kills [--kills N] [--full N] [--seconds S] [--seed N]
// With --seconds each of the twelve kinds gets its share of the time, and as many as it has time for.

#include <stdlib.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "kills/strike.h"

namespace {

using namespace marvolin::kills;

constexpr int kDiskKilobytes = 8192;

struct Folder {
    std::filesystem::path Path;
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "marvolin-kills-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder");
        Path = name;
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string Empty(const std::string& name) const {
        std::filesystem::remove_all(Path / name);
        std::filesystem::create_directories(Path / name);
        return (Path / name).string();
    }
};

void EmptyDisk(const std::string& disk) {
    for (const auto& entry : std::filesystem::directory_iterator(disk)) std::filesystem::remove_all(entry.path());
}

void Tell(const char* what, const std::string& name, const Counts& counts) {
    std::printf("%-10s %-11s %6d  under way %6d  whole %6d  lost %d\n", what, name.c_str(), counts.Strikes, counts.Hit,
                counts.Whole, counts.Lost);
    std::fflush(stdout);
}

int Usage() {
    std::fprintf(stderr, "usage: kills [--kills N] [--full N] [--seconds S] [--seed N]\n");
    return 2;
}

struct Options {
    int Kills = 1000;
    int Full = 200;
    int Seconds = 0;  ///< 0: no limit
    unsigned Seed = 1;
};

/// As many as are wanted, as long as there is time.
More AsManyAs(int count, int seconds, std::size_t kinds) {
    if (seconds == 0) return UpTo(count);
    const auto share = std::chrono::milliseconds(1000LL * seconds / static_cast<std::int64_t>(kinds));
    return [end = std::chrono::steady_clock::now() + share](int done) {
        return done == 0 || std::chrono::steady_clock::now() < end;
    };
}

int Run(const Options& options) {
    const Folder folder;
    std::mt19937 random(options.Seed);
    const std::vector<Kind> kinds = Kinds();
    const auto wanted = [&](int count) { return AsManyAs(count, options.Seconds, 2 * (kinds.size() + 1)); };
    int lost = 0;
    const auto tell = [&](const char* what, const std::string& name, const Counts& counts) {
        Tell(what, name, counts);
        lost += counts.Lost;
    };
    if (options.Kills > 0) {
        for (const Kind& kind : kinds)
            tell("kills", kind.Name, KillSaves(kind, folder.Empty("set"), wanted(options.Kills), random));
        tell("kills", "recording", KillRecordings(folder.Empty("set"), wanted(options.Kills), random));
    }
    if (options.Full > 0) {
        const std::string disk = folder.Empty("disk");
        if (!MountSmallDisk(disk, kDiskKilobytes)) {
            std::printf("full disks: not run, this machine mounts no small disk\n");
            return 1;
        }
        for (const Kind& kind : kinds) {
            tell("full disks", kind.Name, FillForSaves(kind, disk, wanted(options.Full), random));
            EmptyDisk(disk);
        }
        tell("full disks", "recording", FillForRecordings(disk, wanted(options.Full), random));
    }
    return lost == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; i += 2) {
        if (i + 1 == argc) return Usage();
        const std::string_view name = argv[i];
        const int value = std::atoi(argv[i + 1]);
        if (name == "--kills") {
            options.Kills = value;
        } else if (name == "--full") {
            options.Full = value;
        } else if (name == "--seconds") {
            options.Seconds = value;
        } else if (name == "--seed") {
            options.Seed = static_cast<unsigned>(value);
        } else {
            return Usage();
        }
    }
    try {
        return Run(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kills: %s\n", error.what());
        return 2;
    }
}
