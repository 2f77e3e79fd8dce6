#include "core/files/paths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

TEST(FileExists, FindsFilesFoldersAndBrokenLinks) {
    const test::TempFolder folder;
    EXPECT_TRUE(FileExists(folder.Touch("a.WAV")));
    EXPECT_TRUE(FileExists(folder.Path()));
    std::filesystem::create_symlink("/nowhere/at/all", folder.In("link"));
    EXPECT_TRUE(FileExists(folder.In("link")));
}

TEST(TargetExists, DoesNotFindABrokenLink) {
    const test::TempFolder folder;
    EXPECT_TRUE(TargetExists(folder.Touch("a.WAV")));
    EXPECT_TRUE(TargetExists(folder.Path()));
    EXPECT_FALSE(TargetExists(folder.Path() + "/"));
    std::filesystem::create_symlink("/nowhere/at/all", folder.In("link"));
    EXPECT_FALSE(TargetExists(folder.In("link")));
}

TEST(FileExists, DoesNotFindWhatDoesNotExist) {
    const test::TempFolder folder;
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(folder.In("a.WAV")));
    EXPECT_FALSE(FileExists(folder.Path() + "/"));
    EXPECT_FALSE(FileExists(folder.In("a") + "/b"));
    EXPECT_FALSE(FileExists(folder.In(std::string(4000, 'x'))));
    EXPECT_FALSE(FileExists(folder.Touch("f") + "/g"));
}

TEST(DirExists, KnowsFoldersWithAndWithoutASeparatorAtTheEnd) {
    const test::TempFolder folder;
    EXPECT_TRUE(DirExists(folder.Path()));
    EXPECT_TRUE(DirExists(folder.Path() + "/"));
    EXPECT_TRUE(DirExists(folder.Path() + "\\"));
    EXPECT_TRUE(DirExists("/"));
    EXPECT_FALSE(DirExists(folder.Touch("a.WAV")));
    EXPECT_FALSE(DirExists(folder.In("none")));
    EXPECT_FALSE(DirExists(""));
}

TEST(DirExists, AFolderMayEndInABlank) {
    const test::TempFolder folder;
    std::filesystem::create_directory(folder.In("b "));
    EXPECT_TRUE(DirExists(folder.In("b ")));
    EXPECT_FALSE(DirExists(folder.In("b")));
}

TEST(DirExists, ANameThatEndsInAColonIsADrive) {
    EXPECT_FALSE(DirExists("C:"));
    EXPECT_FALSE(DirExists("C:\\"));
    EXPECT_TRUE(DriveExists("/"));
    EXPECT_FALSE(DriveExists("C:"));
}

TEST(StripBackslash, TrimsAndRemovesOneSeparator) {
    EXPECT_EQ(StripBackslash("  /a/b/ "), "/a/b");
    EXPECT_EQ(StripBackslash("C:\\a\\\\"), "C:\\a\\");
    EXPECT_EQ(StripBackslash("/a"), "/a");
    EXPECT_EQ(StripBackslash(""), "");
}

TEST(JoinPath, PutsOneSeparatorBetweenUnlessTheFolderEndsInOne) {
    EXPECT_EQ(JoinPath("/a", "b"), "/a/b");
    EXPECT_EQ(JoinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(JoinPath("C:\\a\\", "b"), "C:\\a\\b");
    EXPECT_EQ(JoinPath("", "b"), "/b");
    EXPECT_EQ(JoinPath("/loops/kicks\\", "b"), "/loops/kicks\\/b") << "a letter of the name";
}

TEST(SplitPath, TheLastSeparatorStaysWithTheFolder) {
    const struct {
        const char* path;
        const char* folder;
        const char* name;
    } kCases[] = {{"/a/b.WAV", "/a/", "b.WAV"},
                  {"C:\\a\\b.WAV", "C:\\a\\", "b.WAV"},
                  {"/a/", "/a/", ""},
                  {"name", "n", "ame"},  // without a separator it splits after the first character
                  {"n", "n", ""},
                  {"", "", ""}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.path);
        std::string folder;
        std::string name;
        SplitPath(c.path, folder, name);
        EXPECT_EQ(folder, c.folder);
        EXPECT_EQ(name, c.name);
    }
}

TEST(SplitFilePath, KeepsABackslashInTheName) {
    std::string folder;
    std::string name;
    SplitFilePath("/sets/a\\b.mvn", folder, name);
    EXPECT_EQ(folder, "/sets/");
    EXPECT_EQ(name, "a\\b.mvn");
    SplitFilePath("c.mvn", folder, name);
    EXPECT_EQ(folder, "./");
    EXPECT_EQ(name, "c.mvn");
}

TEST(SplitPath, MayWriteOverItsOwnArgument) {
    std::string path = "/a/b";
    std::string name;
    SplitPath(path, path, name);
    EXPECT_EQ(path, "/a/");
    EXPECT_EQ(name, "b");
}

TEST(LastPathPart, IsWhatStandsBehindTheLastSeparatorOrColon) {
    EXPECT_EQ(LastPathPart("C:\\"), "C:");
    EXPECT_EQ(LastPathPart("C:/"), "C:");
    EXPECT_EQ(LastPathPart("/music/drums"), "drums");
    EXPECT_EQ(LastPathPart("/music/drums/"), "drums");
    EXPECT_EQ(LastPathPart("C:drums"), "drums");
    EXPECT_EQ(LastPathPart("drums"), "drums");
    EXPECT_EQ(LastPathPart("/"), "");
    EXPECT_EQ(LastPathPart(""), "");
    // the first two characters, whatever is in front of the colon at the end
    EXPECT_EQ(LastPathPart("ab:/"), "ab");
}

TEST(SampleName, IsTheNameWithoutItsExtension) {
    EXPECT_EQ(SampleName("/a/kick.WAV"), "kick");
    EXPECT_EQ(SampleName("/a/kick.pcm"), "kick");
    EXPECT_EQ(SampleName("/a/.WAV"), "");
    EXPECT_EQ(SampleName("C:\\a\\kick.WAV"), "kick");
    EXPECT_EQ(SampleName("/a/b\\kick.WAV"), "b\\kick") << "a letter of the name";
    for (const char* name : {"kick", "kick-120", "a.b", "kick.aiff"})
        EXPECT_EQ(SampleName(std::string("/a/") + name), name);
    EXPECT_EQ(SampleName(""), "");
}

}  // namespace
}  // namespace marvolin
