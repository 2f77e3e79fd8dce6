#pragma once
/// \file
/// The buttons of the Save/Open dialogue.

#include <string>
#include <string_view>

#include "persistence/element_lists.h"

namespace marvolin {

/// Filters of the file dialogues: a text and a pattern each, the first one preselected.
inline constexpr std::string_view kFileFilter = "marvolin File (*.mvn)|*.mvn|marvolin Package (*.mvp)|*.mvp";

/// "Save": under the dialogue's name. Without a name nothing is saved.
void SaveIt_Click(Session& s, const SaveOpenChoices& choices);
/// "Reload": the dialogue's file.
void Reload_Click(Session& s, const SaveOpenChoices& choices);
/// "Save As" and "Open": the file dialogue ended with `path`. When it is cancelled nothing is called.
void SaveItAs_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path);
void OpenIt_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path);

}  // namespace marvolin
