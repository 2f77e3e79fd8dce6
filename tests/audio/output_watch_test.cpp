#include "audio/output_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "audio/device.h"
#include "audio/output_list.h"
#include "fakes/instrument.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// An instrument on the second of three outputs.
struct Outputs : test::Instrument {
    Outputs() {
        s.DS.reset();
        s.DSReady = false;
        Sound.Drivers = {"Primary Sound Driver", "USB", "HDMI"};
        InitAudioDriversList(s);
        cboDrivers_Click(s, 1);
        s.DeviceSwapArmed = true;
        Desk.TempFile = Folder.Path() + "/VBN1.tmp";
        Clear();
    }
    void Clear() {
        Sound.Log.clear();
        Screen.Log.clear();
        s.StatusText.clear();
    }
    void Have(std::vector<std::string> outputs) { Sound.Drivers = std::move(outputs); }
    void Look(int times = 1) {
        for (int i = 0; i < times; ++i) Watch.Look(s);
    }
    int Opened() { return Sound.Count("DirectSoundCreate"); }

    test::TempFolder Folder;
    OutputWatch Watch;
};

TEST(OutputList, FollowsTheServiceByName) {
    Outputs i;
    i.Have({"Primary Sound Driver", "New", "HDMI", "USB"});
    EXPECT_TRUE(RefreshOutputs(i.s));
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "New", "HDMI", "USB", "No Sound"));
    EXPECT_EQ(i.s.Driver, 3);
    EXPECT_EQ(i.s.OpenDriver, 3);
    EXPECT_EQ(i.Screen.Count("ShowDrivers"), 1);
    EXPECT_FALSE(RefreshOutputs(i.s));
    EXPECT_EQ(i.Screen.Count("ShowDrivers"), 1);
    EXPECT_EQ(i.Opened(), 0);
}

TEST(OutputList, WhatIsChosenKeepsAnEntryWhileItIsAway) {
    Outputs i;
    i.Have({"Primary Sound Driver", "HDMI"});
    EXPECT_TRUE(RefreshOutputs(i.s));
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "HDMI", "USB (unplugged)", "No Sound"));
    EXPECT_EQ(i.s.Driver, 2);
    EXPECT_FALSE(IsPlugged(i.s, 2));
    EXPECT_TRUE(IsPlugged(i.s, 1));
    EXPECT_EQ(OutputName(i.s, 2), "USB");
    EXPECT_EQ(i.s.DSEnum->GetGuid(3), "guid2") << "its identifier from before";
    i.s.Driver = i.s.OpenDriver = 0;
    EXPECT_TRUE(RefreshOutputs(i.s));
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "HDMI", "No Sound"));
}

TEST(OutputList, OfTwoWithOneNameTheSameIsMeant) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB"});
    RefreshOutputs(i.s);
    i.s.Driver = i.s.OpenDriver = 2;
    i.Have({"HDMI", "USB", "Primary Sound Driver", "USB"});
    RefreshOutputs(i.s);
    EXPECT_EQ(i.s.Driver, 3);
    i.Have({"HDMI", "USB", "Primary Sound Driver"});
    i.Sound.Failures["Gone"] = 1;
    RefreshOutputs(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("HDMI", "USB", "Primary Sound Driver", "USB (unplugged)", "No Sound"));
    EXPECT_EQ(i.s.Driver, 3);
}

TEST(OutputList, WhenTheOtherOfTwoWithOneNameGoesTheOpenOneStaysOpen) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB"});
    RefreshOutputs(i.s);
    i.s.Driver = i.s.OpenDriver = 2;
    i.Have({"Primary Sound Driver", "USB"});
    RefreshOutputs(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "No Sound"));
    EXPECT_EQ(i.s.Driver, 1);
    EXPECT_EQ(i.s.OpenDriver, 1);
}

TEST(OutputList, TheFirstOfTwoWithOneNameThatGoesIsNotTakenForTheOther) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB"});
    RefreshOutputs(i.s);
    ASSERT_EQ(i.s.OpenDriver, 1);
    i.Have({"Primary Sound Driver", "USB"});
    i.Sound.Failures["Gone"] = 1;
    for (int look = 0; look < 3; ++look) RefreshOutputs(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "USB (unplugged)", "No Sound"));
    EXPECT_EQ(i.s.OpenDriver, 2);
}

TEST(OutputList, OneThatIsOnlyChosenIsTheSameOfTheTwoAsBefore) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "HDMI", "HDMI"});
    RefreshOutputs(i.s);
    i.s.Driver = 3;
    i.Have({"Primary Sound Driver", "USB", "HDMI"});
    RefreshOutputs(i.s);
    EXPECT_EQ(i.s.Drivers[3], "HDMI (unplugged)");
    EXPECT_EQ(i.s.Driver, 3);
    EXPECT_EQ(i.s.OpenDriver, 1);
}

TEST(OutputList, TheOnlyOneOfItsNameIsShownWithoutTheNumberOfTheService) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB (3)", "HDMI", "HDMI (2)", "Hall (left)", "Room (x2)"});
    RefreshOutputs(i.s);
    EXPECT_THAT(ShownOutputs(i.s), ElementsAre("Primary Sound Driver", "USB", "HDMI", "HDMI (2)", "Hall (left)",
                                               "Room (x2)", "No Sound"));
    i.s.Driver = i.s.OpenDriver = 1;
    i.Have({"Primary Sound Driver"});
    RefreshOutputs(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB (3) (unplugged)", "No Sound"));
    EXPECT_THAT(ShownOutputs(i.s), ElementsAre("Primary Sound Driver", "USB (unplugged)", "No Sound"));
}

TEST(OutputList, OneThatComesBackUnderAnotherNumberIsTheSame) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB (2)"});
    RefreshOutputs(i.s);
    i.s.Driver = i.s.OpenDriver = 2;
    i.Have({"Primary Sound Driver", "USB"});
    RefreshOutputs(i.s);
    EXPECT_EQ(i.s.Drivers[2], "USB (2) (unplugged)") << "not the other one, which was there before";
    EXPECT_EQ(i.s.Driver, 2);
    i.Have({"Primary Sound Driver", "USB", "USB Audio (3)", "USB (x)", "USB ()"});
    RefreshOutputs(i.s);
    EXPECT_EQ(i.s.Drivers[5], "USB (2) (unplugged)") << "those have other names";
    i.Have({"Primary Sound Driver", "USB", "HDMI", "USB (3)"});
    RefreshOutputs(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "HDMI", "USB (3)", "No Sound"));
    EXPECT_EQ(i.s.Driver, 3);
    EXPECT_EQ(i.s.OpenDriver, 3);
}

TEST(OutputList, NoSoundStaysChosen) {
    Outputs i;
    cboDrivers_Click(i.s, 3);
    i.Have({"HDMI"});
    RefreshOutputs(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("HDMI", "No Sound"));
    EXPECT_EQ(i.s.Driver, 1);
    EXPECT_EQ(i.s.OpenDriver, -1);
}

TEST(OutputList, ASetMayShowAnotherOutputThanTheOpenOne) {
    Outputs i;
    i.s.Driver = 2;
    i.Have({"Primary Sound Driver"});
    RefreshOutputs(i.s);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "HDMI (unplugged)", "USB (unplugged)", "No Sound"));
    EXPECT_EQ(i.s.Driver, 1);
    EXPECT_EQ(i.s.OpenDriver, 2);
}

TEST(OutputWatch, AnOutputThatIsBackIsOpenedAgainWithTheSet) {
    Outputs i;
    i.Look();
    i.Have({"Primary Sound Driver", "HDMI"});
    i.Look(3);
    EXPECT_EQ(i.Opened(), 0);
    EXPECT_TRUE(i.s.DSReady) << "what sounds goes on unheard";
    i.Have({"Primary Sound Driver", "HDMI", "USB"});
    i.Look();
    EXPECT_EQ(i.Opened(), 0) << "it may flicker";
    i.Look();
    EXPECT_THAT(i.Sound.Calls("DirectSoundCreate"), ElementsAre("DirectSoundCreate guid3"));
    EXPECT_EQ(i.s.Driver, 2);
    EXPECT_EQ(i.s.OpenDriver, 2);
    EXPECT_TRUE(i.s.DSReady);
    EXPECT_THAT(i.Store.Log, ElementsAre(testing::StartsWith("Save"), testing::StartsWith("Load")));
    EXPECT_EQ(i.s.StatusText, "USB is back, and in use again.");
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    i.Look(20);
    EXPECT_EQ(i.Opened(), 1);
}

TEST(OutputWatch, AnOutputThatIsBackUnderAnotherNumberIsOpened) {
    Outputs i;
    i.Have({"Primary Sound Driver", "HDMI", "USB"});
    i.Look();
    i.Have({"Primary Sound Driver", "HDMI"});
    i.Look();
    i.Have({"Primary Sound Driver", "HDMI", "USB (2)"});
    i.Look(OutputWatch::kSteadyLooks);
    EXPECT_THAT(i.Sound.Calls("DirectSoundCreate"), ElementsAre("DirectSoundCreate guid3"));
    EXPECT_EQ(i.s.StatusText, "USB is back, and in use again.") << "as list and bar name it";
    i.Look(20);
    EXPECT_EQ(i.Opened(), 1);
}

TEST(OutputWatch, TheOpenOneOfTwoWithOneNameIsTakenAgainWhenItIsBackAndNotTheOther) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB"});
    i.Sound.Failures["Gone"] = 1;
    i.Look(30);
    EXPECT_EQ(i.Opened(), 0) << "the other one is no place for the set";
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Look(OutputWatch::kSteadyLooks);
    EXPECT_THAT(i.Sound.Calls("DirectSoundCreate"), ElementsAre("DirectSoundCreate guid3"));
    EXPECT_EQ(i.s.StatusText, "USB is back, and in use again.");
}

TEST(OutputWatch, WhenTheOtherOfTwoWithOneNameComesAndGoesNothingIsOpened) {
    Outputs i;
    for (int n = 0; n < 3; ++n) {
        i.Have({"Primary Sound Driver", "USB", "USB"});
        i.Look(5);
        i.Have({"Primary Sound Driver", "USB"});
        i.Look(5);
    }
    EXPECT_EQ(i.Opened(), 0);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "No Sound"));
}

TEST(OutputWatch, WhenTheListKnowsBeforeTheDriverWhichOfTwoWithOneNameHasGoneTheOtherIsNotTaken) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB"});
    i.Look();
    EXPECT_EQ(i.s.OpenDriver, 1) << "so far it may be the one that stays";
    i.Sound.Failures["Gone"] = 1;
    i.Look(30);
    EXPECT_EQ(i.Opened(), 0) << "the other one is no place for the set";
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "USB (unplugged)", "No Sound"));
    EXPECT_EQ(i.s.Driver, 2);
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Look(OutputWatch::kSteadyLooks);
    EXPECT_THAT(i.Sound.Calls("DirectSoundCreate"), ElementsAre("DirectSoundCreate guid3"));
    EXPECT_EQ(i.s.StatusText, "USB is back, and in use again.");
}

TEST(OutputWatch, OneOfTwoThatIsBackBeforeItsDriverKnowsIsTakenAndNotTheOther) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Look();
    i.Sound.Failures["Gone"] = 1;
    i.Look(OutputWatch::kSteadyLooks);
    EXPECT_THAT(i.Sound.Calls("DirectSoundCreate"), ElementsAre("DirectSoundCreate guid3"));
}

TEST(OutputWatch, LongAfterTheOtherOfTwoWithOneNameHasGoneItIsTheOpenOneThatFails) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB"});
    i.Look(OutputWatch::kNewsLooks + 5);
    i.Sound.Failures["Gone"] = 1;
    i.Look(5);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "No Sound"));
    EXPECT_EQ(i.Opened(), 0);
}

TEST(OutputWatch, AnOutputThatHasJustBeenTakenAgainIsTheOneWhoseDriverFails) {
    Outputs i;
    i.Have({"Primary Sound Driver"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB", "USB"});
    i.Sound.Failures["DirectSoundCreate"] = sound_error::kNoDriver;
    i.Look(OutputWatch::kSteadyLooks);
    i.Have({"Primary Sound Driver", "USB"});
    i.Look();
    i.Sound.Failures.clear();
    i.Look(OutputWatch::kRetryLooks);
    ASSERT_EQ(i.s.StatusText, "USB is back, and in use again.");
    i.Sound.Failures["Gone"] = 1;
    i.Look();
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "No Sound")) << "the other went before";
}

TEST(OutputWatch, AnotherOutputThatIsChosenMeanwhileIsNoneOfThem) {
    Outputs i;
    i.Have({"Primary Sound Driver", "USB", "USB", "HDMI"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB", "HDMI"});
    i.Look();
    cboDrivers_Click(i.s, 2);
    i.Sound.Failures["Gone"] = 1;
    i.Look(3);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "HDMI", "No Sound"));
}

TEST(OutputWatch, OneThatHasLeftTheListWhileItsDriverPlaysOnIsTakenAgainWhenItIsBack) {
    Outputs i;
    i.Have({"Primary Sound Driver"});
    i.Look(OutputWatch::kNewsLooks + 5);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB (unplugged)", "No Sound"));
    EXPECT_EQ(i.Opened(), 0);
    i.Have({"Primary Sound Driver", "USB"});
    i.Look(OutputWatch::kSteadyLooks);
    EXPECT_EQ(i.Opened(), 1);
}

TEST(OutputWatch, OneThatIsListedAndWhoseDriverPlaysIsLeftAloneWhateverElseComesAndGoes) {
    Outputs i;
    for (int n = 0; n < 20; ++n) {
        i.Have({"Primary Sound Driver", "USB", "HDMI " + std::to_string(n)});
        i.Look(n % 4);
    }
    EXPECT_EQ(i.Opened(), 0);
    EXPECT_THAT(i.Store.Log, IsEmpty());
}

TEST(OutputWatch, OneThatComesAndGoesTenTimesASecondIsLeftAloneUntilItRests) {
    Outputs i;
    for (int flicker = 0; flicker < 50; ++flicker) {
        i.Have({"Primary Sound Driver"});
        i.Look();
        i.Have({"Primary Sound Driver", "USB"});
        i.Look();
    }
    EXPECT_EQ(i.Opened(), 0);
    i.Look();
    EXPECT_EQ(i.Opened(), 1);
}

TEST(OutputWatch, OneThatRefusesIsTriedAgainWithoutABox) {
    Outputs i;
    i.Have({"Primary Sound Driver"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB"});
    i.Sound.Failures["DirectSoundCreate"] = sound_error::kNoDriver;
    i.Look(OutputWatch::kSteadyLooks + 2 * OutputWatch::kRetryLooks);
    EXPECT_EQ(i.Opened(), 3);
    EXPECT_TRUE(i.s.DSReady);
    EXPECT_THAT(i.Store.Log, IsEmpty());
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    i.Sound.Failures.clear();
    i.Look(OutputWatch::kRetryLooks);
    EXPECT_EQ(i.Opened(), 4);
    EXPECT_EQ(i.s.StatusText, "USB is back, and in use again.");
}

TEST(OutputWatch, ASetThatCannotBeKeptIsNotCarriedAgainAndAgain) {
    Outputs i;
    i.Have({"Primary Sound Driver"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB"});
    i.Store.Answer = false;
    i.Look(30);
    EXPECT_EQ(i.Opened(), 1);
    EXPECT_EQ(i.Store.Log.size(), 1u);
}

TEST(OutputWatch, AnotherChoiceEndsTheWait) {
    Outputs i;
    i.Have({"Primary Sound Driver"});
    i.Look();
    cboDrivers_Click(i.s, 0);
    i.Clear();
    i.Look();
    i.Have({"Primary Sound Driver", "USB"});
    i.Look(10);
    EXPECT_EQ(i.Opened(), 0);
    EXPECT_EQ(i.s.Driver, 0);
}

TEST(OutputWatch, TheDefaultOutputIsTakenAgainWhenTheListTellsOfAnother) {
    Outputs i;
    cboDrivers_Click(i.s, 0);
    i.Clear();
    i.Sound.Failures["Gone"] = 1;
    i.Look(10);
    EXPECT_EQ(i.Opened(), 0) << "nothing has come that could take its place";
    i.Have({"Primary Sound Driver", "HDMI"});
    i.Look();
    i.Sound.Failures.clear();
    i.Look();
    EXPECT_THAT(i.Sound.Calls("DirectSoundCreate"), ElementsAre("DirectSoundCreate guid1"));
}

TEST(OutputWatch, TheDefaultOutputIsTakenAgainWhenTheListToldOfAnotherBeforeItWasGone) {
    Outputs i;
    cboDrivers_Click(i.s, 0);
    i.Clear();
    i.Have({"Primary Sound Driver", "HDMI"});
    i.Look(3);
    EXPECT_EQ(i.Opened(), 0);
    i.Sound.Failures["Gone"] = 1;
    i.Look(OutputWatch::kSteadyLooks);
    EXPECT_EQ(i.Opened(), 1);
    i.Look(30);
    EXPECT_EQ(i.Opened(), 1) << "once for each change";
}

TEST(OutputWatch, AChangeOfLongAgoIsNoNewsOfTheDefaultOutput) {
    Outputs i;
    cboDrivers_Click(i.s, 0);
    i.Clear();
    i.Have({"Primary Sound Driver", "HDMI"});
    i.Look(1 + OutputWatch::kNewsLooks);
    i.Sound.Failures["Gone"] = 1;
    i.Look(10);
    EXPECT_EQ(i.Opened(), 0);
}

TEST(OutputWatch, ADeviceThatCouldNotBeOpenedWhileItWasAwayIsOpenedWhenItIsBack) {
    Outputs i;
    i.Have({"Primary Sound Driver"});
    i.Look();
    i.Sound.Failures["DirectSoundCreate"] = sound_error::kNoDriver;
    InitDirectSound(i.s);  // as a change of the 3D state does
    EXPECT_FALSE(i.s.DSReady);
    i.Look();
    i.Sound.Failures.clear();
    i.Have({"Primary Sound Driver", "USB"});
    i.Look(2);
    EXPECT_TRUE(i.s.DSReady);
}

TEST(OutputWatch, NoSoundIsLeftAlone) {
    Outputs i;
    cboDrivers_Click(i.s, 3);
    i.Clear();
    i.Have({"Primary Sound Driver"});
    i.Look();
    i.Have({"Primary Sound Driver", "USB", "HDMI"});
    i.Look(5);
    EXPECT_EQ(i.Opened(), 0);
}

TEST(OutputWatch, AServiceThatFailsChangesNothing) {
    Outputs i;
    i.s.DX.reset();
    i.Look(3);
    EXPECT_THAT(i.s.Drivers, ElementsAre("Primary Sound Driver", "USB", "HDMI", "No Sound"));
}

}  // namespace
}  // namespace marvolin
