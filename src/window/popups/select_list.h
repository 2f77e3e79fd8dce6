#pragma once

#include <QListWidget>

#include "core/session.h"
#include "window/descriptions/described.h"
#include "window/popups/second_press.h"

namespace marvolin {

/// `SlctGroup`: the list of the selection rules, hidden except while open.
class SelectList : public QListWidget, public HasParts {
public:
    SelectList(Session& session, QWidget* parent);
    /// Opens the list with nothing selected, as near to `place` (on the screen) as the screen allows.
    void Open(QPoint place);
    /// The rule at a place, counted from 1; 0 beside them.
    int PartAt(QPointF place) const override;

protected:
    bool event(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Choose(const QListWidgetItem* item);

    Session& s;
    SecondPress second_{*this};
};

}  // namespace marvolin
