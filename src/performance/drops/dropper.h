#pragma once
/// \file
/// The letter of a LoopTrack, and the dropper that is dragged from it: it gives one LoopTrack the settings of another.

#include <optional>
#include <string>

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

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
std::optional<DragSource> Letr_MouseDown(Row row, std::int16_t button);
/// Double click on a letter: flips `Thinnable`; row 4 has none.
void Letr_DblClick(Session& s, Row row);

/// Whether `source` is the dropper of another LoopTrack, and `row` not 4: only then does its drop on `row` change
/// anything.
bool DropperReaches(Row row, const DragSource& source);
/// When `source` is the dropper and `row` is not 4, the LoopTrack that started the drag takes the volume of `row`, and
/// the result is true. A drop on the LoopTrack itself changes nothing, also not the others of its band.
bool DropDropperOnDisplay(Session& s, Row row, const DragSource& source);
/// The same with volume, pan, frequency and play mode.
bool DropDropperOnLetter(Session& s, Row row, const DragSource& source);

}  // namespace marvolin
