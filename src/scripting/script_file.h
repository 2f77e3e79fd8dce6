#pragma once
/// \file
/// Files of scripts.

#include <string>
#include <string_view>

namespace marvolin {

/// Ending of a script's file name.
inline constexpr std::string_view kScriptExtension = ".mvs";

/// Why a text can be no script, as a sentence for the player: it is longer than a script may be, holds a zero byte or
/// is not UTF-8. "" when nothing is wrong with it.
std::string ScriptFault(std::string_view text);

/// The whole text of a script's file, without a byte order mark at its start. Raises a `RuntimeError`, whose
/// description is for the player, when the file cannot be read, is no plain file, or has a
/// `ScriptFault`.
std::string ReadScript(const std::string& path);

/// Saves any text, links followed. The file gets its name when it is whole and on the disk, or never. The file that had
/// the name stays under it until then, and afterwards as a copy with "~" added to its name. Raises a `RuntimeError`,
/// whose description is for the player, when the file or its copy cannot be put in place; every name then refers to its
/// previous file.
void WriteScript(const std::string& path, const std::string& text);

/// Whether a text is UTF-8 throughout.
bool IsUtf8(std::string_view text);

}  // namespace marvolin
