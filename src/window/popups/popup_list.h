#pragma once

#include <QListWidget>
#include <functional>

namespace marvolin {

/// Hides `popup` when `event` is a press beside it: a list passes those on to nobody, so it would stay open for good.
bool HideOnPressBeside(QWidget& popup, const QEvent& event);

/// A list that drops open at a control and goes away when the hand goes elsewhere.
class PopupList : public QListWidget {
public:
    PopupList(QWidget* parent, const char* name, const QString& label);
    /// Opens with `rows` below `at` (a rectangle on the screen), or above it where the screen ends.
    void Open(const QStringList& rows, const QRect& at);

    std::function<void(int row)> OnChoose;  ///< a row, from 0, was clicked, or chosen by key
    std::function<void()> OnHide;           ///< the list went away

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool pressed_ = false;  // a row of the list was pressed
};

}  // namespace marvolin
