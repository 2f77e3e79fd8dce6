#pragma once
/// \file
/// The player's settings in a session file, under their keys.

#include "core/files/keyed_table.h"
#include "core/session.h"

namespace marvolin {

/// All settings, in the order of the file.
KeyedTable CollectSettings(const Session& s);
/// Those among them that the player works on: without the open tab and the device, which are looks and the machine's.
KeyedTable CollectSettingsOfWork(const Session& s);

/// `settings` were collected when no joystick had come and nothing waited for one (`JoyIsOpen`). What they say of its
/// axes, and of boxes that are both off, becomes what a start sets. Nothing is added.
void PutStartOfStick(const Session& s, KeyedTable& settings);

/// Applies the settings that `table` holds and leaves the others unchanged. Values that their control could not show
/// are ignored. Raises "Type mismatch" (13) or "Overflow" (6) for a value that is no number or does not fit.
void ApplySettings(Session& s, const KeyedTable& table);

}  // namespace marvolin
