#pragma once
/// \file
/// The host of the player's script: which of the nine events it hears, its clock, and how its failures are shown.

#include <functional>
#include <string>
#include <string_view>

#include "core/script_events.h"
#include "core/session.h"
#include "scripting/script_control.h"

namespace marvolin {

/// Time between two events `OnClock`.
inline constexpr std::int32_t kScriptInterval = 100;  // ms

/// Passes the events of the instrument on to the engine. Engine and desktop must outlive it.
class ScriptHost : public ScriptEvents {
public:
    ScriptHost(ScriptControl& engine, Desktop& desk) : MyScript(engine), desk_(desk) {}
    /// Calls the procedure of this event on `MyCodeObj`. Nothing happens without a text, or when it does not define it,
    /// or for `OnClock` while the script rests.
    void Call(ScriptEvent event, std::span<const double> arguments) override;
    /// Shows the engine's error as a report: "Error in code for ", `name`, ": ", its description, ",  ln:" and its
    /// line, "  col:" and its column.
    void ReportScriptError(std::string_view name) override;
    /// The same with a failure that is not the engine's.
    void Report(std::string_view name, const ScriptError& failure);

    ScriptControl& MyScript;          ///< the engine
    ScriptCode* MyCodeObj = nullptr;  ///< the procedures of the text; null while there is none
    /// Gets each error that is reported, with the name under which it is.
    std::function<void(std::string_view name, const ScriptError& error)> OnError;

private:
    Desktop& desk_;
};

/// Stores whether the event of this name is passed on to the script. An unknown name does nothing.
void SetScriptEvent(Session& s, std::string_view eventName, std::int16_t wanted);
/// No event is passed on any longer.
void ClearScriptEvents(Session& s);

/// Starts `ScriptTimer`, which is made on first use. Does nothing while it runs. Raises `RuntimeError` when the system
/// has no timer left.
void StartScript(Session& s);
/// Stops it, errors ignored. Does nothing unless it runs.
void StopScript(Session& s);
/// The tick of `ScriptTimer`: sends `OnClock` with the milliseconds since the last tick and the running clock's
/// `ClockMsPart` and `ClockSeconds`. A tick that comes while an event of the script runs, or while the script rests, is
/// dropped.
void ScriptTimer_Timer(Session& s, std::int32_t milliseconds);

/// Gives the engine a text in the place of the one that runs: takes note of the events that it defines, and starts its
/// clock. False when the text fails, which is reported under `name`; then no script runs.
bool RunScript(Session& s, ScriptHost& host, const std::string& text, std::string_view name);
/// Ends the script that runs: its clock stops, it hears no event, and the engine forgets it.
void EndScript(Session& s, ScriptHost& host);

}  // namespace marvolin
