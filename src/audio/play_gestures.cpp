#include "audio/play_gestures.h"

#include <cmath>

#include "audio/ds_error.h"
#include "audio/play_commands.h"
#include "audio/play_modes.h"
#include "audio/sample_buffers.h"
#include "audio/silent_starts.h"
#include "audio/transport.h"
#include "core/loops/grouping.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr double kTwipsPerMode = 100;

bool HoldsNoSample(const Session& s, Row row) { return row < kLoopTracks && s.Run[row].Loaded == False; }

void Release(Session& s, Row row, std::int16_t button) {
    if (HoldsNoSample(s, row)) return;
    const LoopTrackRun& run = s.Run[row];
    if (run.Paused != False) {
        LoopPlayCommand(s, row, PlayCommand::Resume);
    } else if (button == kLeftButton) {
        LoopPlayCommand(s, row, run.Playing != False ? PlayCommand::Stop : PlayCommand::Play);
    }
}

// The LoopTrack that a `LoopIt` stands for: number 5 is the large one of the pattern tab.
Row LoopItRow(const Session& s, Row row) { return row == kMasterRow ? s.CurrentLoop : row; }

void JumpIfLoaded(Session& s, Row row) {
    if (s.Run[row].Loaded != False) BufferOf(s, row).SetCurrentPosition(0);
}

void JumpToBeginning(Session& s, Row row) {
    try {
        if (row == kSelectionRow) {
            if (s.GangReady) ForControlled(s, [&](Row each) { JumpIfLoaded(s, each); });
        } else if (s.Run[row].Loaded != False) {
            if (s.Run[row].InBand != False) {
                ForBand(s, s.Run[row].Band, [&](Row each) { JumpIfLoaded(s, each); });
            } else {
                JumpIfLoaded(s, row);
            }
        }
    } catch (const RuntimeError& e) {
        ShowDSError(s, "positioning to loop start", e.Number());
    }
}

void PlayAllByHand(Session& s) {
    const auto before = PlayingRows(s);
    PlayAll(s);
    TellSilentStarts(s, before);
}

void StartModeDrag(Session& s, Row row, double y) {
    s.Drag.Dragging = True;
    s.Drag.DragOrigin = static_cast<float>(y);
    s.Drag.DragPlayMode = s.Set[LoopItRow(s, row)].PlayMode;
    s.Drag.DragStartValue = s.Drag.DragPlayMode;
    s.Drag.DragPlayModeRow = row;
    s.Drag.Moved = false;
}

void ChooseMode(Session& s, double y) {
    const double modes = std::trunc((s.Drag.DragOrigin - y) / kTwipsPerMode);
    if (modes != 0) s.Drag.Moved = true;
    const double chosen = ClampVar(s.Drag.DragStartValue + modes, kOneShot, kDrum);
    s.Drag.DragPlayMode = static_cast<std::int16_t>(chosen);
    s.World.Screen.ShowPlayMode(s.Drag.DragPlayModeRow);
}

bool IsModeDrag(const Session& s, Row row) { return s.Drag.Dragging != False && s.Drag.DragPlayModeRow == row; }

void EndModeDrag(Session& s, Row row) {
    s.Drag.Dragging = False;
    s.Drag.DragPlayModeRow = -1;
    // A click chooses nothing: it must not give the mode of one row to its whole gang.
    if (s.Drag.Moved) LoopSetPlayModeRows(s, LoopItRow(s, row), s.Drag.DragPlayMode);
    s.World.Screen.ShowPlayMode(row);
}

}  // namespace

void Play_MouseDown(Session& s, Row row, std::int16_t button) {
    if (button != kRightButton) return;
    try {
        if (HoldsNoSample(s, row) || s.Run[row].Playing == False) return;
        LoopPlayCommand(s, row, PlayCommand::Pause);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "stopping/playing loop", e.Number());
    }
}

void Play_MouseUp(Session& s, Row row, std::int16_t button) {
    const auto before = PlayingRows(s);
    try {
        Release(s, row, button);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "stopping/playing loop", e.Number());
    }
    TellSilentStarts(s, before);
}

PlayStopZone PlayStopZoneAt(double y, double height) {
    if (y < 0 || y > height) return PlayStopZone::None;
    if (y < height * 3 / 8) return PlayStopZone::Play;
    return y >= height * 5 / 8 ? PlayStopZone::Stop : PlayStopZone::None;
}

void PlayStop_MouseUp(Session& s, double y, double height) {
    switch (PlayStopZoneAt(y, height)) {
        case PlayStopZone::Play:
            return PlayAllByHand(s);
        case PlayStopZone::Stop:
            return StopAll(s);
        case PlayStopZone::None:
            return;
    }
}

void PlayStop_Activate(Session& s) {
    bool plays = false;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackRun& run = s.Run[row];
        plays = plays || run.Playing != False || (!s.DSReady && run.InHand.Playing);
    }
    if (plays) {
        StopAll(s);
    } else {
        PlayAllByHand(s);
    }
}

void LoopIt_Gesture(Session& s, Row row, Phase phase, std::int16_t button, double y) {
    switch (phase) {
        case Phase::Down:
            if (button == kRightButton) return JumpToBeginning(s, LoopItRow(s, row));
            return StartModeDrag(s, row, y);
        case Phase::Move:
            if (IsModeDrag(s, row)) ChooseMode(s, y);
            return;
        case Phase::Up:
            if (!IsModeDrag(s, row)) return;
            ChooseMode(s, y);
            EndModeDrag(s, row);
            return;
    }
}

void LoopIt_DblClick(Session& s, Row row) {
    const Row loop = LoopItRow(s, row);
    LoopSetPlayMode(s, loop, kLoop, true);
    if (row != loop) s.World.Screen.ShowPlayMode(row);
}

void LoopIt_Step(Session& s, Row row, int units) {
    if (s.Drag.Dragging != False) return;
    const Row loop = LoopItRow(s, row);
    const double mode = ClampVar(static_cast<double>(s.Set[loop].PlayMode) + units, kOneShot, kDrum);
    // Beyond the end it would give the gang the mode that the row has.
    if (mode != s.Set[loop].PlayMode) LoopSetPlayModeRows(s, loop, static_cast<std::int16_t>(mode));
}

std::int16_t LoopItMode(const Session& s, Row row) {
    return IsModeDrag(s, row) ? s.Drag.DragPlayMode : s.Set[LoopItRow(s, row)].PlayMode;
}

}  // namespace marvolin
