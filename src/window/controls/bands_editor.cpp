#include "window/controls/bands_editor.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "core/routines.h"
#include "core/undo/undo_step.h"

namespace marvolin {

BandsEditor::BandsEditor(Session& session, QWidget* parent) : Control(session, parent, "Bands") {}

Row BandsEditor::LaneAt(QPointF twips) const {
    const double lane = std::floor(twips.y() / kTwipsPerPixel / (height() / static_cast<double>(kBands)));
    return static_cast<Row>(std::clamp(lane, 0.0, kBands - 1.0));
}

void BandsEditor::Gesture(Phase phase, std::int16_t button, QPointF twips) {
    if (phase == Phase::Down && button == kLeftButton) lane_ = LaneAt(twips);
    if (phase != Phase::Move && button != kLeftButton) return;
    if (phase == Phase::Move && !Held()) return;
    const double column = std::floor(twips.x() / kTwipsPerPixel / (width() / static_cast<double>(kLoopTracks)));
    Bands_Gesture(s, lane_, static_cast<int>(std::clamp(column, -1.0, static_cast<double>(kLoopTracks))), phase);
}

void BandsEditor::PointerLost(std::int16_t, QPointF) { Bands_PointerLost(s); }

void BandsEditor::DoubleClick(std::int16_t button, QPointF twips) {
    if (button == kLeftButton) Bands_DblClick(s, LaneAt(twips));
}

void BandsEditor::Activate() {
    Bands_Gesture(s, keyLane_, keyColumn_, Phase::Down);
    Bands_Gesture(s, keyLane_, keyColumn_, Phase::Up);
}

std::string BandsEditor::CursorWords() const {
    return "Band " + std::to_string(keyLane_) + ", " + RowLetter(keyColumn_);
}

void BandsEditor::GoTo(int lane, int column, bool draws) {
    keyLane_ = static_cast<Row>(std::clamp(lane, 0, kBands - 1));
    keyColumn_ = static_cast<Row>(std::clamp(column, 0, kLoopTracks - 1));
    if (draws) {
        const UndoStep step(s, "Change of the bands", UndoScope::Selection, UndoKind::Run);
        SetBand(s, keyLane_, {std::min(keyFrom_, keyColumn_), std::max(keyFrom_, keyColumn_)});
    } else {
        keyFrom_ = keyColumn_;
    }
    ShowReadout(s, CursorWords());
    update();
}

void BandsEditor::keyPressEvent(QKeyEvent* event) {
    const bool draws = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_Left:
            return GoTo(keyLane_, keyColumn_ - 1, draws);
        case Qt::Key_Right:
            return GoTo(keyLane_, keyColumn_ + 1, draws);
        case Qt::Key_Up:
            return GoTo(keyLane_ - 1, keyColumn_, false);
        case Qt::Key_Down:
            return GoTo(keyLane_ + 1, keyColumn_, false);
        case Qt::Key_Delete:
            return Bands_DblClick(s, keyLane_);
        default:
            Control::keyPressEvent(event);
    }
}

// A lane is thin: the place of the keys is a frame in white on black, which stands out on every band.
void BandsEditor::DrawCursor(QPainter& p) const {
    theme::DrawFocus(p, rect(), 4);
    const double column = width() / static_cast<double>(kLoopTracks);
    const double lane = height() / static_cast<double>(kBands);
    const QRectF cell(keyColumn_ * column + 1, keyLane_ * lane - 0.5, column - 2, lane + 1);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Qt::black, 3));
    p.drawRect(cell);
    p.setPen(QPen(Qt::white, 1.2));
    p.drawRect(cell);
}

void BandsEditor::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(theme::kFrame, 1));
    p.setBrush(theme::kSunk);
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    const double column = width() / static_cast<double>(kLoopTracks);
    const double lane = height() / static_cast<double>(kBands);
    p.setFont(theme::Sans(12, QFont::DemiBold));
    for (Row row = 0; row < kLoopTracks; ++row) {
        const double x = row * column;
        p.setPen(theme::kQuiet);
        p.drawText(QRectF(x, 0, column, height()), Qt::AlignCenter, QString(QChar(RowLetter(row))));
        p.setPen(QPen(theme::kLine, 1));
        if (row > 0) p.drawLine(QPointF(x, 2), QPointF(x, height() - 2));
    }
    for (Row band = 0; band < kBands; ++band) {
        const BandRun run = DrawnBand(s, band);
        if (run.Empty()) continue;
        const QColor colour = theme::RowColour(band);
        p.setPen(theme::RowEdge(band) == colour ? QPen(Qt::NoPen) : QPen(theme::RowEdge(band), 1));
        p.setBrush(colour);
        p.drawRoundedRect(
            QRectF(run.First * column + 2, band * lane + 0.8, (run.Last - run.First + 1) * column - 4, lane - 1.6), 1.5,
            1.5);
    }
    if (hasFocus()) DrawCursor(p);
}

}  // namespace marvolin
