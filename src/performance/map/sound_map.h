#pragma once
/// \file
/// The sound map: the four LoopTracks and the listener as balls on a field.
///
/// A place is stored in twips from the map's centre (`BallPos`) and in map units (`PositionX`, `PositionY`,
/// `ListenerX`, `ListenerY`), which the sound service gets. The half width converts one to the other, on both axes.

#include <string>

#include "core/session.h"
#include "performance/move_flags.h"

namespace marvolin {

/// Ends of the gauge `MapSize`: 0.5 to 10.0 map units.
inline constexpr std::int16_t kMapSizeLow = 5;
inline constexpr std::int16_t kMapSizeHigh = 100;
/// Ends of the gauge `RollOff`: factor 0.0 to 10.0.
inline constexpr std::int16_t kRollOffLow = 0;
inline constexpr std::int16_t kRollOffHigh = 100;
inline constexpr std::int16_t kPlainRollOff = 10;  ///< the default

/// Entries of the list `PosMacros`, by the numbers of `PosMacro`.
enum PositionMacro : std::int16_t { kMacroOff, kMacroScatterAbs, kMacroScatterRel, kMacroWander, kMacroWanderJump };

/// Sets up the balls, the listener and the defaults. Needs the geometry.
void MapInit(Session& s);

/// Moves a ball (0..3 LoopTracks, 4 the listener) in twips, limited to the map, and shows its place. When the sound
/// service refuses ("placing sound") the ball stays where it was and a wander ends: its next step would open another
/// box over the first. False when the service refuses.
bool PosMove(Session& s, double x, double y, int ball, MoveFlags flags);
/// The same from any unit; `scale` is the map's edge in it.
bool PosScaled(Session& s, double x, double y, int ball, double scale, MoveFlags flags);

/// Place of a ball in map units as it is shown: cut to two decimals.
BallPoint ShownPlace(const Session& s, int ball);

/// Double click on a ball: moves it to the centre and sends the place at once, whatever the boxes `PositionUpdate` say.
void PosBall_DblClick(Session& s, int ball);
/// Moves all five balls to the centre.
void CentreAll_Click(Session& s);
/// Brings the listener back onto the map and to the front.
void PosPop_Click(Session& s);

/// Sets the side of the map in map units, through the gauge: 0.5..10.0.
void SetMapSize(Session& s, double size);
/// The gauge `MapSize` has changed to `value`, limited to 5..100. Places in map units do not change, so the balls move
/// on the screen.
void MapSize_Change(Session& s, std::int16_t value);
/// The gauge `MapSize` moves under the hand: the balls follow, and the side is shown.
void MapSize_Moving(Session& s, std::int16_t value);

/// The gauge `RollOff` moves under the hand, 0..100.
void RollOff_Moving(Session& s, std::int16_t value);
/// The gauge `RollOff` is released: the left button sets the factor to `value` / 10, the right button to 1.
void RollOff_Release(Session& s, std::int16_t button, std::int16_t value);

/// The side of the map as the status line shows it: "3. x 3.".
std::string MapSizeText(const Session& s);
/// The gauge `RollOff` at rest as the status line shows it: "RollOff =1" for the default, else its factor as "2.5".
std::string RollOffText(const Session& s);

/// `tenths` / 10 in the format "##.#": the point is always there, a zero on either side of it never: ".5", "3.",
/// "12.5".
std::string TenthsText(std::int16_t tenths);

}  // namespace marvolin
