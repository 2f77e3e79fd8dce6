#include "performance/map/use_3d.h"

#include <array>

#include "audio/device.h"
#include "core/loops/loop_views.h"
#include "core/session_keeping.h"
#include "parameters/position.h"
#include "parameters/setters.h"
#include "performance/pad/pad_tables.h"

namespace marvolin {

namespace {

/// What the change resets and a file saved under the other 3D setting does not restore.
struct Placing {
    std::int16_t Pan = kPanCentre;
    PatternBlock PanPattern;
    float X = 0;
    float Y = 0;
};
using Placings = std::array<Placing, kLoopTracks>;

Placings PlacingsOf(const Session& s) {
    Placings placings;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackSet& set = s.Set[row];
        placings[static_cast<std::size_t>(row)] = {set.Pan, set.Pattern[kPanPattern], set.PositionX, set.PositionY};
    }
    return placings;
}

void RestorePlacings(Session& s, const Placings& placings) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        // "Empty Blank Loops on Open" is on: an empty row stays blank.
        if (s.Run[row].Loaded == False && s.EmptyBlankSetting == 1) continue;
        Placing was = placings[static_cast<std::size_t>(row)];
        LoopPanChange(s, row, was.Pan, TakeHold::Yes);
        s.Set[row].Pattern[kPanPattern] = was.PanPattern;
        TryPositionSet(s, row, was.X, was.Y, {.Apply = true, .StoreBall = true});
    }
    PatternsRefresh(s);
}

}  // namespace

bool GetUse3D(const Session& s) { return s.Use3D; }

void SetUse3D(Session& s, bool on) {
    if (on == s.Use3D) return;
    s.Use3D = on;
    UnInitDirectSound(s);
    InitDirectSound(s);
    ListenerRestore(s);
    MapEnable(s, on);
    for (int ball = 0; ball <= kListenerBall; ++ball) PositionRefresh(s, ball);
}

void Enable3d_Click(Session& s, bool on) {
    if (s.Enable3dHeld) return;
    const std::int16_t padType = s.PadTypeIndex;
    const std::int16_t twistIcon = s.PadTable[padType].TwistIcon;
    // The file holds the old 3D setting; loading it would undo the change.
    clsSwitchRecord taken;
    taken.SetSwitch(true);
    taken.Put(Element::ThreeD, false);
    const Placings before = PlacingsOf(s);
    if (KeepSessionAcross(s, taken, [&s, on] { SetUse3D(s, on); })) RestorePlacings(s, before);
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
