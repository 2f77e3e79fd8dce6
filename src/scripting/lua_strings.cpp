#include "scripting/lua_strings.h"

#include <cstring>
#include <string>
#include <string_view>

#include "scripting/lua_context.h"
#include "scripting/lua_pattern.h"

namespace marvolin {

namespace {

constexpr lua_Integer kMostUnpacked = 200;
constexpr lua_Integer kElementsACheck = 1000;

bool IsBroken(void* context) { return static_cast<LuaContext*>(context)->Budget.IsBroken(); }

std::string_view TextArgument(LuaContext& context, lua_State* L, int index) {
    std::size_t length = 0;
    const char* const text = context.Lua.luaL_checklstring(L, index, &length);
    return {text, length};
}

/// Adds to the text being made; raises the error of a text that grows too long.
void Add(LuaContext& context, lua_State* L, std::string_view text) {
    if (context.Scratch.size() + text.size() > kLongestLuaText) context.Lua.Raise(L, "resulting string too large");
    context.Scratch.append(text);
}

int PushScratch(LuaContext& context, lua_State* L) {
    context.Lua.PushText(L, context.Scratch);
    return 1;
}

bool HasSpecials(std::string_view pattern) { return pattern.find_first_of("^$*+?.()[%-") != std::string_view::npos; }

/// Place from 0 of an argument that counts from 1, or from the end when it is negative.
std::size_t PlaceArgument(LuaContext& context, lua_State* L, int index, std::size_t length) {
    const lua_Integer from = context.Lua.luaL_optinteger(L, index, 1);
    if (from > 0) return static_cast<std::size_t>(from) - 1;
    if (from == 0 || from < -static_cast<lua_Integer>(length)) return 0;
    return length - static_cast<std::size_t>(-from);
}

int PushFound(LuaContext& context, lua_State* L, std::size_t start, std::size_t end) {
    context.Lua.lua_pushinteger(L, static_cast<lua_Integer>(start) + 1);
    context.Lua.lua_pushinteger(L, static_cast<lua_Integer>(end));
    return 2;
}

int FindPlain(LuaContext& context, lua_State* L, std::string_view text, std::string_view wanted, std::size_t from) {
    // That of the standard library takes the product of both lengths.
    const std::string_view rest = text.substr(from);
    const void* const found =
        wanted.empty() ? rest.data() : ::memmem(rest.data(), rest.size(), wanted.data(), wanted.size());
    if (found != nullptr) {
        const auto place = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        return PushFound(context, L, place, place + wanted.size());
    }
    context.Lua.lua_pushnil(L);
    return 1;
}

int FindPattern(LuaContext& context, lua_State* L, std::string_view text, std::string_view pattern, std::size_t from) {
    const LuaLibrary& lua = context.Lua;
    if (pattern.size() > kLongestPattern) return lua.Raise(L, "pattern too long");
    LuaPattern matcher(text, pattern, IsBroken, &context);
    const bool found = matcher.Find(from, lua.lua_toboolean(L, 5) != 0);
    if (matcher.GaveUp()) return RaiseBroken(L);
    if (!matcher.Failure().empty()) return lua.Raise(L, matcher.Failure());
    if (!found) {
        lua.lua_pushnil(L);
        return 1;
    }
    if (lua.lua_checkstack(L, static_cast<int>(kMostCaptures) + 2) == 0) {
        return context.Budget.IsBroken() ? RaiseBroken(L) : lua.Raise(L, "stack overflow (too many captures)");
    }
    PushFound(context, L, matcher.Start(), matcher.End());
    for (std::size_t i = 0; i < matcher.Captures(); ++i) {
        const LuaCapture& capture = matcher.Capture(i);
        if (capture.Kind == LuaCapture::State::Position) {
            lua.lua_pushinteger(L, static_cast<lua_Integer>(capture.Start) + 1);
        } else {
            lua.PushText(L, text.substr(capture.Start, capture.Length));
        }
    }
    return 2 + static_cast<int>(matcher.Captures());
}

}  // namespace

int LuaFind(lua_State* L) {
    LuaContext& context = ContextOf(L);
    if (context.Budget.IsBroken()) return RaiseBroken(L);
    const std::string_view text = TextArgument(context, L, 1);
    const std::string_view pattern = TextArgument(context, L, 2);
    const std::size_t from = PlaceArgument(context, L, 3, text.size());
    if (from > text.size()) {
        context.Lua.lua_pushnil(L);
        return 1;
    }
    if (context.Lua.lua_toboolean(L, 4) != 0 || !HasSpecials(pattern))
        return FindPlain(context, L, text, pattern, from);
    return FindPattern(context, L, text, pattern, from);
}

int LuaRep(lua_State* L) {
    LuaContext& context = ContextOf(L);
    if (context.Budget.IsBroken()) return RaiseBroken(L);
    const std::string_view text = TextArgument(context, L, 1);
    const lua_Integer count = context.Lua.luaL_checkinteger(L, 2);
    const bool separated = context.Lua.lua_type(L, 3) > LUA_TNIL;
    const std::string_view separator = separated ? TextArgument(context, L, 3) : std::string_view{};
    context.Scratch.clear();
    // Nothing, however often.
    const lua_Integer times = text.empty() && separator.empty() ? 0 : count;
    for (lua_Integer i = 0; i < times; ++i) {
        if (i > 0) Add(context, L, separator);
        Add(context, L, text);
    }
    return PushScratch(context, L);
}

int LuaConcat(lua_State* L) {
    LuaContext& context = ContextOf(L);
    const LuaLibrary& lua = context.Lua;
    if (context.Budget.IsBroken()) return RaiseBroken(L);
    const std::string_view separator = lua.lua_type(L, 2) > LUA_TNIL ? TextArgument(context, L, 2) : std::string_view{};
    const lua_Integer from = lua.luaL_checkinteger(L, 3);
    const lua_Integer to = lua.luaL_checkinteger(L, 4);
    lua.lua_settop(L, 4);
    context.Scratch.clear();
    for (lua_Integer i = from; i <= to; ++i) {
        if ((i - from) % kElementsACheck == 0 && context.Budget.IsBroken()) return RaiseBroken(L);
        const int kind = lua.lua_rawgeti(L, 1, i);
        if (kind != LUA_TSTRING && kind != LUA_TNUMBER) {
            return lua.Raise(L, "invalid value in table for 'concat'");
        }
        std::size_t length = 0;
        const char* const text = lua.lua_tolstring(L, -1, &length);
        if (i > from) Add(context, L, separator);
        Add(context, L, {text, length});
        lua.lua_settop(L, 4);
        if (i == to) break;  // the largest number has no next one
    }
    return PushScratch(context, L);
}

int LuaUnpack(lua_State* L) {
    LuaContext& context = ContextOf(L);
    const LuaLibrary& lua = context.Lua;
    const lua_Integer from = lua.luaL_checkinteger(L, 2);
    const lua_Integer to = lua.luaL_checkinteger(L, 3);
    if (from > to) return 0;
    if (static_cast<lua_Unsigned>(to) - static_cast<lua_Unsigned>(from) >= kMostUnpacked ||
        lua.lua_checkstack(L, static_cast<int>(kMostUnpacked)) == 0) {
        return lua.Raise(L, "too many results to unpack");
    }
    for (lua_Integer i = from; i <= to; ++i) {
        lua.lua_rawgeti(L, 1, i);
        if (i == to) break;
    }
    return static_cast<int>(to - from) + 1;
}

}  // namespace marvolin
