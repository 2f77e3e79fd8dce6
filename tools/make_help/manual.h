#pragma once
/// \file
/// The pages of Help in Markdown, to be read where the code is.

#include "pages.h"

namespace marvolin::help {

/// Files by name, each with its whole content: one a chapter, and "README.md" with the contents. They are made from the
/// pages of `MakePages`, without the pictures, which are drawn when the program is built, and without what
/// docs/scripting.md has. Raises what `MakePages` raises.
Files MakeManual(std::vector<PageText> texts);

/// A page in Markdown. It has its number as an anchor, and its title is a heading of the second level. `fileOf` names
/// the file in which a page stands, by its number.
std::string MarkdownOf(const std::string& html, std::int32_t topic, const std::map<std::int32_t, std::string>& fileOf);

}  // namespace marvolin::help
