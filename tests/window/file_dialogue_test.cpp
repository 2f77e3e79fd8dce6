#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>
#include <string_view>

#include "fakes/temp_folder.h"
#include "hand.h"
#include "persistence/save_open.h"
#include "stage.h"
#include "window/forms/frm_save.h"

namespace marvolin {
namespace {

/// The Save/Open dialogue on a temporary folder that holds the session "set.mvn" and the package "set.mvp".
struct FileDialogueStage : test::Stage {
    FileDialogueStage() {
        Folder.Touch("set.mvn");
        Folder.Touch("set.mvp");
        s.CurrentFolder = Folder.Path() + "/";
        s.CurrentFile = "set.mvn";
        Screen.Attach(&Window);
        Window.Open();
    }
    ~FileDialogueStage() { Screen.Attach(static_cast<FrmSave*>(nullptr)); }
    /// Presses the button `opener` and runs `answer` once on the file dialogue; cancels the dialogue if it is still
    /// open.
    void Ask(const char* opener, const std::function<void(QFileDialog&)>& answer) {
        QTimer hand;
        bool answered = false;
        hand.callOnTimeout([&] {
            auto* asked = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (asked == nullptr || answered) return;
            answered = true;
            answer(*asked);
            if (asked->isVisible()) asked->reject();
        });
        hand.start(0);
        QTest::mouseClick(Window.findChild<QPushButton*>(opener), Qt::LeftButton);
        EXPECT_TRUE(answered);
    }
    static void Accept(QFileDialog& asked, const std::string& name) {
        asked.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name));
        static_cast<QDialog&>(asked).accept();
    }
    test::TempFolder Folder;
    FrmSave Window{s};
};

TEST(FileDialogue, StartsInTheCurrentFolderAtTheCurrentFileWithTheFirstFilter) {
    FileDialogueStage dialogue;
    for (const char* opener : {"OpenIt", "SaveItAs"}) {
        dialogue.Ask(opener, [&](QFileDialog& asked) {
            EXPECT_EQ(asked.directory().absolutePath().toStdString(), dialogue.Folder.Path());
            EXPECT_EQ(asked.findChild<QLineEdit*>("fileNameEdit")->text(), "set.mvn");
            QStringList filters{"marvolin File (*.mvn)", "marvolin Package (*.mvp)"};
            if (opener == std::string_view("OpenIt"))
                filters << "Previous marvolin File (*.mvn~)"
                        << "Previous marvolin Package (*.mvp~)";
            EXPECT_EQ(asked.nameFilters(), filters);
            EXPECT_EQ(asked.selectedNameFilter(), "marvolin File (*.mvn)");
        });
    }
    EXPECT_EQ(kFileFilter, "marvolin File (*.mvn)|*.mvn|marvolin Package (*.mvp)|*.mvp");
}

TEST(FileDialogue, OpensOnlyAFileThatExists) {
    FileDialogueStage dialogue;
    dialogue.Ask("OpenIt", [&](QFileDialog& asked) {
        EXPECT_EQ(asked.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(asked.fileMode(), QFileDialog::ExistingFile);
    });
    EXPECT_TRUE(dialogue.Store.Log.empty());
}

TEST(FileDialogue, OpensWhatWasTyped) {
    FileDialogueStage dialogue;
    dialogue.s.CurrentFile.clear();  // a file that is selected at the start wins over text that is set by the program
    dialogue.Ask("OpenIt",
                 [&](QFileDialog& asked) { FileDialogueStage::Accept(asked, dialogue.Folder.Path() + "/set.mvp"); });
    EXPECT_EQ(dialogue.Store.Log,
              std::vector<std::string>{"Load " + (dialogue.Folder.Path() + "/set.mvp") + " current adopt"});
}

TEST(FileDialogue, SavesOnlyIntoAFolderThatExistsAndAsksBeforeItOverwrites) {
    FileDialogueStage dialogue;
    dialogue.s.CurrentFile.clear();
    dialogue.Ask("SaveItAs", [&](QFileDialog& asked) {
        EXPECT_EQ(asked.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_FALSE(asked.testOption(QFileDialog::DontConfirmOverwrite));
        FileDialogueStage::Accept(asked, dialogue.Folder.Path() + "/gone/set.mvn");
        EXPECT_TRUE(asked.isVisible());
    });
    EXPECT_EQ(dialogue.Desk.LastBox(), "There is no folder " + dialogue.Folder.Path() + "/gone");
    EXPECT_TRUE(dialogue.Store.Log.empty());
    EXPECT_EQ(dialogue.s.CurrentFolder, dialogue.Folder.Path() + "/");
    EXPECT_TRUE(dialogue.Window.isVisible());
}

/// Chooses a kind of file as a hand does.
void ChooseFilter(QFileDialog& asked, int entry) {
    auto& filters = *asked.findChild<QComboBox*>("fileTypeCombo");
    test::Choose(filters, entry);
    EXPECT_EQ(filters.currentIndex(), entry);
}

TEST(FileDialogue, ThePreviousVersionsAreListedAloneByTheirFiltersAndOpenedByNameAlone) {
    const struct {
        int Filter;
        const char* Ending;
    } previous[] = {{2, ".mvn~"}, {3, ".mvp~"}};
    for (const auto& [filter, ending] : previous) {
        SCOPED_TRACE(ending);
        FileDialogueStage dialogue;
        for (const char* copy : {"set.mvn~", "set.mvp~"}) dialogue.Folder.Touch(copy);
        dialogue.s.CurrentFile.clear();
        dialogue.Ask("OpenIt", [&, filter = filter, ending = ending](QFileDialog& asked) {
            ChooseFilter(asked, filter);
            const auto& files = *asked.findChild<QFileSystemModel*>();
            EXPECT_EQ(files.nameFilters(), QStringList{QString("*") + ending});
            EXPECT_FALSE(files.nameFilterDisables()) << "others are not shown in grey either";
            FileDialogueStage::Accept(asked, "set");
        });
        const std::string file = dialogue.Folder.In(std::string("set") + ending);
        EXPECT_EQ(dialogue.Store.Log, std::vector<std::string>{"Load " + file + " current adopt"});
        EXPECT_EQ(dialogue.s.CurrentFile, std::string("set") + ending);
    }
}

TEST(FileDialogue, AnOpenedPreviousVersionIsSavedAsTheSetItself) {
    for (const char* ending : {".mvn", ".mvp"}) {
        SCOPED_TRACE(ending);
        FileDialogueStage dialogue;
        const std::string copy = std::string("night") + ending + "~";
        dialogue.Folder.Touch(copy);
        dialogue.s.CurrentFile = copy;
        dialogue.Ask("SaveItAs", [&](QFileDialog& asked) {
            EXPECT_EQ(asked.nameFilters().size(), 2) << "a previous version is not saved by hand";
            FileDialogueStage::Accept(asked, copy);
        });
        EXPECT_EQ(dialogue.s.CurrentFile, std::string("night") + ending);
    }
}

TEST(FileDialogue, AFileOfTheOtherFilterGetsItsEnding) {
    FileDialogueStage dialogue;
    dialogue.s.CurrentFile.clear();
    dialogue.Ask("SaveItAs", [&](QFileDialog& asked) {
        asked.selectNameFilter("marvolin Package (*.mvp)");
        emit asked.filterSelected("marvolin Package (*.mvp)");
        FileDialogueStage::Accept(asked, "night");
    });
    EXPECT_EQ(dialogue.s.CurrentFile, "night.mvp");
}

}  // namespace
}  // namespace marvolin
