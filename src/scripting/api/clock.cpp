#include "scripting/api/clock.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/routines.h"
#include "scripting/delayed_calls.h"
#include "scripting/text_cut.h"

namespace marvolin {

namespace {

void Seconds(ApiCall& call) {
    const SessionClock& clock = call.s.Clock;
    call.Return(clock.ClockHours * 3600.0 + clock.ClockMinutes * 60.0 + clock.ClockSeconds +
                clock.ClockMsPart / 1000.0);
}

void After(ApiCall& call) {
    if (call.Engine.After(static_cast<std::int32_t>(call.NumberAt(0)))) return;
    throw ApiFault("more than " + std::to_string(kMostDelayedCalls) + " calls are waiting");
}

/// The status line has one line, and no room for more.
void Status(ApiCall& call) {
    constexpr std::size_t kMostBytes = 200;
    std::string text(Beginning(call.TextAt(0), kMostBytes));
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
    ShowStatus(call.s, text);
}

constexpr ApiFunction kClockFunctions[] = {
    {.Name = "clock",
     .Returns = "seconds, with their fraction",
     .Text = "The running clock of the status bar. It goes back to 0 after 25 hours, so the time between two looks at "
             "it is (later - earlier) % 90000.",
     .Example = "assert(marvolin.clock() == 0)",
     .Act = Seconds},
    {.Name = "after",
     .Parameters = {Whole("delay", 0, 3600000, "ms"), {.Name = "function", .Kind = ArgumentKind::Function}},
     .Text = "Calls a function once, after so many milliseconds, to the nearest hundredth of a second. A function that "
             "asks for itself again runs on and on.",
     .Errors = "More than 256 calls are waiting.",
     .Example = "marvolin.after(20, function() marvolin.set_volume('A', 10) end)  assert(marvolin.volume('A') == 500)",
     .Act = After},
    {.Name = "at_end",
     .Parameters = {ApiParameter{.Name = "function", .Kind = ArgumentKind::Function}},
     .Text = "Calls a function once when the script ends: by Stop, by the next script, by stop_script, or because its "
             "first run fails. There it gives back what the script has only borrowed. It may take 20 ms, and nothing "
             "waits behind it. A further at_end takes the place of the one before.",
     .Example = "local full = marvolin.volume('A')  marvolin.at_end(function() marvolin.set_volume('A', full) end)  "
                "assert(full == 500)",
     .Act = [](ApiCall& call) { call.Engine.AtEnd(); }},
    {.Name = "status",
     .Parameters = {Text("text")},
     .Text = "Shows a text in the status line, until the next hint; at most 200 bytes of it.",
     .Example = "marvolin.status('Verse')",
     .Act = Status},
    {.Name = "stop_script",
     .Text =
         "Ends the script: nothing of it is called any more but the function of at_end, and the call under way ends, "
         "too.",
     .Example = "marvolin.stop_script()",
     .Act = [](ApiCall& call) { call.Engine.EndScript(); }},
};

}  // namespace

std::span<const ApiFunction> ClockFunctions() { return kClockFunctions; }

}  // namespace marvolin
