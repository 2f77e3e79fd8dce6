// A few kills and full disks of each kind leave nothing that is lost, and what is lost is counted.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "fakes/temp_folder.h"
#include "kills/recording.h"
#include "kills/saver.h"
#include "kills/strike.h"

namespace marvolin::kills {
namespace {

TEST(Kills, OfEachKindOfSaveLoseNothing) {
    for (const Kind& kind : Kinds()) {
        SCOPED_TRACE(kind.Name);
        const test::TempFolder folder;
        std::mt19937 random(1);
        const Counts counts = KillSaves(kind, folder.Path(), UpTo(10), random);
        EXPECT_EQ(counts.Strikes, 10);
        EXPECT_EQ(counts.Whole, 10);
        EXPECT_EQ(counts.Lost, 0);
    }
}

TEST(Kills, OfRecordingsLoseNoFrameThatWasTold) {
    const test::TempFolder folder;
    std::mt19937 random(1);
    const Counts counts = KillRecordings(folder.Path(), UpTo(10), random);
    EXPECT_EQ(counts.Whole, 10);
    EXPECT_EQ(counts.Lost, 0);
}

/// Writes into the file itself, as no save may.
struct Careless : Saver {
    explicit Careless(std::string path) : Path(std::move(path)) {}
    bool Save(int number) override {
        std::ofstream file(Path, std::ios::trunc);
        for (int i = 0; i < 20'000; ++i) file << number << std::endl;
        return file.good();
    }
    std::optional<int> Newest() override {
        std::ifstream file(Path);
        int first = 0;
        int lines = 0;
        for (int number = 0; file >> number; ++lines) {
            if (lines == 0) first = number;
            if (number != first) return {};
        }
        if (lines != 20'000) return {};
        return first;
    }
    std::string Path;
};
const Kind kCareless{"careless",
                     [](const std::string& folder) { return std::make_unique<Careless>(folder + "/state"); }};

TEST(Kills, OfACarelessSaveAreCountedAsLost) {
    const test::TempFolder folder;
    std::mt19937 random(1);
    EXPECT_GT(KillSaves(kCareless, folder.Path(), UpTo(20), random).Lost, 0);
}

TEST(Kills, ARecordingWithAFrameInTheWrongPlaceIsNotWhole) {
    const test::TempFolder folder;
    const std::string path = folder.Path() + "/take.wav";
    std::atomic<std::int64_t> told = 0;
    EXPECT_EQ(RecordNumbered(path, 4410, told), "");
    EXPECT_EQ(told, 4410);
    EXPECT_EQ(NumberedFramesIn(path), 4410);
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(-400, std::ios::end);
    file.put('x');
    file.close();
    EXPECT_FALSE(NumberedFramesIn(path));
}

/// Runs `act` in a process of its own with a small disk; false when it failed. A machine that mounts none is told.
bool OnASmallDisk(bool (*act)(const std::string& disk)) {
    const test::TempFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
        if (!MountSmallDisk(folder.Path(), 8192)) ::_exit(2);
        ::_exit(act(folder.Path()) ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 2) {
        std::puts("this machine mounts no small disk: the test of full disks was not made");
        return true;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(FullDisks, LeaveEachKindOfSaveWhole) {
    EXPECT_TRUE(OnASmallDisk([](const std::string& disk) {
        for (const Kind& kind : Kinds()) {
            std::mt19937 random(1);
            const Counts counts = FillForSaves(kind, disk, UpTo(6), random);
            if (counts.Whole != 6 || counts.Lost != 0) return false;
            for (const auto& entry : std::filesystem::directory_iterator(disk))
                std::filesystem::remove_all(entry.path());
        }
        return true;
    }));
}

TEST(FullDisks, EndARecordingWithAllThatFitted) {
    EXPECT_TRUE(OnASmallDisk([](const std::string& disk) {
        std::mt19937 random(1);
        const Counts counts = FillForRecordings(disk, UpTo(6), random);
        return counts.Whole == 6 && counts.Hit == 6;
    }));
}

}  // namespace
}  // namespace marvolin::kills
