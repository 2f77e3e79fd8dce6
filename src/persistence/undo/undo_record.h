#pragma once
/// \file
/// One step that can be taken back: what it changed, as it was on the other side of it.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "core/undo/undo_step.h"
#include "persistence/undo/clip_splice.h"
#include "persistence/undo/instrument_state.h"
#include "persistence/undo/row_state.h"

namespace marvolin {

inline constexpr int kUndoRows = kLoopTracks + 1;  ///< the LoopTracks and the selection row
using RowStates = Table<RowState, kUndoRows>;

/// What a step may change, as parts.
struct UndoLimits {
    RowParts Rows = 0;
    InstrumentParts Rest = 0;
    bool Clips = false;
};
UndoLimits LimitsOf(UndoScope scope);

/// The instrument at one moment.
struct UndoSnapshot {
    RowStates Rows;
    InstrumentState Rest;
    std::optional<ClipRun> Clips;
};
/// The instrument as it is. No byte of a sample is copied.
UndoSnapshot TakeSnapshot(Session& s, const UndoLimits& limits);
/// Captures what `limits` ask for beyond what `snapshot` has.
void Widen(Session& s, UndoSnapshot& snapshot, const UndoLimits& limits);

/// What has changed since `since` counts as it is now from the start: it is no part of what has changed since `before`.
/// Parts that had changed from `before` to `since` keep their value.
void LeaveOut(Session& s, UndoSnapshot& before, const UndoSnapshot& since);

/// The memory of a sample that could not come back into its row.
struct UnheardSample {
    std::string Path;
    std::shared_ptr<KeptSample> Sample;
};

/// A step. Its values are those of the time before it; after it has been taken back, those of the time after it.
struct UndoRecord {
    std::string Text;
    UndoKind Kind = UndoKind::Single;
    Table<RowParts, kUndoRows> RowsChanged;
    RowStates Rows;
    InstrumentParts RestChanged = 0;
    InstrumentState Rest;
    std::optional<ClipSplice> Clips;
    /// Of what waits in the rows since the last exchange. Their memory comes with them when they come back again.
    Table<UnheardSample, kUndoRows> Unheard;
    /// The order of thinning right after the step, or after its last exchange.
    std::string OrderAfter;
    /// Rows that the limit stopped at the last exchange, though they should have played on, and those that came back
    /// with it. While the order is as it was left, the next one starts the former again, and the latter are the first
    /// that the limit stops.
    Table<bool, kUndoRows> Thinned;
    /// Those of them whose fade came back with them: their level is exchanged, too.
    Table<bool, kUndoRows> FadeThinned;

    bool Empty() const;
};

/// What has changed since `before`, as far as `limits` allow.
UndoRecord MakeRecord(Session& s, const UndoSnapshot& before, const UndoLimits& limits);
/// Whether the instrument is as it was before the step: nothing would be taken back.
bool ChangesNothing(Session& s, const UndoRecord& step);
/// Makes two steps that follow each other one. False, and nothing done, when both or one of them change clips or a set.
bool Join(UndoRecord& earlier, UndoRecord& later);
/// Exchanges what the step changed with what is there: takes it back, or does it again. Only that is touched. Returns
/// the names of samples that wait for a device.
std::vector<std::string> Exchange(Session& s, UndoRecord& step);

/// The samples that the step keeps in memory.
std::vector<const KeptSample*> KeptBy(const UndoRecord& step);
/// Gives the memory of its samples up; they come back from their files.
void GiveUpSamples(UndoRecord& step);
/// Gives the memory of one sample up, in any row.
void GiveUp(UndoRecord& step, const KeptSample* sample);
void GiveUp(UndoSnapshot& snapshot, const KeptSample* sample);

}  // namespace marvolin
