#include "house/pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "house/floors.h"

namespace marvolin::house {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const fs::path kRoot = fs::path(MARVOLIN_SOURCES).parent_path();

const TestPrograms& Programs() {
    static const TestPrograms programs = ReadTestPrograms(kRoot / "tests");
    return programs;
}

TEST(Pages, TheTestProgramsAreReadWhole) {
    EXPECT_GE(Programs().size(), 14U);
    EXPECT_TRUE(Programs().at("house_test").contains("Pages.TheTestProgramsAreReadWhole"));
    EXPECT_TRUE(Programs().at("sound_adapter_test").contains("SoundAdapter.VolumeIsAnExactAttenuation"));
}

TEST(Pages, EveryOddRuleNamesATestAndEveryTestItNamesExists) {
    const std::string rules = ReadPage(kRoot / "docs/rules.md");
    EXPECT_GE(rules.size(), 10000U);
    EXPECT_THAT(RowsWithoutATest(rules), IsEmpty());
    EXPECT_THAT(TestsThatAreNot(rules, Programs()), IsEmpty());
}

TEST(Pages, EveryTestThatThePagesNameExists) {
    for (const char* page : {"docs/architecture.md", "docs/how_to_add.md"}) {
        SCOPED_TRACE(page);
        EXPECT_THAT(TestsThatAreNot(ReadPage(kRoot / page), Programs()), IsEmpty());
    }
}

TEST(Pages, EveryFileThatThePagesNameExists) {
    const std::vector<fs::path> roots{kRoot, kRoot / "src", kRoot / "docs", kRoot / "docs/decisions"};
    for (const char* page : {"docs/architecture.md", "docs/building.md", "docs/how_to_add.md", "docs/rules.md"}) {
        SCOPED_TRACE(page);
        const std::string text = ReadPage(kRoot / page);
        EXPECT_FALSE(text.empty());
        EXPECT_THAT(FilesThatAreNot(text, roots), IsEmpty());
    }
}

TEST(Pages, EveryNameOfTheGlossaryIsAWordOfTheSources) {
    const std::string names = ReadPage(kRoot / "docs/names.md");
    EXPECT_GE(names.size(), 5000U);
    EXPECT_THAT(NamesThatAreNot(names, Sources()), IsEmpty());
}

TEST(PagesCheck, FindsSpansOutsideOfCodeBlocks) {
    EXPECT_THAT(SpansOf("a `b` and `c d`\n    `indented`\n```\n`fenced`\n```\n| `e` |\n"),
                ElementsAre("b", "c d", "e"));
}

TEST(PagesCheck, ReportsATestThatNoProgramHas) {
    const TestPrograms programs{{"core_test", {"Suite.Is"}}, {"audio_test", {"Suite.Else"}}};
    EXPECT_THAT(
        TestsThatAreNot("`core_test Suite.Is`, `core_test Suite.Else`, `no_test Suite.Is`, `Suite.Else`\n", programs),
        ElementsAre("core_test Suite.Else: no such test", "no_test Suite.Is: no such test"));
}

TEST(PagesCheck, ReportsARowOfATableThatNamesNoTest) {
    EXPECT_THAT(
        RowsWithoutATest("| Rule | Test |\n|---|---|\n| a | `core_test S.N` |\n| b | `S.N` |\n\n| Rule |\n|---|\n"),
        ElementsAre("| b | `S.N` |: names no test"));
}

TEST(PagesCheck, ReportsAFileThatIsNot) {
    const std::vector<fs::path> roots{kRoot, kRoot / "src"};
    EXPECT_THAT(
        FilesThatAreNot("`core/session.h` `core/` `tests/house` `audio/openal/sound.*` `Vol` `a / b` `.mvn`\n", roots),
        IsEmpty());
    EXPECT_THAT(FilesThatAreNot("`core/none.h` `none.cpp` `nowhere/` `core/none.*`\n", roots),
                ElementsAre("core/none.h: no such file", "none.cpp: no such file", "nowhere/: no such file",
                            "core/none.*: no such file"));
}

TEST(PagesCheck, ReportsANameThatTheSourcesDoNotKnow) {
    EXPECT_THAT(
        NamesThatAreNot("| Name | Meaning |\n|---|---|\n| `Known`, `Unknown` | `Other` |\n| `k...`, \"text\" | x |\n",
                        {{"a.h", "int kKnown;"}}),
        ElementsAre("Unknown: no word of the sources"));
}

}  // namespace
}  // namespace marvolin::house
