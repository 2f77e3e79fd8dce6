#include "sequencing/loop_clock.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

#include "audio/sample_buffers.h"
#include "audio/transport.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "parameters/mapping.h"

namespace marvolin {

namespace {

constexpr std::int16_t kFinestTick = 1;           // ms
constexpr std::int16_t kCoarsestTick = 100;       // ms
constexpr std::int32_t kCoarsestResolution = 25;  // ms
// Far more than the hand can set. Three times as much still fits 32 bits, which `RandomAround` needs.
constexpr std::int64_t kWidestSwing = 700'000'000;  // ms

std::int32_t SwingMilliseconds(const LoopTrackSet& set) {
    // A file may hold any number; the product must not leave its 32 bits.
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(std::int64_t{set.Swing} * 10, -kWidestSwing, kWidestSwing));
}

void RefreshSelectionIndicator(Session& s) {
    bool any = false;
    for (Row row = 0; row < kLoopTracks; ++row) any = any || (s.Run[row].Playing != False && IsControlled(s, row));
    Boolean& shown = s.Run[kSelectionRow].Playing;
    if (any == (shown != False)) return;
    shown = ToBoolean(any);
    s.World.Screen.ShowPlay(kSelectionRow);
}

void ShowClockTime(Session& s) {
    std::array<char, 40> text{};
    const int length = std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", s.Clock.ClockHours,
                                     s.Clock.ClockMinutes, s.Clock.ClockSeconds);
    s.Clock.Panel.assign(text.data(), static_cast<std::size_t>(length));
    s.World.Screen.ShowClock();
}

void RunSessionClock(Session& s, std::int32_t milliseconds) {
    SessionClock& clock = s.Clock;
    clock.ClockMs += milliseconds;
    clock.ClockMsPart += milliseconds;
    if (clock.ClockMsPart < 1000) return;
    // At most one second a tick: the ticks that follow add the rest.
    clock.ClockMsPart -= 1000;
    ++clock.ClockSeconds;
    if (clock.ClockSeconds >= 60) {
        clock.ClockSeconds = 0;
        ++clock.ClockMinutes;
    }
    if (clock.ClockMinutes >= 60) {
        // The hours run to 24: the last time shown is 24:59:59.
        if (clock.ClockHours >= 24) {
            ClockReset(s);
        } else {
            clock.ClockMinutes = 0;
            ++clock.ClockHours;
        }
    }
    ShowClockTime(s);
}

}  // namespace

void LoopTimer_Timer(Session& s, std::int32_t milliseconds) {
    if (s.LoopTimerBusy) {
        s.Clock.Panel = "Timer collision!";
        s.World.Screen.ShowClock();
        return;
    }
    s.LoopTimerBusy = true;
    for (Row row = 0; row < kLoopTracks; ++row) LoopPollEnd(s, row);
    // All timing before all steps: rows that are due in the same tick step together.
    for (Row row = 0; row < kLoopTracks; ++row) StepTiming(s, row, milliseconds);
    for (Row row = 0; row < kLoopTracks; ++row) LoopStep(s, row);
    RefreshSelectionIndicator(s);
    RunSessionClock(s, milliseconds);
    s.LoopTimerBusy = false;
}

void LoopPollEnd(Session& s, Row row) {
    LoopTrackRun& run = s.Run[row];
    if (s.Set[row].PlayMode != kOneShot || run.Loaded == False || run.Playing == False || run.Paused != False) return;
    if ((BufferOf(s, row).GetStatus() & buffer_status::kPlaying) != 0) return;
    run.Playing = False;
    s.World.Screen.ShowPlay(row);
}

void StepTiming(Session& s, Row row, std::int32_t milliseconds) {
    const LoopTrackSet& set = s.Set[row];
    LoopTrackRun& run = s.Run[row];
    const bool clocked = set.PlayMode == kTrack || set.PlayMode == kDrum;
    if (!clocked || run.Playing == False || run.Paused != False) return;
    const std::int64_t elapsed = std::int64_t{run.StepElapsed} + milliseconds;
    run.StepElapsed =
        static_cast<std::int32_t>(std::min<std::int64_t>(elapsed, std::numeric_limits<std::int32_t>::max()));
    // A new random number at every tick: the swing makes the moment of the step jitter, it does not delay steps.
    const std::int64_t jitter = RandomAround(s.World.Chance, SwingMilliseconds(set));
    if (jitter + run.StepElapsed < std::int64_t{set.StepDuration} * 10) return;
    run.StepDue = True;
    run.StepElapsed = 0;  // the remainder is dropped: a late tick stretches the step
}

void LoopStep(Session& s, Row row) {
    LoopTrackRun& run = s.Run[row];
    if (run.Loaded == False || run.Playing == False || run.StepDue == False || run.Paused != False) return;
    const int next = run.Step + 1;
    run.Step = next > s.Set[row].NSteps ? std::int16_t{0} : static_cast<std::int16_t>(next);
    ShowStep(s, row);
    if (s.Set[row].PlayMode == kDrum) StartOrJump(s, row);
    MapVol(s, row);
    MapHZ(s, row);
    MapPan(s, row);
    run.StepDue = False;
}

void ClockReset(Session& s) {
    s.Clock.ClockMs = 0;
    s.Clock.ClockMsPart = 0;
    s.Clock.ClockSeconds = 0;
    s.Clock.ClockMinutes = 0;
    s.Clock.ClockHours = 0;
}

void ResSlider_Change(Session& s, std::int16_t milliseconds) {
    ClampI2(milliseconds, kFinestTick, kCoarsestTick);
    SetTimingRes(s, milliseconds);
    ShowStatus(s, TimingResText(s));
}

void SetTimingRes(Session& s, std::int16_t milliseconds) {
    if (milliseconds < kFinestTick || milliseconds > kCoarsestTick) return;
    s.TimingRes = milliseconds;
    s.World.Screen.ShowOptions();
    if (!s.LoopTimer) return;
    s.LoopTimer->SetResolution(std::min<std::int32_t>(milliseconds, kCoarsestResolution));
    s.LoopTimer->SetInterval(milliseconds);
}

std::string TimingResText(const Session& s) { return "Timer Resolution: " + NumberText(s.TimingRes) + " ms"; }

}  // namespace marvolin
