#pragma once
/// \file
/// The folders that a start works with: where the program lies, and the one that it writes into.
///
/// A copy whose folder can be written keeps everything in it. An installed copy cannot, so everything that the program
/// keeps "in its folder" lies in a folder of the player's own, which is first filled with what came with the program.

#include <string>

namespace marvolin {

/// The folders of a start, without a separator at their ends.
struct ProgramFolders {
    std::string Installed;  ///< where the program lies: Help and the modules
    std::string Own;        ///< "the program's folder" of every other rule
    std::string Trouble;    ///< what the player is to know; "" for nothing
};

/// Where an installed copy keeps what is the player's: by `dataHome` (XDG_DATA_HOME) when it is a whole path, otherwise
/// by `home` (HOME). Both may be null. "" when neither tells.
std::string PlayersFolder(const char* dataHome, const char* home);

/// True if the copy in this folder keeps everything in it: the folder can be written. For the superuser, who can write
/// anywhere, only a folder without a list (`kListFile`), which a copy gets when it is installed.
bool IsSelfContained(const std::string& installed);

/// Decides the folders and fills the player's own, if there is to be one. `players` is from `PlayersFolder`. When the
/// lists of both folders have the same id, nothing else is read.
///
/// A file of the list is written when the player has none of its name and none was laid there before, and again when it
/// is as it was laid and comes in another version. So what the player has changed, renamed or removed stays so, and
/// what a killed start or a full disk left out is added by the next one. No file is ever removed. Two starts at a time
/// fill one after the other.
///
/// Raises nothing. Without a folder of one's own, `Own` is the folder of the program.
ProgramFolders PrepareFolders(const std::string& installed, const std::string& players);

}  // namespace marvolin
