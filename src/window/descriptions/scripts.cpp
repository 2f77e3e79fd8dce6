#include "window/descriptions/scripts.h"

#include "scripting/api/event_table.h"

namespace marvolin {

namespace {

/// Parts of the list are the events, by their number.
std::string EventHint(const Situation& at) {
    if (at.Part < 0 || at.Part >= kScriptEvents) return "";
    const ApiEvent& event = ApiEventOf(static_cast<ScriptEvent>(at.Part));
    return SignatureOf(event) + ": " + std::string(event.When);
}

constexpr Description Button(std::string_view name, std::string_view caption, std::string_view label,
                             std::string_view hint, std::int32_t topic, std::string_view off = {}) {
    return {.Name = name,
            .Caption = caption,
            .Label = label,
            .Tip = kLabelAsTip,
            .Hint = hint,
            .Off = off,
            .Topic = topic,
            .Role = QAccessible::Button,
            .Taken = Keys::Press};
}

constexpr Description kScriptsTable[] = {
    {.Name = "frmScripts", .Topic = 10190, .Role = QAccessible::Window},
    Button("NewScript", "New", "New script", "clk Begin an Empty Script; key Ctrl+N", 10191),
    Button("Examples", "Examples", "Begin with an example", "clk Open List of Examples", 10192),
    {.Name = "ExampleList",
     .Label = "Examples",
     .Hint = "clk Begin with this Example; key Esc Close",
     .Topic = 10193,
     .Role = QAccessible::List,
     .Taken = Keys::Choose | Keys::Press | Keys::Escape},
    Button("OpenScript", "Open", "Open a script", "clk Open Script; key Ctrl+O", 10194),
    Button("SaveScript", "Save", "Save the script", "clk Save Script; key Ctrl+S", 10195),
    Button("SaveScriptAs", "Save As", "Save the script under another name",
           "clk Save Script under Another Name; key Ctrl+Shift+S", 10196),
    Button("UndoText", "Undo", "Undo", "clk Undo; key Ctrl+Z", 10197, "off: nothing to undo"),
    Button("RedoText", "Redo", "Redo", "clk Redo; key Ctrl+Y", 10198, "off: nothing to redo"),
    Button("FindText", "Find", "Find in the text", "clk Find Text; key Ctrl+F", 10199),
    Button("RunScript", "Run", "Run the script", "clk Run Script; key F5", 10200),
    Button("StopScript", "Stop", "Stop the script that runs", "clk Stop Script; key Shift+F5", 10201,
           "off until a Script runs"),
    {.Name = "ScriptText",
     .Label = "Text of the script",
     .Hint = "type Script; marvolin. Lists Functions; key F5 Runs It",
     .Topic = 10202,
     .Role = QAccessible::EditableText,
     .Taken = Keys::Type},
    {.Name = "FindBar", .Topic = 10203, .Role = QAccessible::ToolBar},
    {.Name = "FindWords",
     .Label = "Words to find",
     .Hint = "type Words; key Return Next; key Shift+Return Previous; key Esc Close",
     .Topic = 10204,
     .Role = QAccessible::EditableText,
     .Taken = Keys::Type | Keys::Press | Keys::Escape},
    Button("FindPrevious", "Previous", "Find the previous place", "clk Previous Place; key Shift+F3", 10205),
    Button("FindNext", "Next", "Find the next place", "clk Next Place; key F3", 10206),
    Button("FindClose", "Close", "Close the search", "clk Close Search; key Esc", 10207),
    {.Name = "Console",
     .Label = "What the script prints, and its errors",
     .Hint = "lists What the Script Prints, and Errors",
     .Topic = 10208,
     .Role = QAccessible::EditableText,
     .Taken = Keys::Type},
    Button("ClearConsole", "Clear", "Clear the console", "clk Clear Console", 10209),
    {.Name = "EventList",
     .Label = "Events that the script hears",
     .Hint = EventHint,
     .Topic = 10210,
     .Role = QAccessible::List},
    {.Name = "ScriptStatusBar", .Label = "Hints", .Topic = 10211, .Role = QAccessible::StatusBar},
};

}  // namespace

std::span<const Description> ScriptsDescriptions() { return kScriptsTable; }

}  // namespace marvolin
