#include "performance/use_3d.h"

#include "audio/device.h"
#include "core/session_keeping.h"
#include "parameters/position.h"
#include "performance/pad_tables.h"

namespace marvolin {

bool GetUse3D(const Session& s) { return s.Use3D; }

void SetUse3D(Session& s, bool on) {
    if (on == s.Use3D) return;
    s.Use3D = on;
    UnInitDirectSound(s);
    InitDirectSound(s);
    MapEnable(s, on);
    for (int ball = 0; ball <= kListenerBall; ++ball) PositionRefresh(s, ball);
}

void Enable3d_Click(Session& s, bool on) {
    if (s.Enable3dHeld) return;
    const std::int16_t padType = s.PadTypeIndex;
    const std::int16_t twistIcon = s.PadTable[padType].TwistIcon;
    // The file holds the state that is being left; taken back, it would undo the change.
    clsSwitchRecord taken;
    taken.SetSwitch(true);
    taken.Put(Element::ThreeD, false);
    KeepSessionAcross(s, taken, [&s, on] { SetUse3D(s, on); });
    s.PadTypeIndex = padType;
    s.PadTable[padType].TwistIcon = twistIcon;
    PadTwistShow(s, padType);
}

void MapEnable(Session& s, bool on) {
    s.MapEnabled = on;
    s.Enable3dHeld = true;
    s.World.Screen.ShowMapControls();
    s.Enable3dHeld = false;
}

}  // namespace marvolin
