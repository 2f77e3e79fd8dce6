#pragma once
/// \file
/// Functions of Lua's library for texts and lists whose own work has no limit, written so that it has one. They keep
/// the arguments and the messages of the originals.

#include "scripting/lua_library.h"

namespace marvolin {

inline constexpr std::size_t kLongestPattern = 1000;  // characters

/// `find(text, pattern, from, plain, caretIsALetter)`: first and last place of the first match and its captures; nil
/// for none.
int LuaFind(lua_State* L);
/// `rep(text, count, separator)`.
int LuaRep(lua_State* L);
/// `concat(list, separator, from, to)`.
int LuaConcat(lua_State* L);
/// `unpack(list, from, to)`, at most 200 values.
int LuaUnpack(lua_State* L);

}  // namespace marvolin
