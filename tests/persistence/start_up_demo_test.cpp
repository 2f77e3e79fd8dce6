#include "persistence/start_up_demo.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "fakes/limits.h"
#include "parameters/fades.h"
#include "persistence/set_instrument.h"

namespace marvolin {
namespace {

using namespace test;

/// A tick of the countdown, in which the timer may be destroyed.
void Tick(SetInstrument& i) {
    const auto tick = i.Timers.Live.at(0)->OnTick;
    tick(3000);
}

TEST(StartUpDemo, WithBothFilesPresentOnlyTheDemoLoads) {
    SetInstrument i;
    WriteBytes(i.Folder / "startup.mvp", "");
    WriteBytes(i.Folder / "preferences.mvn", "");
    LoadStartUpContent(i.s);
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Load " + (i.Folder / "startup.mvp") + " everything"});
    EXPECT_EQ(i.s.DemoStep, 1);
    ASSERT_EQ(i.Timers.Live.size(), 1U);
    EXPECT_EQ(i.Timers.Live[0]->Interval, 3000);
    EXPECT_TRUE(i.Timers.Live[0]->Enabled);
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 1);
}

TEST(StartUpDemo, AFailedLoadStartsNoDemoAndThePreferencesStayUnread) {
    SetInstrument i;
    WriteBytes(i.Folder / "startup.mvp", "");
    WriteBytes(i.Folder / "preferences.mvn", "");
    i.Store.Answer = false;
    LoadStartUpContent(i.s);
    EXPECT_EQ(i.Store.Log.size(), 1U);
    EXPECT_EQ(i.s.DemoStep, 0);
    EXPECT_TRUE(i.Timers.Live.empty());
}

TEST(StartUpDemo, WithoutADemoThePreferencesLoad) {
    SetInstrument i;
    WriteBytes(i.Folder / "preferences.mvn", "");
    LoadStartUpContent(i.s);
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Load " + (i.Folder / "preferences.mvn") + " everything"});
    EXPECT_EQ(i.s.DemoStep, 0);
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 1);
}

TEST(StartUpDemo, WithNeitherFileTheInstrumentStartsEmpty) {
    SetInstrument i;
    LoadStartUpContent(i.s);
    EXPECT_TRUE(i.Store.Log.empty());
}

TEST(StartUpDemo, BCAndDFadeOneAfterTheOtherAndThenTheQuestionIsShown) {
    SetInstrument i;
    WriteBytes(i.Folder / "startup.mvp", "");
    LoadStartUpContent(i.s);
    Tick(i);
    EXPECT_EQ(i.Forms.Log, (std::vector<std::string>{"Unload Splash", "BringToFront Main"}));
    EXPECT_EQ(i.s.Run[1].FadeState, kFalling);
    EXPECT_EQ(i.s.DemoStep, 2);
    EXPECT_EQ(i.Timers.Live.at(0)->Interval, 2000);
    Tick(i);
    EXPECT_EQ(i.s.Run[2].FadeState, kFalling);
    EXPECT_EQ(i.s.DemoStep, 3);
    EXPECT_EQ(i.Timers.Live.at(0)->Interval, 4000);
    EXPECT_EQ(i.s.Run[3].FadeState, kNoFade);
    Tick(i);
    EXPECT_EQ(i.s.Run[3].FadeState, kFalling);
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_EQ(i.s.DemoStep, 4);
    EXPECT_TRUE(i.Timers.Live.empty());
    EXPECT_EQ(i.Forms.Log.back(), "Show StartUpQuery");
}

TEST(StartUpDemo, AtItsEndAndBehindTheQuestionTheStatusLineSaysHowTheFadedComeBack) {
    SetInstrument i;
    WriteBytes(i.Folder / "startup.mvp", "");
    LoadStartUpContent(i.s);
    for (Row row = 0; row < kLoopTracks; ++row) i.Fill(row);
    for (int stage = 0; stage < 3; ++stage) {
        Tick(i);
        EXPECT_EQ(i.s.Run[stage + 1].FadeState, kFalling);
        if (stage == 2) {
            EXPECT_EQ(i.s.StatusText, "B, C & D fade out: Shift+B fades B in");
        }
        StepFades(i.s, 2500);
    }
    i.s.Set[0].Vol = 0;  // the player's own doing
    i.s.StatusText.clear();
    i.Forms.Loaded.insert(Form::StartUpQuery);
    cmdYes_Click(i.s);
    EXPECT_EQ(i.s.StatusText, "B, C & D have faded out: Shift+B fades B in");
    i.s.Set[1].Vol = i.s.Set[2].Vol = 500;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    cmdNo_Click(i.s);
    EXPECT_EQ(i.s.StatusText, "D has faded out: Shift+D fades D in");
    i.s.Set[3].Vol = 500;
    i.s.StatusText.clear();
    i.Forms.Loaded.insert(Form::StartUpQuery);
    cmdNo_Click(i.s);
    EXPECT_EQ(i.s.StatusText, "");
}

TEST(StartUpDemo, ASplashThatIsAlreadyClosedDoesNotStopTheDemo) {
    SetInstrument i;
    WriteBytes(i.Folder / "startup.mvp", "");
    LoadStartUpContent(i.s);
    i.Forms.Loaded.erase(Form::Splash);
    Tick(i);
    EXPECT_EQ(i.s.DemoStep, 2);
}

TEST(StartUpQuery, NoRenamesTheDemoAndShowsHowToReenableIt) {
    SetInstrument i;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    WriteBytes(i.Folder / "startup.mvp", "demo");
    WriteBytes(i.Folder / "disabledstartup.mvp", "older");
    cmdNo_Click(i.s);
    EXPECT_FALSE(std::filesystem::exists(i.Folder / "startup.mvp"));
    EXPECT_EQ(ReadBytes(i.Folder / "disabledstartup.mvp"), "demo");
    EXPECT_EQ(i.Desk.LastBox(),
              "To re-enable the startup demo, change the name disabledstartup.mvp in your marvolin directory to "
              "startup.mvp");
    EXPECT_EQ(i.Forms.Log, (std::vector<std::string>{"Unload StartUpQuery", "BringToFront Main"}));
}

TEST(StartUpQuery, YesHandsTheKeyboardToTheMainWindow) {
    SetInstrument i;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    cmdYes_Click(i.s);
    EXPECT_EQ(i.Forms.Log, (std::vector<std::string>{"Unload StartUpQuery", "BringToFront Main"}));
}

TEST(StartUpQuery, NoWithoutADemoIgnoresTheErrors) {
    SetInstrument i;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    cmdNo_Click(i.s);
    EXPECT_EQ(i.Desk.Boxes.size(), 1U);
}

TEST(StartUpQuery, NoDoesNotSayThatItHasRenamedADemoThatItCouldNotRename) {
    SetInstrument i;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    WriteBytes(i.Folder / "startup.mvp", "demo");
    WriteBytes(i.Folder / "disabledstartup.mvp", "older");
    std::filesystem::permissions(i.Folder.Path(), std::filesystem::perms(0555));
    {
        const OrdinaryUser user;
        cmdNo_Click(i.s);
    }
    std::filesystem::permissions(i.Folder.Path(), std::filesystem::perms(0755));
    EXPECT_EQ(ReadBytes(i.Folder / "startup.mvp"), "demo");
    EXPECT_EQ(ReadBytes(i.Folder / "disabledstartup.mvp"), "older");
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.LastBox(), "The startup demo could not be renamed, so it will be shown again: Permission denied");
    EXPECT_EQ(i.Forms.Log, (std::vector<std::string>{"Unload StartUpQuery", "BringToFront Main"}));
}

TEST(StartUpQuery, NoKeepsAnOlderDisabledDemoWhenTheDemoCannotTakeItsName) {
    SetInstrument i;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    WriteBytes(i.Folder / "startup.mvp", "demo");
    std::filesystem::create_directory(i.Folder / "disabledstartup.mvp");
    cmdNo_Click(i.s);
    EXPECT_TRUE(std::filesystem::is_directory(i.Folder / "disabledstartup.mvp"));
    EXPECT_EQ(ReadBytes(i.Folder / "startup.mvp"), "demo");
    EXPECT_EQ(i.Desk.LastBox(), "The startup demo could not be renamed, so it will be shown again: Is a directory");
}

TEST(StartUpQuery, NoRemovesTheNameOfADemoThatHasBothNames) {
    SetInstrument i;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    WriteBytes(i.Folder / "startup.mvp", "demo");
    std::filesystem::create_hard_link(i.Folder / "startup.mvp", i.Folder / "disabledstartup.mvp");
    cmdNo_Click(i.s);
    EXPECT_FALSE(std::filesystem::exists(i.Folder / "startup.mvp"));
    EXPECT_EQ(ReadBytes(i.Folder / "disabledstartup.mvp"), "demo");
    EXPECT_TRUE(i.Desk.LastBox().starts_with("To re-enable"));
}

TEST(StartUpQuery, YesChangesNothing) {
    SetInstrument i;
    i.Forms.Loaded.insert(Form::StartUpQuery);
    WriteBytes(i.Folder / "startup.mvp", "demo");
    cmdYes_Click(i.s);
    EXPECT_TRUE(std::filesystem::exists(i.Folder / "startup.mvp"));
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST(StartUpQuery, WithoutAHelpFileNothingIsShown) {
    SetInstrument i;
    i.s.HelpFile = i.Folder / "marvolin.chm";
    i.Desk.HelpFails = true;
    StartUpQuery_Activate(i.s);
    EXPECT_TRUE(i.Desk.Boxes.empty());
    EXPECT_FALSE(i.s.HelpShown);
}

TEST(StartUpQuery, ShowsItsHelpPageAndSetsHelpShown) {
    SetInstrument i;
    i.s.HelpFile = i.Folder / "marvolin.chm";
    WriteBytes(i.Folder / "marvolin.chm", "");
    StartUpQuery_Activate(i.s);
    EXPECT_EQ(i.Desk.Log.back(), "ShowHelpTopic " + std::to_string(kStartUpQueryTopic));
    EXPECT_TRUE(i.s.HelpShown);
    i.Desk.HelpFails = true;
    StartUpQuery_Activate(i.s);
    EXPECT_EQ(i.Desk.LastBox(), "Error trying to open help file, File not found");
}

}  // namespace
}  // namespace marvolin
