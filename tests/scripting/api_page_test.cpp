#include "scripting/api/api_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "fakes/file_bytes.h"
#include "scripting/api/api_table.h"

namespace marvolin {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAreArray;

const std::filesystem::path kRoot = MARVOLIN_ROOT;

TEST(ApiPage, ThePageInTheFolderOfDocumentsIsFresh) {
    EXPECT_EQ(test::ReadBytes((kRoot / "docs/scripting.md").string()), ApiPage())
        << "Write it anew: cmake --build BUILD --target script_page";
}

TEST(ApiPage, NamesEveryFunctionWithItsArguments) {
    const std::string page = ApiPage();
    for (const ApiSubject& subject : ApiSubjects()) {
        EXPECT_THAT(page, HasSubstr("### " + std::string(subject.Title) + "\n"));
        for (const ApiFunction& function : subject.Functions) {
            EXPECT_THAT(page, HasSubstr("#### `marvolin." + std::string(function.Name) + "("));
            EXPECT_THAT(page, HasSubstr(std::string(function.Text)));
        }
    }
    EXPECT_THAT(page, HasSubstr("#### `marvolin.load(row, path [, play])`"));
    EXPECT_THAT(page, HasSubstr("- `volume`: a whole number from 0 to 500\n"));
}

TEST(ApiPage, ListsTheScriptsThatComeWithTheProgram) {
    std::vector<std::string> listed, there;
    for (const ScriptExample& example : kScriptExamples) listed.emplace_back(example.File);
    for (const auto& entry : std::filesystem::directory_iterator(kRoot / "assets/Scripts")) {
        there.push_back(entry.path().filename().string());
    }
    EXPECT_THAT(listed, UnorderedElementsAreArray(there));
}

}  // namespace
}  // namespace marvolin
