#include "persistence/undo/undo_commands.h"

#include "core/undo/undo_step.h"
#include "persistence/undo/undo_steps.h"

namespace marvolin {

void StartUndo(Session& s) {
    s.Undo = std::make_shared<UndoSteps>();
    s.World.Screen.ShowUndo();
}

void EndUndo(Session& s) { s.Undo.reset(); }

void Undo_Click(Session& s) {
    // The history stays alive for the time of the command, whatever that brings.
    const std::shared_ptr<UndoHistory> history = s.Undo;
    if (history) history->TakeBack(s);
}

void Redo_Click(Session& s) {
    const std::shared_ptr<UndoHistory> history = s.Undo;
    if (history) history->DoAgain(s);
}

std::string UndoText(const Session& s) { return s.Undo ? s.Undo->Last() : ""; }
std::string RedoText(const Session& s) { return s.Undo ? s.Undo->Next() : ""; }

}  // namespace marvolin
