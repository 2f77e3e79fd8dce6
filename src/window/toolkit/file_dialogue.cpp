#include "window/toolkit/file_dialogue.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QTreeView>

#include "window/descriptions/described.h"

namespace marvolin {

namespace {

constexpr QSize kSize(760, 460);

}  // namespace

FileDialogue::FileDialogue(Session& session, QWidget* parent, bool save, const QString& caption,
                           std::function<std::string(const std::string& typed)> complete)
    : QFileDialog(parent, caption), s(session), complete_(std::move(complete)) {
    setOption(QFileDialog::DontUseNativeDialog);
    setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    DescribeParts(save);
    setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    resize(kSize);
    if (auto* files = findChild<QTreeView*>("treeView")) {
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
}

void FileDialogue::DescribeParts(bool save) {
    Describe(s, *this, save ? "SaveFileDialogue" : "OpenFileDialogue");
    for (const char* part :
         {"lookInCombo", "backButton", "forwardButton", "toParentButton", "newFolderButton", "listModeButton",
          "detailModeButton", "sidebar", "listView", "treeView", "fileNameEdit", "fileTypeCombo"}) {
        if (auto* widget = findChild<QWidget*>(part)) Describe(s, *widget, part);
    }
    auto* buttons = findChild<QDialogButtonBox*>();
    if (buttons == nullptr) return;
    for (QAbstractButton* button : buttons->buttons()) {
        const bool accepts = buttons->buttonRole(button) == QDialogButtonBox::AcceptRole;
        Describe(s, *button, accepts ? "AcceptFile" : "CancelFile");
    }
}

void FileDialogue::accept() {
    if (acceptMode() == AcceptSave) CompleteName();
    const QStringList files = selectedFiles();
    const QString folder = files.isEmpty() ? QString() : QFileInfo(files.first()).absolutePath();
    if (acceptMode() == AcceptSave && !folder.isEmpty() && !QDir(folder).exists()) {
        s.World.Desk.Report("There is no folder " + folder.toStdString());
        return;
    }
    QFileDialog::accept();
}

// Before the toolkit asks about overwriting, so that it asks about the file that will be written.
void FileDialogue::CompleteName() {
    auto* edit = findChild<QLineEdit*>("fileNameEdit");
    if (edit == nullptr || edit->text().isEmpty()) return;
    if (QFileInfo(directory().absoluteFilePath(edit->text())).isDir()) return;
    const std::string name = complete_(edit->text().toStdString());
    // What is selected would count before the name, and only a name that is typed takes the selection back.
    if (auto* files = findChild<QListView*>("listView")) files->clearSelection();
    edit->setText(QString::fromStdString(name));
}

}  // namespace marvolin
