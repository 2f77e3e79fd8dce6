#include "window/controls/fade_factor.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "parameters/fades.h"

namespace marvolin {

namespace {

constexpr double kLow = kFadeFactorLow;
constexpr double kHigh = kFadeFactorHigh;
constexpr double kMargin = 9;  // pixels from the control's edge to the end of the scale
constexpr int kGaugeStep = 20;

void SetGauge(Session& s, double value) {
    FadeFactor_Change(s, static_cast<std::int16_t>(std::lround(std::clamp(value, kLow, kHigh))));
}

}  // namespace

FadeFactorControl::FadeFactorControl(Session& session, QWidget* parent) : Control(session, parent, "FadeFactor") {}

void FadeFactorControl::Gesture(Phase, std::int16_t button, QPointF twips) {
    if ((button & kLeftButton) == 0) return;
    const double share = (twips.x() / kTwipsPerPixel - kMargin) / (width() - 2 * kMargin);
    SetGauge(s, kLow + share * (kHigh - kLow));
}

void FadeFactorControl::Step(int units) { SetGauge(s, FadeFactorGauge(s) + units * kGaugeStep); }

void FadeFactorControl::TurnByKey(int units, bool fine) {
    SetGauge(s, FadeFactorGauge(s) + units * (fine ? 1 : kGaugeStep));
}

void FadeFactorControl::TurnTo(double value) { SetGauge(s, value); }

void FadeFactorControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const double y = height() / 2.0;
    const double share = (FadeFactorGauge(s) - kLow) / (kHigh - kLow);
    const double x = kMargin + share * (width() - 2 * kMargin);
    p.setPen(QPen(theme::kFrame, 1));
    p.setBrush(theme::kSunk);
    p.drawRoundedRect(QRectF(kMargin - 3, y - 3, width() - 2 * kMargin + 6, 6), 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kAccent);
    p.drawRoundedRect(QRectF(kMargin - 3, y - 3, x - kMargin + 3, 6), 3, 3);
    p.setBrush(theme::kText);
    p.setPen(QPen(theme::kWindow, 1));
    p.drawEllipse(QPointF(x, y), 7, 7);
    if (hasFocus()) theme::DrawRoundFocus(p, QPointF(x, y), 8);
}

}  // namespace marvolin
