#pragma once

#include <string_view>

namespace marvolin {

/// The part of the library that is written in Lua: what works on whole lists, or calls functions of the script. In Lua
/// its work counts against the time of the script like any other. It is run with two tables: the one that becomes the
/// script's globals, and the functions that it builds on.
std::string_view LuaPrelude();

}  // namespace marvolin
