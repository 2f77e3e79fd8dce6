#pragma once
/// \file
/// The two commands of the hand: Backspace and Shift+Backspace, and their buttons.

#include <string>

#include "core/session.h"

namespace marvolin {

/// From now on the session keeps what can be taken back.
void StartUndo(Session& s);
/// Forgets all of it, and keeps nothing more.
void EndUndo(Session& s);

/// Takes the last step back; the status line says which it was, or that there is none.
void Undo_Click(Session& s);
/// Does the step again that was taken back last.
void Redo_Click(Session& s);

/// The step that would be taken back, as "Load of Bells into A"; "" for none.
std::string UndoText(const Session& s);
/// The step that would be done again; "" for none.
std::string RedoText(const Session& s);

}  // namespace marvolin
