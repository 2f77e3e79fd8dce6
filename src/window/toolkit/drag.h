#pragma once
/// \file
/// Drags that begin on a control, and the small pictures that go with the pointer.

#include <QPixmap>
#include <string>

#include "core/drag_source.h"
#include "core/session.h"

class QWidget;

namespace marvolin {

/// What `source` carries, in a few words: a sample, a folder, a clip, an entry of the palette, the settings or the fade
/// of a LoopTrack, or what it copies from which LoopTrack.
std::string DragName(const Session& s, const DragSource& source);

/// The picture of a drag: `Dropper` or, for a fade drag, `DissolveCursor`, with the letter of the row that it starts
/// from; for help an arrow with a question mark; for any other drag a label with its name. `ratio` is the number of
/// screen pixels a logical pixel.
QPixmap DragPicture(const Session& s, const DragSource& source, double ratio = 1);

/// Drags `source`, which begins on `from`, with its picture. Returns when the drag has ended. Meanwhile no other button
/// and no key reaches anything, and the status line says what drops do; Escape ends the drag without a drop.
void RunDrag(QWidget& from, Session& s, const DragSource& source);

/// Drags the folder at `path` in the same way, as a file manager would.
void RunFolderDrag(QWidget& from, Session& s, const QString& path);

}  // namespace marvolin
