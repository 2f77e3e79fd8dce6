#pragma once
/// \file
/// Lists and boxes of the toolkit that show a value of the session and forward the player's choice.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <functional>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// A drop-down list. `choose` gets the entry that the player chose, also when it is the one that was chosen before.
/// While it is open the hint is that of the entry under the pointer, which counts as a part of the list, from 1.
class ChoiceList : public QComboBox {
public:
    /// `name` and `index` choose the row of the table of controls; `index` is -1 without an array.
    ChoiceList(Session& session, QWidget* parent, std::string_view name, int index, std::function<void(int)> choose);
    /// Shows `entry` (-1 none) without choosing it.
    void Show(int entry);
    /// Replaces the entries when they differ, without choosing one.
    void SetEntries(const QStringList& entries);
    /// Closes the list. The hint of the entry goes with it.
    void hidePopup() override;

protected:
    bool event(QEvent* event) override;
};

/// A tick box. `choose` gets its new state.
class ChoiceBox : public QCheckBox {
public:
    /// `name` and `index` as in `ChoiceList`.
    ChoiceBox(Session& session, QWidget* parent, std::string_view name, int index, std::function<void(bool)> choose);
    /// Shows a state without choosing it.
    void Show(bool on);
};

/// A small grey caption at `place` in `parent`.
QLabel* MakeLabel(QWidget* parent, const QString& text, const QRect& place);

}  // namespace marvolin
