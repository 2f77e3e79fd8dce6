#pragma once
/// \file
/// The pages of Help in HTML, from their texts and the table of all controls.

#include <map>
#include <string>
#include <vector>

#include "page_text.h"

namespace marvolin::help {

/// Files of Help by name, each with its whole content: the pages, "10000.html" with the contents, and "marvolin.chm",
/// the list of all pages.
using Files = std::map<std::string, std::string>;

/// Makes the files. What the table of controls says is taken from there: the hint, why a control is off, its keys.
/// Raises `std::runtime_error` for a link, a picture or a way on that leads to no page.
Files MakePages(const std::vector<PageText>& texts);

/// The numbers of the pictures that the pages show: each is that of the controls with this topic.
std::vector<std::int32_t> PicturesOf(const std::vector<PageText>& texts);

/// What a control with this topic is called in the table: the first of them; "" when there is none. `index` becomes the
/// first index of its array, -1 without one.
std::string ControlOf(std::int32_t topic, int& index);

}  // namespace marvolin::help
