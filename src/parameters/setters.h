#pragma once
/// \file
/// The row setters and gang setters of volume, pan and frequency. Nothing else writes `Vol`, `Pan` or `Hz`.

#include <string>

#include "core/session.h"

namespace marvolin {

/// Whether a row setter sends the value to the sound at once.
enum class TakeHold : bool { No, Yes };
/// Whether the line of the row's sound display follows the volume.
enum class UpdateDisplay : bool { No, Yes };

/// Stores one row's volume, limited in place to 0..500. With `TakeHold::Yes` row 5 sends the volume of all rows.
void LoopVolChange(Session& s, Row row, std::int16_t& vol, TakeHold takeHold, UpdateDisplay updateDisplay);
/// Stores one row's pan, limited in place to 0..1000.
void LoopPanChange(Session& s, Row row, std::int16_t& pan, TakeHold takeHold);
/// Stores one row's frequency, limited in place to 1..4000.
void LoopHzChange(Session& s, Row row, std::int16_t& hz, TakeHold takeHold);

/// The same volume, 0..500, for the controlled rows and row 4, for the row's band, or for the row; heard at once.
void LoopVolChangeGang(Session& s, Row row, std::int16_t vol, UpdateDisplay updateDisplay);
/// The same grouping for the pan, 0..1000; does nothing at all while `Use3D`.
void LoopPanChangeGang(Session& s, Row row, std::int16_t pan);
/// The same grouping for the frequency, 1..4000; heard at once.
void LoopHzChangeGang(Session& s, Row row, std::int16_t hz);

/// Number of the picture, 0..63, of a knob at `value` on the scale from `bottom` to `top`.
int KnobFrame(double value, double top, double bottom);

/// Readouts: "Vol: 500", "Pan: Left (-100)", "Freq: 99.5%".
std::string Vol2Text(std::int16_t vol);
std::string Pan2Text(std::int16_t pan);
std::string Hz2Text(std::int16_t hz);

}  // namespace marvolin
