#include "check/loader_libraries.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "check/dll_version.h"
#include "core/errors.h"
#include "fakes/instrument.h"
#include "fakes/temp_folder.h"
#include "scripting/lua_library.h"

namespace marvolin {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kMissing = "/nowhere/libmissing.so.1";

/// The real libraries, with those of one component replaced.
std::vector<StandIn> With(const Component& component, std::array<LoaderLibrary, 2> libraries) {
    std::vector<StandIn> standIns(StandIns().begin(), StandIns().end());
    for (StandIn& standIn : standIns) {
        if (standIn.For.File == component.File) standIn.Libraries = libraries;
    }
    return standIns;
}

/// The check of a machine with these libraries.
struct Checked : test::Instrument {
    bool Good;
    explicit Checked(std::span<const StandIn> standIns) {
        LoaderLibraries loader(standIns);
        Good = CheckComponents(s, loader);
    }
};

std::string Verdict(LoaderLibraries& loader, const Component& component) {
    CDLLVersion info(loader);
    std::string version(component.Version);
    info.LoadFileInfo(std::string(component.File), std::string(component.Library), version);
    return info.FileRegistrationInfo();
}

TEST(LoaderLibraries, WhereTheProgramWasBuiltEveryComponentIsGood) {
    const Checked i(StandIns());
    EXPECT_TRUE(i.Good) << i.Desk.LastBox();
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    EXPECT_TRUE(i.s.ScriptAvailable);
}

TEST(LoaderLibraries, EachComponentHasALibraryThatDoesItsWork) {
    ASSERT_EQ(StandIns().size(), kRequiredComponents.size() + 1);
    for (std::size_t row = 0; row < StandIns().size(); ++row) {
        const Component& component = row < kRequiredComponents.size() ? kRequiredComponents[row] : kScriptComponent;
        EXPECT_EQ(StandIns()[row].For.File, component.File);
        EXPECT_EQ(StandIns()[row].For.Library, component.Library);
        const bool isLoadedLater = component.File == "PICCLP32.OCX" || component.File == "MSSCRIPT.OCX";
        EXPECT_EQ(StandIns()[row].Libraries[0].Function == nullptr, isLoadedLater);
    }
    EXPECT_STREQ(StandIns().back().Libraries[0].File, kLuaFile);
}

TEST(LoaderLibraries, ALibraryThatCannotBeLoadedIsNotRegisteredAndIsNamedToThePlayer) {
    const Component& shortcuts = kRequiredComponents[8];
    const auto standIns = With(shortcuts, {{{kMissing, "Function"}}});
    LoaderLibraries loader(standIns);
    EXPECT_EQ(Verdict(loader, shortcuts), "SubKey not found");
    const Checked i(standIns);
    EXPECT_FALSE(i.Good);
    EXPECT_THAT(i.Desk.LastBox(), HasSubstr(std::string("File(s): ") + kMissing + ". Run"));
}

TEST(LoaderLibraries, ALibraryWithoutTheFunctionIsOfAnotherVersionAndIsNamedToThePlayer) {
    const Component& shortcuts = kRequiredComponents[8];
    const auto standIns = With(shortcuts, {{{OLD_RELEASE, "NewFunction"}}});
    LoaderLibraries loader(standIns);
    EXPECT_EQ(Verdict(loader, shortcuts), "Ver 0");
    const Checked i(standIns);
    EXPECT_FALSE(i.Good);
    EXPECT_THAT(i.Desk.LastBox(), HasSubstr(std::string("File(s): ") + OLD_RELEASE + ". Run"));
    const auto whole = With(shortcuts, {{{OLD_RELEASE, "OldFunction"}}});
    EXPECT_TRUE(Checked(whole).Good);
}

TEST(LoaderLibraries, TheSecondLibraryOfAComponentCountsAsTheFirst) {
    const Component& files = kRequiredComponents[1];
    for (const char* second : {kMissing, OLD_RELEASE}) {
        const auto standIns = With(files, {{{OLD_RELEASE, "OldFunction"}, {second, "NewFunction"}}});
        LoaderLibraries loader(standIns);
        EXPECT_EQ(Verdict(loader, files), second == kMissing ? "SubKey not found" : "Ver 0");
        EXPECT_EQ(loader.PlayersName("SCRRUN.DLL"), second);
    }
}

TEST(LoaderLibraries, WithoutTheSoundTheBoxOfTheSoundIsShown) {
    const Checked i(With(kRequiredComponents[0], {{{kMissing, "Function"}}}));
    EXPECT_FALSE(i.Good);
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.Boxes[0].Title, "DirectX 7.0a missing");
}

TEST(LoaderLibraries, TheBoxOfTheSoundLeadsToTheLibraryThatIsNotGood) {
    const std::array<LoaderLibrary, 2> real = StandIns()[0].Libraries;
    const auto box = [&](std::array<LoaderLibrary, 2> libraries) {
        const Checked i(With(kRequiredComponents[0], libraries));
        EXPECT_FALSE(i.Good);
        EXPECT_EQ(i.Desk.Boxes.size(), 1U);
        return i.Desk.LastBox();
    };
    const std::string text = "DirectX 7.0a or higher not correctly installed. Get this component at ";
    for (const char* bad : {kMissing, OLD_RELEASE}) {
        EXPECT_EQ(box({{{bad, "NewFunction", real[0].Address}, real[1]}}), text + "https://openal-soft.org");
        EXPECT_EQ(box({{real[0], {bad, "NewFunction", real[1].Address}}}), text + "https://libsdl.org");
    }
}

TEST(LoaderLibraries, WithoutLuaTheProgramStartsWithoutScripts) {
    const Checked i(With(kScriptComponent, {{{kMissing, "Function"}}}));
    EXPECT_TRUE(i.Good);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    EXPECT_FALSE(i.s.ScriptAvailable);
}

TEST(LoaderLibraries, ALibraryThatIsOnlyNeededLaterIsFoundBesideAnotherOneAndNotLoaded) {
    const test::TempFolder folder;
    const std::string first = folder / "libfirst.so.1";
    std::filesystem::copy_file(OLD_RELEASE, first);
    folder.Touch("liblater.so.2");  // no library at all: loading it would fail
    auto standIns = With(kRequiredComponents[8], {{{first.c_str(), "OldFunction"}}});
    standIns.back().Libraries[0].File = "liblater.so.2";
    LoaderLibraries alone(standIns);
    EXPECT_EQ(Verdict(alone, kScriptComponent), "SubKey not found");
    LoaderLibraries loader(standIns);
    EXPECT_EQ(Verdict(loader, kRequiredComponents[8]), "OK");
    EXPECT_EQ(Verdict(loader, kScriptComponent), "OK");
    EXPECT_EQ(loader.LoadLibrary("MSSCRIPT.OCX").Path, folder / "liblater.so.2");
}

TEST(LoaderLibraries, TheCheckLoadsNothingThatIsOnlyNeededLater) {
    const Checked i(StandIns());
    EXPECT_TRUE(i.s.ScriptAvailable);
    EXPECT_EQ(::dlopen(kLuaFile, RTLD_LAZY | RTLD_NOLOAD), nullptr);
    EXPECT_EQ(::dlopen("libQt6Svg.so.6", RTLD_LAZY | RTLD_NOLOAD), nullptr);
}

TEST(LoaderLibraries, ALibraryIsFoundWhereItWasLoadedFromWithTheNumbersOfItsName) {
    const auto standIns = With(kRequiredComponents[8], {{{OLD_RELEASE, "OldFunction"}}});
    LoaderLibraries loader(standIns);
    CDLLVersion info(loader);
    std::string version = "1.0";
    info.LoadFileInfo("SHELLLINK.OCX", std::string(kRequiredComponents[8].Library), version);
    EXPECT_EQ(info.FileRegistrationInfo(), "OK");
    EXPECT_EQ(std::filesystem::canonical(info.FilePathName()), std::filesystem::canonical(OLD_RELEASE));
    EXPECT_EQ(info.FileVersion(), "3.-1.1.0");
    EXPECT_EQ(info.FileSize(), static_cast<std::int64_t>(std::filesystem::file_size(OLD_RELEASE)));
    EXPECT_GT(info.FileDate(), 1'600'000'000);
    EXPECT_EQ(info.GetOSVersion(), "Unknown");
}

TEST(LoaderLibraries, TheNameOfALibraryLeadsToTheNumbersOfItsFile) {
    LoaderLibraries loader;
    const test::TempFolder folder;
    folder.Touch("libtool.so.1.20.3.4.5");
    std::filesystem::create_symlink(folder / "libtool.so.1.20.3.4.5", folder / "libtool.so.1");
    folder.Touch("libtool.so");
    folder.Touch("libodd.so.x");
    folder.Touch("liblong.so.99999.1");
    const auto version = [&](const std::string& name) { return loader.VersionResource(folder / name); };
    ASSERT_TRUE(version("libtool.so.1").has_value());
    EXPECT_EQ(version("libtool.so.1")->High, 0x00010014U);
    EXPECT_EQ(version("libtool.so.1")->Low, 0x00030004U);
    EXPECT_FALSE(version("libtool.so").has_value());
    std::filesystem::create_symlink("libtool.so.1", folder / "libtwice.so");
    ASSERT_TRUE(version("libtwice.so").has_value());
    EXPECT_EQ(version("libtwice.so")->High, 0x00010014U);
    std::filesystem::create_symlink("libring.so.1", folder / "libring.so.1");
    EXPECT_EQ(version("libring.so.1")->High, 0x00010000U);
    EXPECT_EQ(version("libodd.so.x")->High, 0U);
    EXPECT_EQ(version("liblong.so.99999.1")->High, 1U);
    EXPECT_THROW(loader.Stamp(folder / "libmissing.so.1"), RuntimeError);
}

TEST(LoaderLibraries, AProgramIsFoundByItsPath) {
    LoaderLibraries loader;
    const test::TempFolder folder;
    folder.Touch("tool.exe");
    EXPECT_THAT(loader.FindProgram(folder / "tool.exe").Path, EndsWith("/tool.exe"));
    EXPECT_EQ(loader.FindProgram(folder / "none.exe").Path, "");
    CDLLVersion info(loader);
    std::string version = "1.0";
    info.LoadFileInfo(folder / "none.exe", "", version);
    EXPECT_EQ(info.FilePathName(), "No such file or directory " + (folder / "none.exe"));
    EXPECT_EQ(info.FileRegistrationInfo(), "Not found");
    info.LoadFileInfo(folder / "tool.exe", "", version);
    EXPECT_EQ(info.FileRegistrationInfo(), "n/a");
}

TEST(LoaderLibraries, WhatIsNoComponentIsNotRegistered) {
    LoaderLibraries loader;
    CDLLVersion info(loader);
    std::string version = "1.0";
    info.LoadFileInfo(OLD_RELEASE, "{0}", version);
    EXPECT_EQ(info.FileRegistrationInfo(), "Not Registered");
    info.LoadFileInfo(kMissing, "{0}", version);
    EXPECT_EQ(info.FileRegistrationInfo(), "SubKey not found");
    EXPECT_EQ(info.FilePathName(), std::string("Can't load ") + kMissing);
    EXPECT_THAT(loader.Locales("{0}", "1.0"), IsEmpty());
    EXPECT_EQ(loader.Win32("{0}", "1.0", "0"), std::nullopt);
    EXPECT_EQ(loader.PlayersName("OTHER.OCX"), "OTHER.OCX");
}

}  // namespace
}  // namespace marvolin
