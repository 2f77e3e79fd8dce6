#pragma once

#include <functional>

#include "window/controls/control.h"

namespace marvolin {

/// What a gauge shows and what its gestures do. All values are whole numbers on its scale.
struct GaugeRules {
    int Low = 0;
    int High = 100;
    int FineStep = 1;                                             ///< of the wheel and the arrow keys
    std::function<int()> Value;                                   ///< gives the value to show
    std::function<QString()> Text;                                ///< gives the text to the right of the scale
    std::function<void(int)> Moving;                              ///< the player drags it to a value
    std::function<void(std::int16_t button, int value)> Release;  ///< the player released it at a value
    bool RightClick = false;                                      ///< a click with the right button does something
};

/// A horizontal gauge that is dragged, as `MapSize` and `RollOff`.
class Gauge : public Control {
public:
    Gauge(Session& session, QWidget* parent, std::string_view name, GaugeRules rules);

protected:
    void Gesture(Phase phase, std::int16_t button, QPointF twips) override;
    void Step(int units) override;
    bool TakesRightClick() const override { return rules_.RightClick; }
    void paintEvent(QPaintEvent* event) override;

private:
    int ValueAt(double x) const;
    double TrackEnd() const;

    const GaugeRules rules_;
};

}  // namespace marvolin
