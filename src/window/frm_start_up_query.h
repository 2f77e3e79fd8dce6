#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// `frmStartUpQuery`: whether the demo is to play at the next start too.
class FrmStartUpQuery : public QWidget {
public:
    explicit FrmStartUpQuery(Session& session);

protected:
    void showEvent(QShowEvent* event) override;

private:
    Session& s;
};

}  // namespace marvolin
