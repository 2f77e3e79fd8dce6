#include "scripting/script_host.h"

#include <algorithm>
#include <array>

#include "core/errors.h"
#include "parameters/scroll_events.h"

namespace marvolin {

namespace {

std::string_view NameOf(ScriptEvent event) { return kScriptEventNames[static_cast<std::size_t>(event)]; }

void MakeScriptTimer(Session& s) {
    if (s.ScriptTimer) return;
    s.ScriptTimer = s.World.Timers.Create([&s](std::int32_t milliseconds) { ScriptTimer_Timer(s, milliseconds); });
    s.ScriptTimer->SetInterval(kScriptInterval);
}

void TakeEvents(Session& s, ScriptHost& host) {
    host.MyCodeObj = &host.MyScript.CodeObject();
    for (const std::string_view event : kScriptEventNames) {
        if (host.MyCodeObj->Defines(event)) SetScriptEvent(s, event, True);
    }
}

/// False without a timer, which is reported.
bool StartClock(Session& s, ScriptHost& host, std::string_view name) {
    try {
        StartScript(s);
        return true;
    } catch (const RuntimeError& error) {
        host.Report(name, {std::string("Scripts have no clock: ") + error.what(), 0, 0});
        return false;
    }
}

/// False when the text fails, which is reported.
bool TakeText(Session& s, ScriptHost& host, const std::string& text, std::string_view name) {
    try {
        host.MyScript.AddCode(text);
        return true;
    } catch (const RuntimeError&) {
        StopScript(s);
        host.ReportScriptError(name);
        return false;
    }
}

}  // namespace

void ScriptHost::Call(ScriptEvent event, std::span<const double> arguments) {
    if (MyCodeObj == nullptr || (event == ScriptEvent::OnClock && MyScript.IsResting())) return;
    MyCodeObj->Run(NameOf(event), arguments);
}

void ScriptHost::ReportScriptError(std::string_view name) { Report(name, MyScript.Error()); }

void ScriptHost::Report(std::string_view name, const ScriptError& failure) {
    try {
        const ScriptError error = failure;  // by value: what hears of it may run into the next one
        if (OnError) OnError(name, error);
        desk_.Report("Error in code for " + std::string(name) + ": " + error.Description +
                     ",  ln:" + std::to_string(error.Line) + "  col:" + std::to_string(error.Column));
    } catch (const std::exception&) {
        return;  // a report that fails must not become a second error
    }
}

void SetScriptEvent(Session& s, std::string_view eventName, std::int16_t wanted) {
    const auto name = std::find(kScriptEventNames.begin(), kScriptEventNames.end(), eventName);
    if (name != kScriptEventNames.end()) s.EventWanted[name - kScriptEventNames.begin()] = wanted;
}

void ClearScriptEvents(Session& s) {
    for (std::int16_t& wanted : s.EventWanted) wanted = 0;
}

void StartScript(Session& s) {
    if (s.ScriptEnabled) return;
    MakeScriptTimer(s);
    s.ScriptTimer->SetEnabled(true);
    s.ScriptEnabled = true;
}

void StopScript(Session& s) {
    if (!s.ScriptEnabled) return;
    s.ScriptEnabled = false;
    try {
        if (s.ScriptTimer) s.ScriptTimer->SetEnabled(false);
    } catch (const RuntimeError&) {
        return;  // its ticks find no event wanted
    }
}

void ScriptTimer_Timer(Session& s, std::int32_t milliseconds) {
    if (s.ScriptBusy) return;
    SendScriptEvent(s, ScriptEvent::OnClock,
                    std::array<double, 3>{static_cast<double>(milliseconds), static_cast<double>(s.Clock.ClockMsPart),
                                          static_cast<double>(s.Clock.ClockSeconds)});
}

bool RunScript(Session& s, ScriptHost& host, const std::string& text, std::string_view name) {
    EndScript(s, host);
    const bool busy = s.ScriptBusy;
    s.ScriptBusy = true;
    // First the clock, as calls that the top level asks for come only to a script that runs.
    const bool taken = StartClock(s, host, name) && TakeText(s, host, text, name);
    s.ScriptBusy = busy;
    if (s.ScriptEnabled) TakeEvents(s, host);
    return taken;
}

void EndScript(Session& s, ScriptHost& host) {
    StopScript(s);
    ClearScriptEvents(s);
    host.MyCodeObj = nullptr;
    host.MyScript.Reset();
}

}  // namespace marvolin
