#include "scripting/lua_messages.h"

#include <algorithm>
#include <charconv>

#include "scripting/lua_context.h"
#include "scripting/text_cut.h"

namespace marvolin {

namespace {

constexpr std::size_t kLongestDescription = 500;  // bytes: boxes and lines of hints show it

/// Cuts "name:12: " off the message and returns the line; 0 when it does not begin so.
std::int32_t CutPlace(std::string_view& message, std::string_view chunk) {
    const std::string_view name = chunk.substr(1);  // behind the "=" that marks a name
    if (!message.starts_with(name) || message.substr(name.size(), 1) != ":") return 0;
    const std::string_view rest = message.substr(name.size() + 1);
    std::int32_t line = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), line);
    const auto digits = static_cast<std::size_t>(end - rest.data());
    if (error != std::errc{} || rest.substr(digits, 2) != ": ") return 0;
    message = rest.substr(digits + 2);
    return line;
}

std::string_view LineOf(std::string_view text, std::int32_t line) {
    for (; line > 1; --line) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) return "";
        text.remove_prefix(end + 1);
    }
    return text.substr(0, text.find('\n'));
}

// Lua counts levels from the innermost anew at each look, so a recursion that is deep is not looked through.
constexpr int kNearLevels = 200;
constexpr int kFarLevels = 20;

/// The line of the script at a level; 0 when something else runs there.
std::int32_t LineAt(const LuaLibrary& lua, lua_State* L, int level) {
    lua_Debug at{};
    if (lua.lua_getstack(L, level, &at) == 0) return 0;
    lua.lua_getinfo(L, "Sl", &at);
    return std::string_view(at.source) == kScriptChunk ? std::max(at.currentline, 0) : 0;
}

int Depth(const LuaLibrary& lua, lua_State* L) {
    lua_Debug at{};
    int there = 0;
    int beyond = 1;
    while (lua.lua_getstack(L, beyond - 1, &at) != 0) {
        there = beyond;
        beyond *= 2;
    }
    while (beyond - there > 1) {
        const int middle = there + (beyond - there) / 2;
        (lua.lua_getstack(L, middle - 1, &at) != 0 ? there : beyond) = middle;
    }
    return there;
}

}  // namespace

ScriptError TakenApart(std::string_view message) {
    ScriptError error;
    error.Line = CutPlace(message, kScriptChunk);
    if (error.Line == 0) CutPlace(message, kLibraryChunk);
    error.Description = Shortened(message, kLongestDescription);
    return error;
}

std::int32_t ColumnOf(const ScriptError& error, std::string_view text) {
    constexpr std::string_view kNear = " near '";
    const std::size_t near = error.Description.rfind(kNear);
    if (near == std::string::npos || error.Line == 0 || error.Description.back() != '\'') return 0;
    const std::size_t begin = near + kNear.size();
    const std::string token = error.Description.substr(begin, error.Description.size() - 1 - begin);
    const std::size_t column = LineOf(text, error.Line).find(token);
    return token.empty() || column == std::string_view::npos ? 0 : static_cast<std::int32_t>(column) + 1;
}

std::int32_t ScriptLine(const LuaLibrary& lua, lua_State* L) {
    const int depth = Depth(lua, L);
    for (int level = 0; level < std::min(depth, kNearLevels); ++level) {
        if (const std::int32_t line = LineAt(lua, L, level)) return line;
    }
    for (int level = std::max(depth - kFarLevels, kNearLevels); level < depth; ++level) {
        if (const std::int32_t line = LineAt(lua, L, level)) return line;
    }
    return 0;
}

}  // namespace marvolin
