#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// `frmStartUpQuery`: asks whether the demo is to play at the next start too. The Return key presses the button that
/// has the focus, at first "Yes".
class FrmStartUpQuery : public QWidget {
public:
    explicit FrmStartUpQuery(Session& session);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Session& s;
};

}  // namespace marvolin
