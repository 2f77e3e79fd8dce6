#include "window/controls/knob.h"

#include <QPaintEvent>
#include <QPainter>
#include <array>
#include <cmath>

namespace marvolin {

namespace {

constexpr std::array<const char*, 3> kKnobNames{"VolKnob", "PanKnob", "HzKnob"};  // by `Knob`

constexpr double kSweep = 270;      // degrees from the first picture to the last
constexpr double kRingStart = 225;  // degrees of the first picture, counter-clockwise from three o'clock
constexpr double kLastFrame = 63;
constexpr double kRadius = 17;

void DrawArc(QPainter& p, const QRectF& ring, double fromDegrees, double spanDegrees, const QColor& colour,
             double width) {
    p.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
    p.setBrush(Qt::NoBrush);
    p.drawArc(ring, static_cast<int>(std::lround(fromDegrees * 16)), static_cast<int>(std::lround(spanDegrees * 16)));
}

}  // namespace

KnobControl::KnobControl(Session& session, QWidget* parent, Knob knob, Row row)
    : Control(session, parent, kKnobNames[static_cast<std::size_t>(knob)], row), knob_(knob) {
    if (row != kMasterRow) TakeDropsFor(row);
}

void KnobControl::Refresh() {
    if (KnobFrameOf(s, knob_, index) != shown_) update(Dial());
}

QPointF KnobControl::Centre() const {
    const bool labelled = index != kMasterRow;
    return {width() / 2.0, labelled ? kRadius + 2 : height() / 2.0};
}

QRect KnobControl::Dial() const {
    const QPointF reach(kRadius + 1.5, kRadius + 1.5);
    return QRectF(Centre() - reach, Centre() + reach).toAlignedRect();
}

void KnobControl::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) update();
    Control::changeEvent(event);
}

void KnobControl::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    // A pointer that passes does not turn what something else holds.
    if (phase == Phase::Move && !Held() && s.Drag.Dragging != False) return;
    KnobGesture(s, knob_, index, phase, button, twips.x(), twips.y());
}

void KnobControl::PointerLost(std::int16_t, QPointF) { KnobPointerLost(s, knob_, index); }

void KnobControl::DoubleClick(std::int16_t, QPointF) { Knob_DblClick(s, knob_, index); }

void KnobControl::Step(int units) {
    if (KnobStep(s, knob_, index, units)) described.ShowHint(0, false);
}

void KnobControl::DrawDial(QPainter& p) const {
    const double turn = kSweep * shown_ / kLastFrame;
    const QPointF centre = Centre();
    const QRectF ring(centre.x() - kRadius + 1.5, centre.y() - kRadius + 1.5, 2 * kRadius - 3, 2 * kRadius - 3);

    const QColor colour = index == kMasterRow ? theme::kText : theme::RowColour(index);
    DrawArc(p, ring, kRingStart, -kSweep, theme::kLine, 3.2);
    if (isEnabled()) {
        // A dark row colour gets a pale edge, so that its arc is seen on the dark ground.
        const QColor edge = index == kMasterRow ? colour : theme::RowEdge(index);
        const double base = knob_ == Knob::Pan ? kRingStart - kSweep / 2 : kRingStart;
        const double span = knob_ == Knob::Pan ? -(turn - kSweep / 2) : -turn;
        if (edge != colour) DrawArc(p, ring, base, span, edge, 5.2);
        DrawArc(p, ring, base, span, colour, 3.2);
    }
    QRadialGradient face(centre - QPointF(2, 4), kRadius);
    face.setColorAt(0, isEnabled() ? QColor(0x4a, 0x50, 0x5a) : theme::kRaised);
    face.setColorAt(1, isEnabled() ? theme::kRaised : theme::kPanel);
    p.setBrush(face);
    p.setPen(QPen(isEnabled() ? theme::kFrame : theme::kLine, 1.5));
    p.drawEllipse(centre, kRadius - 4.5, kRadius - 4.5);
    if (hasFocus()) theme::DrawRoundFocus(p, centre, kRadius - 4.5);

    const double angle = (kRingStart - turn) * M_PI / 180;
    const QPointF way(std::cos(angle), -std::sin(angle));
    p.setPen(QPen(isEnabled() ? QColor(Qt::white) : theme::kQuiet, 2.2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(centre + way * 4.5, centre + way * (kRadius - 7));
}

// A turn repaints the dial alone, not the label below it.
void KnobControl::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    shown_ = KnobFrameOf(s, knob_, index);
    DrawDial(p);
    if (index == kMasterRow || Dial().contains(event->rect())) return;
    p.setFont(theme::Sans(10));
    p.setPen(theme::kQuiet);
    p.drawText(QRectF(0, height() - 14, width(), 14), Qt::AlignHCenter | Qt::AlignBottom, Caption());
}

}  // namespace marvolin
