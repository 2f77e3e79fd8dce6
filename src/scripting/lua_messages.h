#pragma once
/// \file
/// Lua's messages of a failure, taken apart.

#include <string>
#include <string_view>

#include "scripting/lua_library.h"
#include "scripting/script_control.h"

namespace marvolin {

/// A message as "script:12: text", or without a place, as description and line. A message of the library loses its
/// place, and `Line` is 0. A long description is shortened.
ScriptError TakenApart(std::string_view message);

/// Column of what a syntax error of `text` complains about ("... near 'x'"): of its first place in the line; 0 when it
/// is not to be found.
std::int32_t ColumnOf(const ScriptError& error, std::string_view text);

/// The line at which the script stands in a thread that runs: of the nearest of its functions that is running, of the
/// outermost where only the library's are near; 0 when none is found.
std::int32_t ScriptLine(const LuaLibrary& lua, lua_State* L);

}  // namespace marvolin
