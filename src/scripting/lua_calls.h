#pragma once
/// \file
/// The bridge from Lua to the functions of the API.

#include <string_view>

#include "scripting/lua_context.h"

namespace marvolin {

/// Puts the table `marvolin` on the stack. Called by Lua, in protected mode.
void PushApi(lua_State* L);

/// Puts a number on the stack; a whole one as an integer, which prints without a point.
void PushNumber(const LuaLibrary& lua, lua_State* L, double number);

/// Hands a line of the script to the console; a console that fails is passed over.
void PrintLine(const LuaContext& context, std::string_view line) noexcept;

}  // namespace marvolin
