#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// The levels that the mix pad gives the four channels, as bars and numbers. Takes no gesture.
class ChannelLevels : public QWidget {
public:
    ChannelLevels(Session& session, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
};

}  // namespace marvolin
