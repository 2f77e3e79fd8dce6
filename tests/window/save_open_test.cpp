#include <gtest/gtest.h>

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

#include "hand.h"
#include "persistence/element_lists.h"
#include "stage.h"
#include "window/frm_save.h"
#include "window/frm_start_up_query.h"

namespace marvolin {
namespace {

struct Dialogue : test::Stage {
    Dialogue() {
        s.CurrentFolder = "/tmp/";
        s.CurrentFile = "set.mvn";
        s.DialogueFile = "set.mvn";
        s.SaveItEnabled = true;
        Screen.Attach(&Window);
        Window.Open();
    }
    ~Dialogue() { Screen.Attach(static_cast<FrmSave*>(nullptr)); }
    void Press(const char* name) { QTest::mouseClick(Window.findChild<QPushButton*>(name), Qt::LeftButton); }
    QCheckBox& Box(const QString& name) { return *Window.findChild<QCheckBox*>(name); }
    QCheckBox& Element(int list, int i) { return Box(QString("Elements_%1_%2").arg(list).arg(i)); }
    QComboBox& Preset(int list) { return *Window.findChild<QComboBox*>(QString("Selector_%1").arg(list)); }
    /// Answers the file dialogue that `open` shows with `path`; cancels it when that is empty.
    void Answer(const char* open, const QString& path) {
        QTimer hand;
        hand.callOnTimeout([&] {
            auto* asked = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (asked == nullptr) return;
            if (path.isEmpty()) return asked->reject();
            asked->selectFile(path);
            static_cast<QDialog*>(asked)->accept();
        });
        hand.start(0);
        Press(open);
    }
    FrmSave Window{s};
};

bool Has(const std::vector<std::string>& log, const std::string& part) {
    return std::any_of(log.begin(), log.end(),
                       [&](const std::string& line) { return line.find(part) != std::string::npos; });
}

TEST(SaveOpen, ThePresetsTickTheirElementsInTheirOwnList) {
    Dialogue dialogue;
    const std::vector<std::function<bool(int)>> rules{[](int) { return true; }, [](int) { return false; },
                                                      [](int i) { return i < 9; }, [](int i) { return i >= 9; },
                                                      [](int i) { return i == 8 || i == 15; }};
    for (int list : {0, 1}) {
        for (int preset = 0; preset < 5; ++preset) {
            test::Choose(dialogue.Preset(list), preset);
            for (int i = 0; i < 16; ++i) {
                EXPECT_EQ(dialogue.Element(list, i).isChecked(), rules[static_cast<std::size_t>(preset)](i))
                    << list << " " << preset << " " << i;
            }
        }
        if (list == 0) {
            EXPECT_FALSE(dialogue.Element(1, 8).isChecked());
        }
    }
}

TEST(SaveOpen, AnAmpersandIsShownAndNoUnderline) {
    Dialogue dialogue;
    EXPECT_EQ(dialogue.Element(0, 11).text(), "Browse Folders && Destinations");
}

TEST(SaveOpen, TheTitleNamesTheFile) {
    Dialogue dialogue;
    EXPECT_EQ(dialogue.Window.windowTitle(), "Save/Open-set.mvn");
    dialogue.s.DialogueFile.clear();
    dialogue.Window.Open();
    EXPECT_EQ(dialogue.Window.windowTitle(), "Save/Open");
}

TEST(SaveOpen, SaveTakesTheChoicesBackAndSavesUnderTheName) {
    Dialogue dialogue;
    test::Choose(dialogue.Preset(0), 1);
    dialogue.Box("SelectionsOnly").click();
    dialogue.Box("EmptyBlank").click();
    dialogue.Window.findChild<QLineEdit*>("Session")->setText("Night");
    dialogue.Press("SaveIt");
    EXPECT_EQ(dialogue.Store.Log, std::vector<std::string>{"Save /tmp/set.mvn selected"});
    EXPECT_FALSE(dialogue.s.SaveOpenSwitches[0].Get(marvolin::Element::LoopTrack));
    EXPECT_EQ(dialogue.s.EmptyBlankSetting, 1);
    EXPECT_EQ(dialogue.s.SessionName, "Night");
    EXPECT_TRUE(Has(dialogue.Forms.Log, "Hide"));
}

TEST(SaveOpen, SaveIsOffUntilThereIsAFileToSaveTo) {
    Dialogue dialogue;
    dialogue.s.SaveItEnabled = false;
    dialogue.Window.Open();
    dialogue.Press("SaveIt");
    EXPECT_TRUE(dialogue.Store.Log.empty());
}

TEST(SaveOpen, ReloadLoadsTheFileAgain) {
    Dialogue dialogue;
    dialogue.Press("Reload");
    EXPECT_TRUE(Has(dialogue.Store.Log, "Load /tmp/set.mvn current adopt"));
}

TEST(SaveOpen, SaveAsAndOpenTakeTheFileThatWasChosen) {
    Dialogue dialogue;
    dialogue.Answer("SaveItAs", "/tmp/another.mvn");
    EXPECT_TRUE(Has(dialogue.Store.Log, "Save /tmp/another.mvn all"));
    EXPECT_EQ(dialogue.s.CurrentFile, "another.mvn");
    dialogue.Answer("SaveItAs", "/tmp/plain");
    EXPECT_TRUE(Has(dialogue.Store.Log, "Save /tmp/plain.mvn all"));
}

TEST(SaveOpen, ACancelledFileDialogueChangesNothing) {
    Dialogue dialogue;
    dialogue.Answer("SaveItAs", "");
    dialogue.Answer("OpenIt", "");
    EXPECT_TRUE(dialogue.Store.Log.empty());
    EXPECT_EQ(dialogue.s.CurrentFile, "set.mvn");
    EXPECT_TRUE(dialogue.Window.isVisible());
}

struct Quick : test::Stage {
    Quick() {
        s.CurrentFolder = "/tmp/";
        s.QuickLoadRows = {"<Close>", "night"};
    }
    void Open(Qt::MouseButton button) { Click("QuickLoadPop", button), Settle(); }
    QListWidget& List() { return *Form->findChild<QListWidget*>("QuickLoad"); }
    void Take(int row) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(row)).center());
    }
};

TEST(QuickLoad, TheLeftButtonLoadsAtOnce) {
    Quick quick;
    quick.Open(Qt::LeftButton);
    EXPECT_TRUE(quick.List().isVisible());
    EXPECT_EQ(quick.List().currentRow(), 0);
    quick.Take(1);
    EXPECT_TRUE(Has(quick.Store.Log, "Load /tmp/night.mvn current adopt"));
    EXPECT_FALSE(quick.List().isVisible());
}

TEST(QuickLoad, TheRightButtonOpensTheDialogueWithTheFile) {
    Quick quick;
    quick.Open(Qt::RightButton);
    quick.Take(1);
    EXPECT_TRUE(quick.Store.Log.empty());
    EXPECT_EQ(quick.s.DialogueFile, "night.mvn");
    EXPECT_FALSE(quick.List().isVisible());
}

TEST(QuickLoad, CloseOnlyHidesTheList) {
    Quick quick;
    quick.Open(Qt::LeftButton);
    quick.Take(0);
    EXPECT_TRUE(quick.Store.Log.empty());
    EXPECT_FALSE(quick.List().isVisible());
}

TEST(StartUpQuery, AsksAndClosesOnYes) {
    test::Stage stage;
    stage.Forms.Loaded.insert(marvolin::Form::StartUpQuery);
    FrmStartUpQuery query(stage.s);
    query.show();
    EXPECT_EQ(query.windowTitle(), "Startup Demo");
    QTest::mouseClick(query.findChild<QPushButton*>("cmdYes"), Qt::LeftButton);
    EXPECT_TRUE(Has(stage.Forms.Log, "Unload"));
    EXPECT_TRUE(stage.Desk.Boxes.empty());
}

TEST(StartUpQuery, OnNoTellsHowToHaveItBack) {
    test::Stage stage;
    stage.Forms.Loaded.insert(marvolin::Form::StartUpQuery);
    FrmStartUpQuery query(stage.s);
    query.show();
    QTest::mouseClick(query.findChild<QPushButton*>("cmdNo"), Qt::LeftButton);
    EXPECT_EQ(stage.Desk.LastBox(),
              "To re-enable the startup demo, change the name disabledstartup.mvp in your marvolin directory to "
              "startup.mvp");
}

}  // namespace
}  // namespace marvolin
