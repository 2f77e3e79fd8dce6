#pragma once

#include <QWidget>

namespace marvolin {

/// The splash that greets over the main window.
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
