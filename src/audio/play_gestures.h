#pragma once
/// \file
/// Gestures on `Play`, `PlayStop` and `LoopIt`. Positions are in twips within the control.

#include "core/session.h"

namespace marvolin {

/// The right button pauses a playing row (0..4). Errors here and at the release: "stopping/playing loop".
void Play_MouseDown(Session& s, Row row, std::int16_t button);
/// Any button resumes a paused row; else the left one stops a playing row and plays any other. A row 0..3 that holds no
/// sample ignores it. Of what starts at volume 0, here and at `PlayStop`, the status line says how it is heard again.
void Play_MouseUp(Session& s, Row row, std::int16_t button);

/// What a release on `PlayStop` does: in its top three eighths it plays all rows, in its bottom three eighths it stops
/// all.
enum class PlayStopZone : std::uint8_t { Play, None, Stop };
/// The zone at `y` of a control of this `height`; none outside the control.
PlayStopZone PlayStopZoneAt(double y, double height);
/// A release at `y` on `PlayStop`, with any button.
void PlayStop_MouseUp(Session& s, double y, double height);
/// A key on `PlayStop`, which has no zone: stops all when anything plays, and plays all otherwise. While no device is
/// open, what will play with the next one counts.
void PlayStop_Activate(Session& s);

/// A gesture on `LoopIt` of `row`: 0..4, or 5 for the one that shows `CurrentLoop`. A drag moves the chosen mode by one
/// for each 100 twips, upwards to the next; the release sets it, but after a press that never moved so far it sets
/// nothing. A press of the right button jumps to the beginning of the sample, on the row, its band, or the controlled
/// rows. Errors: "positioning to loop start".
void LoopIt_Gesture(Session& s, Row row, Phase phase, std::int16_t button, double y);
/// Sets mode Loop on the row alone.
void LoopIt_DblClick(Session& s, Row row);
/// A notch of the wheel or an arrow key: the mode `units` further, for the gang of the row. Nothing when that is the
/// mode of the row, and nothing during a drag.
void LoopIt_Step(Session& s, Row row, int units);
/// Mode whose picture `LoopIt` shows: the chosen one during its drag, else that of the row.
std::int16_t LoopItMode(const Session& s, Row row);

}  // namespace marvolin
