#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// The page of the mix pad.
class TabMixPad : public QWidget {
public:
    TabMixPad(Session& session, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
};

}  // namespace marvolin
