#include "window/descriptions/save_open.h"

#include "persistence/element_lists.h"

namespace marvolin {

namespace {

std::string ElementCaption(const Situation& at) {
    return std::string(kElementRows[static_cast<std::size_t>(at.Index)].Text);
}

constexpr Indices kElementIndices{0, kElements - 1};

constexpr Description kSaveOpenTable[] = {
    {.Name = "frmSave", .Topic = 10140, .Role = QAccessible::Dialog, .Taken = Keys::Escape},
    {.Name = "Selector",
     .Range = {0, 0},
     .Label = "Presets of the elements to save",
     .Tip = kLabelAsTip,
     .Topic = 10141,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "Selector",
     .Range = {1, 1},
     .Label = "Presets of the elements to open",
     .Tip = kLabelAsTip,
     .Topic = 10141,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "Elements", .Range = {0, 1}, .Topic = 10142, .Role = QAccessible::Border},
    {.Name = "Elements_0",
     .Range = kElementIndices,
     .Caption = ElementCaption,
     .Topic = 10143,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "Elements_1",
     .Range = kElementIndices,
     .Caption = ElementCaption,
     .Topic = 10144,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "SelectionsOnly",
     .Caption = "Only Save Selected Loops",
     .Topic = 10145,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "EmptyBlank",
     .Caption = "Empty Blank Loops on Open",
     .Topic = 10146,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "Session",
     .Label = "Session Name (for SnapShots)",
     .Topic = 10147,
     .Role = QAccessible::EditableText,
     .Taken = Keys::Type},
    {.Name = "SaveIt", .Caption = "Save", .Topic = 10148, .Role = QAccessible::Button, .Taken = Keys::Press},
    {.Name = "SaveItAs", .Caption = "Save As", .Topic = 10149, .Role = QAccessible::Button, .Taken = Keys::Press},
    {.Name = "Reload", .Caption = "Reload", .Topic = 10150, .Role = QAccessible::Button, .Taken = Keys::Press},
    {.Name = "OpenIt", .Caption = "Open", .Topic = 10151, .Role = QAccessible::Button, .Taken = Keys::Press},
};

}  // namespace

std::span<const Description> SaveOpenDescriptions() { return kSaveOpenTable; }

}  // namespace marvolin
