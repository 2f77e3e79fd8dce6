#pragma once
/// \file
/// WAV files written byte by byte, valid and invalid.

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "fakes/temp_folder.h"

namespace marvolin::test {

using ByteList = std::vector<std::uint8_t>;

inline void AddLittle(ByteList& bytes, std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

inline void AddText(ByteList& bytes, const std::string& text) { bytes.insert(bytes.end(), text.begin(), text.end()); }

/// The header fields of a WAV file; the optional ones override the correct values.
struct Wave {
    int Channels = 2;
    std::uint32_t Rate = 44100;
    int Bits = 16;
    ByteList Data;
    bool Extensible = false;
    std::uint16_t Tag = 1;
    std::optional<std::uint32_t> DataSize = {};
    std::optional<std::uint16_t> Align = {};
    std::string Container = "RIFF";
    std::string Kind = "WAVE";
};

inline ByteList WaveBytes(const Wave& wave) {
    const auto align = wave.Align.value_or(static_cast<std::uint16_t>(wave.Channels * wave.Bits / 8));
    ByteList fmt;
    AddLittle(fmt, wave.Extensible ? 0xFFFE : wave.Tag, 2);
    AddLittle(fmt, static_cast<std::uint64_t>(wave.Channels), 2);
    AddLittle(fmt, wave.Rate, 4);
    AddLittle(fmt, wave.Rate * static_cast<std::uint64_t>(align), 4);
    AddLittle(fmt, align, 2);
    AddLittle(fmt, static_cast<std::uint64_t>(wave.Bits), 2);
    if (wave.Extensible) {
        AddLittle(fmt, 22, 2);
        AddLittle(fmt, static_cast<std::uint64_t>(wave.Bits), 2);
        AddLittle(fmt, wave.Channels == 2 ? 3 : 4, 4);
        AddLittle(fmt, wave.Tag, 2);
        fmt.insert(fmt.end(), {0, 0, 0, 0, 0x10, 0, 0x80, 0, 0, 0xAA, 0, 0x38, 0x9B, 0x71});
    }
    ByteList file;
    AddText(file, wave.Container);
    AddLittle(file, 4 + 8 + fmt.size() + 8 + wave.Data.size(), 4);
    AddText(file, wave.Kind);
    AddText(file, "fmt ");
    AddLittle(file, fmt.size(), 4);
    file.insert(file.end(), fmt.begin(), fmt.end());
    AddText(file, "data");
    AddLittle(file, wave.DataSize.value_or(static_cast<std::uint32_t>(wave.Data.size())), 4);
    file.insert(file.end(), wave.Data.begin(), wave.Data.end());
    return file;
}

/// Numbers as the data bytes of a wave: 8 bits unsigned, the others signed.
inline ByteList Pcm(const std::vector<std::int32_t>& numbers, int bits) {
    ByteList bytes;
    for (const std::int32_t number : numbers)
        AddLittle(bytes, static_cast<std::uint64_t>(bits == 8 ? number + 128 : number), bits / 8);
    return bytes;
}

/// A private folder for samples, removed at the end.
class SampleFolder {
public:
    /// Full path of `name` in it; of the folder itself, with a final separator, when `name` is empty.
    std::string Path(const std::string& name) const { return folder_.In(name); }
    std::string Write(const std::string& name, const ByteList& bytes) const {
        std::ofstream file(Path(name), std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return Path(name);
    }

private:
    TempFolder folder_;
};

}  // namespace marvolin::test
