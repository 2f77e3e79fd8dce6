#include "window/controls/level_meter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace marvolin {

namespace {

constexpr int kLightHeight = 5;
constexpr int kBarTop = 7;
constexpr int kBarGap = 2;

struct Zone {
    double From;  // decibels below full scale
    QColor Colour;
};

/// From loud to soft; each reaches up to the one before.
std::array<Zone, 3> Zones() {
    return {{{-3, theme::kRed}, {-12, theme::kAccent}, {LevelHold::kLowest, theme::kGreen}}};
}

/// Where a level stands on the scale: wide near full scale, where it matters, as meters of studios are.
struct Mark {
    double Decibels;
    double Share;  // of the height
};
constexpr std::array<Mark, 5> kMeterScale{{{LevelHold::kLowest, 0}, {-40, 0.15}, {-30, 0.30}, {-20, 0.50}, {0, 1}}};

int BarPixels(double decibels, int height) {
    double share = 0;
    for (std::size_t i = 1; i < kMeterScale.size() && decibels > kMeterScale[i - 1].Decibels; ++i) {
        const Mark& from = kMeterScale[i - 1];
        const Mark& to = kMeterScale[i];
        const double part = std::min(1.0, (decibels - from.Decibels) / (to.Decibels - from.Decibels));
        share = from.Share + part * (to.Share - from.Share);
    }
    return static_cast<int>(std::lround(height * share));
}

QRect Inside(const QRect& frame) { return frame.adjusted(1, 1, -1, -1); }

/// A place for a light, with its edge, so that it is seen while it is dark.
void DrawSunk(QPainter& p, const QRect& frame) {
    p.fillRect(frame, theme::kFrame);
    p.fillRect(Inside(frame), theme::kSunk);
}

std::string Words(double decibels) {
    if (decibels <= LevelHold::kLowest) return "nothing";
    const auto whole = static_cast<int>(std::lround(decibels));
    return (whole < 0 ? "minus " + std::to_string(-whole) : std::to_string(whole)) + " dB";
}

}  // namespace

LevelMeter::LevelMeter(Session& session, QWidget* parent) : Control(session, parent, "LevelMeter") {
    timer_.setInterval(kRestPeriod);
    timer_.callOnTimeout(this, [this] { Look(static_cast<double>(since_.restart()) / 1000); });
    since_.start();
    if (s.World.Output != nullptr) timer_.start();
}

void LevelMeter::Follow() {
    if (s.World.Output != nullptr && !Looks()) timer_.start(kPeriod);
}

bool LevelMeter::Rests() const {
    for (Row row = 0; row < kLoopTracks; ++row)
        if (s.Run[row].Playing != False) return false;
    return Now() == Shown{};
}

void LevelMeter::Look(double seconds) {
    if (s.World.Output == nullptr) return;
    levels_.Add(s.World.Output->TakeLevels(), seconds);
    if (Now() != shown_) update();
    if (Rests() == Looks()) timer_.start(Looks() ? kRestPeriod : kPeriod);
}

LevelMeter::Shown LevelMeter::Now() const {
    const int height = this->height() - kBarTop - 2;  // without the frame
    return {{BarPixels(levels_.Shown(0), height), BarPixels(levels_.Shown(1), height)}, levels_.Light()};
}

std::string LevelMeter::OwnValue() const {
    return "left " + Words(levels_.Shown(0)) + ", right " + Words(levels_.Shown(1)) +
           (levels_.Light() ? ", cut off" : "");
}

void LevelMeter::paintEvent(QPaintEvent*) {
    QPainter p(this);
    shown_ = Now();
    const bool silent = s.World.Output != nullptr && s.World.Output->IsSilent();
    silent ? DrawSilence(p) : DrawBars(p);
}

void LevelMeter::DrawBars(QPainter& p) const {
    const QRect light(0, 0, width(), kLightHeight);
    DrawSunk(p, light);
    if (shown_.Light) p.fillRect(Inside(light), theme::kRed);
    const int bar = (width() - kBarGap) / 2;
    for (int channel = 0; channel < 2; ++channel) {
        const QRect frame(channel * (bar + kBarGap), kBarTop, bar, height() - kBarTop);
        DrawSunk(p, frame);
        const QRect place = Inside(frame);
        int end = place.height();
        for (const Zone& zone : Zones()) {
            const int from = BarPixels(zone.From, place.height());
            const int to = std::min(end, shown_.Height[static_cast<std::size_t>(channel)]);
            const QRect lit(place.left(), place.bottom() + 1 - to, place.width(), to - from);
            if (to > from) p.fillRect(lit, zone.Colour);
            end = from;
        }
    }
}

void LevelMeter::DrawSilence(QPainter& p) const {
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), theme::kSunk);
    const QPointF middle = QRectF(rect()).center();
    const double x = middle.x();
    const double y = middle.y();
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kText);
    p.drawPolygon(QPolygonF(
        {{x - 9, y - 3.5}, {x - 4, y - 3.5}, {x + 3, y - 9}, {x + 3, y + 9}, {x - 4, y + 3.5}, {x - 9, y + 3.5}}));
    p.setPen(QPen(theme::kRed, 3, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(x - 11, y + 11), QPointF(x + 11, y - 11));
}

}  // namespace marvolin
