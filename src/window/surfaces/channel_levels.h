#pragma once

#include <QWidget>

#include "core/session.h"

namespace marvolin {

/// What the mix pad has set for the four channels, as bars and numbers. Only shows.
class ChannelLevels : public QWidget {
public:
    ChannelLevels(Session& session, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
};

/// `TwistIndicator` with `TwistBall` and the pictures at its ends. Only shows.
class TwistLine : public QWidget {
public:
    TwistLine(Session& session, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Session& s;
};

}  // namespace marvolin
