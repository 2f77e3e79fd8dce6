#include "window/rows/play_button.h"

#include <QPainter>

#include "audio/play_gestures.h"

namespace marvolin {

PlayButton::PlayButton(Session& session, QWidget* parent, Row row) : Control(session, parent, "Play", row) {
    TakeDropsFor(row);
}

void PlayButton::Gesture(Phase phase, std::int16_t button, QPointF) {
    switch (phase) {
        case Phase::Down: {
            const bool paused = s.Run[index].Paused != False;
            Play_MouseDown(s, index, button);
            pauses_ = !paused && s.Run[index].Paused != False;
            return;
        }
        case Phase::Move:
            return;
        case Phase::Up:
            return Play_MouseUp(s, index, button);
    }
}

// The pause of a held button ends with the hold; anything else would be a click.
void PlayButton::PointerLost(std::int16_t button, QPointF) {
    if (pauses_) Play_MouseUp(s, index, button);
}

void PlayButton::Activate() { Gesture(Phase::Up, kLeftButton, {}); }

void PlayButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const bool playing = s.Run[index].Playing != False;
    const bool paused = s.Run[index].Paused != False;
    const bool ready = index == kSelectionRow || s.Run[index].Loaded != False;
    QColor ground = theme::kRaised;
    QColor line = theme::kFrame;
    QColor ink = ready ? theme::kText : theme::kOff;
    if (paused) {
        ground = theme::kAmberGround;
        line = ink = theme::kAccent;
    } else if (playing) {
        ground = theme::kGreenGround;
        line = ink = theme::kGreen;
    }
    theme::DrawFace(p, rect(), Face(), ground, line);
    const QPointF c = QRectF(rect()).center();
    p.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(ink);
    if (paused) {
        p.drawRoundedRect(QRectF(c.x() - 6.5, c.y() - 7, 4, 14), 1, 1);
        p.drawRoundedRect(QRectF(c.x() + 2.5, c.y() - 7, 4, 14), 1, 1);
    } else {
        if (!playing) p.setBrush(Qt::NoBrush);  // full while it plays, hollow while it stands still
        p.drawPolygon(QPolygonF({c + QPointF(-5, -7), c + QPointF(8, 0), c + QPointF(-5, 7)}));
    }
}

}  // namespace marvolin
