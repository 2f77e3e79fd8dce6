#pragma once
/// \file
/// A save that puts a file in the place of another one: the former file is never lost.

#include <string>
#include <string_view>

#include "core/files/new_file.h"

namespace marvolin {

/// Stands behind the name of a file that a save has replaced.
inline constexpr std::string_view kCopyMark = "~";
/// Name of that copy.
inline std::string CopyName(std::string_view fileName) { return std::string(fileName).append(kCopyMark); }

/// The folder of a path, as "." when it names none.
std::string FolderOf(const std::string& path);

/// What has the name that a new file is to get.
class FormerFile {
public:
    /// `path` has its links followed (`BehindLinks`). Raises a `RuntimeError` when no file could be put there: the name
    /// is that of a folder, or of a file that must not be written.
    explicit FormerFile(const std::string& path);

    bool Exists() const { return exists_; }
    /// The former file will stay as its copy, with "~" added to its name. Raises a `RuntimeError` when the copy could
    /// not get that name, because it is too long or that of a folder.
    void Keep();
    /// Gives the copy its name, and then the new file, which is whole and on the disk, its own; waits until both names
    /// are there, too. After a failure each name refers to its previous file. What killed programs have left in the
    /// folder is removed.
    void ReplaceBy(NewFile& file);

private:
    std::string path_;
    bool exists_ = false;
    bool keep_ = false;
};

}  // namespace marvolin
