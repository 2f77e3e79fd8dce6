#pragma once

#include <functional>

#include "window/controls/control.h"

namespace marvolin {

/// What a gauge shows and where its gestures go. All values are whole numbers on its scale.
struct GaugeRules {
    int Low = 0;
    int High = 100;
    int FineStep = 1;                                             ///< of the wheel and the arrow keys
    std::function<int()> Value;                                   ///< where it stands
    std::function<QString()> Text;                                ///< what stands behind it
    std::function<void(int)> Moving;                              ///< the hand moves it
    std::function<void(std::int16_t button, int value)> Release;  ///< the hand lets it go
    std::function<void()> Hover;                                  ///< the pointer passes over it
};

/// A horizontal gauge that is dragged, as `MapSize` and `RollOff`.
class Gauge : public Control {
public:
    Gauge(Session& session, QWidget* parent, const char* name, int index, const QString& label, GaugeRules rules);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    void Activate() override {}
    void paintEvent(QPaintEvent* event) override;

private:
    int ValueAt(double x) const;
    double TrackEnd() const;

    const GaugeRules rules_;
};

}  // namespace marvolin
