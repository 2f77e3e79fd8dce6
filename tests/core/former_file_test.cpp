#include "core/files/former_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "core/errors.h"
#include "fakes/file_bytes.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;
using test::ReadBytes;
using test::TempFolder;

std::uint32_t ErrorOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

void Replace(const std::string& path, const std::string& text, bool keep) {
    FormerFile former(path);
    if (keep) former.Keep();
    NewFile file(path);
    file.Write(text);
    file.Sync();
    former.ReplaceBy(file);
}

TEST(FormerFile, IsThereOrNot) {
    const TempFolder folder;
    EXPECT_FALSE(FormerFile(folder / "none").Exists());
    EXPECT_TRUE(FormerFile(folder.Touch("one")).Exists());
}

TEST(FormerFile, StaysAsACopyWhenItIsKept) {
    const TempFolder folder;
    const std::string path = folder.Touch("a.txt", "one");
    Replace(path, "two", true);
    EXPECT_EQ(ReadBytes(path), "two");
    EXPECT_EQ(ReadBytes(path + "~"), "one");
    Replace(path, "three", false);
    EXPECT_EQ(ReadBytes(path), "three");
    EXPECT_EQ(ReadBytes(path + "~"), "one");
}

TEST(FormerFile, AFolderAFileInNoFolderAndACopyThatIsAFolderAreRefused) {
    const TempFolder folder;
    EXPECT_EQ(ErrorOf([&] { FormerFile(folder.Path()); }), 75U);
    EXPECT_NE(ErrorOf([&] { FormerFile(folder.Touch("a.txt") + "/b"); }), 0U);
    fs::create_directory(folder / "a.txt~");
    EXPECT_NE(ErrorOf([&] { FormerFile(folder / "a.txt").Keep(); }), 0U);
    const std::string longest(255, 'x');
    EXPECT_NE(ErrorOf([&] { FormerFile(folder.Touch(longest)).Keep(); }), 0U);
}

TEST(FormerFile, AFailureHalfwayRestoresBothNames) {
    const TempFolder folder;
    const std::string path = folder.Touch("a.txt", "one");
    folder.Touch("a.txt~", "before");
    FormerFile former(path);
    former.Keep();
    NewFile file(path);
    file.Write("two");
    file.Sync();
    // The name is taken by a folder, after it was looked at.
    fs::remove(path);
    fs::create_directory(path);
    EXPECT_NE(ErrorOf([&] { former.ReplaceBy(file); }), 0U);
    EXPECT_TRUE(fs::is_directory(path));
    EXPECT_EQ(ReadBytes(path + "~"), "before");
}

TEST(FolderOf, ANameAloneIsInTheCurrentFolder) {
    EXPECT_EQ(FolderOf("/a/b.txt"), "/a");
    EXPECT_EQ(FolderOf("b.txt"), ".");
    EXPECT_EQ(FolderOf("/b.txt"), "/");
}

}  // namespace
}  // namespace marvolin
