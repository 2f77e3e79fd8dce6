#pragma once
/// \file
/// The events that a script hears, as its writer has to know them. The page for players and the window of scripts are
/// made from this table.

#include <array>
#include <string>
#include <string_view>

#include "core/script_events.h"

namespace marvolin {

/// An event, by its name in `kScriptEventNames`.
struct ApiEvent {
    ScriptEvent Which;
    std::string_view Parameters;  ///< of its procedure, as they stand in its brackets
    std::string_view Arguments;   ///< the same with their ranges and units
    std::string_view When;
};

/// In the order of the page.
inline constexpr std::array<ApiEvent, kScriptEvents> kApiEvents{{
    {ScriptEvent::OnVolChange, "row, volume", "row, volume 0 to 500", "a volume knob was let go"},
    {ScriptEvent::OnVolScroll, "row, volume, change", "row, volume, change since the last of these events",
     "a volume knob is being turned, and once more when it is let go"},
    {ScriptEvent::OnPanChange, "row, pan", "row, pan -500 to 500", "a pan knob was let go"},
    {ScriptEvent::OnPanScroll, "row, pan, change", "row, pan, change", "a pan knob is being turned"},
    {ScriptEvent::OnPitchChange, "row, percent", "row, percent 0.1 to 400", "a frequency knob was let go"},
    {ScriptEvent::OnPitchScroll, "row, percent, change", "row, percent, change", "a frequency knob is being turned"},
    {ScriptEvent::OnPositionChange, "ball, x, y", "ball, x, y in map units", "a ball of the sound map was let go"},
    {ScriptEvent::OnPositionScroll, "ball, x, y, dx, dy", "ball, x, y, change of x, change of y",
     "a ball is being moved, by the mouse or the joystick"},
    {ScriptEvent::OnClock, "milliseconds, part, seconds",
     "milliseconds since the last tick, milliseconds and seconds of the running clock", "ten times a second"},
}};

/// The row of an event.
constexpr const ApiEvent& ApiEventOf(ScriptEvent event) {
    for (const ApiEvent& row : kApiEvents) {
        if (row.Which == event) return row;
    }
    return kApiEvents.front();  // not reached: the table has all of them
}

/// "OnVolChange(row, volume)"
inline std::string SignatureOf(const ApiEvent& event) {
    return std::string(kScriptEventNames[static_cast<std::size_t>(event.Which)])
        .append("(")
        .append(event.Parameters)
        .append(")");
}

}  // namespace marvolin
