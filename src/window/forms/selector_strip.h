#pragma once

#include <QWidget>
#include <array>

#include "core/session.h"

namespace marvolin {

class Control;
class UndoButton;

/// The strip below the rows: `SelectorRadio`, `Bands`, and at its end `Undo` and `Redo`.
class SelectorStrip : public QWidget {
public:
    static constexpr int kHeight = 34;

    SelectorStrip(Session& session, QWidget* parent);
    void RefreshButton(int button);
    void RefreshBands();
    void RefreshUndo();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
    std::array<Control*, kBands + 1> buttons_{};
    Control* bands_ = nullptr;
    std::array<UndoButton*, 2> undo_{};
};

}  // namespace marvolin
