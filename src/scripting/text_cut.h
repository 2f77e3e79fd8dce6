#pragma once

#include <string>
#include <string_view>

namespace marvolin {

/// The first so many bytes of a text in UTF-8, less when a character would be cut.
std::string_view Beginning(std::string_view text, std::size_t bytes);

/// A text of at most so many bytes as it is; of a longer one the beginning, and "...".
std::string Shortened(std::string_view text, std::size_t bytes);

}  // namespace marvolin
