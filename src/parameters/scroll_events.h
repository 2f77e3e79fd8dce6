#pragma once
/// \file
/// Events on their way to the script: each once at a time, the scroll events thinned.

#include <span>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Elements of `ScrollDelta`.
inline constexpr int kKnobScroll = 0;      ///< all knobs
inline constexpr int kMapScroll = 1;       ///< the mouse on a ball of the map
inline constexpr int kJoystickScroll = 2;  ///< the joystick on the map

/// Whether a scroll event passes whatever its counter says.
enum class Force : bool { No, Yes };

/// The counter of that number; made on first use with the sensitivity that the player chose.
clsScrollDelta& ScrollCounter(Session& s, int counter);

/// Calls `event` on the script if it is wanted. It is not wanted while it runs, so that a script may move the control
/// that told it. A failing script is reported as `name`, and the event is then silent.
void SendScriptEvent(Session& s, ScriptEvent event, std::span<const double> arguments, std::string_view name);
/// The same, reported by the event's own name.
void SendScriptEvent(Session& s, ScriptEvent event, std::span<const double> arguments);

/// The option `ScrollSensitivity` stands at `value`, limited to 1..50000: `member` 0 for the knobs, 1 for both counters
/// of the map. Shows "Send scroll event every N moves".
void ScrollSensitivity_Change(Session& s, int member, std::int32_t value);

}  // namespace marvolin
