#include "scripting/lua_messages.h"

#include <charconv>

#include "scripting/lua_context.h"

namespace marvolin {

namespace {

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

}  // namespace

ScriptError TakenApart(std::string_view message) {
    ScriptError error;
    error.Line = CutPlace(message, kScriptChunk);
    if (error.Line == 0) CutPlace(message, kLibraryChunk);
    error.Description = message;
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

}  // namespace marvolin
