#include "persistence/undo/row_restore.h"

#include <string>

#include "audio/beat_start.h"
#include "audio/ds_error.h"
#include "audio/loop_clearing.h"
#include "audio/loop_controls.h"
#include "audio/play_modes.h"
#include "audio/reverse.h"
#include "audio/sample_buffers.h"
#include "audio/transport.h"
#include "core/files/paths.h"
#include "core/routines.h"
#include "parameters/mapping.h"
#include "parameters/position.h"
#include "parameters/setters.h"
#include "parameters/wires.h"

namespace marvolin {

namespace {

constexpr Row kNoRow = -1;

bool AsksRow(RowParts parts, RowParts any) { return (parts & any) != 0; }

void TakeOut(Session& s, Row row) {
    LoopTrackRun& run = s.Run[row];
    if (run.Loaded != False) {
        LoopUnload(s, row);
    } else {
        LoopStop(s, row);
    }
    run.InHand = {};
    run.Paused = False;
    run.Reversed = False;
    s.Set[row].FileName = "";
    s.Set[row].Length = 0;
    s.World.Screen.ShowPlay(row);
}

/// A row that holds the file in another memory: the two must share one, as after any load. -1 for none.
Row OtherHolder(Session& s, const std::string& path, const std::shared_ptr<KeptSample>& sample) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackRun& run = s.Run[row];
        const bool holds = run.Loaded != False && run.Buffer && s.Set[row].FileName == path;
        if (holds && (!sample || run.Buffer->Keep() != sample)) return row;
    }
    return kNoRow;
}

bool TakeBuffer(Session& s, Row row, const std::string& path, const std::shared_ptr<KeptSample>& sample) {
    const Row other = OtherHolder(s, path, sample);
    if (other != kNoRow) return LoopDuplicateBuffer(s, row, other) == 0;
    if (sample) return LoopKeptBuffer(s, row, sample) == 0;
    return FileExists(path) && LoopCreateBuffer(s, row, path) == 0;
}

void ReadFacts(Session& s, Row row, const std::string& path) {
    LoopTrackSet& set = s.Set[row];
    DirectSoundBuffer& buffer = BufferOf(s, row);
    const WaveFormat format = buffer.GetFormat();
    set.FileName = path;
    set.SampleRate = format.SamplesPerSec;
    set.BufferBytes = buffer.GetCaps().BufferBytes;
    set.AvgBytesPerSec = format.AvgBytesPerSec;
    set.Length = format.AvgBytesPerSec == 0 ? 0 : static_cast<double>(set.BufferBytes) / format.AvgBytesPerSec;
    const auto sample = buffer.Keep();
    s.Run[row].Reversed = ToBoolean(sample && sample->Backwards);
    s.Run[row].Loaded = True;
}

/// False when the service refuses; the row is empty then.
bool PutIn(Session& s, Row row, const std::string& path, const std::shared_ptr<KeptSample>& sample) {
    if (!s.DSReady || !TakeBuffer(s, row, path, sample)) return false;
    try {
        ReadFacts(s, row, path);
        return true;
    } catch (const RuntimeError& e) {
        ReleaseBuffer(s, row);
        s.Set[row].FileName = "";
        ShowDSError(s, "creating sound buffer", e.Number());
        return false;
    }
}

void RestoreMode(Session& s, Row row, const RowState& goal, RowParts parts) {
    // A row that starts anew does so in its mode; any other changes it while it sounds.
    if (!AsksRow(parts, kSamplePart | kSoundingPart)) return LoopSetPlayMode(s, row, goal.Set.PlayMode, false);
    s.Set[row].PlayMode = goal.Set.PlayMode;
    s.World.Screen.ShowPlayMode(row);
    if (row == s.CurrentLoop) s.World.Screen.ShowPlayMode(kMasterRow);
}

void RestoreBeatStart(Session& s, Row row, const RowState& goal) {
    LoopTrackRun& run = s.Run[row];
    if (run.Loaded == goal.Loaded && !Waits(run)) {
        s.Set[row].BeatStart = goal.Set.BeatStart;
        run.BeatStartBytes = goal.BeatStartBytes;
        return;
    }
    std::int32_t start = goal.Set.BeatStart;
    if (Waits(run)) run.InHand.BeatStart = start;
    LoopSetBeatStart(s, row, start);
}

void RestoreDirection(Session& s, Row row, const RowState& goal) {
    LoopTrackRun& run = s.Run[row];
    if (Waits(run)) run.InHand.Reversed = goal.Reversed != False;
    if (run.Loaded != False && run.Reversed != goal.Reversed) LoopReverse(s, row);
}

// What no setter has an effect of its own for.
void RestoreRecord(Session& s, Row row, const RowState& goal, RowParts parts) {
    LoopTrackSet& set = s.Set[row];
    if (AsksRow(parts, kThinnablePart)) set.Thinnable = goal.Set.Thinnable;
    if (AsksRow(parts, kStepDurationPart)) set.StepDuration = goal.Set.StepDuration;
    if (AsksRow(parts, kSwingPart)) set.Swing = goal.Set.Swing;
    if (AsksRow(parts, kNStepsPart)) set.NSteps = goal.Set.NSteps;
    if (AsksRow(parts, kVolPatternPart)) set.Pattern[kVolPattern] = goal.Set.Pattern[kVolPattern];
    if (AsksRow(parts, kHzPatternPart)) set.Pattern[kHzPattern] = goal.Set.Pattern[kHzPattern];
    if (AsksRow(parts, kPanPatternPart)) set.Pattern[kPanPattern] = goal.Set.Pattern[kPanPattern];
    if (AsksRow(parts, kBeatStartPart)) RestoreBeatStart(s, row, goal);
    if (AsksRow(parts, kSelectedPart)) {
        set.Selected = goal.Set.Selected;
        s.World.Screen.ShowSelected(row);
    }
    if (AsksRow(parts, kBandPart)) {
        s.Run[row].InBand = goal.InBand;
        s.Run[row].Band = goal.Band;
    }
}

void RestoreKnobs(Session& s, Row row, const RowState& goal, RowParts parts) {
    std::int16_t hz = goal.Set.Hz;
    if (AsksRow(parts, kHzPart)) LoopHzChange(s, row, hz, TakeHold::Yes);
    std::int16_t pan = goal.Set.Pan;
    if (AsksRow(parts, kPanPart)) LoopPanChange(s, row, pan, TakeHold::Yes);
    std::int16_t vol = goal.Set.Vol;
    if (AsksRow(parts, kVolPart)) LoopVolChange(s, row, vol, TakeHold::Yes, UpdateDisplay::No);
    if (AsksRow(parts, kLinePart)) {
        s.SndDisp[row].Line = goal.Line;
        s.World.Screen.ShowSoundDisplay(row);
    }
    std::int16_t channel = goal.Set.Channel;
    if (AsksRow(parts, kWirePart)) LoopSetChannel(s, row, channel, Apply::Yes);
}

}  // namespace

SampleBack RestoreSample(Session& s, Row row, const RowState& goal, RowParts parts) {
    if (!AsksRow(parts, kSamplePart)) {
        if (AsksRow(parts, kSoundingPart) && !goal.InHand.Playing) LoopStop(s, row);
        return SampleBack::Yes;
    }
    TakeOut(s, row);
    s.Run[row].Missing = goal.Missing;
    s.Set[row].SampleRate = goal.Set.SampleRate;
    s.Set[row].BufferBytes = goal.Set.BufferBytes;
    s.Set[row].AvgBytesPerSec = goal.Set.AvgBytesPerSec;
    const std::string path = goal.Loaded != False ? goal.Set.FileName : goal.InHand.FileName;
    SampleBack back = SampleBack::Yes;
    if (!path.empty() && !PutIn(s, row, path, goal.Sample)) {
        HeldSample waiting = goal.InHand;
        waiting.FileName = path;
        waiting.BeatStart = goal.Set.BeatStart;
        waiting.Reversed = goal.Reversed != False;
        s.Run[row].InHand = waiting;
        back = SampleBack::Waits;
    }
    EnableLoopControls(s, row, s.Run[row].Loaded != False);
    s.World.Screen.ShowDestinations();
    s.World.Screen.ShowCaption(row);
    s.World.Screen.ShowWaveform(row);
    return back;
}

void RestoreSettings(Session& s, Row row, const RowState& goal, RowParts parts) {
    const bool anew = AsksRow(parts, kSamplePart);
    if (anew) parts = kAllRowParts;
    if (AsksRow(parts, kSoundingPart)) {
        SetClock(s.Run[row], goal.Clock);
        s.Run[row].MapError = {};
    }
    if (AsksRow(parts, kModePart)) RestoreMode(s, row, goal, parts);
    RestoreRecord(s, row, goal, parts);
    if (AsksRow(parts, kReversedPart)) RestoreDirection(s, row, goal);
    RestoreKnobs(s, row, goal, parts);
    if (row == kSelectionRow) return;
    if (AsksRow(parts, kPlacePart)) {
        TryPositionSet(s, row, goal.Set.PositionX, goal.Set.PositionY, {.Apply = true, .StoreBall = true});
    }
    if (AsksRow(parts, kThinnablePart | kWirePart)) s.World.Screen.ShowCaption(row);
    // In the colours of the step at which the row was.
    if (!AsksRow(parts, kSoundingPart)) return;
    MapHZ(s, row);
    MapPan(s, row);
    MapVol(s, row);
}

void RestoreSounding(Session& s, Row row, const RowState& goal, RowParts parts) {
    if (!AsksRow(parts, kSamplePart | kSoundingPart) || row == kSelectionRow) return;
    LoopTrackRun& run = s.Run[row];
    const HeldSample& was = goal.InHand;
    if (run.Loaded == False) {
        CopySounding(run.InHand, was);
        return;
    }
    run.Playing = ToBoolean(was.Playing);
    run.Paused = ToBoolean(was.Paused);
    try {
        DirectSoundBuffer& buffer = BufferOf(s, row);
        const std::int32_t place = was.Cursor < s.Set[row].BufferBytes ? was.Cursor : StartPosition(s, row);
        if (!was.Sounds && (buffer.GetStatus() & buffer_status::kPlaying) != 0) buffer.Stop();
        if (place != 0) buffer.SetCurrentPosition(place);
        if (was.Sounds) buffer.Play(was.Loops ? 1 : 0);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "playing loop", e.Number());
    }
    s.World.Screen.ShowPlay(row);
}

}  // namespace marvolin
