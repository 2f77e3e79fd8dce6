// A few kills and full disks of each kind leave nothing that is lost, and what is lost is counted.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <exception>
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

/// Saves twice, so that its time can be taken, and then never again.
struct Tired : Careless {
    using Careless::Careless;
    bool Save(int number) override { return number <= 2 && Careless::Save(number); }
};

TEST(Kills, OfASaveThatRefusesAreCountedAsLost) {
    const test::TempFolder folder;
    std::mt19937 random(1);
    const Kind tired{"tired", [](const std::string& path) { return std::make_unique<Tired>(path + "/state"); }};
    EXPECT_GT(KillSaves(tired, folder.Path(), UpTo(5), random).Lost, 3);
}

TEST(Kills, AScriptThatIsGoneOrCutIsNotWhole) {
    const test::TempFolder folder;
    const std::vector<Kind> kinds = Kinds();
    const auto script =
        std::find_if(kinds.begin(), kinds.end(), [](const Kind& kind) { return kind.Name == "script"; });
    ASSERT_NE(script, kinds.end());
    const std::unique_ptr<Saver> saver = script->Make(folder.Path());
    EXPECT_FALSE(saver->Newest());
    ASSERT_TRUE(saver->Save(7));
    EXPECT_EQ(saver->Newest(), 7);
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        std::filesystem::resize_file(entry.path(), 2);
    EXPECT_FALSE(saver->Newest());
}

TEST(Kills, ARecordingWithAFrameInTheWrongPlaceIsNotWhole) {
    const test::TempFolder folder;
    const std::string path = folder.Path() + "/take.wav";
    std::atomic<std::int64_t> recorded = 0;
    EXPECT_EQ(RecordNumbered(path, 4410, recorded), "");
    EXPECT_EQ(recorded, 4410);
    EXPECT_EQ(NumberedFramesIn(path), 4410);
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(-400, std::ios::end);
    file.put('x');
    file.close();
    EXPECT_FALSE(NumberedFramesIn(path));
}

enum class Trial : std::uint8_t { Well, Bad, NoDisk };

/// Runs `act` in a process of its own with a small disk.
Trial OnASmallDisk(bool (*act)(const std::string& disk)) {
    const test::TempFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
        if (!MountSmallDisk(folder.Path(), 8192)) ::_exit(2);
        bool well = false;
        try {
            well = act(folder.Path());
        } catch (const std::exception& error) {
            std::puts(error.what());
        }
        ::_exit(well ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFEXITED(status)) return Trial::Bad;
    if (WEXITSTATUS(status) == 2) return Trial::NoDisk;
    return WEXITSTATUS(status) == 0 ? Trial::Well : Trial::Bad;
}

constexpr const char* kNoDisk = "this machine mounts no small disk";

TEST(FullDisks, LeaveEachKindOfSaveWhole) {
    const Trial trial = OnASmallDisk([](const std::string& disk) {
        for (const Kind& kind : Kinds()) {
            std::mt19937 random(1);
            const Counts counts = FillForSaves(kind, disk, UpTo(6), random);
            if (counts.Whole != 6 || counts.Lost != 0) return false;
            for (const auto& entry : std::filesystem::directory_iterator(disk))
                std::filesystem::remove_all(entry.path());
        }
        return true;
    });
    if (trial == Trial::NoDisk) GTEST_SKIP() << kNoDisk;
    EXPECT_EQ(trial, Trial::Well);
}

TEST(FullDisks, EndARecordingWithAllThatFitted) {
    const Trial trial = OnASmallDisk([](const std::string& disk) {
        std::mt19937 random(1);
        const Counts counts = FillForRecordings(disk, UpTo(6), random);
        return counts.Whole == 6 && counts.Hit == 6;
    });
    if (trial == Trial::NoDisk) GTEST_SKIP() << kNoDisk;
    EXPECT_EQ(trial, Trial::Well);
}

}  // namespace
}  // namespace marvolin::kills
