#include "demo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "fakes/file_bytes.h"
#include "headless_world.h"
#include "stage/hearing.h"

namespace marvolin::demo {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kFirstFade = 3000;
constexpr std::int32_t kLastFade = 9000;
constexpr std::int32_t kFadeTime = 3400;

/// A program's folder with the sample library and the demo.
struct ProgramFolder {
    test::TempFolder Folder;
    std::string Failure;
    ProgramFolder() {
        fs::create_directory_symlink(fs::path(MARVOLIN_FOLDER) / "Samples", Folder / "Samples");
        Failure = WriteDemo(Folder.Path());
    }
};

stage::Captured Sides(const std::vector<std::int16_t>& frames) {
    stage::Captured sound;
    for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
        sound.left.push_back(frames[i]);
        sound.right.push_back(frames[i + 1]);
    }
    return sound;
}

TEST(Demo, PlaysAtTheStartUntilOnlyTheFirstLoopTrackIsLeft) {
    ProgramFolder made;
    ASSERT_EQ(made.Failure, "");
    // Moved: the package alone, without the sample library.
    test::TempFolder moved;
    for (const auto& entry : fs::directory_iterator(made.Folder.Path())) {
        if (!entry.is_symlink()) fs::copy(entry.path(), fs::path(moved.Path()) / entry.path().filename());
    }
    headless::World world(moved.Path());
    ASSERT_TRUE(world.Started);
    Form_Activate(world.s);
    EXPECT_EQ(world.s.DemoStep, 1);
    for (Row row = 0; row < kLoopTracks; ++row) {
        SCOPED_TRACE(row);
        EXPECT_EQ(world.s.Run[row].Playing, True);
        EXPECT_EQ(fs::path(world.s.Set[row].FileName).parent_path(), fs::path(moved.Path()));
    }
    std::vector<std::int16_t> sound;
    world.Play(kFirstFade + 100, sound);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(world.s.Run[row].FadeState != kNoFade, row == 1) << row;
    world.Play(2000, sound);
    EXPECT_NE(world.s.Run[2].FadeState, kNoFade);
    EXPECT_EQ(world.s.Run[3].FadeState, kNoFade);
    world.Play(kLastFade - 5000 + kFadeTime, sound);
    EXPECT_EQ(world.s.DemoStep, 4);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(world.s.Run[row].Playing != False, row == 0) << row;
    EXPECT_TRUE(world.Desk.Boxes.empty());
    if (const char* file = std::getenv("DEMO_SOUND")) {
        test::WriteBytes(file, std::string(reinterpret_cast<const char*>(sound.data()), sound.size() * 2));
    }

    const stage::Captured heard = Sides(sound);
    for (const auto* side : {&heard.left, &heard.right}) {
        const auto [low, high] = std::minmax_element(side->begin(), side->end());
        EXPECT_GT(*low, -32000);
        EXPECT_LT(*high, 32000);
        EXPECT_GT(*high, 8000);
    }
}

TEST(Demo, EveryBeatBeginsASoundWhileAllFourPlay) {
    ProgramFolder made;
    ASSERT_EQ(made.Failure, "");
    headless::World world(made.Folder.Path());
    Form_Activate(world.s);
    std::vector<std::int16_t> sound;
    world.Play(kFirstFade, sound);
    const std::vector<std::int64_t> onsets = stage::Onsets(Sides(sound), -4000, 600, 60);
    for (int beat = 1; beat < 6; ++beat) {
        SCOPED_TRACE(beat);
        EXPECT_TRUE(std::any_of(onsets.begin(), onsets.end(),
                                [beat](std::int64_t at) { return std::abs(at - 500 * beat) <= 15; }));
    }
}

TEST(Demo, TheDrumLoopTrackRestartsAndTheTrackLoopTrackHasPatterns) {
    ProgramFolder made;
    headless::World world(made.Folder.Path());
    Form_Activate(world.s);
    const Session& s = world.s;
    EXPECT_EQ(s.Set[1].PlayMode, kDrum);
    EXPECT_EQ(s.Set[2].PlayMode, kTrack);
    for (const int patternRow : {kVolPattern, kPanPattern}) {
        const PatternBlock& pattern = s.Set[2].Pattern[patternRow];
        EXPECT_NE(*std::min_element(pattern.begin(), pattern.begin() + 16),
                  *std::max_element(pattern.begin(), pattern.begin() + 16));
    }
    std::vector<std::int16_t> sound;
    world.Play(1900, sound);
    EXPECT_EQ(s.Run[1].Step, 7);
    EXPECT_EQ(s.Run[2].Step, 7);
    for (Row row = 0; row < kLoopTracks; ++row) EXPECT_EQ(s.Set[row].Channel, row + 1);
}

TEST(Demo, StaysDisabledWhenThePlayerHasDisabledIt) {
    ProgramFolder made;
    fs::rename(made.Folder / kDemoFile, made.Folder / kDisabledDemoFile);
    test::WriteBytes(made.Folder / kDisabledDemoFile, "an older one");
    EXPECT_EQ(WriteDemo(made.Folder.Path()), "");
    EXPECT_FALSE(fs::exists(made.Folder / kDemoFile));
    EXPECT_GT(fs::file_size(made.Folder / kDisabledDemoFile), 1000U);
}

TEST(Demo, ReplacesAnOlderOneWithoutABackup) {
    ProgramFolder made;
    test::WriteBytes(made.Folder / kDemoFile, "an older one");
    EXPECT_EQ(WriteDemo(made.Folder.Path()), "");
    EXPECT_GT(fs::file_size(made.Folder / kDemoFile), 1000U);
    for (const auto& entry : fs::directory_iterator(made.Folder.Path())) EXPECT_NE(entry.path().string().back(), '~');
}

TEST(Demo, WithoutItsSamplesItSaysWhatIsMissing) {
    test::TempFolder empty;
    EXPECT_NE(WriteDemo(empty.Path()), "");
    EXPECT_FALSE(fs::exists(empty / kDemoFile));
}

}  // namespace
}  // namespace marvolin::demo
