#pragma once
/// \file
/// What a drop of another control of the instrument on LoopTrack `row` (0..4) means. A source of the right name with an
/// index or a tag that means nothing here is ignored.

#include "core/drag_source.h"
#include "core/session.h"

namespace marvolin {

/// Whether anything is in control: only then does a drop on row 4 reach a LoopTrack.
bool AnyIsControlled(const Session& s);

/// A fade drag of a letter or a ball: fades the two rows across, the source up when its volume is 0 and down otherwise;
/// on its own row toggles the fade.
void DropFade(Session& s, Row row, const DragSource& source);
/// "CloneTime": copies one timing element of `CurrentLoop`, by the source's index.
void DropTimingElement(Session& s, Row row, const DragSource& source);
/// "AllTiming": copies all timing of `CurrentLoop`.
void DropAllTiming(Session& s, Row row, const DragSource& source);
/// "PatternGraph": copies one pattern row of `CurrentLoop`, by the source's index.
void DropPattern(Session& s, Row row, const DragSource& source);
/// "Patterns": copies all patterns of `CurrentLoop`.
void DropPatterns(Session& s, Row row, const DragSource& source);
/// "TabControl", which stands for all of a LoopTrack's sequence: copies patterns and timing of `CurrentLoop`.
void DropSequence(Session& s, Row row, const DragSource& source);
/// "DropDown": loads the sample of the source's LoopTrack, and plays it with `PlayOnLoad`. Row 4, the source's own row
/// and an empty source are ignored.
void DropLoopTrack(Session& s, Row row, const DragSource& source);

}  // namespace marvolin
