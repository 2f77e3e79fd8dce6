#pragma once
/// \file
/// Events sent to the script: no event inside itself, and only some of the scroll events.

#include <span>
#include <string>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// Elements of `ScrollDelta`.
inline constexpr int kKnobScroll = 0;      ///< all knobs
inline constexpr int kMapScroll = 1;       ///< the mouse on a ball of the map
inline constexpr int kJoystickScroll = 2;  ///< the joystick on the map

/// The most moves that the option `ScrollSensitivity` lets pass for one event.
inline constexpr std::int32_t kMostScrollMoves = 50000;

/// Whether a scroll event is sent regardless of its counter.
enum class Force : bool { No, Yes };

/// The counter with this number. It is made on first use with the sensitivity that the player chose.
clsScrollDelta& ScrollCounter(Session& s, int counter);

/// Calls the script's procedure for `event` if `EventWanted`. The event is off while its procedure runs, so that a
/// script may move the control that sent it. A failure is reported under `name`, and the event stays off.
void SendScriptEvent(Session& s, ScriptEvent event, std::span<const double> arguments, std::string_view name);
/// The same, reported under the event's own name.
void SendScriptEvent(Session& s, ScriptEvent event, std::span<const double> arguments);

/// The option `ScrollSensitivity` has changed to `value`, limited to 1..`kMostScrollMoves`: `member` 0 for the knobs, 1
/// for both counters of the map. Shows its text in the status line.
void ScrollSensitivity_Change(Session& s, int member, std::int32_t value);
/// "Send scroll event every N moves", as set for `member`.
std::string ScrollSensitivityText(const Session& s, int member);

}  // namespace marvolin
