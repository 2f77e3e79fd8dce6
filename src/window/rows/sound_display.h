#pragma once

#include <QPixmap>
#include <vector>

#include "audio/waveform.h"
#include "performance/sound_display.h"
#include "window/controls/control.h"

namespace marvolin {

/// `SndDisp`: the waveform of a row's sample, the needle of the volume along the top, the needle of the fade's target
/// along the bottom, and a line at the place that plays.
class SoundDisplay : public Control {
public:
    SoundDisplay(Session& session, QWidget* parent, Row row);
    /// The sample, or its content, has changed.
    void RefreshWaveform();
    /// Moves the line at the place that plays; repaints only its old and its new place.
    void RefreshPlace();

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    /// Fades to the lower needle.
    void Activate() override { SndDisp_Change(s, index, kTargetNeedle, s.SndDisp[index].Line); }
    void DoubleActivate() override { Activate(); }
    bool TakesRightClick() const override { return true; }
    void TurnTo(double value) override { SndDisp_Change(s, index, kLevelNeedle, static_cast<std::int16_t>(value)); }
    /// Left and right move the volume, up and down the lower needle, with Page Up and Page Down in long steps; Escape
    /// puts the lower needle back to the volume.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void MoveLevel(int units);
    void MoveTarget(int units);
    std::int16_t LevelAt(QPointF twips) const;
    QRectF Inner() const;
    int Columns() const;
    double PlaceX() const;
    /// Pale under the wave of a dark row.
    QColor Ground() const;
    void MakePeaks();
    void DrawWave(QPainter& p) const;
    void DrawGround(QPainter& p) const;
    /// The same within `due`, which it paints from a picture where it can.
    void DrawGroundWithin(QPainter& p, const QRect& due);
    void DrawNeedle(QPainter& p, double level, bool top) const;

    std::int16_t needle_ = -1;           // the needle that is dragged; -1 none
    bool waveStale_ = true;              // columns of the wave are missing
    std::vector<WaveformColumn> peaks_;  // the columns of the wave that are known
    QPixmap picture_;                    // ground and wave; null before it is needed
    double shownX_ = -1;                 // x of the line that is painted, or about to be; -1 none
};

}  // namespace marvolin
