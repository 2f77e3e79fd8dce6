#include "scripting/script_console.h"

#include <algorithm>

#include "scripting/text_cut.h"

namespace marvolin {

namespace {

/// What `text` has from its last so many lines on.
std::string_view LastLines(std::string_view text, std::size_t lines) {
    std::size_t end = text.size();
    while (lines > 0 && end > 0) {
        end = text.rfind('\n', end - 1);
        if (end == std::string_view::npos) return text;
        --lines;
    }
    return text.substr(lines > 0 ? 0 : end + 1);
}

}  // namespace

void ScriptConsole::AddLine(ConsoleLine::Kind kind, std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    std::string text = Shortened(line, kLongestLine);
    std::replace(text.begin(), text.end(), '\0', '?');
    if (lines_.size() == kMostLines) lines_.pop_front();
    lines_.push_back({kind, std::move(text)});
    ++count_;
}

void ScriptConsole::Add(ConsoleLine::Kind kind, std::string_view text) {
    text = LastLines(text, kMostLines);
    for (;;) {
        const std::size_t end = text.find('\n');
        AddLine(kind, text.substr(0, end));
        if (end == std::string_view::npos) return;
        text.remove_prefix(end + 1);
    }
}

void ScriptConsole::Clear() { lines_.clear(); }

}  // namespace marvolin
