#pragma once
/// \file
/// The library that a script has: plain Lua without files, processes, network, environment, further texts and the
/// debug library, and with a limit to what one call can do.

#include "scripting/lua_library.h"

namespace marvolin {

/// Puts the script's globals into a new state. Called by Lua, in protected mode.
int OpenSandbox(lua_State* L);

}  // namespace marvolin
