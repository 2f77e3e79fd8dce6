#include "window/controls/gauge.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace marvolin {

namespace {

constexpr double kScaleStart = 10;  // pixels from the left edge to the beginning of the scale
constexpr double kTextWidth = 74;

}  // namespace

Gauge::Gauge(Session& session, QWidget* parent, std::string_view name, GaugeRules rules)
    : Control(session, parent, name), rules_(std::move(rules)) {}

double Gauge::TrackEnd() const { return width() - kTextWidth - kScaleStart; }

int Gauge::ValueAt(double x) const {
    const double share = std::clamp((x - kScaleStart) / (TrackEnd() - kScaleStart), 0.0, 1.0);
    return static_cast<int>(std::lround(rules_.Low + share * (rules_.High - rules_.Low)));
}

void Gauge::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const int value = ValueAt(twips.x() / kTwipsPerPixel);
    const bool left = (button & kLeftButton) != 0;
    if (phase == Phase::Up) {
        rules_.Release(button, value);
    } else if (left) {
        rules_.Moving(value);
        update();
    }
}

void Gauge::Step(int units) {
    const int value = std::clamp(rules_.Value() + units * rules_.FineStep, rules_.Low, rules_.High);
    rules_.Moving(value);
    rules_.Release(kLeftButton, value);
}

void Gauge::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const double y = height() / 2.0;
    const double share =
        std::clamp(static_cast<double>(rules_.Value() - rules_.Low) / (rules_.High - rules_.Low), 0.0, 1.0);
    const double x = kScaleStart + share * (TrackEnd() - kScaleStart);
    p.setPen(QPen(theme::kFrame, 1));
    p.setBrush(theme::kSunk);
    p.drawRoundedRect(QRectF(kScaleStart - 3, y - 3, TrackEnd() - kScaleStart + 6, 6), 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(isEnabled() ? theme::kAccent : QColor(0x4a, 0x50, 0x5a));
    p.drawRoundedRect(QRectF(kScaleStart - 3, y - 3, x - kScaleStart + 3, 6), 3, 3);
    p.setBrush(isEnabled() ? theme::kText : QColor(0x6c, 0x74, 0x80));
    p.setPen(QPen(theme::kWindow, 1));
    p.drawEllipse(QPointF(x, y), 7, 7);
    if (hasFocus()) theme::DrawRoundFocus(p, QPointF(x, y), 8);
    p.setFont(theme::Digits(12));
    p.setPen(isEnabled() ? theme::kText : theme::kQuiet);
    p.drawText(QRectF(width() - kTextWidth, 0, kTextWidth, height()), Qt::AlignRight | Qt::AlignVCenter, rules_.Text());
}

}  // namespace marvolin
