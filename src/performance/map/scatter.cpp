#include "performance/map/scatter.h"

#include <optional>

#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "parameters/fades.h"
#include "performance/map/sound_map.h"

namespace marvolin {

namespace {

constexpr std::int32_t kWanderMs = 100;
constexpr std::int32_t kWanderJumpMs = 500;

/// One coordinate after a small step.
double SmallStep(Session& s, double from) {
    const double step = RandomPlusMinus(s.World.Chance, s.MapRange / 50);
    const double to = from + step;
    // Only the positive edge turns a step back; at the negative one the move is clamped.
    return to > s.MapRange ? from - step : to;
}

/// Sets a flag for as long as it lives, also when an error ends the tick.
class Busy {
public:
    explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
    ~Busy() { flag_ = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    bool& flag_;
};

}  // namespace

void ScatterAbsoluteSound(Session& s, int ball) {
    const std::int32_t n = ToI4(Int(s.Geometry.PadHalfX));
    const double x = RandomAround(s.World.Chance, n);
    const double y = RandomAround(s.World.Chance, n);
    PosScaled(s, x, y, ball, s.Geometry.PadHalfX, {.Absolute = true, .Apply = true});
}

void ScatterAbsolute(Session& s) {
    for (Row ball = 0; ball < kLoopTracks; ++ball) ScatterAbsoluteSound(s, ball);
}

void ScatterRelSound(Session& s, int ball) {
    const double x = SmallStep(s, s.Set[ball].PositionX);
    const double y = SmallStep(s, s.Set[ball].PositionY);
    PosScaled(s, x, y, ball, s.MapRange, {.Absolute = true, .Apply = true});
}

void ScatterRel(Session& s) {
    for (Row ball = 0; ball < kLoopTracks; ++ball) ScatterRelSound(s, ball);
}

void PosMacros_Click(Session& s, std::int16_t entry) {
    const bool again = entry == s.PosMacro;
    std::optional<UndoStep> step;
    if (entry == kMacroScatterAbs || entry == kMacroScatterRel) {
        step.emplace(s, kPosMacros[static_cast<std::size_t>(entry)]);
    }
    if (entry == kMacroScatterAbs) {
        if (!again) ScatterAbsolute(s);
    } else if (entry == kMacroScatterRel) {
        if (!again) ScatterRel(s);
    } else {
        s.WanderElapsed = 0;
    }
    s.PosMacro = entry;
}

void WanderStep(Session& s, std::int32_t milliseconds) {
    if (s.PosMacro <= kMacroScatterRel) return;
    s.WanderElapsed += milliseconds;
    const bool small = s.PosMacro == kMacroWander;
    if (s.WanderElapsed < (small ? kWanderMs : kWanderJumpMs)) return;
    if (small) {
        ScatterRelSound(s, s.WanderTrack);
    } else {
        ScatterAbsoluteSound(s, s.WanderTrack);
    }
    if (++s.WanderTrack >= kLoopTracks) s.WanderTrack = 0;
    s.WanderElapsed = 0;
}

void FadeTimer_Timer(Session& s, std::int32_t milliseconds) {
    if (s.FadeTimerBusy) return;
    const Busy guard(s.FadeTimerBusy);
    StepFades(s, milliseconds);
    WanderStep(s, milliseconds);
}

}  // namespace marvolin
