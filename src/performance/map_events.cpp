#include "performance/map_events.h"

#include <array>
#include <span>

#include "core/errors.h"

namespace marvolin {

namespace {

clsScrollDelta& Counter(Session& s, int counter) {
    std::unique_ptr<clsScrollDelta>& delta = s.ScrollDelta[counter];
    if (!delta) delta = std::make_unique<clsScrollDelta>();
    delta->ScrollSensitivity(s.ScrollSensitivity[1]);
    return *delta;
}

bool Wanted(const Session& s, ScriptEvent event) { return s.EventWanted[event] != 0 && !s.ScriptBusy; }

/// Calls the event with script events held back, so that a script that moves a ball does not call itself.
void Send(Session& s, ScriptEvent event, std::span<const double> arguments) {
    const std::int16_t wanted = s.EventWanted[event];
    s.EventWanted[event] = 0;
    s.ScriptBusy = true;
    try {
        s.World.Scripts.Call(event, arguments);
        s.EventWanted[event] = wanted;
    } catch (const RuntimeError&) {
        s.World.Scripts.ReportScriptError("OnPosScroll");
    }
    s.ScriptBusy = false;
}

}  // namespace

void ResetPosCounter(Session& s, int counter, double x, double y) { Counter(s, counter).Reset(x, y); }

void PosScrollEvent(Session& s, int ball, double x, double y, bool force, int counter) {
    if (!Wanted(s, ScriptEvent::OnPositionScroll)) return;
    clsScrollDelta& delta = Counter(s, counter);
    bool send = false;
    delta.SendScroll(x, y, force, send);
    if (!send) return;
    Send(s, ScriptEvent::OnPositionScroll, std::array{ball + 1.0, x, y, delta.DeltaX(), delta.DeltaY()});
}

void PosChangeEvent(Session& s, int ball, double x, double y) {
    if (!Wanted(s, ScriptEvent::OnPositionChange)) return;
    Send(s, ScriptEvent::OnPositionChange, std::array{ball + 1.0, x, y});
}

}  // namespace marvolin
