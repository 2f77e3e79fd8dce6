#pragma once
/// \file
/// The icons of the program and of its files, as SVG.

#include <string>

namespace marvolin::icons {

/// What an icon stands for.
enum class Subject { Program, Set, Package, Script };

/// Name of the icon without ending: that of the program, or of the type of the file with "-" for "/".
std::string NameOf(Subject subject);

/// The icon as a picture of 64 by 64 units.
std::string Draw(Subject subject);

}  // namespace marvolin::icons
