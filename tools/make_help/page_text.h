#pragma once
/// \file
/// The texts of Help as they are written, and the marks in them.
///
/// A file of texts is a chapter. A line that begins with a mark is:
///
///     # Chapter           title of the chapter; the first line
///     = 10023 Play button number and title of a page; the page goes on to the next of these lines
///     ## Heading          a heading in the page
///     - click | plays     a gesture, a key, a message and what it does
///     > Before the break  an example
///     ! 10023 10024       the pictures of these pages
///     + 10024 10029       pages to go on with
///     @keys               a table of all controls and their keys
///     @scripting          the page on scripting
///
/// Any other line is text; an empty line ends a paragraph. In a text `[Play](10023)` is a link to a page and `*word*`
/// is strong.

#include <cstdint>
#include <string>
#include <vector>

namespace marvolin::help {

/// A page as it is written.
struct PageText {
    std::int32_t Topic = 0;
    std::string Title;
    std::string Chapter;
    std::vector<std::string> Lines;
};

/// The pages of all files "*.txt" of a folder, in the order of the files' names. Raises `std::runtime_error` for a page
/// without a number, a title or a chapter, and for a number that two pages have.
std::vector<PageText> ReadTexts(const std::string& folder);

/// A text in HTML: marks in it become links and strong words.
std::string Inline(const std::string& text);
/// A text in HTML as it is.
std::string Escaped(const std::string& text);

}  // namespace marvolin::help
