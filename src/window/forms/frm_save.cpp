#include "window/forms/frm_save.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "persistence/save_open.h"
#include "window/controls/choice.h"
#include "window/descriptions/described.h"
#include "window/toolkit/dialogue_style.h"
#include "window/toolkit/file_dialogue.h"
#include "window/toolkit/strings.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

/// Filters in the toolkit's own notation.
QStringList NameFilters(std::string_view filter) {
    const QStringList parts = ToQString(filter).split('|');
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) filters << parts[i];
    return filters;
}

QString SuffixOf(const QString& filter) {
    if (filter.contains("*.mvp~")) return "mvp~";
    if (filter.contains("*.mvn~")) return "mvn~";
    return filter.contains("*.mvp") ? "mvp" : "mvn";
}

QLabel* Caption(const QString& text) {
    auto* label = new QLabel(text);
    label->setFont(theme::Sans(13, QFont::DemiBold));
    return label;
}

}  // namespace

FrmSave::FrmSave(Session& session) : s(session) {
    Describe(s, *this, "frmSave");
    setWindowFlag(Qt::Dialog);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 14, 16, 14);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(12);
    grid->addWidget(MakeButtons(), 0, 0, 1, 2);
    grid->addWidget(MakeOptions(), 1, 0, 1, 2);
    grid->addWidget(MakeFold(), 2, 0, 1, 2);
    grid->addWidget(MakeList(0), 3, 0);
    grid->addWidget(MakeList(1), 3, 1);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    Unfold(false);
}

QWidget* FrmSave::MakeFold() {
    fold_ = new QToolButton;
    Describe(s, *fold_, "ElementsFold");
    fold_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    fold_->setFocusPolicy(Qt::StrongFocus);
    fold_->setFont(theme::Sans(13));
    connect(fold_, &QToolButton::clicked, this, [this] {
        const bool unfolded = !frames_[0]->isVisibleTo(this);
        Unfold(unfolded);
        if (OnFold) OnFold(unfolded);
    });
    return fold_;
}

void FrmSave::Unfold(bool unfolded) {
    for (QFrame* frame : frames_) frame->setVisible(unfolded);
    fold_->setArrowType(unfolded ? Qt::DownArrow : Qt::RightArrow);
    fold_->setAccessibleDescription(unfolded ? "shown" : "hidden");
}

// How many elements are ticked, for the player who does not unfold them.
void FrmSave::ShowCounts() {
    for (std::size_t list = 0; list < 2; ++list) {
        const auto ticked = std::count_if(elements_[list].begin(), elements_[list].end(),
                                          [](const QCheckBox* element) { return element->isChecked(); });
        counts_[list]->setText(ticked == kElements ? QString("all") : QString("%1 of %2").arg(ticked).arg(kElements));
    }
}

QWidget* FrmSave::MakeList(int list) {
    const auto row = static_cast<std::size_t>(list);
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    auto* heading = new QHBoxLayout;
    heading->addWidget(Caption(ToQString(kElementLabels[row])));
    counts_[row] = new QLabel;
    counts_[row]->setObjectName(QString("ElementCount_%1").arg(list));
    heading->addWidget(counts_[row]);
    heading->addStretch(1);
    column->addLayout(heading);
    auto* preset = new ChoiceList(s, nullptr, "Selector", list, [this, list](int entry) { Preset(list, entry); });
    for (const ElementPreset& one : kElementPresets) preset->addItem(ToQString(one.Text));
    preset->setCurrentIndex(-1);
    preset->setPlaceholderText("Preset");
    presets_[row] = preset;
    column->addWidget(preset);
    auto* frame = frames_[row] = new QFrame;
    Describe(s, *frame, "Elements", list);
    frame->setStyleSheet(
        QString("#Elements_%1 { background: #14161a; border: 1px solid #3a3f47; border-radius: 5px; }").arg(list));
    auto* rows = new QVBoxLayout(frame);
    rows->setContentsMargins(10, 8, 24, 8);
    rows->setSpacing(4);
    for (int i = 0; i < kElements; ++i) {
        auto* element = new QCheckBox;
        Describe(s, *element, list == 0 ? "Elements_0" : "Elements_1", i);
        rows->addWidget(element);
        elements_[row][static_cast<std::size_t>(i)] = element;
        connect(element, &QCheckBox::toggled, this, [this] { ShowCounts(); });
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
    selectionsOnly_ = new QCheckBox;
    Describe(s, *selectionsOnly_, "SelectionsOnly");
    emptyBlank_ = new QCheckBox;
    Describe(s, *emptyBlank_, "EmptyBlank");
    session_ = new QLineEdit;
    const std::string sessionLabel = Describe(s, *session_, "Session").Label();
    session_->setPlaceholderText("Snapshot");
    grid->addWidget(selectionsOnly_, 0, 0);
    grid->addWidget(emptyBlank_, 0, 1);
    grid->addWidget(new QLabel(ToQString(sessionLabel)), 1, 0);
    grid->addWidget(session_, 1, 1);
    return box;
}

QWidget* FrmSave::MakeButtons() {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 4);
    const auto add = [&](const char* name, auto click) {
        auto* button = new QPushButton;
        Describe(s, *button, name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, click);
        row->addWidget(button);
        return button;
    };
    saveIt_ = add("SaveIt", [this] { SaveIt_Click(s, Choices()); });
    saveItAs_ = add("SaveItAs", [this] { AskFile(true); });
    row->addStretch(1);
    reload_ = add("Reload", [this] { Reload_Click(s, Choices()); });
    add("OpenIt", [this] { AskFile(false); });
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
        presets_[list]->Show(-1);
    }
    selectionsOnly_->setChecked(shown.SelectionsOnly);
    emptyBlank_->setChecked(shown.EmptyBlank);
    session_->setText(QString::fromStdString(shown.Session));
    setWindowTitle(QString::fromStdString(SaveOpenTitle(s)));
    ShowCounts();
    saveIt_->setEnabled(s.SaveItEnabled);
    reload_->setEnabled(!s.DialogueFile.empty());
}

void FrmSave::Open() {
    Refresh();
    (saveIt_->isEnabled() ? saveIt_ : saveItAs_)->setFocus();
    show();
    raise();
    activateWindow();
}

void FrmSave::AskFile(bool save) {
    FilePictures pictures;  // must outlive the dialogue
    // Only a name that the lists of sets show.
    FileDialogue dialogue(s, this, save, save ? "Save As" : "Open", [&dialogue](const std::string& typed) {
        return SetFileName(typed, ("." + dialogue.defaultSuffix()).toStdString());
    });
    dialogue.setIconProvider(&pictures);
    const QStringList filters = save ? NameFilters(kFileFilter) : NameFilters(kFileFilter) + NameFilters(kCopyFilter);
    dialogue.setNameFilters(filters);
    dialogue.setDefaultSuffix(SuffixOf(filters.first()));
    connect(&dialogue, &QFileDialog::filterSelected, &dialogue,
            [&dialogue](const QString& filter) { dialogue.setDefaultSuffix(SuffixOf(filter)); });
    if (!s.CurrentFolder.empty()) dialogue.setDirectory(QString::fromStdString(s.CurrentFolder));
    const std::string file = save ? SetFileName(s.CurrentFile, "") : s.CurrentFile;
    if (!file.empty()) dialogue.selectFile(QString::fromStdString(file));
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
    // In a plain window of the toolkit only the space bar presses a button.
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && button != nullptr) return button->click();
    QWidget::keyPressEvent(event);
}

}  // namespace marvolin
