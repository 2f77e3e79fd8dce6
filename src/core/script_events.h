#pragma once
/// \file
/// The way from the instrument to the procedures of a script. Behind it stands `ScriptHost`
/// (scripting/script_host.h), which passes the events on to a script engine.

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/types.h"

namespace marvolin {

/// The nine events, by their index in `EventWanted`.
enum class ScriptEvent : std::uint8_t {
    OnVolChange,
    OnPitchChange,
    OnPanChange,
    OnVolScroll,
    OnPitchScroll,
    OnPanScroll,
    OnPositionScroll,
    OnPositionChange,
    OnClock,
};
inline constexpr int kScriptEvents = 9;

/// Names of the events, by their number.
inline constexpr std::array<std::string_view, kScriptEvents> kScriptEventNames{
    "OnVolChange", "OnPitchChange",    "OnPanChange",      "OnVolScroll", "OnPitchScroll",
    "OnPanScroll", "OnPositionScroll", "OnPositionChange", "OnClock"};

/// Calls the procedures that a script defines.
class ScriptEvents {
public:
    virtual ~ScriptEvents() = default;
    /// Calls the procedure named for `event`, if the script defines it. Raises `RuntimeError` when the script fails.
    virtual void Call(ScriptEvent event, std::span<const double> arguments) = 0;
    /// Shows the engine's last error as that of procedure `name`. Never fails.
    virtual void ReportScriptError(std::string_view name) = 0;
};

}  // namespace marvolin
