#include "persistence/save_open.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "persistence/quick_load.h"
#include "persistence/session_file_store.h"
#include "persistence/set_instrument.h"
#include "persistence/snapshot.h"

namespace marvolin {
namespace {

using namespace test;

const ElementPreset& Preset(std::string_view text) {
    for (const ElementPreset& preset : kElementPresets) {
        if (preset.Text == text) return preset;
    }
    throw std::runtime_error("no such preset");
}

struct PresetCase {
    const char* Text;
    const char* Rows;  ///< one character a row of `Elements`, 1 selected
};
class SaveOpenPreset : public ::testing::TestWithParam<PresetCase> {};
TEST_P(SaveOpenPreset, SelectsItsRowsInItsListAlone) {
    for (int list = 0; list < 2; ++list) {
        SaveOpenChoices choices;
        for (auto& rows : choices.Elements) rows.fill(true);
        ChoosePreset(choices, list, Preset(GetParam().Text));
        std::string rows;
        for (const bool on : choices.Elements[static_cast<std::size_t>(list)]) rows += on ? '1' : '0';
        EXPECT_EQ(rows, GetParam().Rows);
        for (const bool on : choices.Elements[static_cast<std::size_t>(1 - list)]) EXPECT_TRUE(on);
    }
}
INSTANTIATE_TEST_SUITE_P(SaveOpen, SaveOpenPreset,
                         ::testing::Values(PresetCase{"All", "1111111111111111"},
                                           PresetCase{"None", "0000000000000000"},
                                           PresetCase{"Loop", "1111111110000000"},
                                           PresetCase{"Jamming", "0000000001111111"},
                                           PresetCase{"3d", "0000000010000001"}));

TEST(SaveOpen, TheListsShowTheElementsInTheirOwnOrder) {
    constexpr std::array<std::string_view, 16> kTexts{"Sample, Play Mode, Thinnable",
                                                      "Play State",
                                                      "Pitch",
                                                      "Pitch Pattern",
                                                      "Volume",
                                                      "Volume Pattern",
                                                      "Pan",
                                                      "Pan Pattern",
                                                      "3d Position",
                                                      "Wiring",
                                                      "Bands",
                                                      "Browse Folders & Destinations",
                                                      "ClipBoard",
                                                      "History Lists",
                                                      "General settings",
                                                      "3d Enabled"};
    for (std::size_t row = 0; row < kTexts.size(); ++row) EXPECT_EQ(kElementRows[row].Text, kTexts[row]);
}

TEST(SaveOpen, EveryRowIsFilledFromItsSwitchAndStoredInIt) {
    for (const ElementRow& row : kElementRows) {
        SCOPED_TRACE(row.Text);
        SetInstrument i;
        i.s.SaveOpenSwitches[kWhenOpening] = Only(row.Switch);
        SaveOpenChoices choices = CurrentChoices(i.s);
        EXPECT_EQ(std::count(choices.Elements[0].begin(), choices.Elements[0].end(), true), 0);
        EXPECT_EQ(std::count(choices.Elements[1].begin(), choices.Elements[1].end(), true), 1);
        std::swap(choices.Elements[0], choices.Elements[1]);
        TakeBack(i.s, choices);
        EXPECT_EQ(i.s.SaveOpenSwitches[kWhenSaving], Only(row.Switch));
        EXPECT_EQ(i.s.SaveOpenSwitches[kWhenOpening], clsSwitchRecord{});
    }
}

TEST(SaveOpen, TheTitleNamesTheFile) {
    SetInstrument i;
    OpenSaveOpen(i.s, "");
    EXPECT_EQ(SaveOpenTitle(i.s), "Save/Open");
    OpenSaveOpen(i.s, "live.mvn");
    EXPECT_EQ(SaveOpenTitle(i.s), "Save/Open-live.mvn");
    EXPECT_EQ(i.Forms.Log, (std::vector<std::string>{"Show Save", "Show Save"}));
}

TEST(SaveOpen, SaveStoresTheChoicesSavesAndCloses) {
    SetInstrument i;
    OpenSaveOpen(i.s, "live.mvn");
    SaveOpenChoices choices;
    choices.Elements[0].fill(true);
    choices.SelectionsOnly = true;
    choices.EmptyBlank = true;
    choices.Session = "Gig";
    SaveIt_Click(i.s, choices);
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Save " + (i.Folder / "live.mvn") + " selected everything"});
    EXPECT_EQ(i.s.EmptyBlankSetting, 1);
    EXPECT_EQ(i.s.SessionName, "Gig");
    EXPECT_EQ(i.Forms.Log.back(), "Hide Save");
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 1);
}

TEST(SaveOpen, ReloadClosesLoadsAndEnablesSave) {
    SetInstrument i;
    OpenSaveOpen(i.s, "live.mvn");
    SaveOpenChoices choices;
    choices.Elements[1].fill(true);
    i.Store.OnLoad = [&] { EXPECT_EQ(i.Forms.Log.back(), "Hide Save"); };
    Reload_Click(i.s, choices);
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Load " + (i.Folder / "live.mvn") + " current adopt everything"});
    EXPECT_TRUE(i.s.SaveItEnabled);
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 1);
}

TEST(SaveOpen, AReloadThatFailsEnablesNothing) {
    SetInstrument i;
    i.Store.Answer = false;
    Reload_Click(i.s, {});
    EXPECT_FALSE(i.s.SaveItEnabled);
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 0);
}

TEST(SaveOpen, AChosenFileSetsTheCurrentFolderAndName) {
    SetInstrument i;
    SaveItAs_Chosen(i.s, {}, "/other/new.mvp");
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Save /other/new.mvp all"});
    EXPECT_EQ(i.s.CurrentFolder, "/other/");
    EXPECT_EQ(i.s.DialogueFile, "new.mvp");
    EXPECT_EQ(i.s.Title, "marvolin-new.mvp");
    OpenIt_Chosen(i.s, {}, "/third/old.mvn");
    EXPECT_EQ(i.Store.Log.back(), "Load /third/old.mvn current adopt");
    EXPECT_EQ(i.s.CurrentFolder, "/third/");
    EXPECT_TRUE(i.s.SaveItEnabled);
}

TEST(SaveOpen, EveryNameThatEndsInNeitherExtensionGetsTheOneOfASession) {
    for (const auto& [chosen, saved] : std::vector<std::pair<std::string, std::string>>{{"my set", "my set.mvn"},
                                                                                        {"my set.1", "my set.1.mvn"},
                                                                                        {"a.mvn", "a.mvn"},
                                                                                        {"a.mvp", "a.mvp"},
                                                                                        {"A.MVN", "A.MVN"},
                                                                                        {"A.MVP", "A.MVP.mvn"},
                                                                                        {"a.mvn.bak", "a.mvn.bak.mvn"},
                                                                                        {"a.mvn~", "a.mvn"},
                                                                                        {"a.mvp~", "a.mvp"},
                                                                                        {"a~", "a~.mvn"},
                                                                                        {"a\\b", "a\\b.mvn"}}) {
        SetInstrument i;
        SaveItAs_Chosen(i.s, {}, "/other/" + chosen);
        EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Save /other/" + saved + " all"});
        EXPECT_EQ(i.s.CurrentFile, saved);
        EXPECT_EQ(i.s.DialogueFile, saved);
        EXPECT_EQ(i.s.CurrentFolder, "/other/");
        EXPECT_EQ(i.s.Title, "marvolin-" + saved);
    }
}

TEST(SaveOpen, ASetThatWasOpenedFromItsCopyIsSavedUnderItsOwnName) {
    SetInstrument i;
    i.Store.OnLoad = [&] { i.s.CurrentFile = "live.mvp~"; };
    OpenIt_Chosen(i.s, {}, i.Folder / "live.mvp~");
    EXPECT_EQ(i.s.DialogueFile, "live.mvp~");
    Reload_Click(i.s, {});
    EXPECT_EQ(i.Store.Log.back(), "Load " + (i.Folder / "live.mvp~") + " current adopt");
    SaveIt_Click(i.s, {});
    EXPECT_EQ(i.Store.Log.back(), "Save " + (i.Folder / "live.mvp") + " all");
    EXPECT_EQ(i.s.CurrentFile, "live.mvp");
    EXPECT_EQ(i.s.DialogueFile, "live.mvp");
    EXPECT_EQ(i.s.Title, "marvolin-live.mvp");
}

TEST(SaveOpen, AFailedSaveRebuildsNoQuickLoadAndKeepsTheTitle) {
    SetInstrument i;
    i.Store.Answer = false;
    OpenSaveOpen(i.s, "live.mvn~");
    i.s.CurrentFile = "live.mvn~";
    SaveIt_Click(i.s, {});
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 0);
    EXPECT_EQ(i.s.Title, "marvolin");
    EXPECT_EQ(i.s.CurrentFile, "live.mvn~");
    EXPECT_EQ(i.Forms.Log.back(), "Hide Save");
}

TEST(SaveOpen, SaveSavesBeforeTheDialogueCloses) {
    SetInstrument i;
    OpenSaveOpen(i.s, "live.mvn");
    i.Store.OnSave = [&] { EXPECT_EQ(i.Forms.Log.back(), "Show Save"); };
    SaveIt_Click(i.s, {});
    EXPECT_EQ(i.Store.Log.size(), 1U);
    EXPECT_EQ(i.Forms.Log.back(), "Hide Save");
}

TEST(SaveOpen, SaveAsStoresTheChoicesClosesAndThenSaves) {
    SetInstrument i;
    OpenSaveOpen(i.s, "");
    i.Screen.Log.clear();
    SaveOpenChoices choices;
    choices.Elements[0].fill(true);
    choices.SelectionsOnly = true;
    choices.Session = "Gig";
    i.Store.OnSave = [&] {
        EXPECT_EQ(i.Forms.Log.back(), "Hide Save");
        EXPECT_EQ(i.s.SessionName, "Gig");
        EXPECT_FALSE(i.s.SaveItEnabled);
    };
    SaveItAs_Chosen(i.s, choices, "/other/new.mvn");
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Save /other/new.mvn selected everything"});
    EXPECT_TRUE(i.s.SaveItEnabled);
    EXPECT_EQ(i.Screen.Log, (std::vector<std::string>{"ShowTitle", "ShowSaveOpen", "ShowQuickLoad"}));
}

TEST(SaveOpen, ASaveAsThatFailsEnablesNothingAndKeepsTheTitle) {
    SetInstrument i;
    i.Store.Answer = false;
    SaveItAs_Chosen(i.s, {}, "/other/new.mvn");
    EXPECT_FALSE(i.s.SaveItEnabled);
    EXPECT_EQ(i.s.Title, "marvolin");
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 0);
    EXPECT_EQ(i.Forms.Log.back(), "Hide Save");
}

TEST(SaveOpen, TheNameOfAFileThatCouldNotBeSavedOrOpenedIsShown) {
    SetInstrument i;
    i.Store.Answer = false;
    SaveItAs_Chosen(i.s, {}, "/other/new.mvn");
    EXPECT_EQ(i.s.CurrentFile, "new.mvn");
    EXPECT_EQ(i.Screen.Count("ShowTitle"), 1);
    OpenIt_Chosen(i.s, {}, "/other/old.mvn");
    EXPECT_EQ(i.s.CurrentFile, "old.mvn");
    EXPECT_EQ(i.Screen.Count("ShowTitle"), 2);
}

TEST(SaveOpen, OpenStoresTheChoicesClosesAndThenLoads) {
    SetInstrument i;
    OpenSaveOpen(i.s, "");
    i.Screen.Log.clear();
    SaveOpenChoices choices;
    choices.Elements[1].fill(true);
    choices.EmptyBlank = true;
    i.Store.OnLoad = [&] {
        EXPECT_EQ(i.Forms.Log.back(), "Hide Save");
        EXPECT_EQ(i.s.EmptyBlankSetting, 1);
    };
    OpenIt_Chosen(i.s, choices, "/other/old.mvp");
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Load /other/old.mvp current adopt everything"});
    EXPECT_TRUE(i.s.SaveItEnabled);
    EXPECT_EQ(i.Screen.Log, (std::vector<std::string>{"ShowSaveOpen", "ShowQuickLoad"}));
}

TEST(SaveOpen, AnOpenThatFailsEnablesNothing) {
    SetInstrument i;
    i.Store.Answer = false;
    OpenIt_Chosen(i.s, {}, "/other/old.mvn");
    EXPECT_FALSE(i.s.SaveItEnabled);
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 0);
}

TEST(SaveOpen, AfterAnOpenThatFailsSaveDoesNotWriteOverTheFile) {
    SetInstrument i;
    i.s.SaveItEnabled = true;
    i.Store.Answer = false;
    OpenIt_Chosen(i.s, {}, "/other/old.mvn");
    EXPECT_FALSE(i.s.SaveItEnabled);
    EXPECT_EQ(i.Screen.Count("ShowSaveOpen"), 1);
    // What is loaded can be saved under another name, after which "Save" is meant for it.
    i.Store.Answer = true;
    SaveItAs_Chosen(i.s, {}, i.Folder / "rescued.mvn");
    EXPECT_TRUE(i.s.SaveItEnabled);
}

TEST(SaveOpen, OpeningAFileChangesTheSaveListAsWell) {
    SetInstrument i;
    ASSERT_TRUE(i.Save("x.mvn", Only(Element::Vol)));
    SessionFileStore store;
    ASSERT_TRUE(store.LoadSession(i.s, i.Folder / "x.mvn", SetAsCurrent::Yes, clsSwitchRecord{}, AdoptSwitches::Yes));
    EXPECT_EQ(CurrentChoices(i.s).Elements[0], ([] {
                  std::array<bool, kElements> rows{};
                  rows[4] = true;
                  return rows;
              }()));
}

TEST(QuickLoad, ListsTheSessionsOfTheFolderInTheOrderOfTheirNamesAndNothingElse) {
    SetInstrument i;
    for (const char* name :
         {"set 10.mvn", "set 2.mvn", "B.mvn", "a.MVN", "p.mvp", "B.mvn~", "p.mvp~", "c.mvn.txt", ".marvolin-1-1"}) {
        WriteBytes(i.Folder / name, "");
    }
    std::filesystem::create_directory(i.Folder / "d.mvn");
    UpdateQuickLoad(i.s);
    EXPECT_EQ(i.s.QuickLoadRows, (std::vector<std::string>{"<Close>", "a", "B", "set 2", "set 10"}));
    EXPECT_TRUE(i.s.QuickLoadEnabled);
}

TEST(QuickLoad, EachRowOpensTheFileThatItStandsForWhateverItsSpelling) {
    SetInstrument i;
    const std::vector<std::string> names{"SET.MVN", "a\nb.mvn", "c\\d.mvn", "caf\xE9.mvn", "set.mvn"};
    for (const std::string& name : names) WriteBytes(i.Folder / name, "");
    UpdateQuickLoad(i.s);
    std::vector<std::string> opened;
    for (std::size_t row = 1; row < i.s.QuickLoadRows.size(); ++row) {
        QuickLoadPop_MouseUp(i.s, kLeftButton);
        QuickLoad_Click(i.s, row);
        const std::string entry = i.Store.Log.back();
        opened.push_back(entry.substr(entry.find(i.Folder.Path()) + i.Folder.Path().size() + 1));
        opened.back().erase(opened.back().find(" current"));
        QuickLoadPop_MouseUp(i.s, kRightButton);
        QuickLoad_Click(i.s, row);
        EXPECT_EQ(i.s.DialogueFile, opened.back());
    }
    std::sort(opened.begin(), opened.end());
    EXPECT_EQ(opened, names);
}

TEST(QuickLoad, ASessionWithItsExtensionInCapitalsIsLoaded) {
    SetInstrument i;
    ASSERT_TRUE(i.Save("SET.MVN"));
    i.s.Set[1].Hz = 77;
    UpdateQuickLoad(i.s);
    bool loaded = false;
    i.Store.OnLoad = [&] {
        loaded = LoadSession(i.s, i.Folder / "SET.MVN", SetAsCurrent::Yes, All(), AdoptSwitches::No);
    };
    QuickLoadPop_MouseUp(i.s, kLeftButton);
    QuickLoad_Click(i.s, 1);
    EXPECT_EQ(i.Store.Log.back(), "Load " + (i.Folder / "SET.MVN") + " current adopt");
    EXPECT_TRUE(loaded);
    EXPECT_EQ(i.s.Set[1].Hz, 1000);
}

TEST(QuickLoad, AFolderWithoutSessionsGivesAnEnabledListOfCloseAlone) {
    SetInstrument i;
    UpdateQuickLoad(i.s);
    EXPECT_EQ(i.s.QuickLoadRows, std::vector<std::string>{"<Close>"});
    EXPECT_TRUE(i.s.QuickLoadEnabled);
}

TEST(QuickLoad, AFolderThatDoesNotExistGivesADisabledListOfCloseAlone) {
    SetInstrument i;
    i.s.CurrentFolder = "/nowhere/at/all/";
    UpdateQuickLoad(i.s);
    EXPECT_EQ(i.s.QuickLoadRows, std::vector<std::string>{"<Close>"});
    EXPECT_FALSE(i.s.QuickLoadEnabled);
}

TEST(QuickLoad, PickingCloseOnlyHidesTheList) {
    SetInstrument i;
    QuickLoadPop_MouseUp(i.s, kLeftButton);
    QuickLoad_Click(i.s, 0);
    EXPECT_TRUE(i.Store.Log.empty());
    EXPECT_TRUE(i.Forms.Log.empty());
    EXPECT_EQ(i.Screen.Log, (std::vector<std::string>{"ShowQuickLoadList open", "ShowQuickLoadList hide"}));
}

TEST(QuickLoad, TheLeftButtonLoadsAtOnceAndAnyOtherOpensTheDialogue) {
    SetInstrument i;
    i.s.SaveOpenSwitches[kWhenOpening] = All();
    i.s.QuickLoadFiles = {"", "live.mvn", "late.mvn"};
    QuickLoadPop_MouseUp(i.s, kLeftButton);
    i.Store.OnLoad = [&] {
        EXPECT_EQ(i.Screen.Log.back(), "ShowQuickLoadList hide") << "before a load can show a message";
    };
    QuickLoad_Click(i.s, 1);
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Load " + (i.Folder / "live.mvn") + " current adopt everything"});
    QuickLoadPop_MouseUp(i.s, kRightButton);
    QuickLoad_Click(i.s, 1);
    EXPECT_EQ(i.Store.Log.size(), 1U);
    EXPECT_EQ(i.s.DialogueFile, "live.mvn");
    EXPECT_EQ(i.Forms.Log, std::vector<std::string>{"Show Save"});
    QuickLoadPop_MouseUp(i.s, kMiddleButton);
    QuickLoad_Click(i.s, 2);
    EXPECT_EQ(i.Store.Log.size(), 1U);
    EXPECT_EQ(i.s.DialogueFile, "late.mvn");
    QuickLoad_LostFocus(i.s);
    EXPECT_EQ(i.Screen.Log.back(), "ShowQuickLoadList hide");
}

TEST(QuickLoad, ADialogueThatStandsOpenFollowsALoad) {
    SetInstrument i;
    i.s.QuickLoadFiles = {"", "live.mvn"};
    i.s.DialogueFile = "before.mvn";
    i.Store.OnLoad = [&] { i.s.CurrentFile = "live.mvn"; };
    QuickLoadPop_MouseUp(i.s, kLeftButton);
    i.Store.Answer = false;
    QuickLoad_Click(i.s, 1);
    EXPECT_EQ(i.s.DialogueFile, "before.mvn");
    EXPECT_EQ(i.Screen.Count("ShowSaveOpen"), 0);
    i.Store.Answer = true;
    QuickLoad_Click(i.s, 1);
    EXPECT_EQ(i.s.DialogueFile, "live.mvn");
    EXPECT_EQ(i.Screen.Count("ShowSaveOpen"), 1);
}

TEST(Snapshot, UsesTheNextFreeNumberAfterTheSessionsName) {
    SetInstrument i;
    i.s.SaveOpenSwitches[kWhenSaving] = All();
    EXPECT_EQ(SnapshotName(i.s), "Snapshot 001.mvn");
    i.s.SessionName = " Live/Set ";
    WriteBytes(i.Folder / "Live-Set 001.mvn", "");
    SnapShot_MouseUp(i.s);
    EXPECT_EQ(i.Store.Log, std::vector<std::string>{"Save " + (i.Folder / "Live-Set 002.mvn") + " all everything"});
    EXPECT_EQ(i.s.StatusText, "Live-Set 002.mvn");
    EXPECT_EQ(i.Screen.Count("ShowQuickLoad"), 1);
}

TEST(Snapshot, AFailedSaveShowsNoName) {
    SetInstrument i;
    i.Store.Answer = false;
    SnapShot_MouseUp(i.s);
    EXPECT_EQ(i.s.StatusText, "");
}

}  // namespace
}  // namespace marvolin
