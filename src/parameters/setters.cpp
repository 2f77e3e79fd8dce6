#include "parameters/setters.h"

#include <algorithm>

#include "core/loops/grouping.h"
#include "core/routines.h"
#include "parameters/mapping.h"

namespace marvolin {

void LoopVolChange(Session& s, Row row, std::int16_t& vol, TakeHold takeHold, UpdateDisplay updateDisplay) {
    ClampI2(vol, 0, kVolFull);
    s.Set[row].Vol = vol;
    s.World.Screen.ShowKnob(row, Knob::Vol);
    if (row != kMasterRow) {
        s.SndDisp[row].Level = vol;
        if (updateDisplay == UpdateDisplay::Yes) s.SndDisp[row].Line = vol;
        s.World.Screen.ShowSoundDisplay(row);
    }
    if (takeHold == TakeHold::No) return;
    if (row == kMasterRow) {
        MapVolAll(s);
    } else {
        MapVol(s, row);
    }
}

void LoopPanChange(Session& s, Row row, std::int16_t& pan, TakeHold takeHold) {
    ClampI2(pan, 0, kPanRight);
    s.Set[row].Pan = pan;
    s.World.Screen.ShowKnob(row, Knob::Pan);
    if (takeHold == TakeHold::Yes) MapPan(s, row);
}

void LoopHzChange(Session& s, Row row, std::int16_t& hz, TakeHold takeHold) {
    ClampI2(hz, 1, kHzTop);
    s.Set[row].Hz = hz;
    s.World.Screen.ShowKnob(row, Knob::Hz);
    if (takeHold == TakeHold::Yes) MapHZ(s, row);
}

void LoopVolChangeGang(Session& s, Row row, std::int16_t vol, UpdateDisplay updateDisplay) {
    ForGang(s, row, [&](Row member) { LoopVolChange(s, member, vol, TakeHold::Yes, updateDisplay); });
}

void LoopPanChangeGang(Session& s, Row row, std::int16_t pan) {
    if (s.Use3D) return;
    ForGang(s, row, [&](Row member) { LoopPanChange(s, member, pan, TakeHold::Yes); });
}

void LoopHzChangeGang(Session& s, Row row, std::int16_t hz) {
    ForGang(s, row, [&](Row member) { LoopHzChange(s, member, hz, TakeHold::Yes); });
}

int KnobFrame(double value, double top, double bottom) {
    constexpr int kFrames = 64;
    return static_cast<int>(ClampVar(Int(value / ((top - bottom) / kFrames)), 1, kFrames)) - 1;
}

std::string Vol2Text(std::int16_t vol) { return "Vol: " + std::to_string(vol); }

std::string Pan2Text(std::int16_t pan) {
    if (pan == kPanRight) return "Pan: Full Right (+500)";
    if (pan == 0) return "Pan: Full Left (-500)";
    if (pan == kPanCentre) return "Pan: Centre (0)";
    if (pan < kPanCentre) return "Pan: Left (-" + std::to_string(kPanCentre - pan) + ")";
    return "Pan: Right (+" + std::to_string(pan - kPanCentre) + ")";
}

std::string Hz2Text(std::int16_t hz) { return "Freq: " + NumberText(hz / 10.0) + "%"; }

}  // namespace marvolin
