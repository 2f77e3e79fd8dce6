#include "performance/map/map_events.h"

#include <array>

namespace marvolin {

namespace {

/// The context of either event's report.
constexpr std::string_view kReport = "OnPosScroll";

bool Wanted(const Session& s, ScriptEvent event) { return s.EventWanted[event] != 0 && !s.ScriptBusy; }

}  // namespace

void PosScrollEvent(Session& s, int ball, double x, double y, Force force, int counter) {
    if (!Wanted(s, ScriptEvent::OnPositionScroll)) return;
    clsScrollDelta& delta = ScrollCounter(s, counter);
    bool send = false;
    delta.SendScroll(x, y, force == Force::Yes, send);
    if (!send) return;
    SendScriptEvent(s, ScriptEvent::OnPositionScroll, std::array{ball + 1.0, x, y, delta.DeltaX(), delta.DeltaY()},
                    kReport);
}

void PosChangeEvent(Session& s, int ball, double x, double y) {
    if (!Wanted(s, ScriptEvent::OnPositionChange)) return;
    SendScriptEvent(s, ScriptEvent::OnPositionChange, std::array{ball + 1.0, x, y}, kReport);
}

}  // namespace marvolin
