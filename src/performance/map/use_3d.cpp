#include "performance/map/use_3d.h"

#include "audio/carrying.h"
#include "audio/device.h"
#include "parameters/position.h"
#include "performance/pad/pad_tables.h"

namespace marvolin {

bool GetUse3D(const Session& s) { return s.Use3D; }

void SetUse3D(Session& s, bool on) {
    if (on == s.Use3D) return;
    s.Use3D = on;
    UnInitDirectSound(s);
    InitDirectSound(s);
    // As every opening with 3D does.
    if (!s.DSReady) {
        s.RollOffValue = on ? 1.0F : 0.0F;
        RefreshRollOff(s);
    }
    ListenerRestore(s);
    MapEnable(s, on);
    for (int ball = 0; ball <= kListenerBall; ++ball) PositionRefresh(s, ball);
}

void ChangeUse3D(Session& s, bool on) {
    if (on == s.Use3D) return;
    const std::int16_t padType = s.PadTypeIndex;
    const std::int16_t twistIcon = s.PadTable[padType].TwistIcon;
    // Otherwise the box goes back to the state that stays.
    if (!CarryAcross(s, [&s, on] { SetUse3D(s, on); })) return MapEnable(s, s.Use3D);
    s.PadTypeIndex = padType;
    s.PadTable[padType].TwistIcon = twistIcon;
    PadTwistShow(s, padType);
}

void Enable3d_Click(Session& s, bool on) {
    if (!s.Enable3dHeld) ChangeUse3D(s, on);
}

void MapEnable(Session& s, bool on) {
    s.MapEnabled = on;
    s.Enable3dHeld = true;
    s.World.Screen.ShowMapControls();
    s.Enable3dHeld = false;
}

}  // namespace marvolin
