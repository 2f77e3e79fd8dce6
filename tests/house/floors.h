#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace marvolin::house {

/// Source files by their path below src/ ("core/session.h"), each with its text.
using Tree = std::map<std::string, std::string>;

/// Every .h and .cpp file below `root`.
Tree ReadTree(const std::filesystem::path& root);

/// The program's own sources, read once.
const Tree& Sources();

/// The names that a text includes, in order, with their quotes or angle brackets: "\"core/table.h\"", "<vector>".
std::vector<std::string> IncludesOf(const std::string& text);

// Each check returns one line for each violation, "file: words".

/// Headers of the toolkit are for window/ and main.cpp, those of a library for its adapter.
std::vector<std::string> LibrariesOutOfPlace(const Tree& tree);

/// A file includes only files of its own floor or a lower one, and every folder has a floor.
std::vector<std::string> FloorsBroken(const Tree& tree);

/// Of two folders only one includes the other. Audio and parameters alone work on each other.
std::vector<std::string> FoldersInACircle(const Tree& tree);

/// An include in quotes names a file of the tree by its path below src/.
std::vector<std::string> IncludesThatLeadNowhere(const Tree& tree);

/// Files that include themselves directly or indirectly, each ring once.
std::vector<std::string> Rings(const Tree& tree);

}  // namespace marvolin::house
