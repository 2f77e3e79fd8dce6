#include "performance/sound_display.h"

#include <cstdlib>

#include "core/routines.h"
#include "parameters/fades.h"
#include "parameters/position.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr int kSlip = 6;  // a target nearer to the level is taken as a slip of the hand

void TakeNeedle(Session& s, Row row, std::int16_t needle, std::int16_t value) {
    ClampI2(value, 0, kVolFull);
    SoundDisplayState& display = s.SndDisp[row];
    display.Current = needle;
    (needle == kLevelNeedle ? display.Level : display.Line) = value;
}

void JumpToLevel(Session& s, Row row) {
    const std::int16_t level = s.SndDisp[row].Level;
    LoopSetFadeGang(s, row, FadeCommand::Cancel, kOwnBand);
    LoopVolChangeGang(s, row, level, UpdateDisplay::Yes);
    s.SndDisp[row].Line = level;
    s.SndDisp[row].Level = level;
    s.World.Screen.ShowSoundDisplay(row);
}

void PutLine(Session& s, Row row, std::int16_t value) {
    s.SndDisp[row].Line = value;
    s.World.Screen.ShowSoundDisplay(row);
}

void FadeToTarget(Session& s, Row row) {
    std::int16_t target = s.SndDisp[row].Line;
    const std::int16_t level = s.SndDisp[row].Level;
    if (row != kSelectionRow && s.Run[row].Loaded == False) {
        PutLine(s, row, s.Set[row].Vol);
        return;
    }
    if (row != kSelectionRow && std::abs(target - level) < kSlip) {
        PutLine(s, row, level);
        return;
    }
    LoopFadeTo(s, row, target, kOwnBand);
    // The selection has no fade of its own: its knob and strip stand at the target at once.
    if (row == kSelectionRow) {
        LoopVolChange(s, row, target, TakeHold::No, UpdateDisplay::Yes);
    } else {
        s.World.Screen.ShowSoundDisplay(row);
    }
}

}  // namespace

void SndDisp_Change(Session& s, Row row, std::int16_t needle, std::int16_t value) {
    if (needle != kLevelNeedle && needle != kTargetNeedle) return;
    TakeNeedle(s, row, needle, value);
    if (needle == kLevelNeedle) {
        JumpToLevel(s, row);
    } else {
        FadeToTarget(s, row);
    }
}

void SndDisp_Moving(Session& s, Row row, std::int16_t needle, std::int16_t value) {
    if (needle == kLevelNeedle) {
        SndDisp_Change(s, row, needle, value);
    } else if (needle == kTargetNeedle) {
        TakeNeedle(s, row, needle, value);
        s.World.Screen.ShowSoundDisplay(row);
    }
}

void SndDisp_MouseDown(Session& s, Row row, std::int16_t button) {
    if (row != kSelectionRow) PosSetHighlight(s, row);
    if (button == kRightButton) LoopSetFadeGang(s, row, FadeCommand::Toggle, kOwnBand);
}

}  // namespace marvolin
