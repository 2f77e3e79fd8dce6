#pragma once
/// \file
/// The order in which a person expects names.

#include <string_view>

namespace marvolin {

/// True if `a` comes before `b`: ASCII case is ignored and runs of digits go by their number, so "Kick 2" comes before
/// "kick 10". Names that differ in nothing else are ordered by their bytes.
bool NameBefore(std::string_view a, std::string_view b);

/// True if `name` ends in `ending`, ASCII case ignored.
bool EndsInIgnoringCase(std::string_view name, std::string_view ending);
/// True if the names are the same, ASCII case ignored.
bool SameIgnoringCase(std::string_view a, std::string_view b);

}  // namespace marvolin
