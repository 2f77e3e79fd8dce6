#pragma once

#include <QListWidget>
#include <functional>
#include <string_view>

#include "core/session.h"
#include "window/popups/second_press.h"

namespace marvolin {

/// Hides `popup` when `event` is a press outside it, and returns whether it was. The toolkit's list ignores such a
/// press and would stay open.
bool HideOnPressBeside(QWidget& popup, const QEvent& event);

/// Whether the key takes the current entry of an open list: Return, Enter or Space.
bool IsChoosingKey(const QKeyEvent& key);

/// A list that opens at a control and closes when the player presses elsewhere.
class PopupList : public QListWidget {
public:
    /// `name` chooses the row of the table of controls.
    PopupList(Session& session, QWidget* parent, std::string_view name);
    /// Opens with `rows` below `at` (a rectangle on the screen), or above it when there is no room below. Rows are cut
    /// at `mostWidth` pixels.
    void Open(const QStringList& rows, const QRect& at, int mostWidth = 420);

    std::function<void(int row)> OnChoose;  ///< a row, from 0, was clicked or chosen by key
    std::function<void()> OnHide;           ///< the list was hidden

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool pressed_ = false;  // a row of the list was pressed
    SecondPress second_{*this};
};

}  // namespace marvolin
