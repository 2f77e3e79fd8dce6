#include "parameters/scroll_events.h"

#include <memory>

#include "core/errors.h"
#include "core/routines.h"

namespace marvolin {

namespace {

int SensitivityOf(int counter) { return counter == kKnobScroll ? 0 : 1; }

}  // namespace

clsScrollDelta& ScrollCounter(Session& s, int counter) {
    auto& instance = s.ScrollDelta[counter];
    if (!instance) {
        instance = std::make_unique<clsScrollDelta>();
        instance->ScrollSensitivity(s.ScrollSensitivity[SensitivityOf(counter)]);
    }
    return *instance;
}

void SendScriptEvent(Session& s, ScriptEvent event, std::span<const double> arguments, std::string_view name) {
    const std::int16_t wanted = s.EventWanted[event];
    if (wanted == 0) return;
    const bool busy = s.ScriptBusy;
    const bool enabled = s.ScriptEnabled;
    s.EventWanted[event] = 0;
    s.ScriptBusy = true;
    try {
        s.World.Scripts.Call(event, arguments);
        // A script that has stopped itself hears nothing any more.
        if (s.ScriptEnabled == enabled) s.EventWanted[event] = wanted;
    } catch (const RuntimeError&) {
        s.World.Scripts.ReportScriptError(name);
    }
    s.ScriptBusy = busy;
}

void SendScriptEvent(Session& s, ScriptEvent event, std::span<const double> arguments) {
    SendScriptEvent(s, event, arguments, kScriptEventNames[static_cast<std::size_t>(event)]);
}

void ScrollSensitivity_Change(Session& s, int member, std::int32_t value) {
    ClampI4(value, 1, kMostScrollMoves);
    s.ScrollSensitivity[member] = value;
    for (int counter = kKnobScroll; counter <= kJoystickScroll; ++counter) {
        if (SensitivityOf(counter) == member) ScrollCounter(s, counter).ScrollSensitivity(value);
    }
    s.World.Screen.ShowOptions();
    ShowStatus(s, ScrollSensitivityText(s, member));
}

std::string ScrollSensitivityText(const Session& s, int member) {
    return "Send scroll event every " + std::to_string(s.ScrollSensitivity[member]) + " moves";
}

}  // namespace marvolin
