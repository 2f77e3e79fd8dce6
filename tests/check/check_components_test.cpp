#include "check/check_components.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "check/registry.h"
#include "fakes/instrument.h"

namespace marvolin {
namespace {

using test::Registry;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;

/// A machine with everything installed.
struct Machine : test::Instrument, Registry {
    Machine() { InstallAll(); }
    bool Check() { return CheckComponents(s, *this); }
};

const Component& DirectX() { return kRequiredComponents[0]; }

std::string MissingFiles(const std::string& list) {
    return "Crucial file(s) not properly installed. File(s): " + list +
           ". Run mvlDiag.exe and send mvlDiag.txt in bug reports.";
}

TEST(CheckComponents, AWholeInstallationStartsWithoutAWord) {
    Machine i;
    EXPECT_TRUE(i.Check());
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_TRUE(i.s.ScriptAvailable);
}

TEST(CheckComponents, TheTwelveAreCheckedInTheirOrderAndTheScriptEngineAfterThem) {
    Machine i;
    i.Check();
    const std::vector<std::string> files{
        "DX7VB.DLL",    "SCRRUN.DLL",    "CCRPTMR6.DLL", "TABCTL32.OCX", "PICCLP32.OCX", "MSCOMCTL.OCX", "MSCOMCT2.OCX",
        "CCRPFTV6.OCX", "SHELLLINK.OCX", "COMCT332.OCX", "LGAUGE.OCX",   "CCRPFD6.OCX",  "MSSCRIPT.OCX"};
    std::vector<std::string> checked;
    for (const std::string& question : i.Log) {
        if (question.starts_with("LoadLibrary ")) checked.push_back(question.substr(12));
    }
    EXPECT_THAT(checked, ElementsAreArray(files));
}

TEST(CheckComponents, EachHasTheIdentifierAndTheVersionThatTheProgramNeeds) {
    const std::pair<std::string_view, std::string_view> needed[] = {
        {"{E1211242-8E94-11D1-8808-00C04FC2C602}", "1.0"}, {"{420B2830-E718-11CF-893D-00A0C9054228}", "1.0"},
        {"{42F1591E-830C-11D2-BBDE-0055003B26DE}", "1.0"}, {"{BDC217C8-ED16-11CD-956C-0000C04E4C0A}", "1.1"},
        {"{27395F88-0C0C-101B-A3C9-08002B2F49FB}", "1.1"}, {"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}", "2.0"},
        {"{86CF1D34-0C5F-11D2-A9FC-0000F8754DA1}", "2.0"}, {"{19B7F2A2-1610-11D3-BF30-1AF820524153}", "1.2"},
        {"{3F5E1A26-01BF-11D4-B3E7-7C1807C10000}", "1.0"}, {"{38911DA0-E448-11D0-84A3-00DD01104159}", "1.1"},
        {"{A1158760-D290-11CF-BC8C-207402C10627}", "1.0"}, {"{446BA877-5DA1-11D3-BD95-9497CA1D1132}", "2.0"}};
    for (std::size_t row = 0; row < kRequiredComponents.size(); ++row) {
        EXPECT_EQ(kRequiredComponents[row].Library, needed[row].first);
        EXPECT_EQ(kRequiredComponents[row].Version, needed[row].second);
    }
    EXPECT_EQ(kScriptComponent.Library, "{0E59F1D2-1FBE-11D0-8FF2-00A0D10038BC}");
    EXPECT_EQ(kScriptComponent.Version, "1.0");
}

TEST(CheckComponents, WithoutTheSoundTheBoxOfDirectXIsShownAndTheProgramEnds) {
    Machine i;
    i.Remove(DirectX());
    EXPECT_FALSE(i.Check());
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.Boxes[0].Title, "DirectX 7.0a missing");
    EXPECT_EQ(i.Desk.Boxes[0].Text,
              "DirectX 7.0a or higher not correctly installed. Get this component at https://openal-soft.org");
    EXPECT_EQ(i.Desk.Boxes[0].Style, BoxStyle::Critical);
    EXPECT_TRUE(i.Desk.Boxes[0].Waits);
}

TEST(CheckComponents, EachOtherFileThatIsMissingIsNamedAndEndsTheProgram) {
    for (std::size_t row = 1; row < kRequiredComponents.size(); ++row) {
        Machine i;
        i.Remove(kRequiredComponents[row]);
        EXPECT_FALSE(i.Check());
        ASSERT_EQ(i.Desk.Boxes.size(), 1U);
        EXPECT_EQ(i.Desk.Boxes[0].Title, "Missing Files");
        EXPECT_EQ(i.Desk.Boxes[0].Text, MissingFiles(std::string(kRequiredComponents[row].File)));
        EXPECT_EQ(i.Desk.Boxes[0].Style, BoxStyle::Critical);
        EXPECT_TRUE(i.Desk.Boxes[0].Waits);
        EXPECT_TRUE(i.s.ScriptAvailable);
    }
}

TEST(CheckComponents, TwoFailedFilesAreListedInTheirOrderWithASemicolonBetweenThem) {
    Machine i;
    i.Remove(kRequiredComponents[10]);
    i.Remove(kRequiredComponents[3]);
    EXPECT_FALSE(i.Check());
    EXPECT_EQ(i.Desk.LastBox(), MissingFiles("TABCTL32.OCX; LGAUGE.OCX"));
}

TEST(CheckComponents, WithoutTheSoundAndAnotherFileTwoBoxesAreShownAndTheListDoesNotNameTheSound) {
    Machine i;
    i.Remove(DirectX());
    i.Remove(kRequiredComponents[1]);
    EXPECT_FALSE(i.Check());
    ASSERT_EQ(i.Desk.Boxes.size(), 2U);
    EXPECT_EQ(i.Desk.Boxes[0].Title, "DirectX 7.0a missing");
    EXPECT_THAT(i.Desk.Boxes[0].Text, Not(HasSubstr("SCRRUN.DLL")));
    EXPECT_EQ(i.Desk.Boxes[1].Title, "Missing Files");
    EXPECT_EQ(i.Desk.Boxes[1].Text, MissingFiles("SCRRUN.DLL"));
}

TEST(CheckComponents, WithoutTheScriptEngineTheProgramStartsWithoutAWordAndWithoutScripts) {
    Machine i;
    i.s.ScriptAvailable = true;
    i.Remove(kScriptComponent);
    EXPECT_TRUE(i.Check());
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_FALSE(i.s.ScriptAvailable);
}

TEST(CheckComponents, TheScriptEngineIsCheckedAlsoWhenAnotherFileIsMissing) {
    Machine i;
    i.Remove(kRequiredComponents[5]);
    EXPECT_FALSE(i.Check());
    EXPECT_TRUE(i.s.ScriptAvailable);
}

TEST(CheckComponents, EveryVerdictButOkIsAFailureAlsoAnEmptyOne) {
    const Component& tabs = kRequiredComponents[3];
    Machine higher;
    higher.Remove(tabs);
    higher.Register(tabs.Library, "1.2", "C:\\TABCTL32.OCX");
    EXPECT_FALSE(higher.Check());
    EXPECT_EQ(higher.Desk.LastBox(), MissingFiles("TABCTL32.OCX"));
    Machine unlocated;
    unlocated.Keys[std::string(tabs.Library)] = {{"1.1", {}}};
    unlocated.Files["TABCTL32.OCX"].Path = kUnableToLocate;
    EXPECT_FALSE(unlocated.Check());
    EXPECT_EQ(unlocated.Desk.LastBox(), MissingFiles("TABCTL32.OCX"));
}

TEST(CheckComponents, ALibraryThatDoesTheWorkOfSeveralIsNamedOnce) {
    Machine i;
    for (const std::size_t row : {3U, 4U, 5U}) i.Remove(kRequiredComponents[row]);
    i.PlayersNames = {{"TABCTL32.OCX", "libwidgets.so"}, {"MSCOMCTL.OCX", "libwidgets.so"}};
    EXPECT_FALSE(i.Check());
    EXPECT_EQ(i.Desk.LastBox(), MissingFiles("libwidgets.so; PICCLP32.OCX"));
}

}  // namespace
}  // namespace marvolin
