#pragma once
/// \file
/// Paths as text. Both "/" and "\" are read as separators; "/" is written.

#include <string>

namespace marvolin {

/// True if a directory entry of this name exists: a file, a folder, or a link, also a broken one.
bool FileExists(const std::string& path);
/// The same, but of a link only when it leads somewhere.
bool TargetExists(const std::string& path);
/// True if the path, without a separator at its end, is a folder. A name that ends in ":" is a drive.
bool DirExists(const std::string& path);
/// True if the system has a drive of this name. The only drive here is the root, "/".
bool DriveExists(const std::string& name);
/// `path` without blanks around it and without one separator at its end.
std::string StripBackslash(const std::string& path);
/// `folder` and `name` with one separator between them unless the folder ends in one; "\" is one only in a path of
/// another system, which has no "/".
std::string JoinPath(const std::string& folder, const std::string& name);
/// Splits at the last separator, which stays with the folder. A path without one splits after its first character.
void SplitPath(const std::string& path, std::string& folder, std::string& name);
/// Splits the path of a file of this system at its last "/", which stays with the folder: its name may hold "\\". A
/// path without one is in "./".
void SplitFilePath(const std::string& path, std::string& folder, std::string& name);
/// The part behind the last ":" or separator, one separator at the end ignored; of a path that ends in ":" and a
/// separator its first two characters.
std::string LastPathPart(const std::string& path);
/// The name part of a path, behind its last "/" if it has one, without the four characters of its extension. A name
/// with no point in that place has none.
std::string SampleName(const std::string& path);

}  // namespace marvolin
