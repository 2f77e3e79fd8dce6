#include "window/descriptions/undo.h"

#include "persistence/undo/undo_commands.h"
#include "window/descriptions/parts.h"

namespace marvolin {

namespace {

constexpr const char* kUndoHint = "clk Take back what was replaced or emptied; key Backspace";
constexpr const char* kRedoHint = "clk Do again what was taken back; key Shift+Backspace";

std::string UndoValue(const Situation& at) { return UndoText(at.State); }
std::string RedoValue(const Situation& at) { return RedoText(at.State); }

std::string UndoHint(const Situation& at) {
    const std::string step = UndoText(at.State);
    return step.empty() ? kUndoHint : "clk Take back: " + step + "; key Backspace";
}

std::string RedoHint(const Situation& at) {
    const std::string step = RedoText(at.State);
    return step.empty() ? kRedoHint : "clk Do again: " + step + "; key Shift+Backspace";
}

constexpr Description kUndoTable[] = {
    {.Name = "Undo",
     .Label = "Take back",
     .Tip = kLabelAsTip,
     .Hint = {UndoHint, kUndoHint},
     .Off = "off until a step can be taken back",
     .Topic = 10270,
     .Role = QAccessible::Button,
     .Taken = Keys::Press,
     .Value = UndoValue,
     .Shortcut = "Backspace"},
    {.Name = "Redo",
     .Label = "Do again",
     .Tip = kLabelAsTip,
     .Hint = {RedoHint, kRedoHint},
     .Off = "off until a step has been taken back",
     .Topic = 10271,
     .Role = QAccessible::Button,
     .Taken = Keys::Press,
     .Value = RedoValue,
     .Shortcut = "Shift+Backspace"},
};

}  // namespace

std::span<const Description> UndoDescriptions() { return kUndoTable; }

}  // namespace marvolin
