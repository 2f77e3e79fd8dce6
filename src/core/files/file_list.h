#pragma once
/// \file
/// The list of what comes with the program: names of files, and marks by which a changed file is known.

#include <string>
#include <string_view>
#include <vector>

namespace marvolin {

/// A file of a list.
struct ListedFile {
    std::string Name;  ///< from the folder of the list, with "/" between folders
    std::string Mark;  ///< of its content, as `FileMark`
    friend bool operator==(const ListedFile&, const ListedFile&) = default;
};

/// Files of a folder.
struct FileList {
    std::string Id;  ///< one word; two lists of the same files have the same
    std::vector<ListedFile> Files;

    /// The file of this name; null for none.
    const ListedFile* Find(std::string_view name) const;
};

/// Name of the list in its folder.
inline constexpr std::string_view kListFile = "marvolin.files";

/// What tells one content from another: size and checksum, one word. It is no protection against forgery. Raises the
/// errors of `RaiseFileError`.
std::string FileMark(const std::string& path);

/// Lists what comes with the program in its folder, in the order of the names: all but the program itself, its modules
/// (".so"), Help, the list, and what is hidden. What cannot be read is left out.
FileList ListFolder(const std::string& folder);

/// The text of a list.
std::string ListText(const FileList& list);
/// Reads the text of a list. Lines that are none of a list are left out, and names that lead out of the folder.
FileList ReadList(std::string_view text);
/// Reads the list of a folder: empty, with "" for its id, when it has none.
FileList ReadListOf(const std::string& folder);
/// The id of the list of a folder alone, without reading all of it; "" when it has none.
std::string ListIdOf(const std::string& folder);

}  // namespace marvolin
