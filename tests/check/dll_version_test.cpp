#include "check/dll_version.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "check/registry.h"

namespace marvolin {
namespace {

using test::Registry;
using ::testing::ElementsAre;

constexpr const char* kLibrary = "{1}";

/// A registry, and an object that reads it.
struct Reader : Registry {
    CDLLVersion Info{*this};
    std::string Version;  ///< the argument after the last call
    /// The verdict on a component.
    const std::string& Verdict(const std::string& version = "1.0", const std::string& file = "TOOL.OCX",
                               const std::string& library = kLibrary) {
        Version = version;
        Info.LoadFileInfo(file, library, Version);
        return Info.FileRegistrationInfo();
    }
};

TEST(CDLLVersion, ARegisteredComponentOfTheNeededVersionIsOkAndItsPathIsTheRegisteredOne) {
    Reader i;
    i.Register(kLibrary, "1.0", "C:\\registered\\TOOL.OCX");
    i.Files["TOOL.OCX"].Path = "C:\\elsewhere\\TOOL.OCX";
    EXPECT_EQ(i.Verdict(), "OK");
    EXPECT_EQ(i.Info.FilePathName(), "C:\\registered\\TOOL.OCX");
    EXPECT_EQ(i.Version, "1.0");
}

TEST(CDLLVersion, ARegisteredComponentIsOkAlsoWhenItsFileCannotBeLoaded) {
    Reader i;
    i.Register(kLibrary, "1.0", "C:\\TOOL.OCX");
    i.Files["TOOL.OCX"].Error = kLibraryNotLoaded;
    EXPECT_EQ(i.Verdict(), "OK");
    EXPECT_EQ(i.Info.FilePathName(), "C:\\TOOL.OCX");
}

TEST(CDLLVersion, ABlankNameClearsPathDateSizeAndVerdictAndAsksNothing) {
    Reader i;
    i.Register(kLibrary, "1.0", "C:\\TOOL.OCX");
    i.Stamps["C:\\TOOL.OCX"] = {100, 200};
    i.Resources["C:\\TOOL.OCX"] = {0x00010002, 0x00030004};
    for (const char* blank : {"", " ", "   "}) {
        i.Verdict();
        ASSERT_EQ(i.Info.FileSize(), 100);
        i.Log.clear();
        EXPECT_EQ(i.Verdict("1.0", blank), "");
        EXPECT_EQ(i.Info.FilePathName(), "");
        EXPECT_EQ(i.Info.FileDate(), 0);
        EXPECT_EQ(i.Info.FileSize(), 0);
        EXPECT_EQ(i.Info.FileVersion(), "1.2.3.4");
        EXPECT_TRUE(i.Log.empty());
    }
}

TEST(CDLLVersion, AComponentThatIsRegisteredOnlyUnderAnotherVersionHasThatVersionAsItsVerdict) {
    for (const char* other : {"1.1", "0.9", "2.0", "10.0"}) {
        Reader i;
        i.Register(kLibrary, other, "C:\\TOOL.OCX");
        EXPECT_EQ(i.Verdict(), std::string("Ver ") + other);
        EXPECT_EQ(i.Version, other);
        EXPECT_EQ(i.Info.FilePathName(), "C:\\TOOL.OCX");
    }
}

TEST(CDLLVersion, TheNeededVersionWinsOverAHigherOne) {
    Reader i;
    i.Register(kLibrary, "2.0", "C:\\two\\TOOL.OCX");
    i.Register(kLibrary, "1.0", "C:\\one\\TOOL.OCX");
    i.Register(kLibrary, "3.0", "C:\\three\\TOOL.OCX");
    EXPECT_EQ(i.Verdict(), "OK");
    EXPECT_EQ(i.Info.FilePathName(), "C:\\one\\TOOL.OCX");
}

TEST(CDLLVersion, WithoutTheNeededVersionTheHighestNumberCounts) {
    Reader i;
    for (const char* version : {"2.0", "10.0", "9.5", "neutral", "11x", ""}) i.Register(kLibrary, version, version);
    EXPECT_EQ(i.Verdict(), "Ver 10.0");
    EXPECT_EQ(i.Info.FilePathName(), "10.0");
}

TEST(CDLLVersion, VersionsThatAreTheSameNumberMarkNoProblemButTheArgumentBecomesTheRegisteredText) {
    for (const auto& [needed, registered] :
         {std::pair{"1.10", "1.1"}, {"1.1", "1.10"}, {"1", "1.0"}, {"2.0", "2"}, {"01.0", "1.0"}}) {
        Reader i;
        i.Register(kLibrary, registered, "C:\\TOOL.OCX");
        EXPECT_EQ(i.Verdict(needed), "OK") << needed;
        EXPECT_EQ(i.Version, registered);
    }
}

TEST(CDLLVersion, WithoutARegisteredVersionTheArgumentStays) {
    Reader i;
    EXPECT_EQ(i.Verdict("1.5"), "SubKey not found");
    EXPECT_EQ(i.Version, "1.5");
    i.Register(kLibrary, "neutral", "C:\\TOOL.OCX");
    EXPECT_EQ(i.Verdict("1.5"), "SubKey not found");
    EXPECT_EQ(i.Version, "1.5");
}

TEST(CDLLVersion, TheNeutralLocaleIsPreferredElseTheFirstCounts) {
    Reader i;
    i.Keys[kLibrary] = {{"1.0",
                         {{"9", Registry::Text("C:\\english")},
                          {"0", Registry::Text("C:\\neutral")},
                          {"7", Registry::Text("C:\\german")}}}};
    EXPECT_EQ(i.Verdict(), "OK");
    EXPECT_EQ(i.Info.FilePathName(), "C:\\neutral");
    i.Keys[kLibrary] = {{"1.0", {{"9", Registry::Text("C:\\english")}, {"7", Registry::Text("C:\\german")}}}};
    EXPECT_EQ(i.Verdict(), "OK");
    EXPECT_EQ(i.Info.FilePathName(), "C:\\english");
}

TEST(CDLLVersion, ThePathIsCutBehindALibrarysNameWhenAResourceFollows) {
    for (const auto& [registered, path] : {std::pair{"C:\\TOOL.DLL\\3", "C:\\TOOL.DLL"},
                                           {"C:\\tool.dll\\12", "C:\\tool.dll"},
                                           {"C:\\TOOL.DLL", "C:\\TOOL.DLL"},
                                           {"C:\\TOOL.DLLX\\3", "C:\\TOOL.DLLX\\3"},
                                           {"C:\\TOOL.OCX\\3", "C:\\TOOL.OCX\\3"},
                                           {"C:\\MY.DLL\\A.DLL\\3", "C:\\MY.DLL"}}) {
        Reader i;
        i.Register(kLibrary, "1.0", registered);
        i.Verdict();
        EXPECT_EQ(i.Info.FilePathName(), path);
    }
}

TEST(CDLLVersion, AValueThatIsANumberBecomesItsDecimalDigitsAtLeastThree) {
    using namespace std::string_literals;
    for (const auto& [bytes, text] : {std::pair{"\x07\0\0\0"s, "007"},
                                      {"\0\0\0\0"s, "000"},
                                      {"\x00\x04\0\0"s, "1024"},
                                      {"\x78\x56\x34\x12"s, "305419896"},
                                      {"\xFF\xFF\xFF\xFF"s, "4294967295"}}) {
        Reader i;
        i.Keys[kLibrary] = {{"1.0", {{"0", Registry::Number(bytes)}}}};
        EXPECT_EQ(i.Verdict(), "OK");
        EXPECT_EQ(i.Info.FilePathName(), text);
    }
}

TEST(CDLLVersion, AValueThatIsATextLosesItsLastZeroCharacterAndNoOther) {
    Reader i;
    i.Keys[kLibrary] = {{"1.0", {{"0", RegistryValue{RegistryValue::Kind::Text, "C:\\TOOL.OCX"}}}}};
    i.Verdict();
    EXPECT_EQ(i.Info.FilePathName(), "C:\\TOOL.OCX");
    i.Keys[kLibrary] = {{"1.0", {{"0", RegistryValue{RegistryValue::Kind::Text, std::string("C:\\A\0", 5)}}}}};
    i.Verdict();
    EXPECT_EQ(i.Info.FilePathName(), "C:\\A");
}

TEST(CDLLVersion, AProgramIsLookedForAndAnyOtherNameIsLoadedAsALibrary) {
    Reader i;
    for (const char* file : {"TOOL.EXE", "C:\\bin\\tool.exe", "EXE"}) {
        i.Log.clear();
        i.Verdict("1.0", file, "");
        EXPECT_THAT(i.Log, ElementsAre(std::string("FindProgram ") + file));
    }
    for (const char* file : {"TOOL.DLL", "TOOL.OCX", "TOOL.EXE.TLB", "TOOL"}) {
        i.Log.clear();
        i.Verdict("1.0", file, "");
        EXPECT_THAT(i.Log, ElementsAre(std::string("LoadLibrary ") + file));
    }
}

TEST(CDLLVersion, TheLastErrorOfTheSystemDecidesThePathOfAFileThatIsNotLocated) {
    Reader i;
    i.ErrorTexts[5] = "Access is denied.";
    for (const auto& [error, text] :
         {std::pair{0U, "TOOL.OCX Not Found"}, {1157U, "Can't load TOOL.OCX"}, {5U, "Access is denied. TOOL.OCX"}}) {
        i.Files["TOOL.OCX"].Error = error;
        EXPECT_EQ(i.Verdict(), "SubKey not found");
        EXPECT_EQ(i.Info.FilePathName(), text);
    }
}

TEST(CDLLVersion, NeitherRegisteredNorLocatedTheVerdictNamesWhatIsMissing) {
    Reader i;
    EXPECT_EQ(i.Verdict(), "SubKey not found");
    // A version is known, but no path.
    i.Keys[kLibrary] = {{"2.0", {}}};
    EXPECT_EQ(i.Verdict(), "Not complete");
    i.Keys[kLibrary] = {{"1.0", {}}};
    EXPECT_EQ(i.Verdict(), "Not found");
    EXPECT_EQ(i.Verdict("1.0", "TOOL.OCX", ""), "Not found");
}

TEST(CDLLVersion, LocatedButNotRegisteredTheVerdictSaysSo) {
    Reader i;
    i.Files["TOOL.OCX"].Path = "C:\\TOOL.OCX";
    EXPECT_EQ(i.Verdict(), "Not Registered");
    EXPECT_EQ(i.Info.FilePathName(), "C:\\TOOL.OCX");
}

TEST(CDLLVersion, LocatedWithAVersionButNoPathIsImpossible) {
    Reader i;
    i.Files["TOOL.OCX"].Path = "C:\\TOOL.OCX";
    const std::vector<Registry::LocaleKeys> broken{
        {}, {{"0", std::nullopt}}, {{"0", Registry::Text("")}}, {{"0", std::nullopt}, {"9", Registry::Text("C:\\x")}}};
    for (const auto& locales : broken) {
        for (const char* version : {"1.0", "2.0"}) {
            i.Keys[kLibrary] = {{version, locales}};
            EXPECT_EQ(i.Verdict(), "impossible");
            EXPECT_EQ(i.Info.FilePathName(), "C:\\TOOL.OCX");
        }
    }
}

TEST(CDLLVersion, LocatedWithoutALibraryThereIsNothingToRegister) {
    Reader i;
    i.Files["TOOL.EXE"].Path = "C:\\TOOL.EXE";
    EXPECT_EQ(i.Verdict("1.0", "TOOL.EXE", ""), "n/a");
    EXPECT_EQ(i.Version, "1.0");
    EXPECT_THAT(i.Log, ElementsAre("FindProgram TOOL.EXE"));
}

TEST(CDLLVersion, AFileThatIsThereButDoesNotSayWhereHasAnEmptyVerdict) {
    Reader i;
    i.Files["TOOL.OCX"].Path = "Unable to locate";
    i.Keys[kLibrary] = {{"1.0", {}}};
    EXPECT_EQ(i.Verdict(), "");
    EXPECT_EQ(i.Info.FilePathName(), "TOOL.OCX Unable to locate");
    EXPECT_EQ(i.Verdict("1.0", "TOOL.OCX", ""), "");
    EXPECT_EQ(i.Info.FilePathName(), "TOOL.OCX Unable to locate");
    i.Keys.clear();
    EXPECT_EQ(i.Verdict(), "Not Registered");
    EXPECT_EQ(i.Info.FilePathName(), "Unable to locate");
}

TEST(CDLLVersion, TheFilesVersionIsFourNumbersAndALowWordWithItsTopBitIsNegative) {
    Reader i;
    i.Register(kLibrary, "1.0", "C:\\TOOL.OCX");
    for (const auto& [fixed, text] : {std::pair{FixedVersion{0x00060000, 0x00510A5C}, "6.0.81.2652"},
                                      {FixedVersion{0x0001FFFF, 0x00028000}, "1.-1.2.-32768"},
                                      {FixedVersion{0x80007FFF, 0xFFFF0000}, "32768.32767.65535.0"}}) {
        i.Resources["C:\\TOOL.OCX"] = fixed;
        i.Verdict();
        EXPECT_EQ(i.Info.FileVersion(), text);
    }
    i.Resources.clear();
    i.Verdict();
    EXPECT_EQ(i.Info.FileVersion(), "");
}

TEST(CDLLVersion, SizeAndDateAreThoseOfTheFileAndAreLeftOutWhenTheyCannotBeRead) {
    Reader i;
    i.Register(kLibrary, "1.0", "C:\\TOOL.OCX");
    i.Stamps["C:\\TOOL.OCX"] = {4096, 915148800};
    EXPECT_EQ(i.Verdict(), "OK");
    EXPECT_EQ(i.Info.FileSize(), 4096);
    EXPECT_EQ(i.Info.FileDate(), 915148800);
    i.Stamps.clear();
    EXPECT_EQ(i.Verdict(), "OK");
    EXPECT_EQ(i.Info.FileSize(), 0);
    EXPECT_EQ(i.Info.FileDate(), 0);
}

TEST(CDLLVersion, NothingOfAComponentIsLeftForTheNextOne) {
    Reader i;
    i.Register(kLibrary, "2.0", "C:\\TOOL.OCX");
    i.Stamps["C:\\TOOL.OCX"] = {4096, 915148800};
    i.Resources["C:\\TOOL.OCX"] = {0x00010002, 0x00030004};
    i.Verdict();
    EXPECT_EQ(i.Verdict("1.0", "OTHER.OCX", "{2}"), "SubKey not found");
    EXPECT_EQ(i.Info.FilePathName(), "OTHER.OCX Not Found");
    EXPECT_EQ(i.Info.FileVersion(), "");
    EXPECT_EQ(i.Info.FileSize(), 0);
}

TEST(CDLLVersion, NamesTheOperatingSystem) {
    Reader i;
    const std::pair<SystemVersion, const char*> systems[] = {{{1, 4, 0, 950}, "Windows 95"},
                                                             {{1, 4, 10, 1998}, "Windows 98"},
                                                             {{2, 3, 51, 1057}, "Windows NT 3.51"},
                                                             {{2, 4, 0, 1381}, "Windows NT 4.0"},
                                                             {{2, 5, 0, 2195}, "Windows 2000 (Build 2195)"},
                                                             {{1, 4, 90, 3000}, "Unknown"},
                                                             {{2, 5, 1, 2600}, "Unknown"},
                                                             {{2, 6, 1, 7601}, "Unknown"},
                                                             {{0, 3, 10, 0}, "Unknown"},
                                                             {{}, "Unknown"}};
    for (const auto& [system, name] : systems) {
        i.Running = system;
        EXPECT_EQ(i.Info.GetOSVersion(), name);
    }
}

}  // namespace
}  // namespace marvolin
