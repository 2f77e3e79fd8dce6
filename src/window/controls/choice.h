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

/// A drop-down list. `choose` gets the entry that the player chose, also when it is the one that stands there.
class ChoiceList : public QComboBox {
public:
    ChoiceList(Session& session, QWidget* parent, const QString& name, const QString& label, std::string_view hint,
               std::function<void(int)> choose);
    /// Shows `entry` (-1 none) without choosing it.
    void Show(int entry);
    /// Replaces the entries when they differ, without choosing one.
    void SetEntries(const QStringList& entries);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;

private:
    Session& s;
    const std::string_view hint_;
};

/// A tick box. `choose` gets its new state.
class ChoiceBox : public QCheckBox {
public:
    ChoiceBox(Session& session, QWidget* parent, const QString& name, const QString& text, std::string_view hint,
              std::function<void(bool)> choose);
    /// Shows a state without choosing it.
    void Show(bool on);

protected:
    void enterEvent(QEnterEvent* event) override;

private:
    Session& s;
    const std::string_view hint_;
};

/// A quiet caption at a place.
QLabel* MakeLabel(QWidget* parent, const QString& text, const QRect& place);

}  // namespace marvolin
