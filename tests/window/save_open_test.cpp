#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>
#include <algorithm>

#include "fakes/temp_folder.h"
#include "hand.h"
#include "stage.h"
#include "window/forms/frm_save.h"
#include "window/forms/frm_start_up_query.h"

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
        Unfold();
    }
    void Unfold() { Window.findChild<QToolButton*>("ElementsFold")->click(); }
    bool Unfolded() { return Element(0, 0).isVisible() && Element(1, 15).isVisible(); }
    QString Count(int list) { return Window.findChild<QLabel*>(QString("ElementCount_%1").arg(list))->text(); }
    ~Dialogue() { Screen.Attach(static_cast<FrmSave*>(nullptr)); }
    void Press(const char* name) { QTest::mouseClick(Window.findChild<QPushButton*>(name), Qt::LeftButton); }
    QCheckBox& Box(const QString& name) { return *Window.findChild<QCheckBox*>(name); }
    QCheckBox& Element(int list, int i) { return Box(QString("Elements_%1_%2").arg(list).arg(i)); }
    QComboBox& Preset(int list) { return *Window.findChild<QComboBox*>(QString("Selector_%1").arg(list)); }
    /// Presses the button `open` and runs `answer` on the file dialogue, again until that has closed it.
    void Ask(const char* open, const std::function<void(QFileDialog&)>& answer) {
        QTimer hand;
        hand.callOnTimeout([&] {
            auto* asked = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (asked != nullptr) answer(*asked);
        });
        hand.start(0);
        Press(open);
    }
    /// Answers the file dialogue that `open` shows with `path`; cancels it when that is empty.
    void Answer(const char* open, const QString& path) {
        Ask(open, [&](QFileDialog& asked) {
            if (path.isEmpty()) return asked.reject();
            asked.selectFile(path);
            static_cast<QDialog&>(asked).accept();
        });
    }
    /// Types a name into a file dialogue and presses Return.
    static void Type(QFileDialog& asked, const char* text) {
        auto* name = asked.findChild<QLineEdit*>("fileNameEdit");
        name->clear();
        QTest::keyClicks(name, text);
        QTest::keyClick(name, Qt::Key_Return);
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

TEST(SaveOpen, AnAmpersandIsShownAndUnderlinesNothing) {
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

TEST(SaveOpen, SaveAppliesTheChoicesAndSavesUnderTheName) {
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

TEST(SaveOpen, SaveIsDisabledUntilThereIsAFileToSaveTo) {
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

TEST(SaveOpen, SaveAsSavesToTheChosenFileAndAddsTheExtension) {
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

TEST(SaveOpen, HasItsLabelsListsBoxesAndButtons) {
    Dialogue dialogue;
    QStringList labels;
    for (const QLabel* label : dialogue.Window.findChildren<QLabel*>()) labels << label->text();
    for (const char* text : {"Elements to save:", "Elements to open:", "Session Name (for SnapShots)"}) {
        EXPECT_TRUE(labels.contains(text)) << text;
    }
    EXPECT_EQ(dialogue.Box("SelectionsOnly").text(), "Only Save Selected Loops");
    EXPECT_EQ(dialogue.Box("EmptyBlank").text(), "Empty Blank Loops on Open");
    const std::vector<std::pair<const char*, const char*>> buttons{
        {"OpenIt", "Open"}, {"SaveIt", "Save"}, {"SaveItAs", "Save As"}, {"Reload", "Reload"}};
    for (const auto& [name, text] : buttons) {
        EXPECT_EQ(dialogue.Window.findChild<QPushButton*>(name)->text(), text);
    }
    for (int list : {0, 1}) {
        QStringList presets;
        for (int i = 0; i < dialogue.Preset(list).count(); ++i) presets << dialogue.Preset(list).itemText(i);
        EXPECT_EQ(presets, (QStringList{"All", "None", "Loop", "Jamming", "3d"}));
    }
}

TEST(SaveOpen, ATickInEitherListSetsItsOwnSwitch) {
    using E = marvolin::Element;
    const std::vector<E> order{E::LoopTrack, E::PlayState,    E::Freq,     E::FreqPattern, E::Vol,   E::VolPattern,
                               E::Pan,       E::PanPattern,   E::Position, E::CrossFader,  E::Bands, E::PickLists,
                               E::ClipBoard, E::HistoryLists, E::General,  E::ThreeD};
    Dialogue dialogue;
    for (std::size_t list : {0U, 1U}) {
        for (int i = 0; i < 16; ++i) {
            SCOPED_TRACE(i);
            for (int each : {0, 1}) test::Choose(dialogue.Preset(each), 1);
            QTest::mouseClick(&dialogue.Element(static_cast<int>(list), i), Qt::LeftButton, {}, {10, 8});
            dialogue.Press("SaveIt");
            for (int other = 0; other < 16; ++other) {
                const E element = order[static_cast<std::size_t>(other)];
                EXPECT_EQ(dialogue.s.SaveOpenSwitches[list].Get(element), other == i) << other;
                EXPECT_FALSE(dialogue.s.SaveOpenSwitches[1 - list].Get(element)) << other;
            }
        }
    }
}

TEST(SaveOpen, ShowsTheChoicesOfTheSessionWhenItOpens) {
    Dialogue dialogue;
    dialogue.s.SaveOpenSwitches[0].SetSwitch(true);
    dialogue.s.SaveOpenSwitches[0].Put(marvolin::Element::Bands, false);
    dialogue.s.SaveOpenSwitches[1].SetSwitch(false);
    dialogue.s.SaveOpenSwitches[1].Put(marvolin::Element::CrossFader, true);
    dialogue.s.SelectionsOnlySetting = 1;
    dialogue.s.EmptyBlankSetting = 1;
    dialogue.s.SessionName = "Night";
    dialogue.Window.Open();
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(dialogue.Element(0, i).isChecked(), i != 10) << i;
        EXPECT_EQ(dialogue.Element(1, i).isChecked(), i == 9) << i;
    }
    EXPECT_TRUE(dialogue.Box("SelectionsOnly").isChecked());
    EXPECT_TRUE(dialogue.Box("EmptyBlank").isChecked());
    EXPECT_EQ(dialogue.Window.findChild<QLineEdit*>("Session")->text(), "Night");
}

TEST(SaveOpen, ItsButtonsComeFirstAndTheOneThatSavesHasTheFocus) {
    Dialogue dialogue;
    EXPECT_EQ(dialogue.Window.focusWidget()->objectName(), "SaveIt");
    dialogue.s.SaveItEnabled = false;
    dialogue.Window.Open();
    EXPECT_EQ(dialogue.Window.focusWidget()->objectName(), "SaveItAs");
    dialogue.s.SaveItEnabled = true;
    dialogue.Window.Open();
    QStringList order;
    for (QWidget* at = dialogue.Window.focusWidget(); order.size() < 4; at = at->nextInFocusChain()) {
        if (qobject_cast<QPushButton*>(at) != nullptr) order << at->objectName();
    }
    EXPECT_EQ(order, (QStringList{"SaveIt", "SaveItAs", "Reload", "OpenIt"}));
    const auto top = [&](const char* name) {
        const QWidget* widget = dialogue.Window.findChild<QWidget*>(name);
        return widget->mapTo(&dialogue.Window, QPoint(0, 0)).y();
    };
    EXPECT_LT(top("SaveIt"), top("SelectionsOnly"));
    EXPECT_LT(top("SelectionsOnly"), top("ElementsFold"));
    EXPECT_LT(top("ElementsFold"), top("Selector_0"));
}

TEST(SaveOpen, ReturnPressesTheButtonThatHasTheFocus) {
    Dialogue dialogue;
    QTest::keyClick(&dialogue.Window, Qt::Key_Return);
    EXPECT_EQ(dialogue.Store.Log.size(), 1U);
}

TEST(SaveOpen, TheElementsAreFoldedAwayBehindTheirNumber) {
    Dialogue dialogue;
    FrmSave fresh(dialogue.s);
    fresh.show();
    EXPECT_FALSE(fresh.findChild<QWidget*>("Elements_0_0")->isVisible());
    EXPECT_TRUE(fresh.findChild<QWidget*>("Selector_0")->isVisible());
    EXPECT_TRUE(dialogue.Unfolded());
    EXPECT_LT(fresh.height(), dialogue.Window.height() - 200);
    for (int list : {0, 1}) {
        test::Choose(dialogue.Preset(list), 0);
        EXPECT_EQ(dialogue.Count(list), "all");
        for (int element = 0; element < 5; ++element) dialogue.Element(list, element).click();
        EXPECT_EQ(dialogue.Count(list), "11 of 16");
        test::Choose(dialogue.Preset(list), 1);
        EXPECT_EQ(dialogue.Count(list), "0 of 16");
    }
    dialogue.Unfold();  // folds
    EXPECT_FALSE(dialogue.Unfolded());
    EXPECT_EQ(dialogue.Count(0), "0 of 16");
}

TEST(SaveOpen, AScreenReaderHearsWhetherTheElementsAreShown) {
    Dialogue dialogue;
    const auto said = [&] {
        auto* fold = dialogue.Window.findChild<QToolButton*>("ElementsFold");
        return QAccessible::queryAccessibleInterface(fold)->text(QAccessible::Description).toStdString();
    };
    EXPECT_EQ(said(), "shown");
    dialogue.Unfold();  // folds
    EXPECT_EQ(said(), "hidden");
}

TEST(SaveOpen, OnceUnfoldedTheElementsStaySo) {
    Dialogue dialogue;
    QTest::keyClick(&dialogue.Window, Qt::Key_Escape);
    dialogue.Window.Open();
    EXPECT_TRUE(dialogue.Unfolded());
    dialogue.Unfold();
    dialogue.Window.hide();
    dialogue.Window.Open();
    EXPECT_FALSE(dialogue.Unfolded());
}

TEST(SaveOpen, ClosingItWithoutAButtonAppliesNothing) {
    Dialogue dialogue;
    const clsSwitchRecord before = dialogue.s.SaveOpenSwitches[0];
    test::Choose(dialogue.Preset(0), 4);
    dialogue.Box("EmptyBlank").click();
    QTest::keyClick(&dialogue.Window, Qt::Key_Escape);
    EXPECT_FALSE(dialogue.Window.isVisible());
    EXPECT_EQ(dialogue.s.SaveOpenSwitches[0], before);
    EXPECT_EQ(dialogue.s.EmptyBlankSetting, 0);
    EXPECT_TRUE(dialogue.Store.Log.empty());
}

TEST(SaveOpen, TheFileDialoguesOfferSessionsAndPackagesInTheCurrentFolder) {
    test::TempFolder folder;
    folder.Touch("set.mvn");
    Dialogue dialogue;
    dialogue.s.CurrentFolder = folder.Path() + "/";
    for (const char* button : {"OpenIt", "SaveItAs"}) {
        SCOPED_TRACE(button);
        int seen = 0;
        dialogue.Ask(button, [&](QFileDialog& asked) {
            ++seen;
            const bool save = std::string_view(button) == "SaveItAs";
            QStringList filters{"marvolin File (*.mvn)", "marvolin Package (*.mvp)"};
            if (!save)
                filters << "Previous marvolin File (*.mvn~)"
                        << "Previous marvolin Package (*.mvp~)";
            EXPECT_EQ(asked.nameFilters(), filters);
            EXPECT_EQ(asked.selectedNameFilter(), "marvolin File (*.mvn)");
            EXPECT_EQ(asked.directory().absolutePath().toStdString(), folder.Path());
            EXPECT_EQ(asked.selectedFiles().value(0).toStdString(), folder.In("set.mvn"));
            EXPECT_EQ(asked.acceptMode(), save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
            EXPECT_EQ(asked.fileMode(), save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
            EXPECT_FALSE(asked.testOption(QFileDialog::DontConfirmOverwrite));
            asked.reject();
        });
        EXPECT_EQ(seen, 1);
    }
}

TEST(SaveOpen, OpenLoadsTheChosenFileWithTheSecondListAndEnablesSave) {
    test::TempFolder folder;
    const std::string file = folder.Touch("other.mvp");
    Dialogue dialogue;
    dialogue.s.SaveItEnabled = false;
    dialogue.Window.Open();
    test::Choose(dialogue.Preset(1), 4);
    dialogue.Answer("OpenIt", QString::fromStdString(file));
    EXPECT_TRUE(Has(dialogue.Store.Log, "Load " + file + " current adopt"));
    EXPECT_EQ(dialogue.Store.Loaded, dialogue.s.SaveOpenSwitches[1]);
    EXPECT_TRUE(dialogue.Store.Loaded.Get(marvolin::Element::Position));
    EXPECT_FALSE(dialogue.Store.Loaded.Get(marvolin::Element::Vol));
    EXPECT_EQ(dialogue.s.CurrentFolder, folder.Path() + "/");
    EXPECT_EQ(dialogue.s.CurrentFile, "other.mvp");
    EXPECT_TRUE(dialogue.Window.findChild<QPushButton*>("SaveIt")->isEnabled());
}

TEST(SaveOpen, AFailedOpenLeavesSaveDisabled) {
    test::TempFolder folder;
    Dialogue dialogue;
    dialogue.s.SaveItEnabled = false;
    dialogue.Window.Open();
    dialogue.Store.Answer = false;
    dialogue.Answer("OpenIt", QString::fromStdString(folder.Touch("other.mvn")));
    EXPECT_EQ(dialogue.Store.Log.size(), 1U);
    dialogue.Window.Open();
    EXPECT_FALSE(dialogue.Window.findChild<QPushButton*>("SaveIt")->isEnabled());
}

TEST(SaveOpen, TheElementsOfAnOpenedFileAreTickedForTheNextSave) {
    Dialogue dialogue;
    dialogue.s.SaveOpenSwitches[0].SetSwitch(true);
    dialogue.Window.Open();
    dialogue.Store.OnLoad = [&] {
        dialogue.s.SaveOpenSwitches[0].SetSwitch(false);
        dialogue.s.SaveOpenSwitches[0].Put(marvolin::Element::Vol, true);
    };
    dialogue.Press("Reload");
    dialogue.Window.Open();
    for (int i = 0; i < 16; ++i) EXPECT_EQ(dialogue.Element(0, i).isChecked(), i == 4) << i;
}

TEST(SaveOpen, ASavedNameGetsTheExtensionOfTheChosenFilter) {
    test::TempFolder folder;
    Dialogue dialogue;
    dialogue.s.CurrentFolder = folder.Path() + "/";
    dialogue.s.CurrentFile.clear();
    dialogue.Ask("SaveItAs", [&](QFileDialog& asked) {
        test::Choose(*asked.findChild<QComboBox*>("fileTypeCombo"), 1);
        Dialogue::Type(asked, "pack");
    });
    EXPECT_TRUE(Has(dialogue.Store.Log, "Save " + folder.In("pack.mvp") + " all"));
}

TEST(SaveOpen, ANameWithAPointIsCompletedBeforeTheQuestionAboutOverwriting) {
    test::TempFolder folder;
    folder.Touch("my set.1.mvn");
    Dialogue dialogue;
    dialogue.s.CurrentFolder = folder.Path() + "/";
    dialogue.s.CurrentFile.clear();
    int questions = 0;
    // A timer of its own: the other one waits in its tick for the answer.
    QTimer answer;
    answer.callOnTimeout([&] {
        auto* question = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (question == nullptr) return;
        ++questions;
        question->button(QMessageBox::Yes)->click();
    });
    answer.start(0);
    dialogue.Ask("SaveItAs", [&](QFileDialog& asked) { Dialogue::Type(asked, "my set.1"); });
    EXPECT_EQ(questions, 1);
    EXPECT_TRUE(Has(dialogue.Store.Log, "Save " + folder.In("my set.1.mvn") + " all"));
}

TEST(SaveOpen, TheCopyOfASetIsFoundByItsFilterAndSaveAsOffersTheSetsOwnName) {
    test::TempFolder folder;
    folder.Touch("set.mvp~");
    Dialogue dialogue;
    dialogue.s.CurrentFolder = folder.Path() + "/";
    dialogue.s.CurrentFile.clear();
    dialogue.Answer("OpenIt", QString::fromStdString(folder.In("set.mvp~")));
    EXPECT_TRUE(Has(dialogue.Store.Log, "Load " + folder.In("set.mvp~") + " current adopt"));
    QString offered;
    dialogue.Ask("SaveItAs", [&](QFileDialog& asked) {
        offered = asked.findChild<QLineEdit*>("fileNameEdit")->text();
        asked.reject();
    });
    EXPECT_EQ(offered, "set.mvp");
}

struct Quick : test::Stage {
    Quick() {
        s.CurrentFolder = "/tmp/";
        Show({"night"});
    }
    void Show(const std::vector<std::string>& sessions) {
        s.QuickLoadRows = {"<Close>"};
        s.QuickLoadFiles = {""};
        for (const std::string& session : sessions) {
            s.QuickLoadRows.push_back(session);
            s.QuickLoadFiles.push_back(session + ".mvn");
        }
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

TEST(QuickLoad, ShowsItsRowsInTheirOrderWithTheFirstOneChosen) {
    Quick quick;
    quick.Show({"zebra", "ant"});
    quick.Open(Qt::LeftButton);
    QStringList rows;
    for (int row = 0; row < quick.List().count(); ++row) rows << quick.List().item(row)->text();
    EXPECT_EQ(rows, (QStringList{"<Close>", "zebra", "ant"}));
    EXPECT_EQ(quick.List().currentRow(), 0);
    quick.Take(2);
    quick.Open(Qt::LeftButton);
    EXPECT_EQ(quick.List().currentRow(), 0);
}

TEST(QuickLoad, ANameInAnotherEncodingIsLoaded) {
    Quick quick;
    quick.Show({"caf\xE9"});
    quick.Open(Qt::LeftButton);
    quick.Take(1);
    EXPECT_TRUE(Has(quick.Store.Log, "Load /tmp/caf\xE9.mvn current adopt"));
}

TEST(QuickLoad, AnyOtherButtonOpensTheDialogueToo) {
    Quick quick;
    quick.Open(Qt::MiddleButton);
    quick.Take(1);
    EXPECT_TRUE(quick.Store.Log.empty());
    EXPECT_EQ(quick.s.DialogueFile, "night.mvn");
    EXPECT_TRUE(Has(quick.Forms.Log, "Show Save"));
}

TEST(QuickLoad, ItLoadsTheElementsOfTheSecondList) {
    Quick quick;
    quick.s.SaveOpenSwitches[1].SetSwitch(false);
    quick.s.SaveOpenSwitches[1].Put(marvolin::Element::Pan, true);
    quick.Open(Qt::LeftButton);
    quick.Take(1);
    EXPECT_EQ(quick.Store.Loaded, quick.s.SaveOpenSwitches[1]);
}

TEST(QuickLoad, APressOutsideTheListAndTheEscapeKeyHideIt) {
    Quick quick;
    quick.Open(Qt::LeftButton);
    QTest::mouseClick(quick.List().windowHandle(), Qt::LeftButton, {}, {-30, 30});
    EXPECT_FALSE(quick.List().isVisible());
    quick.Open(Qt::RightButton);
    QTest::keyClick(&quick.List(), Qt::Key_Escape);
    EXPECT_FALSE(quick.List().isVisible());
    EXPECT_TRUE(quick.Store.Log.empty());
    EXPECT_TRUE(quick.s.DialogueFile.empty());
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

TEST(StartUpQuery, OnNoExplainsHowToEnableTheDemoAgain) {
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
