#pragma once
/// \file
/// 3D sound for headphones.

#include "core/session.h"

namespace marvolin {

/// Whether the switch does something: 3D sound is on, and the open device can. While no device is open the switch is
/// kept for the next one.
bool HeadphonesAvailable(const Session& s);

/// The player switched "Headphones". Heard at once; what plays goes on. Where the device refuses, the error is shown
/// as "switching headphones", and the switch stays as it was. Without 3D sound it is only remembered.
void Headphones_Click(Session& s, bool on);

/// Gives a newly opened device the switch. A device that cannot do it plays for speakers; the switch stays.
void HeadphonesRestore(Session& s);

}  // namespace marvolin
