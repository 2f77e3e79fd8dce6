#include "audio/limiter.h"

#include "audio/thinning.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr double kTwipsALimit = 20;  // of a drag that make one step

void ShowLimited(Session& s, double limit) {
    s.Limit = ToI2(ClampVar(limit, 1, kNoLimit));
    s.World.Screen.ShowLimit();
}

void ChooseLimit(Session& s, double y) {
    const float moved = static_cast<float>(y) - s.Drag.DragOrigin;
    ShowLimited(s, Int(s.Drag.DragStartValue - Int(moved) * (1 / kTwipsALimit)));
}

}  // namespace

void Limiter_Gesture(Session& s, Phase phase, double y) {
    switch (phase) {
        case Phase::Down:
            s.Drag.Dragging = True;
            s.Drag.DragStartValue = s.Limit;
            s.Drag.DragOrigin = static_cast<float>(y);
            return;
        case Phase::Move:
            if (s.Drag.Dragging != False) ChooseLimit(s, y);
            return;
        case Phase::Up:
            if (s.Drag.Dragging == False) return;
            s.Drag.Dragging = False;
            ThinTo(s);
            return;
    }
}

void Limiter_Step(Session& s, int units) {
    if (s.Drag.Dragging != False) return;
    ShowLimited(s, static_cast<double>(s.Limit) + units);
    ThinTo(s);
}

void SetLimit(Session& s, std::int16_t limit) {
    ShowLimited(s, limit);
    ThinTo(s);
}

}  // namespace marvolin
