#pragma once
/// \file
/// The Save/Open dialogue: what it shows, and what its buttons do.

#include <array>
#include <string>
#include <string_view>

#include "core/session.h"
#include "persistence/element_lists.h"

namespace marvolin {

/// Filters of the file dialogues: a text and a pattern each, the first one preselected.
inline constexpr std::string_view kFileFilter = "marvolin File (*.mvn)|*.mvn|marvolin Package (*.mvp)|*.mvp";

/// What the player has set in the dialogue and not yet taken over.
struct SaveOpenChoices {
    std::array<std::array<bool, kElements>, 2> Elements{};  ///< selected rows of the lists, 0 save, 1 open
    bool SelectionsOnly = false;
    bool EmptyBlank = false;
    std::string Session;
};

/// Opens the dialogue on `fileName`, a name in the current folder or "".
void OpenSaveOpen(Session& s, const std::string& fileName);
/// What the dialogue shows when it opens.
SaveOpenChoices CurrentChoices(const Session& s);
/// "Save/Open-" and the file of the dialogue, or "Save/Open".
std::string SaveOpenTitle(const Session& s);
/// Selects the rows of list `list` (0 save, 1 open) by a preset.
void ChoosePreset(SaveOpenChoices& choices, int list, const ElementPreset& preset);
/// Takes the choices over into the session.
void TakeBack(Session& s, const SaveOpenChoices& choices);

// Each button first takes the choices over into the session.

/// "Save": under the dialogue's name. Without a name nothing is saved.
void SaveIt_Click(Session& s, const SaveOpenChoices& choices);
/// "Reload": the dialogue's file.
void Reload_Click(Session& s, const SaveOpenChoices& choices);
/// "Save As" and "Open": the player chose `path` in the file dialogue. Not called when it is cancelled.
void SaveItAs_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path);
void OpenIt_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path);

}  // namespace marvolin
