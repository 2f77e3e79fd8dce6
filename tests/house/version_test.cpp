#include "house/version.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "house/pages.h"

namespace marvolin::house {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const fs::path kProject = fs::path(MARVOLIN_SOURCES).parent_path();

// The change log names every version, and a measured figure belongs to its own.
TEST(Version, StandsInTheBuildFileAlone) {
    EXPECT_THAT(TextsThatName(kProject, MARVOLIN_VERSION, {"CHANGELOG.md", "bench/peers.md"}),
                ElementsAre("CMakeLists.txt"));
}

TEST(Version, HasItsDayAmongTheChanges) {
    EXPECT_THAT(DayOfVersion(ReadPage(kProject / "CHANGELOG.md"), MARVOLIN_VERSION),
                testing::MatchesRegex("20[0-9][0-9]-[0-9][0-9]-[0-9][0-9]"));
}

TEST(VersionCheck, TellsAVersionFromALongerNumber) {
    for (const char* text : {"7.8.9", "VERSION 7.8.9 ", "marvolin_7.8.9-1_amd64", "It is 7.8.9.", "v7.8.9\n"}) {
        EXPECT_TRUE(NamesVersion(text, "7.8.9")) << text;
    }
    for (const char* text : {"", "7.8", "17.8.9", "7.8.90", "7.8.9.1", "6.7.8.9", "7x8.9"}) {
        EXPECT_FALSE(NamesVersion(text, "7.8.9")) << text;
    }
    EXPECT_TRUE(NamesVersion("7.8.91 and 7.8.9", "7.8.9"));
}

TEST(VersionCheck, FindsATextThatNamesAVersion) {
    const fs::path root = fs::path(testing::TempDir()) / "marvolin_version_check";
    fs::remove_all(root);
    for (const char* folder : {".git", "build", "docs/build"}) fs::create_directories(root / folder);
    const auto write = [&](const char* name, const std::string& text) {
        std::ofstream(root / name, std::ios::binary) << text;
    };
    write(".gitignore", "/build/\n");
    for (const char* name : {".git/a", "build/a", "docs/build/a", "docs/b", "c", "left_out"}) write(name, "7.8.9");
    write("picture", std::string("\0 7.8.9", 7));
    write("other", "7.8.8");
    EXPECT_THAT(TextsThatName(root, "7.8.9", {"left_out"}), ElementsAre("c", "docs/b", "docs/build/a"));
    EXPECT_THAT(TextsThatName(root, "1.2.3", {}), IsEmpty());
    fs::remove_all(root);
}

TEST(VersionCheck, FindsTheDayOfAVersion) {
    const std::string changes = "# What is new\n\n## Coming\n\n## 7.8.9 (2000-12-31)\n\n- a\n\n## 7.8\n";
    EXPECT_EQ(DayOfVersion(changes, "7.8.9"), "2000-12-31");
    EXPECT_EQ(DayOfVersion(changes, "7.8"), "");
    EXPECT_EQ(DayOfVersion(changes, "7x8.9"), "");
    EXPECT_EQ(DayOfVersion("## 7x8x9 (2000-12-31)\n", "7.8.9"), "");
}

}  // namespace
}  // namespace marvolin::house
