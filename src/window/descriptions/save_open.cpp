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
     .Hint = "slct Elements to save, many at once",
     .Topic = 10141,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "Selector",
     .Range = {1, 1},
     .Label = "Presets of the elements to open",
     .Tip = kLabelAsTip,
     .Hint = "slct Elements to open, many at once",
     .Topic = 10141,
     .Role = QAccessible::ComboBox,
     .Taken = Keys::Choose | Keys::Press},
    {.Name = "ElementsFold",
     .Caption = "Elements",
     .Label = "Elements: shows or hides what is saved and opened",
     .Hint = "clk Show or Hide the Elements to save and to open",
     .Topic = 10240,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "Elements", .Range = {0, 1}, .Topic = 10142, .Role = QAccessible::Border},
    {.Name = "Elements_0",
     .Range = kElementIndices,
     .Caption = ElementCaption,
     .Hint = "clk On: Save this Element",
     .Topic = 10143,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "Elements_1",
     .Range = kElementIndices,
     .Caption = ElementCaption,
     .Hint = "clk On: Open this Element, if it was saved",
     .Topic = 10144,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "SelectionsOnly",
     .Caption = "Only Save Selected Loops",
     .Hint = "clk On: Save only the LoopTracks that are selected",
     .Topic = 10145,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "EmptyBlank",
     .Caption = "Empty Blank Loops on Open",
     .Hint = "clk On: Empty LoopTracks without a Sample in the Session; Off: leave them as they are",
     .Topic = 10146,
     .Role = QAccessible::CheckBox,
     .Taken = Keys::Press},
    {.Name = "Session",
     .Label = "Session Name (for SnapShots)",
     .Hint = "type the Name that Snapshots begin with",
     .Topic = 10147,
     .Role = QAccessible::EditableText,
     .Taken = Keys::Type},
    {.Name = "SaveIt",
     .Caption = "Save",
     .Hint = "clk Save under the Name in the Title",
     .Off = "off until Save As has given a Name",
     .Topic = 10148,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "SaveItAs",
     .Caption = "Save As",
     .Hint = "clk Choose a Name and Save",
     .Topic = 10149,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "Reload",
     .Caption = "Reload",
     .Hint = "clk Open the Session in the Title",
     .Off = "off until the Title names a Session",
     .Topic = 10150,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "OpenIt",
     .Caption = "Open",
     .Hint = "clk Choose a Session and Open it",
     .Topic = 10151,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
};

}  // namespace

std::span<const Description> SaveOpenDescriptions() { return kSaveOpenTable; }

}  // namespace marvolin
