#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// The page of the sound map.
class TabMap : public QWidget {
public:
    TabMap(Session& session, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
};

}  // namespace marvolin
