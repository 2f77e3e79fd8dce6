#pragma once
/// \file
/// Lua's messages of a failure, taken apart.

#include <string>
#include <string_view>

#include "scripting/script_control.h"

namespace marvolin {

/// A message as "script:12: text", or without a place, as description and line. A message of the library loses its
/// place, and `Line` is 0.
ScriptError TakenApart(std::string_view message);

/// Column of what a syntax error of `text` complains about ("... near 'x'"): of its first place in the line; 0 when it
/// is not to be found.
std::int32_t ColumnOf(const ScriptError& error, std::string_view text);

}  // namespace marvolin
