#pragma once

#include <QPixmap>
#include <vector>

#include "audio/waveform.h"
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
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
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
    double shownX_ = -1;                 // x of the line that was painted last; -1 none
};

}  // namespace marvolin
