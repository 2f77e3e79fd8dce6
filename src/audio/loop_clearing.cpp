#include "audio/loop_clearing.h"

#include "audio/beat_start.h"
#include "audio/loop_controls.h"
#include "audio/play_modes.h"
#include "audio/sample_buffers.h"
#include "audio/silent_starts.h"
#include "audio/thinning.h"
#include "audio/transport.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_resets.h"
#include "core/loops/loop_views.h"
#include "core/undo/undo_step.h"
#include "parameters/setters.h"

namespace marvolin {

void LoopUnload(Session& s, Row row) {
    LoopTrackRun& run = s.Run[row];
    if (run.Loaded != False) {
        LoopStop(s, row);
        ReleaseBuffer(s, row);
    }
    run.Loaded = False;
    run.Playing = False;
    s.Set[row].FileName = "";
    ResetLoopClock(s, row);
    s.World.Screen.ShowWaveform(row);
}

void LoopClear(Session& s, Row row) {
    if (row == kSelectionRow) return;
    LoopTrackSet& set = s.Set[row];
    LoopTrackRun& run = s.Run[row];
    if (run.Loaded != False) {
        LoopUnload(s, row);
    } else {
        LoopStop(s, row);
    }
    run.Loaded = False;
    run.Playing = False;
    run.InHand = {};
    run.Missing.reset();
    set.FileName = "";
    set.Length = 0;
    LoopSetPlayMode(s, row, kLoop, false);
    std::int16_t hz = kHzUnity;
    LoopHzChange(s, row, hz, TakeHold::Yes);
    std::int16_t vol = kVolFull;
    LoopVolChange(s, row, vol, TakeHold::Yes, UpdateDisplay::Yes);
    std::int16_t pan = kPanCentre;
    if (!s.Use3D) LoopPanChange(s, row, pan, TakeHold::Yes);
    run.Playing = False;
    s.World.Screen.ShowPlay(row);
    LoopSetThinnable(s, row, true);
    EnableLoopControls(s, row, false);
    set.StepDuration = 0;
    set.Swing = 0;
    std::int32_t beatStart = 0;
    LoopSetBeatStart(s, row, beatStart);
    for (int patternRow = 0; patternRow < kPatternRows; ++patternRow) PatternReset(s, row, patternRow);
    if (row == s.CurrentLoop) PatternsRefresh(s);
    s.World.Screen.ShowDestinations();
    s.World.Screen.ShowCaption(row);
}

void LoopClearRows(Session& s, Row row) {
    std::vector<Row> rows;
    if (row == kSelectionRow) {
        ForControlled(s, [&](Row each) { rows.push_back(each); });
    } else {
        rows.push_back(row);
    }
    const UndoStep step(s, "Clear of " + LettersOf(rows));
    for (const Row each : rows) LoopClear(s, each);
}

}  // namespace marvolin
