#include "window/rows/sound_display.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "core/errors.h"
#include "core/routines.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr double kScale = kVolFull;
constexpr double kEnds = 7;  // pixels between the control's edge and the ends of the needles' scale
constexpr std::int64_t kBytesAPainting = 8 << 20;  // takes a few milliseconds
constexpr double kNeedle = 6;                      // half the width of a needle's head

}  // namespace

SoundDisplay::SoundDisplay(Session& session, QWidget* parent, Row row) : Control(session, parent, "SndDisp", row) {
    TakeDropsFor(row);
}

// The upper half takes the needle of the level, the lower half that of the target.
void SoundDisplay::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    switch (phase) {
        case Phase::Down:
            SndDisp_MouseDown(s, index, button);
            if (button != kLeftButton) return;
            needle_ = twips.y() < height() * kTwipsPerPixel / 2 ? kLevelNeedle : kTargetNeedle;
            return SndDisp_Moving(s, index, needle_, LevelAt(twips));
        case Phase::Move:
            return SndDisp_Moving(s, index, needle_, LevelAt(twips));
        case Phase::Up:
            SndDisp_Change(s, index, needle_, LevelAt(twips));
            needle_ = kNoNeedle;
            return;
    }
}

void SoundDisplay::MoveLevel(int units) {
    SndDisp_Change(s, index, kLevelNeedle, static_cast<std::int16_t>(s.Set[index].Vol + units));
    ShowReadout(s, described.Value());
}

void SoundDisplay::MoveTarget(int units) {
    const int target = std::clamp<int>(s.SndDisp[index].Line + units, 0, kVolFull);
    SndDisp_Moving(s, index, kTargetNeedle, static_cast<std::int16_t>(target));
    ShowReadout(s, "Fade to " + Vol2Text(static_cast<std::int16_t>(target)));
}

void SoundDisplay::keyPressEvent(QKeyEvent* event) {
    const int unit = event->modifiers().testFlag(Qt::ShiftModifier) ? 1 : 10;
    switch (event->key()) {
        case Qt::Key_Left:
            return MoveLevel(-unit);
        case Qt::Key_Right:
            return MoveLevel(unit);
        case Qt::Key_Down:
            return MoveTarget(-unit);
        case Qt::Key_Up:
            return MoveTarget(unit);
        case Qt::Key_PageDown:
            return MoveTarget(-10 * unit);
        case Qt::Key_PageUp:
            return MoveTarget(10 * unit);
        case Qt::Key_Escape:
            if (s.SndDisp[index].Line == s.SndDisp[index].Level || s.Run[index].FadeState != kNoFade) {
                return event->ignore();
            }
            return SndDisp_Moving(s, index, kTargetNeedle, s.SndDisp[index].Level);
        default:
            Control::keyPressEvent(event);
    }
}

std::int16_t SoundDisplay::LevelAt(QPointF twips) const {
    const QRectF inner = Inner();
    const double share = (twips.x() / kTwipsPerPixel - inner.left()) / inner.width();
    return static_cast<std::int16_t>(std::lround(std::clamp(share, 0.0, 1.0) * kScale));
}

int SoundDisplay::Columns() const { return static_cast<int>(Inner().width()); }

QRectF SoundDisplay::Inner() const { return QRectF(rect()).adjusted(kEnds, 2, -kEnds, -2); }

void SoundDisplay::RefreshWaveform() {
    peaks_.clear();
    picture_ = {};
    waveStale_ = true;
    update();
}

void SoundDisplay::resizeEvent(QResizeEvent*) {
    RefreshWaveform();
    RefreshPlace();
}

double SoundDisplay::PlaceX() const {
    if (index >= kLoopTracks) return -1;
    const LoopTrackRun& run = s.Run[index];
    const std::int32_t bytes = s.Set[index].BufferBytes;
    if (run.Playing == False || !run.Buffer || bytes <= 0) return -1;
    try {
        const double share = run.Buffer->GetCurrentPosition() / static_cast<double>(bytes);
        return Inner().left() + share * Inner().width();
    } catch (const SoundError&) {
        return -1;  // not worth a message: only a line is missing
    }
}

void SoundDisplay::RefreshPlace() {
    const double x = PlaceX();
    if (std::abs(x - shownX_) < 0.5 / devicePixelRatioF()) return;
    for (const double at : {shownX_, x}) {
        if (at >= 0) update(QRect(static_cast<int>(at) - 2, 0, 5, height()));
    }
    shownX_ = x;
}

QColor SoundDisplay::Ground() const { return peaks_.empty() ? theme::kSunk : theme::WaveGround(index); }

// Reads a long sample in several paintings, so that the step clock is not held up. The wave grows from the left, and
// this asks for the next painting.
void SoundDisplay::MakePeaks() {
    if (!waveStale_) return;
    const int columns = Columns();
    const auto more = LoopWaveform(s, index, columns, static_cast<int>(peaks_.size()), kBytesAPainting);
    peaks_.insert(peaks_.end(), more.begin(), more.end());
    picture_ = {};
    waveStale_ = !more.empty() && static_cast<int>(peaks_.size()) < columns;
    if (waveStale_) QTimer::singleShot(0, this, qOverload<>(&QWidget::update));
}

void SoundDisplay::DrawWave(QPainter& p) const {
    const QRectF inner = Inner();
    const double middle = inner.center().y();
    const double half = inner.height() / 2 - 3;
    if (peaks_.empty()) {
        if (index < kLoopTracks && s.Run[index].Loaded == False) {
            p.setFont(theme::Sans(12));
            p.setPen(theme::kQuiet);
            p.drawText(inner, Qt::AlignCenter, "Drop a sample here, from the browser or from a folder");
            return;
        }
        p.setPen(QPen(theme::kLine, 1));
        p.drawLine(QPointF(inner.left(), middle), QPointF(inner.right(), middle));
        return;
    }
    QPolygonF outline;
    double x = inner.left();
    for (const WaveformColumn& peak : peaks_) outline << QPointF(x++, middle - std::max(0.5, peak.High * half));
    for (auto peak = peaks_.rbegin(); peak != peaks_.rend(); ++peak) {
        outline << QPointF(--x, middle - std::min(-0.5, peak->Low * half));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(theme::RowColour(index));
    p.drawPolygon(outline);
}

void SoundDisplay::DrawNeedle(QPainter& p, double level, bool top) const {
    const QRectF inner = Inner();
    const bool pale = theme::Luminance(Ground()) > 0.3;
    const double x = inner.left() + level / kScale * inner.width();
    const double edge = top ? 1 : height() - 1;
    const double tip = top ? edge + 8 : edge - 8;
    const QColor ink = top ? (pale ? QColor(0x1d, 0x1f, 0x23) : QColor(Qt::white))
                           : (pale ? QColor(0x8a, 0x4b, 0x00) : theme::kAccent);
    p.setPen(QPen(ink, 1));
    p.drawLine(QPointF(x, tip), QPointF(x, height() / 2.0));
    p.setPen(QPen(pale ? QColor(Qt::white) : QColor(0x14, 0x16, 0x19), 1));
    p.setBrush(ink);
    p.drawPolygon(QPolygonF({{x - kNeedle, edge}, {x + kNeedle, edge}, {x, tip + (top ? 1 : -1)}}));
}

void SoundDisplay::DrawGround(QPainter& p) const {
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(theme::kFrame, 1));
    p.setBrush(Ground());
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
    DrawWave(p);
}

// The line at the place that plays moves thirty times a second, over a wave that stays. The picture stands in between
// the round corners only, where it covers what is below, and only where a pixel of it is a pixel of the screen.
void SoundDisplay::DrawGroundWithin(QPainter& p, const QRect& due) {
    const double ratio = devicePixelRatioF();
    const bool between = due.left() >= kEnds && due.right() < width() - kEnds;
    if (!between || ratio != std::floor(ratio)) return DrawGround(p);
    if (picture_.isNull() || picture_.devicePixelRatioF() != ratio) {
        picture_ = QPixmap(size() * ratio);
        picture_.setDevicePixelRatio(ratio);
        picture_.fill(Qt::transparent);
        QPainter painter(&picture_);
        DrawGround(painter);
    }
    p.drawPixmap(due.topLeft(), picture_, QRectF(QPointF(due.topLeft()) * ratio, QSizeF(due.size()) * ratio).toRect());
}

void SoundDisplay::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    MakePeaks();
    for (const QRect& due : event->region()) {
        p.setClipRect(due);
        DrawGroundWithin(p, due);
    }
    p.setClipping(false);
    p.setRenderHint(QPainter::Antialiasing);
    const SoundDisplayState& state = s.SndDisp[index];
    DrawNeedle(p, state.Line, false);
    DrawNeedle(p, state.Level, true);
    if (shownX_ >= 0) {
        p.setPen(QPen(theme::InkOn(Ground()), 1.6));
        p.drawLine(QPointF(shownX_, 2), QPointF(shownX_, height() - 2));
    }
    if (hasFocus()) theme::DrawFocus(p, rect(), 5);
}

}  // namespace marvolin
