#pragma once
/// \file
/// What a set assigns to a joystick that has not come yet.

#include <cstdint>

#include "core/session.h"

namespace marvolin {

/// A set assigns button `button` 0..8 to action `index` 0..4. While there is no joystick that waits for the next one.
void JoyAssignButton(Session& s, int index, std::int16_t button);
/// A set assigns the axis of this code to use `index` 0..1. While there is no joystick that waits for the next one.
void JoyAssignAxis(Session& s, int index, std::int16_t code);

/// The button of action `index` as a save keeps it: what waits, else what is assigned.
std::int16_t JoyButtonToKeep(const Session& s, int index);
/// The axis of use `index` as a save keeps it: what waits, else what is assigned.
std::int16_t JoyAxisToKeep(const Session& s, int index);

/// Whether what waits says more than a set that was saved where there has been no joystick: that has the buttons of a
/// start and no axis.
bool JoyAnythingWaits(const Session& s);
/// There has been no joystick, and nothing waits for one: the first sets what a start sets.
bool JoyIsOpen(const Session& s);
/// The boxes `JoyRelative` once the next joystick has come: as they are, or as a start sets them when nothing has set
/// them, so that both are off.
Table<Boolean, 2> JoyRelativeOfNext(const Session& s);

/// All that is assigned waits for the next joystick.
void JoyLetWait(Session& s);
/// What waits is assigned, to whatever joystick is there. It then no longer waits.
void JoyAssignWhatWaits(Session& s);

}  // namespace marvolin
