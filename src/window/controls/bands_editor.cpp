#include "window/controls/bands_editor.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "performance/selection/bands.h"

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

void BandsEditor::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(theme::kLine, 1));
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
        p.setPen(theme::Contrast(colour, theme::kSunk) < 3 ? QPen(QColor(0xb9, 0xc4, 0xe6), 1) : QPen(Qt::NoPen));
        p.setBrush(colour);
        p.drawRoundedRect(
            QRectF(run.First * column + 2, band * lane + 0.8, (run.Last - run.First + 1) * column - 4, lane - 1.6), 1.5,
            1.5);
    }
}

}  // namespace marvolin
