#include "window/forms/frm_save.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

#include "persistence/save_open.h"
#include "window/controls/choice.h"
#include "window/toolkit/dialogue_style.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

constexpr QSize kFileDialogue(760, 460);

QString Text(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

/// The filters in the toolkit's own notation.
QStringList NameFilters() {
    const QStringList parts = Text(kFileFilter).split('|');
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) filters << parts[i];
    return filters;
}

QString SuffixOf(const QString& filter) { return filter.contains("*.mvp") ? "mvp" : "mvn"; }

/// A file dialogue that ends only with a file whose folder there is.
class SessionFileDialogue : public QFileDialog {
public:
    SessionFileDialogue(Session& session, QWidget* parent, const QString& caption)
        : QFileDialog(parent, caption), s(session) {}

protected:
    void accept() override {
        const QStringList files = selectedFiles();
        const QString folder = files.isEmpty() ? QString() : QFileInfo(files.first()).absolutePath();
        if (acceptMode() == AcceptSave && !folder.isEmpty() && !QDir(folder).exists()) {
            s.World.Desk.MessageBox("There is no folder " + folder.toStdString());
            return;
        }
        QFileDialog::accept();
    }

private:
    Session& s;
};

QLabel* Caption(const QString& text) {
    auto* label = new QLabel(text);
    label->setFont(theme::Sans(13, QFont::DemiBold));
    return label;
}

}  // namespace

FrmSave::FrmSave(Session& session) : s(session) {
    setObjectName("frmSave");
    setWindowFlag(Qt::Dialog);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 14, 16, 14);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(12);
    grid->addWidget(MakeList(0), 0, 0);
    grid->addWidget(MakeList(1), 0, 1);
    grid->addWidget(MakeOptions(), 1, 0, 1, 2);
    grid->addWidget(MakeButtons(), 2, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* FrmSave::MakeList(int list) {
    const auto row = static_cast<std::size_t>(list);
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(Caption(Text(kElementLabels[row])));
    auto* preset = new ChoiceList(s, nullptr, QString("Selector_%1").arg(list),
                                  list == 0 ? "Presets of the elements to save" : "Presets of the elements to open", {},
                                  [this, list](int entry) { Preset(list, entry); });
    for (const ElementPreset& one : kElementPresets) preset->addItem(Text(one.Text));
    preset->setCurrentIndex(-1);
    preset->setPlaceholderText("Preset");
    column->addWidget(preset);
    auto* frame = new QFrame;
    frame->setObjectName(QString("Elements_%1").arg(list));
    frame->setStyleSheet(
        QString("#Elements_%1 { background: #14161a; border: 1px solid #3a3f47; border-radius: 5px; }").arg(list));
    auto* rows = new QVBoxLayout(frame);
    rows->setContentsMargins(10, 8, 24, 8);
    rows->setSpacing(4);
    for (int i = 0; i < kElements; ++i) {
        auto* element = new QCheckBox(Text(kElementRows[static_cast<std::size_t>(i)].Text).replace("&", "&&"));
        element->setObjectName(QString("Elements_%1_%2").arg(list).arg(i));
        rows->addWidget(element);
        elements_[row][static_cast<std::size_t>(i)] = element;
    }
    column->addWidget(frame);
    return box;
}

QWidget* FrmSave::MakeOptions() {
    auto* box = new QWidget;
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(8);
    selectionsOnly_ = new QCheckBox("Only Save Selected Loops");
    selectionsOnly_->setObjectName("SelectionsOnly");
    emptyBlank_ = new QCheckBox("Empty Blank Loops on Open");
    emptyBlank_->setObjectName("EmptyBlank");
    session_ = new QLineEdit;
    session_->setObjectName("Session");
    session_->setAccessibleName("Session Name (for SnapShots)");
    session_->setPlaceholderText("Snapshot");
    grid->addWidget(selectionsOnly_, 0, 0);
    grid->addWidget(emptyBlank_, 0, 1);
    grid->addWidget(new QLabel("Session Name (for SnapShots)"), 1, 0);
    grid->addWidget(session_, 1, 1);
    return box;
}

QWidget* FrmSave::MakeButtons() {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 4, 0, 0);
    const auto add = [&](const char* name, const char* text, auto click) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, click);
        row->addWidget(button);
        return button;
    };
    saveIt_ = add("SaveIt", "Save", [this] { SaveIt_Click(s, Choices()); });
    add("SaveItAs", "Save As", [this] { AskFile(true); });
    row->addStretch(1);
    reload_ = add("Reload", "Reload", [this] { Reload_Click(s, Choices()); });
    add("OpenIt", "Open", [this] { AskFile(false); });
    return box;
}

SaveOpenChoices FrmSave::Choices() const {
    SaveOpenChoices choices;
    for (std::size_t list = 0; list < 2; ++list) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(kElements); ++i) {
            choices.Elements[list][i] = elements_[list][i]->isChecked();
        }
    }
    choices.SelectionsOnly = selectionsOnly_->isChecked();
    choices.EmptyBlank = emptyBlank_->isChecked();
    choices.Session = session_->text().toStdString();
    return choices;
}

void FrmSave::Preset(int list, int entry) {
    SaveOpenChoices choices = Choices();
    ChoosePreset(choices, list, kElementPresets[static_cast<std::size_t>(entry)]);
    const auto row = static_cast<std::size_t>(list);
    for (std::size_t i = 0; i < elements_[row].size(); ++i) elements_[row][i]->setChecked(choices.Elements[row][i]);
}

void FrmSave::Refresh() {
    const SaveOpenChoices shown = CurrentChoices(s);
    for (std::size_t list = 0; list < 2; ++list) {
        for (std::size_t i = 0; i < elements_[list].size(); ++i) {
            elements_[list][i]->setChecked(shown.Elements[list][i]);
        }
        if (auto* preset = findChild<QComboBox*>(QString("Selector_%1").arg(list))) preset->setCurrentIndex(-1);
    }
    selectionsOnly_->setChecked(shown.SelectionsOnly);
    emptyBlank_->setChecked(shown.EmptyBlank);
    session_->setText(QString::fromStdString(shown.Session));
    setWindowTitle(QString::fromStdString(SaveOpenTitle(s)));
    saveIt_->setEnabled(s.SaveItEnabled);
    reload_->setEnabled(!s.DialogueFile.empty());
}

void FrmSave::Open() {
    Refresh();
    show();
    raise();
    activateWindow();
}

void FrmSave::AskFile(bool save) {
    FilePictures pictures;  // outlives the dialogue
    SessionFileDialogue dialogue(s, this, save ? "Save As" : "Open");
    dialogue.setObjectName(save ? "SaveFileDialogue" : "OpenFileDialogue");
    dialogue.setOption(QFileDialog::DontUseNativeDialog);
    dialogue.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialogue.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialogue.setIconProvider(&pictures);
    dialogue.resize(kFileDialogue);
    if (auto* files = dialogue.findChild<QTreeView*>("treeView")) {
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    dialogue.setNameFilters(NameFilters());
    dialogue.setDefaultSuffix(SuffixOf(NameFilters().first()));
    connect(&dialogue, &QFileDialog::filterSelected, &dialogue,
            [&dialogue](const QString& filter) { dialogue.setDefaultSuffix(SuffixOf(filter)); });
    if (!s.CurrentFolder.empty()) dialogue.setDirectory(QString::fromStdString(s.CurrentFolder));
    if (!s.CurrentFile.empty()) dialogue.selectFile(QString::fromStdString(s.CurrentFile));
    if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return;
    const std::string path = dialogue.selectedFiles().first().toStdString();
    if (save) {
        SaveItAs_Chosen(s, Choices(), path);
    } else {
        OpenIt_Chosen(s, Choices(), path);
    }
}

void FrmSave::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return hide();
    QWidget::keyPressEvent(event);
}

}  // namespace marvolin
