#pragma once

#include <vector>

#include "audio/waveform.h"
#include "window/controls/control.h"

namespace marvolin {

/// `SndDisp`: the waveform of a row's sample, the needle of the volume along the top, that of the fade's target along
/// the bottom, and the place that sounds.
class SoundDisplay : public Control {
public:
    SoundDisplay(Session& session, QWidget* parent, Row row);
    /// The sample is another one, or reads otherwise.
    void RefreshWaveform();
    /// Moves the line of the place that sounds; repaints no more than the line's old and new place.
    void RefreshPlace();

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Activate() override {}
    std::string_view Hint(QPointF) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    std::int16_t LevelAt(QPointF twips) const;
    QRectF Inner() const;
    int Columns() const;
    double PlaceX() const;
    /// A pale ground when the wave of a dark row stands on it.
    QColor Ground() const;
    void MakePeaks();
    void DrawWave(QPainter& p) const;
    void DrawNeedle(QPainter& p, double level, bool top) const;

    const Row row_;
    std::int16_t needle_ = -1;           // the needle in the hand; -1 none
    bool waveStale_ = true;              // columns are missing
    std::vector<WaveformColumn> peaks_;  // a picture of the sample, made as it is painted
    double shownX_ = -1;                 // where the line of the place stands on the screen; -1 nowhere
};

}  // namespace marvolin
