// The search for missing samples in a folder and all below it.

#include "persistence/missing/sample_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <utility>

#include "fakes/file_bytes.h"

namespace marvolin {
namespace {

using namespace test;
namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

struct Tree {
    TempFolder Folder;
    std::string Put(const std::string& path) const {
        fs::create_directories(fs::path(Folder / path).parent_path());
        WriteBytes(Folder / path, path);
        return Folder / path;
    }
    FoundSamples FindAll(std::vector<std::string> names) const {
        SampleSearch search(Folder.Path(), std::move(names));
        while (!search.Step(10)) {
        }
        return search.Found();
    }
    /// The first of each name.
    std::map<std::string, std::string> Find(std::vector<std::string> names) const {
        std::map<std::string, std::string> first;
        for (const auto& [name, paths] : FindAll(std::move(names))) first[name] = paths.front();
        return first;
    }
};

TEST(SampleSearch, FindsAllNamesInTheFolderAndBelow) {
    Tree t;
    const std::string a = t.Put("a.wav");
    const std::string b = t.Put("x/y/z/b.wav");
    t.Put("x/c.wav");
    EXPECT_THAT(t.Find({"a.wav", "b.wav", "d.wav"}), UnorderedElementsAre(Pair("a.wav", a), Pair("b.wav", b)));
}

TEST(SampleSearch, TheFolderNearestToTheFirstComesFirst) {
    Tree t;
    t.Put("aa/bb/a.wav");
    const std::string near = t.Put("zz/a.wav");
    t.Put("aa/other.wav");
    EXPECT_THAT(t.Find({"a.wav"}), UnorderedElementsAre(Pair("a.wav", near)));
}

TEST(SampleSearch, ANameInOtherLettersCountsWhenThereIsNoneSpelledAlike) {
    Tree t;
    t.Put("A.WAV");
    const std::string alike = t.Put("deep/er/a.wav");
    const std::string other = t.Put("B.WAV");
    EXPECT_THAT(t.Find({"a.wav", "b.wav"}), UnorderedElementsAre(Pair("a.wav", alike), Pair("b.wav", other)));
}

TEST(SampleSearch, ATurnEndsSoonAfterItsTimeHoweverSlowTheDiskIs) {
    Tree t;
    for (int n = 0; n < 200; ++n) t.Put(std::to_string(n) + ".wav");
    SampleSearch search(t.Folder.Path(), {"a.wav"});
    std::int64_t now = 0;
    int asked = 0;
    const auto slow = [&] {
        ++asked;
        return std::exchange(now, now + 600'000);
    };
    EXPECT_FALSE(search.StepFor(1'000'000, slow));
    EXPECT_EQ(asked, 3) << "at the begin, and between a few entries each";
    const auto quick = [] { return std::int64_t{0}; };
    EXPECT_TRUE(search.StepFor(1, quick)) << "all in one turn while no time passes";
}

TEST(SampleSearch, ATurnWhoseTimeIsOverAlreadyLooksAtSome) {
    Tree t;
    const std::string a = t.Put("a.wav");
    SampleSearch search(t.Folder.Path(), {"a.wav"});
    std::int64_t now = 0;
    EXPECT_TRUE(search.StepFor(0, [&] { return ++now; }));
    EXPECT_THAT(search.Found().at("a.wav"), ElementsAre(a));
}

TEST(SampleSearch, AFolderOfTheNameIsNoSample) {
    Tree t;
    fs::create_directories(t.Folder / "a.wav");
    EXPECT_THAT(t.Find({"a.wav"}), IsEmpty());
}

TEST(SampleSearch, LinksToFoldersAreNotFollowedSoThatNoCircleHoldsIt) {
    Tree t;
    t.Put("x/b.wav");
    fs::create_directory_symlink(t.Folder.Path(), t.Folder / "x/round");
    EXPECT_THAT(t.Find({"a.wav"}), IsEmpty());
}

TEST(SampleSearch, ALinkToASampleIsOne) {
    Tree t;
    TempFolder other;
    WriteBytes(other / "real.wav", "x");
    fs::create_symlink(other / "real.wav", t.Folder / "a.wav");
    fs::create_symlink(other / "gone.wav", t.Folder / "b.wav");
    EXPECT_THAT(t.Find({"a.wav", "b.wav"}), UnorderedElementsAre(Pair("a.wav", t.Folder / "a.wav")));
}

TEST(SampleSearch, AFolderThatIsNotThereHasNothing) {
    SampleSearch search("/nowhere/at/all", {"a.wav"});
    EXPECT_TRUE(search.Step(1));
    EXPECT_THAT(search.Found(), IsEmpty());
}

TEST(SampleSearch, LooksAtNoMoreEntriesAtOnceThanItIsAskedTo) {
    Tree t;
    for (int file = 0; file < 100; ++file) t.Put("many/" + std::to_string(file) + ".wav");
    SampleSearch search(t.Folder.Path(), {"missing.wav"});
    int turns = 1;
    while (!search.Step(10)) ++turns;
    EXPECT_GE(turns, 10);
    EXPECT_LE(turns, 12);
}

TEST(SampleSearch, ReadsOnAfterTheFirstFileOfAName) {
    Tree t;
    const std::string near = t.Put("a.wav");
    const std::string deep = t.Put("kit1/a.wav");
    EXPECT_THAT(t.FindAll({"a.wav"}), UnorderedElementsAre(Pair("a.wav", ElementsAre(near, deep))));
}

TEST(SampleSearch, ForNothingEndsAtOnce) {
    Tree t;
    for (int file = 0; file < 100; ++file) t.Put("many/" + std::to_string(file) + ".wav");
    SampleSearch search(t.Folder.Path(), {});
    EXPECT_TRUE(search.Step(10));
}

}  // namespace
}  // namespace marvolin
