#include "audio/loop_controls.h"

namespace marvolin {

void EnableLoopControls(Session& s, Row row, bool enabled) {
    s.PanKnobOn[row] = s.Use3D || enabled;
    s.World.Screen.ShowEnabled(row);
}

bool PanKnobEnabled(const Session& s, Row row) { return s.PanKnobOn[row]; }

}  // namespace marvolin
