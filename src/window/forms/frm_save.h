#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <functional>

#include "persistence/save_open.h"

namespace marvolin {

class ChoiceList;

/// `frmSave`: what to save and what to open, element by element. Its boxes hold choices that the session does not have
/// yet: a button hands them over. The buttons come first; the boxes are folded away behind "Elements", beside which
/// stands how many of them are ticked, until the player unfolds them.
class FrmSave : public QWidget {
public:
    explicit FrmSave(Session& session);
    /// Shows the choices and the file of the session again; choices that were not handed over are lost.
    void Refresh();
    /// Shows the form in front of the others.
    void Open();
    /// Shows the elements, or folds them away.
    void Unfold(bool unfolded);
    /// The player has unfolded the elements, or folded them away.
    std::function<void(bool unfolded)> OnFold;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeList(int list);
    QWidget* MakeOptions();
    QWidget* MakeButtons();
    QWidget* MakeFold();
    void ShowCounts();
    SaveOpenChoices Choices() const;
    void Preset(int list, int entry);
    void AskFile(bool save);

    Session& s;
    std::array<ChoiceList*, 2> presets_{};
    std::array<std::array<QCheckBox*, kElements>, 2> elements_{};
    std::array<QLabel*, 2> counts_{};
    std::array<QFrame*, 2> frames_{};
    QToolButton* fold_ = nullptr;
    QCheckBox* selectionsOnly_ = nullptr;
    QCheckBox* emptyBlank_ = nullptr;
    QLineEdit* session_ = nullptr;
    QPushButton* saveIt_ = nullptr;
    QPushButton* saveItAs_ = nullptr;
    QPushButton* reload_ = nullptr;
};

}  // namespace marvolin
