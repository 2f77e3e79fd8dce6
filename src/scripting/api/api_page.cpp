#include "scripting/api/api_page.h"

#include "scripting/api/api_arguments.h"
#include "scripting/api/api_table.h"
#include "scripting/api/event_table.h"

namespace marvolin {

namespace {

constexpr std::string_view kStart = R"(# Scripting

A script is a text in Lua 5.4. It runs once from its first line to its last; after that the instrument calls the
functions that it has defined under the names of events. Everything it can do to the instrument is in the table
`marvolin`. Script files end in ".mvs".

    -- Loop B goes where loop A does not.
    function OnPanScroll(row, pan)
        if row == 1 then marvolin.set_pan("B", -pan) end
    end

## The window

*Scripts* in the toolbar opens the window in which scripts are written. *Examples* begins with one of those at the end of
this page. *Run* (`F5`) reads the whole text first: a line that cannot be read is marked, and the script that runs goes on.
*Stop* (`Shift+F5`) ends it. What a script prints stands below the text, and so do its errors; beside them are the events
that it hears. Behind `marvolin.` the window lists the functions, and shows what each takes. A script runs on when its
window is closed: the main window shows its name.

The window needs the package `libqscintilla2-qt6-15`, scripts need `liblua5.4-0`. Without them everything else plays.

## Events

An event is called while the hand is at work, so it has to be quick. Events have no value to return. Knobs that a script
turns send no events.

| Event | Arguments | When |
|---|---|---|
)";

constexpr std::string_view kBehindEvents = R"(
In an event rows count from 1: 1 to 4 are the loops A to D, 5 the selection row, 6 the master; balls are 1 to 4 for the
loops and 5 for the listener. In the functions below rows count from 0, so a script passes `row - 1`, or a letter.

A step by a key or the wheel turns a knob and lets it go: it sends both events. A tick of `OnClock` that falls into another
event or into a rest (see Limits) is left out, and its milliseconds are not added to those of the next; for times that add
up take `marvolin.clock()`.

On the tab Optn, under "Scripting", two settings say how many moves of a knob or a ball make one scroll event. The event
that is running is not called again until it has ended.

## Limits

- An event may take 20 ms, the first run of the text 1 second.
- A script may hold 32 MB of memory, a single text 256 KB, the script itself 1 MB.
- One event may load or reverse at most 8 samples and sets. The time that takes does not count as the event's.
- Altogether a script has about half of the time. Delayed calls wait for as long as its events and loads have taken, and
  after long loads `OnClock` is left out for as long. Events of the hand always come.
- There are no files, processes, network or system calls: of Lua's library a script has `string` (without `dump`, `pack`,
  `unpack`, `packsize`), `table`, `math` (without `randomseed`), `utf8`, `coroutine` (without `close`) and the basic
  functions (without `warn`, `require` and those that load or collect). `math.random` draws from the instrument's own chance. Metatables have no `__gc`,
  and tables may have weak values, but no weak keys.
- An error, and a limit that is passed, is reported once with its line. The event it came from is silent from then on;
  everything else plays on.

## Functions

A row is a number from 0 to 5 or a letter: "A" to "D" (0 to 3) are the loops, "Z" (4) stands for the controlled loops, 5 is
the master. A wrong argument is an error that names it.
)";

std::string TableRow(const ApiEvent& event) {
    return std::string("| `")
        .append(kScriptEventNames[static_cast<std::size_t>(event.Which)])
        .append("` | ")
        .append(event.Arguments)
        .append(" | ")
        .append(event.When)
        .append(" |\n");
}

std::string Section(const ApiFunction& function) {
    std::string text = "\n#### `" + SignatureOf(function) + "`\n\n" + std::string(function.Text) + "\n";
    if (ParameterCount(function) > 0 || !function.Returns.empty() || !function.Errors.empty()) text += "\n";
    for (std::size_t i = 0; i < ParameterCount(function); ++i) {
        const ApiParameter& parameter = function.Parameters[i];
        text += "- `" + std::string(parameter.Name) + "`: " + Wanted(parameter) +
                (parameter.Optional ? "; may be left out" : "") + "\n";
    }
    if (!function.Returns.empty()) text += "- returns " + std::string(function.Returns) + "\n";
    if (!function.Errors.empty()) text += "- errors: " + std::string(function.Errors) + "\n";
    return text + "\n    " + std::string(function.Example) + "\n";
}

}  // namespace

std::string ApiPage() {
    std::string page(kStart);
    for (const ApiEvent& event : kApiEvents) page += TableRow(event);
    page += kBehindEvents;
    for (const ApiSubject& subject : ApiSubjects()) {
        page += "\n### " + std::string(subject.Title) + "\n";
        for (const ApiFunction& function : subject.Functions) page += Section(function);
    }
    page +=
        "\n## Examples\n\nThey are in the folder Scripts beside the program.\n\n| File | What it does |\n|---|---|\n";
    for (const ScriptExample& example : kScriptExamples) {
        page += "| " + std::string(example.File) + " | " + std::string(example.Purpose) + " |\n";
    }
    return page;
}

}  // namespace marvolin
