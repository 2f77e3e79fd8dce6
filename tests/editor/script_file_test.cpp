#include "scripting/script_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "core/errors.h"
#include "fakes/file_bytes.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

std::string FailureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return "";
}

std::vector<std::string> NamesIn(const TempFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.Path())) names.push_back(entry.path().filename().string());
    return names;
}

TEST(ScriptFile, AScriptIsReadAsItWasWritten) {
    const TempFolder folder;
    const std::string text = "-- f\xC3\xBCr alle\r\nprint(1)\n\n";
    WriteScript(folder / "a.mvs", text);
    EXPECT_EQ(ReadScript(folder / "a.mvs"), text);
    WriteScript(folder / "empty.mvs", "");
    EXPECT_EQ(ReadScript(folder / "empty.mvs"), "");
}

TEST(ScriptFile, AMarkOfTheByteOrderIsLeftOut) {
    const TempFolder folder;
    EXPECT_EQ(ReadScript(folder.Touch("a.mvs", "\xEF\xBB\xBFprint(1)")), "print(1)");
}

TEST(ScriptFile, WhatIsNoScriptIsRefusedInWords) {
    const TempFolder folder;
    const auto failure = [&](const std::string& path) { return FailureOf([&] { ReadScript(path); }); };
    EXPECT_EQ(failure(folder / "none.mvs"), "File not found");
    EXPECT_EQ(failure(folder.Path()), "Path/File access error");
    EXPECT_EQ(failure(folder.Touch("long.mvs", std::string(10'000'000, 'x'))),
              "It is longer than 1 MB, the most for a script");
    EXPECT_EQ(failure(folder.Touch("zero.mvs", std::string("a\0b", 3))), "It is no text: it holds a zero byte");
    EXPECT_EQ(failure(folder.Touch("latin.mvs", "f\xFCr")), "It is no text in UTF-8");
    EXPECT_EQ(failure(folder.Touch("most.mvs", std::string(1024 * 1024, 'x'))), "");
}

TEST(ScriptFile, Utf8HasNoHalfLongSurrogateOrTooLargeCharacters) {
    for (const char* good :
         {"", "a", "\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsUtf8(good)) << good;
    }
    for (const char* bad :
         {"\x80", "\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\x80", "\xED\xA0\x80", "\xE2\x82", "\xF0\x8F\x80\x80",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xC3(", "\xE2\x28\xA1"}) {
        EXPECT_FALSE(IsUtf8(bad)) << bad;
    }
}

TEST(ScriptFile, TheReplacedTextStaysAsACopy) {
    const TempFolder folder;
    WriteScript(folder / "a.mvs", "one");
    EXPECT_THAT(NamesIn(folder), testing::UnorderedElementsAre("a.mvs"));
    WriteScript(folder / "a.mvs", "two");
    WriteScript(folder / "a.mvs", "three");
    EXPECT_EQ(ReadScript(folder / "a.mvs"), "three");
    EXPECT_EQ(ReadScript(folder / "a.mvs~"), "two");
    EXPECT_THAT(NamesIn(folder), testing::UnorderedElementsAre("a.mvs", "a.mvs~"));
}

TEST(ScriptFile, ASaveThatFailsLeavesEveryFileAsItWas) {
    const TempFolder folder;
    WriteScript(folder / "a.mvs", "one");
    fs::create_directory(folder / "a.mvs~");
    EXPECT_NE(FailureOf([&] { WriteScript(folder / "a.mvs", "two"); }), "");
    EXPECT_EQ(ReadScript(folder / "a.mvs"), "one");
    EXPECT_TRUE(fs::is_directory(folder / "a.mvs~"));
    EXPECT_THAT(NamesIn(folder), testing::UnorderedElementsAre("a.mvs", "a.mvs~"));
    EXPECT_EQ(FailureOf([&] { WriteScript(folder / "gone/a.mvs", "two"); }), "File not found");
    EXPECT_EQ(FailureOf([&] { WriteScript(folder.Path(), "two"); }), "Path/File access error");
}

TEST(ScriptFile, ALinkStaysALink) {
    const TempFolder folder;
    const std::string real = folder.Touch("real.mvs", "one");
    fs::create_symlink(real, folder / "link.mvs");
    WriteScript(folder / "link.mvs", "two");
    EXPECT_TRUE(fs::is_symlink(folder / "link.mvs"));
    EXPECT_EQ(ReadScript(real), "two");
    EXPECT_EQ(ReadScript(folder / "real.mvs~"), "one");
}

}  // namespace
}  // namespace marvolin
