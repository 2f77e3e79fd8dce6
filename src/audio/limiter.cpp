#include "audio/limiter.h"

#include "audio/thinning.h"
#include "core/routines.h"

namespace marvolin {

namespace {

void ChooseLimit(Session& s, double y) {
    const float moved = static_cast<float>(y) - s.Drag.DragOrigin;
    const double chosen = Int(s.Drag.DragStartValue - Int(moved) * (1 / kTwipsALimit));
    s.Limit = ToI2(ClampVar(chosen, 1, kNoLimit));
    s.World.Screen.ShowLimit();
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

}  // namespace marvolin
