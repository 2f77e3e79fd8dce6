#pragma once

#include <QWidget>

namespace marvolin {

/// `frmSplash`: the splash over the main window. It goes after three seconds, or with a click.
class FrmSplash : public QWidget {
public:
    FrmSplash();

protected:
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvolin
