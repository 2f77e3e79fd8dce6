#include "browser/lnk_shortcut.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "fakes/file_bytes.h"
#include "fakes/lnk_bytes.h"

namespace marvolin {
namespace {

using namespace test;

std::string Backslashed(std::string path) {
    for (char& c : path) {
        if (c == '/') c = '\\';
    }
    return path;
}

TEST(LnkShortcut, ReadsLocalAndRelativePath) {
    TempFolder folder;
    WriteBytes(folder / "x.wav.lnk", LnkBytes("C:\\Samples\\Kick.wav", "..\\Samples\\Kick.wav"));
    ShortcutPaths paths;
    ASSERT_TRUE(ReadShortcut(folder / "x.wav.lnk", paths));
    EXPECT_EQ(paths.Local, "C:\\Samples\\Kick.wav");
    EXPECT_EQ(paths.Relative, "..\\Samples\\Kick.wav");
}

TEST(LnkShortcut, TheRelativePathComesFirstAndStartsAtTheShortcutsFolder) {
    TempFolder folder;
    std::filesystem::create_directories(folder / "bin");
    std::filesystem::create_directories(folder / "Samples");
    WriteBytes(folder / "Samples/Kick.wav", "");
    WriteBytes(folder / "other.wav", "");
    WriteBytes(folder / "bin/x.wav.lnk", LnkBytes("C:" + Backslashed(folder / "other.wav"), "..\\samples\\KICK.WAV"));
    EXPECT_EQ(ResolveLnkShortcut(folder / "bin/x.wav.lnk"), folder / "Samples/Kick.wav");
}

TEST(LnkShortcut, TheLocalPathIsUsedWhenTheRelativeOneLeadsNowhere) {
    TempFolder folder;
    WriteBytes(folder / "Other.wav", "");
    WriteBytes(folder / "x.wav.lnk", LnkBytes("C:" + Backslashed(folder / "OTHER.WAV"), ".\\gone.wav"));
    EXPECT_EQ(ResolveLnkShortcut(folder / "x.wav.lnk"), folder / "Other.wav");
    WriteBytes(folder / "y.wav.lnk", LnkBytes("C:" + Backslashed(folder / "gone.wav"), ""));
    EXPECT_EQ(ResolveLnkShortcut(folder / "y.wav.lnk"), "");
}

TEST(LnkShortcut, AFolderIsNoTarget) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "sub.wav");
    WriteBytes(folder / "x.wav.lnk", LnkBytes("", ".\\sub.wav"));
    EXPECT_EQ(ResolveLnkShortcut(folder / "x.wav.lnk"), "");
}

TEST(LnkShortcut, AnUnreadableShortcutLeadsNowhere) {
    TempFolder folder;
    WriteBytes(folder / "x.wav.lnk", "no shortcut at all");
    WriteBytes(folder / "empty.wav.lnk", "");
    EXPECT_EQ(ResolveLnkShortcut(folder / "x.wav.lnk"), "");
    EXPECT_EQ(ResolveLnkShortcut(folder / "empty.wav.lnk"), "");
    EXPECT_EQ(ResolveLnkShortcut(folder / "none.wav.lnk"), "");
    EXPECT_EQ(ResolveLnkShortcut(folder.Path()), "");
}

TEST(LnkShortcut, CutAtEveryByteAndEveryByteFlippedItLeadsSomewhereOrNowhere) {
    TempFolder folder;
    WriteBytes(folder / "Kick.wav", "");
    const std::string whole = LnkBytes("C:\\gone.wav", ".\\Kick.wav");
    for (std::size_t at = 0; at < whole.size(); ++at) {
        WriteBytes(folder / "x.wav.lnk", whole.substr(0, at));
        const std::string cut = ResolveLnkShortcut(folder / "x.wav.lnk");
        std::string bytes = whole;
        bytes[at] = static_cast<char>(~bytes[at]);
        WriteBytes(folder / "x.wav.lnk", bytes);
        const std::string flipped = ResolveLnkShortcut(folder / "x.wav.lnk");
        for (const std::string& target : {cut, flipped}) {
            EXPECT_TRUE(target.empty() || target == folder / "Kick.wav" || target == folder / "x.wav.lnk") << target;
        }
    }
}

}  // namespace
}  // namespace marvolin
