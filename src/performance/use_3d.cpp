#include "performance/use_3d.h"

#include <filesystem>
#include <system_error>

#include "audio/device.h"
#include "core/routines.h"
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
    clsSwitchRecord switches;
    switches.SetSwitch(true);
    const std::string file = TempFileName(s);
    if (!file.empty()) s.World.Store.SaveSession(s, file, false, switches);
    SetUse3D(s, on);
    if (!file.empty()) {
        // The file holds the state that is being left; taken back, it would undo the change.
        switches.Put(Element::ThreeD, false);
        s.World.Store.LoadSession(s, file, false, switches, false);
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
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
