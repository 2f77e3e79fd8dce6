#pragma once

#include <array>

#include "window/surfaces/ball.h"
#include "window/surfaces/surface.h"

namespace marvolin {

/// `PosBall`: 0..3 of a LoopTrack, 4 of the listener.
class PosBall : public Ball {
public:
    PosBall(Session& session, QWidget* parent, int ball);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintLoopTrack(QPainter& p) const;
    void PaintListener(QPainter& p) const;
};

/// `Map`: the field of the sound map with its rings.
class MapSurface : public BallSurface {
public:
    MapSurface(Session& session, QWidget* parent);
    PosBall& BallOf(int ball) const { return *balls_[static_cast<std::size_t>(ball)]; }

protected:
    void PaintField(QPainter& p) const override;
    QString FieldMark() const override;

private:
    std::array<PosBall*, 5> balls_{};  // owned by the toolkit
};

}  // namespace marvolin
