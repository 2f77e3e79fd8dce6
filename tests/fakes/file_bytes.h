#pragma once
/// \file
/// Files written and read byte by byte.

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

#include "fakes/temp_folder.h"

namespace marvolin::test {

/// Writes a new file; throws when that fails.
void WriteBytes(const std::string& path, std::string_view bytes);

/// The whole file; "" when it cannot be opened.
std::string ReadBytes(const std::string& path);

/// Builds the bytes of a file format without the program's own writer.
class Bytes {
public:
    Bytes& Raw(std::string_view bytes) {
        text_.append(bytes);
        return *this;
    }
    Bytes& U8(unsigned value) { return Little(value, 1); }
    Bytes& I16(int value) { return Little(static_cast<std::uint16_t>(value), 2); }
    Bytes& I32(std::int64_t value) { return Little(static_cast<std::uint32_t>(value), 4); }
    Bytes& F32(float value) { return Little(std::bit_cast<std::uint32_t>(value), 4); }
    Bytes& F64(double value) { return Little(std::bit_cast<std::uint64_t>(value), 8); }
    Bytes& Text(std::string_view text) { return I16(static_cast<int>(text.size())).Raw(text); }
    Bytes& TagText(std::string_view text) { return I16(8).Text(text); }
    Bytes& TagI16(int value) { return I16(2).I16(value); }
    Bytes& TagI32(std::int64_t value) { return I16(3).I32(value); }
    Bytes& TagF64(double value) { return I16(5).F64(value); }
    Bytes& TagBool(bool value) { return I16(11).I16(value ? -1 : 0); }
    const std::string& Str() const { return text_; }

private:
    Bytes& Little(std::uint64_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) text_.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
        return *this;
    }
    std::string text_;
};

}  // namespace marvolin::test
