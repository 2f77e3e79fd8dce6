#pragma once
/// \file
/// What stands in a line of code before the caret.

#include <string>
#include <utility>

namespace marvolin {

/// What the end of a line is in.
struct LineEnd {
    bool InText = false;     ///< between quotes
    bool InComment = false;  ///< behind "--"
    std::string Name;        ///< what stands before the innermost bracket that is open; "" for none
    bool Defined = false;    ///< the word "function" stands before that
    int Argument = 0;        ///< the argument of the bracket that the end is in, from 0
    std::size_t NameAt = 0;  ///< where the name begins
};

/// Reads a line from its start. Brackets between quotes do not count.
LineEnd ReadLine(const std::string& line);

/// The word at the end of a line, with points: "marvolin.set".
std::string WordAtEnd(const std::string& line);
/// Whether the word "function" stands before the word at the end of a line.
bool EndsInDefinition(const std::string& line);

/// Where an argument stands in a signature, and the place behind it; equal when there is no such argument.
std::pair<int, int> ArgumentPlace(const std::string& signature, int argument);

/// `text` with lines broken at blanks so that none is longer than `width` bytes, unless a word is.
std::string Broken(const std::string& text, std::size_t width);

}  // namespace marvolin
