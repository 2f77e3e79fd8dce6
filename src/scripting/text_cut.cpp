#include "scripting/text_cut.h"

namespace marvolin {

std::string_view Beginning(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes) return text;
    constexpr unsigned char kBehind = 0x80;  // of the bytes of a character behind its first
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == kBehind) --bytes;
    return text.substr(0, bytes);
}

std::string Shortened(std::string_view text, std::size_t bytes) {
    return std::string(Beginning(text, bytes)) + (text.size() > bytes ? "..." : "");
}

}  // namespace marvolin
