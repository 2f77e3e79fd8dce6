#include "window/controls/play_stop.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "audio/play_gestures.h"
#include "audio/recording.h"

namespace marvolin {

PlayStopControl::PlayStopControl(Session& session, QWidget* parent) : Control(session, parent, "PlayStop") {}

int PlayStopControl::PartAt(QPointF place) const { return static_cast<int>(PlayStopZoneAt(place.y(), height())); }

void PlayStopControl::Gesture(Phase phase, std::int16_t, QPointF twips) {
    if (phase != Phase::Up) return;
    const double whole = height() * kTwipsPerPixel;
    const bool stop = PlayStopZoneAt(twips.y(), whole) == PlayStopZone::Stop;
    shift_&& stop ? ToggleSilence(s) : PlayStop_MouseUp(s, twips.y(), whole);
}

void PlayStopControl::mousePressEvent(QMouseEvent* event) {
    shift_ = event->modifiers().testFlag(Qt::ShiftModifier);
    Control::mousePressEvent(event);
}

// The second press of a double click.
void PlayStopControl::mouseDoubleClickEvent(QMouseEvent* event) {
    shift_ = event->modifiers().testFlag(Qt::ShiftModifier);
    Control::mouseDoubleClickEvent(event);
}

void PlayStopControl::Activate() { PlayStop_Activate(s); }

void PlayStopControl::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool press = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!press || !event->modifiers().testFlag(Qt::ShiftModifier)) return Control::keyPressEvent(event);
    if (!event->isAutoRepeat()) ToggleSilence(s);
}

void PlayStopControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    theme::DrawFace(p, rect(), Face());
    const double x = width() / 2.0;
    const double part = height() / 8.0;
    p.setPen(QPen(theme::kGreen, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(theme::kGreen);
    p.drawPolygon(QPolygonF({{x - 6, part * 1.0}, {x + 7.5, part * 2.2}, {x - 6, part * 3.4}}));
    p.setPen(Qt::NoPen);
    if (s.World.Output != nullptr && s.World.Output->IsSilent()) {
        p.setBrush(theme::kRed);
        p.drawRoundedRect(QRectF(3, part * 4.2, width() - 6, part * 3.5), 4, 4);
        p.setBrush(theme::kText);
    } else {
        p.setBrush(theme::kRed);
    }
    p.drawRoundedRect(QRectF(x - 6, part * 4.9, 12, part * 2.2), 1.5, 1.5);
    p.setPen(QPen(theme::kLine, 1));
    p.drawLine(QPointF(6, height() / 2.0 + 0.5), QPointF(width() - 6, height() / 2.0 + 0.5));
}

}  // namespace marvolin
