#pragma once

#include <string>

namespace marvolin::help {

/// The page on scripting in HTML, from the text that docs/scripting.md has: headings, paragraphs, lists, tables and
/// code. Its first heading is left out, since the page of Help has a title of its own.
std::string ScriptPage(const std::string& markdown);

}  // namespace marvolin::help
