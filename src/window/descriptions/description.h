#pragma once
/// \file
/// The table of all controls: the name, texts, help topic, keys and accessibility of each.

#include <QAccessible>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "window/descriptions/control_text.h"

namespace marvolin {

/// The keys that a control takes while it has the focus; a set.
enum class Keys : std::uint8_t {
    None = 0,
    Press = 1,   ///< Space and Return: what a click does
    Turn = 2,    ///< arrows: a step up or down; Page Up and Page Down: ten
    Move = 4,    ///< arrows: a step in their direction
    Choose = 8,  ///< arrows, Page Up and Page Down, Home and End: another entry, in a drop-down list once it is open
    Type = 16,   ///< text
    Delete = 32,
    Escape = 64,  ///< closes the list
    Carry = 128,  ///< Insert: picks up what the mouse would drag
};
constexpr Keys operator|(Keys a, Keys b) {
    return static_cast<Keys>(static_cast<std::uint8_t>(a) | static_cast<std::uint8_t>(b));
}
constexpr bool Takes(Keys set, Keys key) {
    return (static_cast<std::uint8_t>(set) & static_cast<std::uint8_t>(key)) != 0;
}

/// First and last index of a control array; -1 for a control that is no array.
struct Indices {
    int First = -1;
    int Last = -1;
};

/// A value on a scale. Without one `Step` is 0.
struct ControlScale {
    double Now = 0;
    double Low = 0;
    double High = 0;
    double Step = 0;  ///< of the wheel
};

/// A row of the table. Members of an array that differ in more than the texts can say have rows of their own.
///
/// Help topics are numbers from 10001, one for each name, in tens by place: 10001 the main window, 10020 a LoopTrack's
/// row, 10040 the mix pad, 10060 splash, start-up question and message boxes, 10070 the sound map, 10080 patterns and
/// timing, 10100 options, 10120 the browser, 10140 and 10240 Save/Open, 10160 the file dialogue, 10190 the window of
/// scripts, 10220 that of Help, 10260 the main window again. Letter, sound display and ground of a row share the page
/// of the LoopTrack, 10022.
struct Description {
    std::string_view Name;  ///< the object name, in an array without "_" and the index
    Indices Range{};
    ControlText Caption{};  ///< drawn on the control
    ControlText Label{};    ///< the accessible name; the caption when it is empty
    ControlText Tip{};      ///< the tool tip
    ControlText Hint{};     ///< for the status line
    ControlText Off{};      ///< in front of the hint while the control is disabled: why it is
    std::int32_t Topic = 0;
    QAccessible::Role Role = QAccessible::NoRole;
    Keys Taken = Keys::None;
    ControlText Value{};                                   ///< what it is set to, for assistive technology
    ControlScale (*Scale)(const Situation& at) = nullptr;  ///< where the value is a number
    bool (*On)(const Situation& at) = nullptr;             ///< whether it is ticked, lit or open
    ControlText Shortcut{};                                ///< the key of the main window that does the same
};

/// For `Description::Tip`: the same text as `Description::Label`.
inline constexpr std::string_view kLabelAsTip = "{label}";

/// The rows of a form.
struct DescriptionTable {
    std::string_view Form;
    std::span<const Description> Rows;
};

/// All rows, by form.
std::array<DescriptionTable, 14> DescriptionTables();

/// The row of a control. Throws `std::out_of_range` for one that is not in the table.
const Description& DescriptionOf(std::string_view name, int index = -1);

/// The object name of a control: `name`, in an array with "_" and its index.
std::string ObjectNameOf(std::string_view name, int index = -1);

}  // namespace marvolin
