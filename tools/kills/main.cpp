// Kills and full disks, and what they leave of sets, snapshots, scripts, the last state and recordings:
// kills [--kills N] [--full N] [--seed N]

#include <stdlib.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

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
    std::fprintf(stderr, "usage: kills [--kills N] [--full N] [--seed N]\n");
    return 2;
}

int Run(int kills, int full, unsigned seed) {
    const Folder folder;
    std::mt19937 random(seed);
    int lost = 0;
    const auto tell = [&](const char* what, const std::string& name, const Counts& counts) {
        Tell(what, name, counts);
        lost += counts.Lost;
    };
    if (kills > 0) {
        for (const Kind& kind : Kinds()) tell("kills", kind.Name, KillSaves(kind, folder.Empty("set"), kills, random));
        tell("kills", "recording", KillRecordings(folder.Empty("set"), kills, random));
    }
    if (full > 0) {
        const std::string disk = folder.Empty("disk");
        if (!MountSmallDisk(disk, kDiskKilobytes)) {
            std::printf("full disks: not run, this machine mounts no small disk\n");
            return 1;
        }
        for (const Kind& kind : Kinds()) {
            tell("full disks", kind.Name, FillForSaves(kind, disk, full, random));
            EmptyDisk(disk);
        }
        tell("full disks", "recording", FillForRecordings(disk, full, random));
    }
    return lost == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    int kills = 1000;
    int full = 200;
    unsigned seed = 1;
    for (int i = 1; i < argc; i += 2) {
        if (i + 1 == argc) return Usage();
        const std::string_view name = argv[i];
        const int value = std::atoi(argv[i + 1]);
        if (name == "--kills") {
            kills = value;
        } else if (name == "--full") {
            full = value;
        } else if (name == "--seed") {
            seed = static_cast<unsigned>(value);
        } else {
            return Usage();
        }
    }
    try {
        return Run(kills, full, seed);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kills: %s\n", error.what());
        return 2;
    }
}
