#include "window/controls/pattern_graph.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "sequencing/patterns.h"

namespace marvolin {

namespace {

constexpr std::array<int, kPatternRows> kCoarse{10, 50, 20};  // of an arrow key
constexpr double kPanFoot = kPanCentre;                       // bars of the pan pattern start from the centre

QRectF StepPlace(double width, double height, int step, int steps) {
    const double left = kRandomColumnShare * width;
    const double column = (width - left) / steps;
    return {left + step * column, 0, column, height};
}

}  // namespace

QColor PatternColour(int patternRow) {
    constexpr std::array<QRgb, kPatternRows> kColours{0xff7fd18b, 0xffffa95e, 0xff8fb6ff};
    return QColor(kColours[static_cast<std::size_t>(patternRow)]);
}

PatternGraphControl::PatternGraphControl(Session& session, QWidget* parent, int patternRow)
    : Control(session, parent, drags::kPatternGraph, patternRow) {
    setAttribute(Qt::WA_Hover, false);
    setAcceptDrops(true);
}

// A pixel counts by its upper edge, and the lowest one still has a height above the bottom. Its edge is taken for the
// bottom, so that a lane can be drawn down to nothing without leaving it.
void PatternGraphControl::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    const QPointF at(twips.x(), twips.y() * height() / (height() - 1));
    PatternGraph_Gesture(s, index,
                         {phase,
                          button,
                          {at.x(), at.y()},
                          {passed_.x(), passed_.y()},
                          {width() * kTwipsPerPixel, height() * kTwipsPerPixel}});
    passed_ = at;
    if (phase == Phase::Down && button == kRightButton) ArmDrag({drags::kPatternGraph, index, ""});
}

// Draws nothing more.
void PatternGraphControl::PointerLost(std::int16_t, QPointF twips) { Gesture(Phase::Move, kNoButton, twips); }

bool PatternGraphControl::TakesDrop(const DragSource& source) const { return source.Name == drags::kEraser; }

void PatternGraphControl::Drop(const DragSource& source) {
    if (source.Name == drags::kEraser) EraserDrop(s, index);
}

std::string PatternGraphControl::CursorWords() const {
    const int column = std::min(cursor_, Columns());
    return column == 0 ? "the random column" : "step " + std::to_string(column);
}

double PatternGraphControl::ValueOf(int column) const {
    const PatternBlock& block = s.Set[s.CurrentLoop].Pattern[index];
    return column == 0 ? block[kPatternOffset] : block[column - 1];
}

InnerPart PatternGraphControl::Inner(int part) const {
    const int column = ColumnOf(part);
    const PatternLimits& range = kPatternRange[static_cast<std::size_t>(index)];
    return {.Label = column == 0 ? "random" : "step " + std::to_string(column),
            .Role = QAccessible::Slider,
            .Scale = {ValueOf(column), static_cast<double>(range.Min), static_cast<double>(range.Max), 1},
            .Place = ColumnPlace(column)};
}

void PatternGraphControl::SetInner(int part, double value) {
    const int column = ColumnOf(part);
    PatternStep(s, index, column, static_cast<int>(std::lround(value - ValueOf(column))));
}

void PatternGraphControl::GoTo(int column) {
    cursor_ = std::clamp(column, 0, Columns());
    PatternShow(s, index, cursor_);
    update();
}

void PatternGraphControl::keyPressEvent(QKeyEvent* event) {
    const bool fine = event->modifiers().testFlag(Qt::ShiftModifier);
    const int unit = fine ? 1 : kCoarse[static_cast<std::size_t>(index)];
    cursor_ = std::min(cursor_, Columns());
    switch (event->key()) {
        case Qt::Key_Left:
            return GoTo(cursor_ - 1);
        case Qt::Key_Right:
            return GoTo(cursor_ + 1);
        case Qt::Key_Home:
            return GoTo(1);
        case Qt::Key_End:
            return GoTo(Columns());
        case Qt::Key_Up:
            return PatternStep(s, index, cursor_, unit);
        case Qt::Key_Down:
            return PatternStep(s, index, cursor_, -unit);
        case Qt::Key_PageUp:
            return PatternStep(s, index, cursor_, 10 * unit);
        case Qt::Key_PageDown:
            return PatternStep(s, index, cursor_, -10 * unit);
        case Qt::Key_Delete:
            return fine ? EraserDrop(s, index) : PatternStepReset(s, index, cursor_);
        default:
            Control::keyPressEvent(event);
    }
}

QRectF PatternGraphControl::ColumnPlace(int column) const {
    if (column == 0) return {0, 0, kRandomColumnShare * width(), static_cast<double>(height())};
    const int steps = std::max<int>(1, s.GraphColumns[static_cast<std::size_t>(index)]);
    return StepPlace(width(), height(), column - 1, steps);
}

void PatternGraphControl::RefreshColumn(int column) {
    update(ColumnPlace(column).toAlignedRect().adjusted(-1, 0, 1, 0));
}

double PatternGraphControl::HeightOf(double value) const {
    const PatternLimits& range = kPatternRange[static_cast<std::size_t>(index)];
    const double share = std::clamp((value - range.Min) / (range.Max - range.Min), 0.0, 1.0);
    return height() - 1 - share * (height() - 2);
}

void PatternGraphControl::DrawColumn(QPainter& p, int column) const {
    if (column > kPatternSteps) return;  // a file may lay out more columns than a pattern has steps
    const double value = ValueOf(column);
    const double foot =
        index == kPanPattern && column > 0 ? kPanFoot : kPatternRange[static_cast<std::size_t>(index)].Min;
    const QRectF place = ColumnPlace(column);
    const double gap = place.width() > 12 ? 1.5 : 0.75;
    const double top = HeightOf(value);
    const double base = HeightOf(foot);
    const QColor colour = PatternColour(index);
    QRectF bar(place.left() + gap, std::min(top, base), place.width() - 2 * gap, std::abs(base - top));
    p.setPen(Qt::NoPen);
    p.setBrush(column == 0 ? QBrush(colour, Qt::BDiagPattern) : QBrush(colour.darker(165)));
    p.drawRect(bar);
    p.setPen(QPen(colour, 2, Qt::SolidLine, Qt::FlatCap));
    const double line = std::clamp(top, 1.0, height() - 2.0);
    p.drawLine(QPointF(bar.left(), line), QPointF(bar.right(), line));
}

void PatternGraphControl::paintEvent(QPaintEvent* event) {
    QPainter p(this);
    const QRectF dirty = event->rect();
    p.fillRect(event->rect(), theme::kSunk);
    p.fillRect(ColumnPlace(0).intersected(dirty), theme::kRaised);
    const int steps = std::max<int>(1, s.GraphColumns[static_cast<std::size_t>(index)]);
    p.setPen(QPen(QColor(0x2a, 0x2e, 0x34), 1));
    for (int quarter = 1; quarter < 4; ++quarter) {
        const double y = height() * quarter / 4.0;
        p.drawLine(QPointF(0, y), QPointF(width(), y));
    }
    for (int step = 1; step <= steps; ++step) {
        const double x = ColumnPlace(step).left();
        p.setPen(QPen((step - 1) % 4 == 0 ? theme::kLine : QColor(0x24, 0x27, 0x2c), 1));
        p.drawLine(QPointF(x, 0), QPointF(x, height()));
    }
    p.setRenderHint(QPainter::Antialiasing);
    for (int column = 0; column <= steps; ++column) {
        if (ColumnPlace(column).intersects(dirty)) DrawColumn(p, column);
    }
    p.setPen(QPen(theme::kFrame, 1));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    if (hasFocus()) DrawCursor(p);
}

void PatternGraphControl::DrawCursor(QPainter& p) const {
    theme::DrawFocus(p, rect(), 1);
    const QRectF column = ColumnPlace(std::min(cursor_, Columns())).adjusted(0, 3, 0, -3);
    p.setPen(QPen(Qt::white, 1));
    p.setBrush(Qt::NoBrush);
    p.drawRect(column);
}

StepReadOutControl::StepReadOutControl(Session& session, QWidget* parent) : Control(session, parent, "StepReadOut") {
    setAttribute(Qt::WA_Hover, false);
}

QRectF StepReadOutControl::MarkerPlace() const {
    const int steps = std::max<int>(1, s.StepReadOutTop);
    // A step beyond the last one, as after a change of their number, wraps when it is over.
    const int step = std::min<int>(s.Run[s.CurrentLoop].Step, steps - 1);
    const QRectF place = StepPlace(width(), height(), step, steps);
    const double half = std::clamp(place.width() / 2 - 2, 3.0, 22.0);
    return {place.center().x() - half, 2, 2 * half, height() - 4.0};
}

void StepReadOutControl::Refresh() {
    const QRectF now = MarkerPlace();
    if (now == shown_) return;
    update(shown_.toAlignedRect());
    update(now.toAlignedRect());
}

void StepReadOutControl::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setFont(theme::Sans(10));
    p.setPen(theme::kQuiet);
    p.drawText(QRectF(0, 0, kRandomColumnShare * width(), height()), Qt::AlignCenter, "Rnd");  // of the lanes below
    p.setPen(QPen(theme::kFrame, 1));
    p.setBrush(theme::kSunk);
    p.drawRoundedRect(QRectF(kRandomColumnShare * width(), 0.5, (1 - kRandomColumnShare) * width(), height() - 1.0), 3,
                      3);
    shown_ = MarkerPlace();
    p.setPen(Qt::NoPen);
    p.setBrush(theme::kAccent);
    p.drawRoundedRect(shown_, 3, 3);
}

}  // namespace marvolin
