#pragma once
/// \file
/// The Save/Open dialogue: what it shows, and what its buttons do.

#include <array>
#include <string>
#include <string_view>

#include "core/session.h"
#include "persistence/element_lists.h"

namespace marvolin {

/// Filters of the file dialogues: a text and a pattern each. The first one is preselected.
inline constexpr std::string_view kFileFilter = "marvolin File (*.mvn)|*.mvn|marvolin Package (*.mvp)|*.mvp";
/// The further filters of "Open": the sets that saves have replaced.
inline constexpr std::string_view kCopyFilter =
    "Previous marvolin File (*.mvn~)|*.mvn~|Previous marvolin Package (*.mvp~)|*.mvp~";

/// What the player has set in the dialogue, not yet stored in the session.
struct SaveOpenChoices {
    std::array<std::array<bool, kElements>, 2> Elements{};  ///< selected rows of the lists, by `SwitchRow`
    bool SelectionsOnly = false;
    bool EmptyBlank = false;
    std::string Session;
};

/// Saves to `path` the elements and LoopTracks that the player has chosen in the dialogue. Result and messages are
/// those of `SaveSession`; onto the last state nothing is saved, after a message.
bool SaveAsChosen(Session& s, const std::string& path);
/// Opens `path` as the current session, with the elements that the player has chosen in the dialogue, and adopts its
/// switches. The last state does not become the current session: what is in hand then has no file. Result and messages
/// are those of `LoadSession`.
bool OpenAsChosen(Session& s, const std::string& path);
/// The same for a set that is not opened in the dialogue. A dialogue that stands open follows, as it would save the new
/// set under the name of the one before.
bool OpenBesideDialogue(Session& s, const std::string& path);

/// The file name for a set that the player wants to save as `name`: a name that ends in neither ".mvn" nor ".mvp" gets
/// `extension`. A "~" behind one of the two is dropped, so that no set is saved as the copy of another. ".mvn" counts
/// in any letter case.
std::string SetFileName(const std::string& name, std::string_view extension);

/// Opens the dialogue on `fileName`, a name in the current folder or "".
void OpenSaveOpen(Session& s, const std::string& fileName);
/// The choices that the session holds, which the dialogue shows when it opens.
SaveOpenChoices CurrentChoices(const Session& s);
/// "Save/Open-" and the file of the dialogue, or "Save/Open".
std::string SaveOpenTitle(const Session& s);
/// Selects the rows of list `list` (a `SwitchRow`) by a preset.
void ChoosePreset(SaveOpenChoices& choices, int list, const ElementPreset& preset);
/// Stores the choices in the session.
void TakeBack(Session& s, const SaveOpenChoices& choices);

// Each button first stores the choices in the session.

/// "Save": saves under the dialogue's file name and closes the dialogue. Does nothing when there is no name. A set that
/// was opened from its copy is saved under its own name, and what has that name becomes the copy.
void SaveIt_Click(Session& s, const SaveOpenChoices& choices);
/// "Reload": closes the dialogue and opens its file.
void Reload_Click(Session& s, const SaveOpenChoices& choices);
/// "Save As" and "Open": the player chose `path` in the file dialogue. Not called when it is cancelled. A file that is
/// saved gets its name by `SetFileName`, and becomes the current session like one that is opened. For the name of
/// the last state there is a message, and the dialogue stays open.
void SaveItAs_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path);
void OpenIt_Chosen(Session& s, const SaveOpenChoices& choices, const std::string& path);

}  // namespace marvolin
