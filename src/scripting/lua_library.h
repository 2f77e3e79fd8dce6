#pragma once
/// \file
/// The functions of Lua 5.4 that the engine uses, taken from the system's library while the program runs. The program
/// is not linked to the library, so it starts without it. Only the types and numbers of Lua's headers are used; what
/// they define as macros stands below.

#include <memory>
#include <string_view>

extern "C" {
#include <lauxlib.h>
#include <lua.h>
#include <lualib.h>
}

namespace marvolin {

/// Every function taken, as MACRO(name).
#define MARVOLIN_LUA_FUNCTIONS(TAKE)                                                                                  \
    TAKE(lua_newstate)                                                                                                \
    TAKE(lua_close)                                                                                                   \
    TAKE(lua_version)                                                                                                 \
    TAKE(lua_sethook)                                                                                                 \
    TAKE(lua_getstack) TAKE(lua_getinfo) TAKE(lua_error) TAKE(lua_pcallk) TAKE(lua_callk) TAKE(lua_checkstack)        \
        TAKE(lua_concat) TAKE(lua_gc) TAKE(lua_gettop) TAKE(lua_settop) TAKE(lua_rotate) TAKE(lua_pushvalue)          \
            TAKE(lua_pushnil) TAKE(lua_pushnumber) TAKE(lua_pushinteger) TAKE(lua_pushboolean) TAKE(lua_pushlstring)  \
                TAKE(lua_pushlightuserdata) TAKE(lua_pushcclosure) TAKE(lua_createtable) TAKE(lua_getfield)           \
                    TAKE(lua_setfield) TAKE(lua_rawget) TAKE(lua_rawset) TAKE(lua_rawgeti) TAKE(lua_rawseti)          \
                        TAKE(lua_setmetatable) TAKE(lua_getmetatable) TAKE(lua_type) TAKE(lua_typename)               \
                            TAKE(lua_isinteger) TAKE(lua_toboolean) TAKE(lua_tonumberx) TAKE(lua_tointegerx)          \
                                TAKE(lua_tolstring) TAKE(lua_tocfunction) TAKE(lua_touserdata) TAKE(luaL_loadbufferx) \
                                    TAKE(luaL_requiref) TAKE(luaL_ref) TAKE(luaL_unref) TAKE(luaL_where)              \
                                        TAKE(luaL_tolstring) TAKE(luaL_checktype) TAKE(luaL_checkinteger)             \
                                            TAKE(luaL_optinteger) TAKE(luaL_checklstring) TAKE(luaopen_base)          \
                                                TAKE(luaopen_string) TAKE(luaopen_table) TAKE(luaopen_math)           \
                                                    TAKE(luaopen_utf8) TAKE(luaopen_coroutine)

/// Lua's functions by their own names.
struct LuaLibrary {
#define MARVOLIN_LUA_MEMBER(name) decltype(&::name) name = nullptr;
    MARVOLIN_LUA_FUNCTIONS(MARVOLIN_LUA_MEMBER)
#undef MARVOLIN_LUA_MEMBER

    void Pop(lua_State* L, int count) const { lua_settop(L, -count - 1); }
    void PushText(lua_State* L, std::string_view text) const { lua_pushlstring(L, text.data(), text.size()); }
    void PushFunction(lua_State* L, lua_CFunction function) const { lua_pushcclosure(L, function, 0); }
    bool IsFunction(lua_State* L, int index) const { return lua_type(L, index) == LUA_TFUNCTION; }
    /// Raises the text as an error of the function that called the running one, with its line.
    int Raise(lua_State* L, std::string_view text) const {
        luaL_where(L, 1);
        PushText(L, text);
        lua_concat(L, 2);
        return lua_error(L);
    }
};

/// The file of the library on Debian and its relatives.
inline constexpr const char* kLuaFile = "liblua5.4.so.0";

/// Loads the library; null when the system has none, or one of another version. It stays loaded.
std::shared_ptr<const LuaLibrary> LoadLua(const char* file = kLuaFile);

}  // namespace marvolin
