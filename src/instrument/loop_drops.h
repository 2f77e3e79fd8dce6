#pragma once
/// \file
/// What a drop of one control on a LoopTrack means.

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

/// Help page of a LoopTrack row.
inline constexpr std::int32_t kLoopTrackTopic = 10022;

/// Whether a drop of `source` on LoopTrack `row` does anything, so that the pointer promises no drop in vain.
bool LoopTakesDrop(const Session& s, Row row, const DragSource& source);

/// A drop on the letter of `row`: under the dropper, the LoopTrack that started the drag takes volume, pan, frequency
/// and play mode of `row`. Any other drop is that of `LoopDragDrop`.
void Letr_DragDrop(Session& s, Row row, const DragSource& source);

/// A drop on `SndDisp`, `Letr` or `PosBall` of `row`. A source that means nothing here does nothing.
void LoopDragDrop(Session& s, Row row, const DragSource& source);

}  // namespace marvolin
