#pragma once

#include <string>
#include <vector>

#include "house/floors.h"

namespace marvolin::house {

// Each check returns a line for each thing that is wrong, "file: words", and nothing when all is well.

/// Folders that hold more than `most` subjects. A header with its source is one; a folder in it is none.
std::vector<std::string> FoldersTooFull(const Tree& tree, std::size_t most);

/// Files of more than `most` lines.
std::vector<std::string> FilesTooLong(const Tree& tree, int most);

/// Lines of the file in the middle when all stand in order of their length; 0 for no files.
int MedianLines(const Tree& tree);

/// Functions of more than `most` lines, signature and braces included.
std::vector<std::string> FunctionsTooLong(const Tree& tree, int most);

/// Headers and sources that do not belong together: a source without a header of its name, or that does not include it
/// first; a header that declares functions and has no source; a source that defines what another header declares.
/// main.cpp is left out.
std::vector<std::string> HeadersImplementedElsewhere(const Tree& tree);

}  // namespace marvolin::house
