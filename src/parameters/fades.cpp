#include "parameters/fades.h"

#include "audio/transport.h"
#include "core/loops/grouping.h"
#include "core/routines.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr double kGaugeUnits = 500;  // gauge units of one `FadeStep`

/// Runs `act(row, alone)` for the rows that a fade command reaches: the band named, the row's own, the row, or for row
/// 4 the controlled rows without itself.
template <typename Act>
void ForFadeGang(Session& s, Row row, std::int16_t band, Act act) {
    if (band != kOwnBand || s.Run[row].InBand != False) {
        ForBand(s, band != kOwnBand ? band : s.Run[row].Band, [&](Row member) { act(member, false); });
    } else if (row != kSelectionRow) {
        act(row, true);
    } else {
        ForControlled(s, [&](Row member) { act(member, false); });
    }
}

void StartFade(Session& s, Row row, std::int16_t target, FadeState direction) {
    LoopTrackRun& run = s.Run[row];
    run.FadeValue = s.Set[row].Vol;
    run.FadeTarget = target;
    run.FadeState = direction;
}

/// Starts the opposite fade, or turns a running one round where it is.
void ToggleFade(Session& s, Row row) {
    LoopTrackRun& run = s.Run[row];
    if (run.FadeState == kNoFade) {
        const bool fallsNow = s.Set[row].Vol != 0;
        StartFade(s, row, fallsNow ? 0 : kVolFull, fallsNow ? kFalling : kRising);
    } else if (run.FadeState == kFalling) {
        run.FadeTarget = kVolFull;
        run.FadeState = kRising;
    } else {
        run.FadeTarget = 0;
        run.FadeState = kFalling;
    }
}

void MoveLine(Session& s, Row row) {
    s.SndDisp[row].Line = s.Set[row].Vol;
    s.World.Screen.ShowSoundDisplay(row);
}

/// Starts the LoopTrack of a rising fade. False when the fade is over: the start failed and has shown its box, which
/// every tick would show again, or the fade was taken back while the box was open.
bool StartRising(Session& s, Row row) {
    LoopTrackRun& run = s.Run[row];
    LoopPlay(s, row, true);
    if (run.Loaded != False && run.Playing == False) LoopSetFade(s, row, FadeCommand::Cancel);
    return run.FadeState == kRising;
}

void StepRising(Session& s, Row row, double distance) {
    LoopTrackRun& run = s.Run[row];
    run.FadeValue += distance;
    if (run.FadeValue < run.FadeTarget) return;
    run.FadeValue = run.FadeTarget;
    run.FadeState = kNoFade;
    // `Vol` is still that of the previous tick: the line ends one tick short of the mark.
    if (run.FadeToMark != False) MoveLine(s, row);
}

void StepFalling(Session& s, Row row, double distance) {
    LoopTrackRun& run = s.Run[row];
    run.FadeValue -= distance;
    if (run.FadeValue > run.FadeTarget) return;
    run.FadeValue = run.FadeTarget;
    run.FadeState = kNoFade;
    if (run.FadeTarget == 0) LoopStop(s, row);
    if (run.FadeToMark != False) MoveLine(s, row);
}

}  // namespace

void LoopSetFade(Session& s, Row row, FadeCommand mode) {
    if (row > kSelectionRow) return;
    LoopTrackRun& run = s.Run[row];
    run.FadeToMark = False;
    switch (mode) {
        case FadeCommand::Cancel:
            if (run.FadeState != kNoFade) MoveLine(s, row);
            run.FadeState = kNoFade;
            break;
        case FadeCommand::Up:
            StartFade(s, row, kVolFull, kRising);
            break;
        case FadeCommand::Down:
            StartFade(s, row, 0, kFalling);
            break;
        case FadeCommand::Toggle:
            ToggleFade(s, row);
            break;
    }
}

void LoopSetFadeGang(Session& s, Row row, FadeCommand mode, std::int16_t band) {
    if (band != kOwnBand && row > kSelectionRow) return;
    ForFadeGang(s, row, band, [&](Row member, bool) { LoopSetFade(s, member, mode); });
}

void LoopFadeTo(Session& s, Row row, std::int16_t target, std::int16_t band) {
    if (band == kOwnBand && row > kSelectionRow) return;
    ForFadeGang(s, row, band, [&](Row member, bool alone) {
        StartFade(s, member, target, s.Set[member].Vol > target ? kFalling : kRising);
        s.Run[member].FadeToMark = ToBoolean(alone);
    });
}

void SetFadeFactor(Session& s, double fadeStep) {
    FadeFactor_Change(s, ToI2(ClampVar(Int(fadeStep * kGaugeUnits), kFadeFactorLow, kFadeFactorHigh)));
}

void FadeFactor_Change(Session& s, std::int16_t value) {
    ClampI2(value, kFadeFactorLow, kFadeFactorHigh);
    s.FadeStep = value / kGaugeUnits;
    s.World.Screen.ShowFadeFactor();
}

std::int16_t FadeFactorGauge(const Session& s) {
    return ToI2(ClampVar(s.FadeStep * kGaugeUnits, kFadeFactorLow, kFadeFactorHigh));
}

void StepFades(Session& s, std::int32_t milliseconds) {
    const double distance = milliseconds * s.FadeStep / 10;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackRun& run = s.Run[row];
        if (run.FadeState == kNoFade) continue;
        if (run.FadeState != kFalling && run.Playing == False && !StartRising(s, row)) continue;
        if (run.FadeState == kFalling) {
            StepFalling(s, row, distance);
        } else {
            StepRising(s, row, distance);
        }
        std::int16_t vol = ToI2(Int(run.FadeValue));
        const UpdateDisplay line = run.FadeToMark == False ? UpdateDisplay::Yes : UpdateDisplay::No;
        LoopVolChange(s, row, vol, TakeHold::Yes, line);
    }
}

}  // namespace marvolin
