#pragma once
/// \file
/// What a drop on a LoopTrack means, and the dropper, which gives one LoopTrack the settings of another.

#include <optional>
#include <string>
#include <string_view>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

inline constexpr std::string_view kLetrHint =
    "drg Start Dropper Op; rtdrg Start Fade Drg & Drop; dblclk Toggle Thinnable";

/// Help page of a LoopTrack row.
inline constexpr std::int32_t kLoopTrackTopic = 10022;

/// Reads and writes the tags of the dropper: "Dropper~~" and the row that started the drag.
class clsDropperManager {
public:
    /// True if the source's tag begins with "Dropper~~".
    bool IsDropping(const DragSource& source) const;
    /// The number behind "Dropper~~"; -1 when there is none.
    std::int16_t DroppingTo(const DragSource& source) const;
    /// The tag for a drag that starts at `row`.
    std::string DropTo(Row row) const;
};

/// A press on the letter of `row`: left begins the dropper, right the fade drag.
std::optional<DragSource> Letr_MouseDown(Session& s, Row row, std::int16_t button);
/// Double click on a letter: flips `Thinnable`; row 4 has none.
void Letr_DblClick(Session& s, Row row);
/// A drop on the letter of `row`: under the dropper, the LoopTrack that started the drag takes volume, pan, frequency
/// and play mode of `row`. Any other drop is that of `LoopDragDrop`.
void Letr_DragDrop(Session& s, Row row, const DragSource& source);

/// A drop on `SndDisp`, `Letr` or `PosBall` of `row`. A source that means nothing here does nothing.
void LoopDragDrop(Session& s, Row row, const DragSource& source);

}  // namespace marvolin
