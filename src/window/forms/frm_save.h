#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "persistence/save_open.h"

namespace marvolin {

class ChoiceList;

/// `frmSave`: what to save and what to open, element by element. Its boxes hold choices that the session does not have
/// yet: a button hands them over.
class FrmSave : public QWidget {
public:
    explicit FrmSave(Session& session);
    /// Shows the choices and the file of the session again; choices that were not handed over are lost.
    void Refresh();
    /// Shows the form in front of the others.
    void Open();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeList(int list);
    QWidget* MakeOptions();
    QWidget* MakeButtons();
    SaveOpenChoices Choices() const;
    void Preset(int list, int entry);
    void AskFile(bool save);

    Session& s;
    std::array<ChoiceList*, 2> presets_{};
    std::array<std::array<QCheckBox*, kElements>, 2> elements_{};
    QCheckBox* selectionsOnly_ = nullptr;
    QCheckBox* emptyBlank_ = nullptr;
    QLineEdit* session_ = nullptr;
    QPushButton* saveIt_ = nullptr;
    QPushButton* reload_ = nullptr;
};

}  // namespace marvolin
