#include "scripting/lua_sandbox.h"

#include <array>

#include "core/random.h"
#include "scripting/lua_calls.h"
#include "scripting/lua_context.h"
#include "scripting/lua_prelude.h"
#include "scripting/lua_strings.h"

namespace marvolin {

namespace {

using Names = std::span<const char* const>;

// What a script gets of Lua's libraries; everything else stays behind. The rest of `table` and `string` is written in
// Lua, or here.
constexpr std::array kBase{"assert",       "error",    "getmetatable", "ipairs", "next",    "pairs",
                           "pcall",        "rawequal", "rawget",       "rawlen", "rawset",  "select",
                           "setmetatable", "tonumber", "tostring",     "type",   "_VERSION"};
constexpr std::array kString{"byte", "char", "format", "len", "lower", "reverse", "sub", "upper"};
constexpr std::array kMath{"abs",  "acos", "asin", "atan", "ceil",       "cos",  "deg",        "exp",  "floor",
                           "fmod", "huge", "log",  "max",  "maxinteger", "min",  "mininteger", "modf", "pi",
                           "rad",  "sin",  "sqrt", "tan",  "tointeger",  "type", "ult"};
constexpr std::array kUtf8{"char", "charpattern", "codepoint", "codes", "len", "offset"};
constexpr std::array kCoroutine{"create", "isyieldable", "resume", "running", "status", "yield"};

struct Library {
    const char* Name;
    Names Members;
    bool Asks;  ///< each call asks whether the time is over: its work grows with a text or a table
};

/// Asks whether the time is over, and then does what the function behind it does.
int Asking(lua_State* L) {
    LuaContext& context = ContextOf(L);
    if (context.Budget.IsBroken()) return RaiseBroken(L);
    return context.Lua.lua_tocfunction(L, lua_upvalueindex(1))(L);
}

/// Copies members of the table on top into the one below, and takes the former away.
void Take(const LuaLibrary& lua, lua_State* L, const Library& library) {
    for (const char* name : library.Members) {
        const int kind = lua.lua_getfield(L, -1, name);
        if (library.Asks && kind == LUA_TFUNCTION) lua.lua_pushcclosure(L, Asking, 1);
        lua.lua_setfield(L, -3, name);
    }
    lua.Pop(L, 1);
}

/// Leaves the globals on top.
void OpenBase(const LuaLibrary& lua, lua_State* L) {
    lua.lua_createtable(L, 0, 0);
    lua.luaL_requiref(L, LUA_GNAME, lua.luaopen_base, 0);
    Take(lua, L, {"", kBase, false});
    lua.lua_getfield(L, -1, "next");
    lua.lua_pushcclosure(L, Asking, 1);
    lua.lua_setfield(L, -2, "next");
    lua.lua_pushvalue(L, -1);
    lua.lua_setfield(L, -2, LUA_GNAME);
}

/// Opens a library into a table of the globals on top.
void OpenLibrary(const LuaLibrary& lua, lua_State* L, const Library& library, lua_CFunction open) {
    lua.lua_createtable(L, 0, 0);
    lua.luaL_requiref(L, library.Name, open, 0);
    Take(lua, L, library);
    lua.lua_setfield(L, -2, library.Name);
}

void PutFunction(const LuaLibrary& lua, lua_State* L, const char* name, lua_CFunction function) {
    lua.PushFunction(L, function);
    lua.lua_setfield(L, -2, name);
}

/// `text:upper()` finds the script's own functions, and the table that leads to them is out of reach.
void GuardStrings(const LuaLibrary& lua, lua_State* L) {
    lua.PushText(L, "");
    lua.lua_getmetatable(L, -1);
    lua.lua_getfield(L, -3, "string");
    lua.lua_setfield(L, -2, "__index");
    lua.lua_pushboolean(L, 0);
    lua.lua_setfield(L, -2, "__metatable");
    lua.Pop(L, 2);
}

/// `random()`, `random(high)`, `random(low, high)` of the instrument's chance.
int LuaRandom(lua_State* L) {
    LuaContext& context = ContextOf(L);
    const LuaLibrary& lua = context.Lua;
    const double chance = context.s.World.Chance.Rnd();
    const int given = lua.lua_gettop(L);
    if (given == 0) {
        lua.lua_pushnumber(L, chance);
        return 1;
    }
    const lua_Integer low = given == 1 ? 1 : lua.luaL_checkinteger(L, 1);
    const lua_Integer high = lua.luaL_checkinteger(L, given == 1 ? 1 : 2);
    if (low > high) return lua.Raise(L, "bad argument to 'random' (interval is empty)");
    const double span = static_cast<double>(high) - static_cast<double>(low) + 1;
    const lua_Integer drawn = low + static_cast<lua_Integer>(std::min(chance * span, 9.0e18));
    lua.lua_pushinteger(L, std::min(drawn, high));
    return 1;
}

/// `print(...)`: its arguments as texts, separated by tabs, on the console.
int LuaPrint(lua_State* L) {
    LuaContext& context = ContextOf(L);
    const LuaLibrary& lua = context.Lua;
    if (context.Budget.IsBroken()) return RaiseBroken(L);
    const int given = lua.lua_gettop(L);
    lua.PushText(L, "");
    for (int i = 1; i <= given; ++i) {
        if (i > 1) lua.PushText(L, "\t");
        lua.luaL_tolstring(L, i, nullptr);
        lua.lua_concat(L, i > 1 ? 3 : 2);
    }
    std::size_t length = 0;
    const char* const text = lua.lua_tolstring(L, -1, &length);
    PrintLine(context, {text, length});
    return 0;
}

void RunPrelude(const LuaLibrary& lua, lua_State* L) {
    const std::string_view text = LuaPrelude();
    if (lua.luaL_loadbufferx(L, text.data(), text.size(), kLibraryChunk.data(), "t") != LUA_OK) lua.lua_error(L);
    lua.lua_pushvalue(L, -2);
    lua.lua_createtable(L, 0, 3);
    PutFunction(lua, L, "find", LuaFind);
    PutFunction(lua, L, "concat", LuaConcat);
    PutFunction(lua, L, "unpack", LuaUnpack);
    lua.lua_callk(L, 2, 0, 0, nullptr);
}

}  // namespace

int OpenSandbox(lua_State* L) {
    const LuaLibrary& lua = ContextOf(L).Lua;
    OpenBase(lua, L);
    OpenLibrary(lua, L, {LUA_STRLIBNAME, kString, true}, lua.luaopen_string);
    OpenLibrary(lua, L, {LUA_MATHLIBNAME, kMath, false}, lua.luaopen_math);
    OpenLibrary(lua, L, {LUA_UTF8LIBNAME, kUtf8, true}, lua.luaopen_utf8);
    OpenLibrary(lua, L, {LUA_COLIBNAME, kCoroutine, false}, lua.luaopen_coroutine);
    PutFunction(lua, L, "print", LuaPrint);
    lua.lua_getfield(L, -1, LUA_STRLIBNAME);
    PutFunction(lua, L, "rep", LuaRep);
    lua.Pop(L, 1);
    lua.lua_getfield(L, -1, LUA_MATHLIBNAME);
    PutFunction(lua, L, "random", LuaRandom);
    lua.Pop(L, 1);
    RunPrelude(lua, L);
    PushApi(L);
    lua.lua_setfield(L, -2, "marvolin");
    GuardStrings(lua, L);
    lua.lua_rawseti(L, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
    return 0;
}

}  // namespace marvolin
