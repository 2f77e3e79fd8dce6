#pragma once
/// \file
/// Shortcut files, byte by byte.

#include <string>

namespace marvolin::test {

/// A shortcut with a local path (ANSI, "" for none) and a relative path (two bytes a character, "" for none).
std::string LnkBytes(const std::string& local, const std::string& relative);

}  // namespace marvolin::test
