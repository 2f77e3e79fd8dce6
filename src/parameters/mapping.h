#pragma once
/// \file
/// The last step of every change of sound: setting, channel, master and pattern combined into one number for the sound
/// service.
///
/// A failure is shown once: the same failure of the same row is shown again only after the routine has worked outside a
/// clocked mode, or the row was started, stopped or emptied.

#include "core/session.h"

namespace marvolin {

/// Volume of a loaded row, -10000..0 hundredths of a decibel. Errors: "setting volume". A product between 499
/// and 500, which only a pattern's random part can give, is full level.
void MapVol(Session& s, Row row);
/// Pan of a loaded row, -10000..10000 hundredths of a decibel; nothing while `Use3D`. Errors: "panning".
void MapPan(Session& s, Row row);
/// Rate of a loaded row, 100..100000 Hz. Errors: "setting frequency".
void MapHZ(Session& s, Row row);

/// The same for rows 0..3.
void MapVolAll(Session& s);
void MapPanAll(Session& s);
void MapHZAll(Session& s);

}  // namespace marvolin
