#include "window/editor/script_questions.h"

#include <QMessageBox>
#include <QPushButton>

#include "scripting/script_file.h"
#include "window/descriptions/described.h"
#include "window/toolkit/dialogue_style.h"
#include "window/toolkit/file_dialogue.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

constexpr const char* kScripts = "marvolin Script (*.mvs)";

std::string WithExtension(const std::string& typed) {
    const bool has = ToQString(typed).endsWith(ToQString(kScriptExtension), Qt::CaseInsensitive);
    return has ? typed : typed + std::string(kScriptExtension);
}

std::string Ask(Session& s, QWidget& window, const std::string& folder, const std::string& name, bool save) {
    FilePictures pictures;  // must outlive the dialogue
    FileDialogue dialogue(s, &window, save, save ? "Save Script As" : "Open Script", WithExtension);
    dialogue.setIconProvider(&pictures);
    dialogue.setNameFilters({kScripts, "All files (*)"});
    dialogue.setDirectory(ToQString(folder));
    if (!name.empty()) dialogue.selectFile(ToQString(name));
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return "";
    return dialogue.selectedFiles().first().toStdString();
}

}  // namespace

Unsaved AskUnsaved(QWidget& window, const std::string& name) {
    QMessageBox box(&window);
    Describe(box, "MessageBox");
    box.setWindowTitle("marvolin scripts");
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString("The script " + name + " has changes that are not saved."));
    box.setIcon(QMessageBox::Question);
    box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    Describe(*box.button(QMessageBox::Save), "BoxSave");
    Describe(*box.button(QMessageBox::Discard), "BoxDiscard");
    Describe(*box.button(QMessageBox::Cancel), "BoxCancel");
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
        case QMessageBox::Save:
            return Unsaved::Save;
        case QMessageBox::Discard:
            return Unsaved::Discard;
        default:
            return Unsaved::Cancel;
    }
}

std::string AskScriptToOpen(Session& s, QWidget& window, const std::string& folder) {
    return Ask(s, window, folder, "", false);
}

std::string AskScriptToSave(Session& s, QWidget& window, const std::string& folder, const std::string& name) {
    return Ask(s, window, folder, name, true);
}

}  // namespace marvolin
