#pragma once
/// \file
/// Finding the joystick, and what its buttons and axes are assigned to.

#include <array>
#include <string>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// The actions, by index in `JoyButton`.
enum JoyAction : int { kJoyMove, kJoyCentre, kJoyTwistCentre, kJoyToggle, kJoyToggleTwist };
/// Captions of the five lists `JButton`.
inline constexpr std::array<std::string_view, 5> kJoyActions{"Move", "Centre", "Twist Centre", "Toggle Rel/Abs",
                                                             "ToggleTwist"};
/// `JoyButton` at the start.
inline constexpr std::array<std::int16_t, 5> kJoyStartButtons{0, 2, 1, 5, 4};
/// Entry "None" of the button lists: it reads the ninth button of the state record.
inline constexpr std::int16_t kNoButtonEntry = 8;

/// The assignable axes, by index in `JoyAxis`.
enum JoyAssignment : int { kMasterAxis, kTwistAxis };
/// Captions of the two lists `JAxis`.
inline constexpr std::array<std::string_view, 2> kJoyAssignments{"Master Vol", "Twist"};

/// Codes of the device axes that can be assigned.
enum JoyAxisCodes : std::int16_t { kAxisNone = 0, kAxisZ = 3, kAxisRX = 4, kAxisRY = 5, kAxisRZ = 6 };
/// `JoyAxis` at a start, as far as the stick has these axes.
inline constexpr std::array<std::int16_t, 2> kJoyStartAxes{kAxisZ, kAxisRZ};

/// Captions of the three sliders `JoyFactor`, and their range.
inline constexpr std::array<std::string_view, 3> kJoyFactors{"XY Rel:", "XY Abs:", "Twist:"};
inline constexpr std::int16_t kJoyFactorLow = 100;
inline constexpr std::int16_t kJoyFactorHigh = 3000;

/// What the service is asked for: joysticks that are plugged in.
inline constexpr std::int32_t kJoystickClass = 4;
inline constexpr std::int32_t kAttachedOnly = 1;

/// Finds and opens the first joystick, fills the lists and starts the poll. Without a joystick the lists show no
/// choice and are disabled. When the service refuses, "Error initializing DirectInput." is shown and the main window
/// unloaded. An error after a device was found is ignored, and the next step runs.
void InitDirectInput(Session& s);
/// The axis that a start assigns to use `index` 0..1 of the stick that is there, or was last; 0 when that lacks it.
std::int16_t JoyStartAxis(const Session& s, int index);
/// Opens a joystick that has been plugged in, by its name at the service. What waits for it is assigned. Assignments
/// and boxes stay as they are when anything has set them, else they become what a start sets. Boxes that are both off
/// before the first stick count as not set. Where stick, axes and hat
/// are now counts as read: nothing moves until they do. False when it cannot be opened; what waits then goes on
/// waiting.
bool JoyPlugIn(Session& s, const std::string& guid);
/// Lets the joystick go, which has been pulled out. What was assigned waits for the next one. The lists are disabled
/// and show no choice, and no axis holds the master, as at a start without a joystick.
void JoyUnplug(Session& s);
/// Sets `AxisPresent` for the axes that the device has. Errors of the service rise to the caller.
void JoyFindAxes(Session& s, DirectInputDevice& device);
/// Sets dead zone and saturation of X and Y and the range of all axes; a call that fails does not stop the next.
void JoySetProperties(Session& s);

/// Shows the assignments in the lists and enables their clicks. A button index that no list has, as from a damaged
/// file, becomes "None".
void JoyShowAssignments(Session& s);
/// The player chose `entry` of list `JButton` `index`; another action on the same button changes to "None".
void JButton_Click(Session& s, int index, std::int16_t entry);
/// The player chose `entry` of list `JAxis` `index`; the other use of the same axis changes to "None".
void JAxis_Click(Session& s, int index, std::int16_t entry);

/// Name of an axis code; "" for an unknown one.
std::string_view JoyAxisName(std::int16_t code);
/// Code of an axis name; 0 for an unknown one.
std::int16_t JoyAxisCode(std::string_view name);

/// The slider `JoyFactor` `index` 0..2 has changed to `value`, limited to 100..3000.
void SetJoyFactor(Session& s, int index, std::int16_t value);
/// The box `JoyRelative` `index`: 0 the pad, 1 the map.
void SetJoyRelative(Session& s, int index, bool on);

}  // namespace marvolin
