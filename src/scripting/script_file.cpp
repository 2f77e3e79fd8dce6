#include "scripting/script_file.h"

#include <cstdint>

#include "core/errors.h"
#include "core/files/former_file.h"
#include "core/files/record_stream.h"
#include "scripting/lua_budget.h"

namespace marvolin {

namespace {

constexpr std::uint32_t kBadText = 321;  // "Invalid file format"
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// How many bytes follow the first byte of a character; -1 when it begins none.
int BytesBehind(unsigned char first) {
    if (first < 0x80) return 0;
    if (first >= 0xC2 && first <= 0xDF) return 1;
    if (first >= 0xE0 && first <= 0xEF) return 2;
    return first >= 0xF0 && first <= 0xF4 ? 3 : -1;
}

/// Whether the second byte of a character may follow the first: no longer form than needed, no surrogate, nothing
/// above U+10FFFF.
bool Follows(unsigned char first, unsigned char second) {
    if (first == 0xE0) return second >= 0xA0;
    if (first == 0xED) return second <= 0x9F;
    if (first == 0xF0) return second >= 0x90;
    return first != 0xF4 || second <= 0x8F;
}

std::string TooLong() {
    return "It is longer than " + std::to_string(kLongestScript / 1024 / 1024) + " MB, the most for a script";
}

}  // namespace

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at]);
        const int behind = BytesBehind(first);
        if (behind < 0 || text.size() - at <= static_cast<std::size_t>(behind)) return false;
        for (int i = 1; i <= behind; ++i) {
            const auto next = static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]);
            if (next < 0x80 || next > 0xBF || (i == 1 && !Follows(first, next))) return false;
        }
        at += static_cast<std::size_t>(behind) + 1;
    }
    return true;
}

std::string ScriptFault(std::string_view text) {
    if (text.size() > kLongestScript) return TooLong();
    if (text.find('\0') != std::string_view::npos) return "It is no text: it holds a zero byte";
    return IsUtf8(text) ? "" : "It is no text in UTF-8";
}

std::string ReadScript(const std::string& path) {
    RecordReader file(path);
    if (file.Left() > kLongestScript) throw RuntimeError(kBadText, TooLong());
    std::string text = file.GetBytes(file.Left());
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    const std::string fault = ScriptFault(text);
    if (!fault.empty()) throw RuntimeError(kBadText, fault);
    return text;
}

void WriteScript(const std::string& path, const std::string& text) {
    const std::string place = BehindLinks(path);
    FormerFile former(place);
    if (former.Exists()) former.Keep();
    NewFile file(place);
    file.Write(text);
    file.Sync();
    former.ReplaceBy(file);
}

}  // namespace marvolin
