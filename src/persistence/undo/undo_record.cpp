#include "persistence/undo/undo_record.h"

#include <algorithm>

#include "audio/loop_clearing.h"
#include "audio/thinning.h"
#include "audio/transport.h"
#include "core/files/paths.h"
#include "core/loops/loop_views.h"
#include "performance/map/use_3d.h"
#include "persistence/undo/instrument_restore.h"
#include "persistence/undo/row_restore.h"
#include "persistence/undo/undo_goal.h"
#include "persistence/undo/undo_thinned.h"

namespace marvolin {

namespace {

constexpr RowParts kPatternParts = kVolPatternPart | kHzPatternPart | kPanPatternPart | kNStepsPart;
constexpr InstrumentParts kOfRows = kBandsPart | kHistoryPart | kThinListPart | kMacroPart | kWireChoicePart;
constexpr InstrumentParts kOfSet =
    kPadPart | k3dPart | kRollOffPart | kMapSizePart | kNamesPart | kSettingsPart | kBinsPart;

// A row keeps the memory of its sample only where the sample comes back with it.
void KeepOnlyChanged(UndoRecord& step) {
    for (Row row = 0; row < kUndoRows; ++row) {
        if ((step.RowsChanged[row] & kSamplePart) == 0) step.Rows[row].Sample.reset();
    }
}

bool Switches3D(const Session& s, const UndoRecord& step) {
    return (step.RestChanged & k3dPart) != 0 && step.Rest.Use3D != s.Use3D;
}

// A change of 3D makes all buffers anew, so all samples come back from their memory, also those of other rows.
void TakeAlongAllRows(UndoRecord& step, const UndoSnapshot& now) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (now.Rows[row].Loaded == False && (step.RowsChanged[row] & kSamplePart) == 0) continue;
        CopyParts(step.Rows[row], now.Rows[row], kAllRowParts & ~step.RowsChanged[row]);
        step.RowsChanged[row] = kAllRowParts;
    }
}

// The open output stays in use: a set may have chosen another one, which counts from the hand's next change on.
void Change3D(Session& s, bool on) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Loaded != False) LoopUnload(s, row);
    }
    const std::int16_t chosen = s.Driver;
    if (s.DSReady) s.Driver = s.OpenDriver;
    ChangeUse3D(s, on);
    s.Driver = chosen;
    s.World.Screen.ShowDrivers();
}

InstrumentState RestOf(Session& s, InstrumentParts parts) {
    InstrumentState rest;
    CaptureParts(s, rest, parts);
    return rest;
}

// What plays for row Z is as it was; but nothing does when the last row has fallen silent. Rows that wait for a device
// leave row Z alone.
void RestorePlayingOfSelection(Session& s, const UndoGoal& goal, const UndoSnapshot& now) {
    const auto plays = [](const RowState& row) { return row.InHand.Playing; };
    const bool played = std::any_of(now.Rows.begin(), now.Rows.begin() + kLoopTracks, plays);
    bool playing = false;
    for (Row row = 0; row < kLoopTracks; ++row) playing = playing || s.Run[row].Playing != False;
    const bool shown = plays(goal.Rows[kSelectionRow]) && (playing || !played || !s.DSReady);
    s.Run[kSelectionRow].Playing = ToBoolean(shown);
    s.World.Screen.ShowPlay(kSelectionRow);
}

// What still waits as it did after the last exchange has its memory in the record.
void TakeUnheard(UndoRecord& step, UndoSnapshot& now) {
    for (Row row = 0; row < kUndoRows; ++row) {
        UnheardSample& unheard = step.Unheard[row];
        const RowState& is = now.Rows[row];
        if (is.Loaded == False && is.InHand.FileName == unheard.Path) now.Rows[row].Sample = unheard.Sample;
        unheard = {};
    }
}

/// The samples that wait now, each in its row.
using WaitingRows = Table<UnheardSample, kUndoRows>;

WaitingRows Restore(Session& s, const UndoGoal& goal, const UndoSnapshot& now) {
    WaitingRows waiting;
    RestoreSpace(s, goal.Rest, goal.RestChanged);
    for (Row row = 0; row < kUndoRows; ++row) {
        if (RestoreSample(s, row, goal.Rows[row], goal.Changed[row]) == SampleBack::Waits) {
            waiting[row] = {s.Run[row].InHand.FileName, goal.Rows[row].Sample};
        }
    }
    for (Row row = 0; row < kUndoRows; ++row) RestoreSettings(s, row, goal.Rows[row], goal.Changed[row]);
    RestoreTables(s, goal.Rest, goal.RestChanged);
    // All rows start at the end, so that they stay together.
    for (Row row = 0; row < kUndoRows; ++row) RestoreSounding(s, row, goal.Rows[row], goal.Changed[row]);
    RestoreThinList(s, goal.Rest.ThinList);
    RestoreOptions(s, goal.Rest, now.Rest, goal.RestChanged);
    // The hand may have lowered the limit since.
    ThinTo(s);
    RestorePlayingOfSelection(s, goal, now);
    PatternsRefresh(s);
    return waiting;
}

}  // namespace

UndoLimits LimitsOf(UndoScope scope) {
    switch (scope) {
        case UndoScope::Rows:
            return {kAllRowParts, kOfRows, false};
        case UndoScope::Patterns:
            return {kPatternParts, 0, false};
        case UndoScope::Selection:
            return {kSelectedPart | kBandPart, kBandsPart, false};
        case UndoScope::Clips:
            return {0, 0, true};
        case UndoScope::Everything:
            return {kAllRowParts, kOfRows | kOfSet, true};
    }
    return {};
}

UndoSnapshot TakeSnapshot(Session& s, const UndoLimits& limits) {
    UndoSnapshot snapshot;
    for (Row row = 0; row < kUndoRows; ++row) snapshot.Rows[row] = CaptureRow(s, row);
    Widen(s, snapshot, limits);
    return snapshot;
}

void Widen(Session& s, UndoSnapshot& snapshot, const UndoLimits& limits) {
    CaptureParts(s, snapshot.Rest, limits.Rest);
    if (limits.Clips && !snapshot.Clips) snapshot.Clips = ClipRun{s.Clips.ClipStore, s.Clips.List};
}

void LeaveOut(Session& s, UndoSnapshot& before, const UndoSnapshot& since) {
    for (Row row = 0; row < kUndoRows; ++row) {
        const RowState now = CaptureRow(s, row);
        const RowParts own = DifferentParts(before.Rows[row], since.Rows[row]);
        CopyParts(before.Rows[row], now, DifferentParts(since.Rows[row], now) & ~own);
    }
    const InstrumentState now = RestOf(s, since.Rest.Captured);
    const InstrumentParts own = DifferentParts(before.Rest, since.Rest);
    CopyParts(before.Rest, now, DifferentParts(since.Rest, now) & ~own);
}

bool UndoRecord::Empty() const {
    const bool rows = std::any_of(RowsChanged.begin(), RowsChanged.end(), [](RowParts parts) { return parts != 0; });
    return !rows && RestChanged == 0 && !Clips;
}

UndoRecord MakeRecord(Session& s, const UndoSnapshot& before, const UndoLimits& limits) {
    UndoRecord step;
    step.Rows = before.Rows;
    step.Rest = before.Rest;
    for (Row row = 0; row < kUndoRows; ++row) {
        // What plays for row Z depends on what is selected.
        const bool plays = row == kSelectionRow && (limits.Rows & kSelectedPart) != 0;
        const RowParts allowed = plays ? limits.Rows | kSoundingPart : limits.Rows;
        const RowState now = CaptureRow(s, row);
        RowParts different = DifferentParts(before.Rows[row], now);
        // A fade that comes back moves the level on, so what stands in its place on the other side must keep its own.
        if ((different & kSoundingPart) != 0 && (Fades(before.Rows[row]) || Fades(now))) different |= kFadedParts;
        step.RowsChanged[row] = allowed & different;
    }
    const InstrumentState rest = RestOf(s, limits.Rest);
    step.RestChanged = DifferentParts(before.Rest, rest);
    step.Rest.Settings = DifferentSettings(before.Rest.Settings, rest.Settings);
    if (limits.Clips && before.Clips) {
        const ClipSplice splice(*before.Clips, s.Clips);
        if (!splice.Empty()) step.Clips = splice;
    }
    step.OrderAfter = s.ThinList;
    KeepOnlyChanged(step);
    return step;
}

bool ChangesNothing(Session& s, const UndoRecord& step) {
    if (step.Clips) return false;
    for (Row row = 0; row < kUndoRows; ++row) {
        if ((step.RowsChanged[row] & DifferentParts(step.Rows[row], CaptureRow(s, row))) != 0) return false;
    }
    return DifferentParts(step.Rest, RestOf(s, step.RestChanged)) == 0;
}

bool Join(UndoRecord& earlier, UndoRecord& later) {
    if (earlier.Clips || later.Clips || ((earlier.RestChanged | later.RestChanged) & kOfSet) != 0) return false;
    for (Row row = 0; row < kUndoRows; ++row) {
        const RowParts added = later.RowsChanged[row] & ~earlier.RowsChanged[row];
        CopyParts(earlier.Rows[row], later.Rows[row], added);
        earlier.RowsChanged[row] |= added;
    }
    const InstrumentParts added = later.RestChanged & ~earlier.RestChanged;
    CopyParts(earlier.Rest, later.Rest, added);
    earlier.RestChanged |= added;
    earlier.OrderAfter = std::move(later.OrderAfter);
    return true;
}

std::vector<std::string> Exchange(Session& s, UndoRecord& step) {
    // The order of thinning is put in order in any case.
    UndoSnapshot now = TakeSnapshot(s, {kAllRowParts, step.RestChanged | kThinListPart, false});
    const bool anew = Switches3D(s, step);
    const Table<RowParts, kUndoRows> own = step.RowsChanged;
    TakeAlongThinned(step, now);
    const RowStates other = step.Rows;
    if (anew) TakeAlongAllRows(step, now);
    const UndoGoal goal = GoalOf(step, now, anew);
    if (anew) Change3D(s, goal.Rest.Use3D);
    TakeUnheard(step, now);
    step.Unheard = Restore(s, goal, now);
    RestoreLevelOfThinned(s, step, now, other);
    if (step.Clips) step.Clips->Exchange(s);
    step.RowsChanged = own;
    // What the hand has started since the step, or stopped, may have put the rows in another order.
    if (s.ThinList != now.Rest.ThinList) step.RestChanged |= kThinListPart;
    step.Thinned = ThinnedBy(s, step, now, goal);
    step.OrderAfter = s.ThinList;
    step.Rows = std::move(now.Rows);
    now.Rest.Settings = SettingsWithKeysOf(now.Rest.Settings, step.Rest.Settings);
    step.Rest = std::move(now.Rest);
    KeepOnlyChanged(step);
    std::vector<std::string> names;
    for (const UnheardSample& waits : step.Unheard) {
        if (!waits.Path.empty()) names.push_back(SampleName(waits.Path));
    }
    return names;
}

std::vector<const KeptSample*> KeptBy(const UndoRecord& step) {
    std::vector<const KeptSample*> kept;
    for (const RowState& row : step.Rows) {
        if (row.Sample) kept.push_back(row.Sample.get());
    }
    for (const UnheardSample& waits : step.Unheard) {
        if (waits.Sample) kept.push_back(waits.Sample.get());
    }
    return kept;
}

void GiveUpSamples(UndoRecord& step) {
    for (RowState& row : step.Rows) row.Sample.reset();
    for (UnheardSample& waits : step.Unheard) waits.Sample.reset();
}

void GiveUp(UndoRecord& step, const KeptSample* sample) {
    for (RowState& row : step.Rows) {
        if (row.Sample.get() == sample) row.Sample.reset();
    }
    for (UnheardSample& waits : step.Unheard) {
        if (waits.Sample.get() == sample) waits.Sample.reset();
    }
}

void GiveUp(UndoSnapshot& snapshot, const KeptSample* sample) {
    for (RowState& row : snapshot.Rows) {
        if (row.Sample.get() == sample) row.Sample.reset();
    }
}

}  // namespace marvolin
