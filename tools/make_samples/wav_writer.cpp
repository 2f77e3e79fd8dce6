#include "wav_writer.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace marvolin::samples {
namespace {

void Put(std::string& bytes, std::string_view text) { bytes += text; }

/// Appends the low `count` bytes of a number, lowest first.
void Put(std::string& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
}

}  // namespace

std::vector<std::int16_t> ToPcm(const Clip& clip) {
    std::vector<std::int16_t> pcm;
    pcm.reserve(clip.Frames() * clip.channels.size());
    for (std::size_t i = 0; i < clip.Frames(); ++i) {
        for (const Signal& channel : clip.channels) {
            const long value = std::lround(channel[i] * 32767);
            pcm.push_back(static_cast<std::int16_t>(std::clamp(value, -32768L, 32767L)));
        }
    }
    return pcm;
}

void WriteWav(const std::filesystem::path& file, const Clip& clip) {
    const std::vector<std::int16_t> pcm = ToPcm(clip);
    const auto channels = static_cast<std::uint32_t>(clip.channels.size());
    const auto size = static_cast<std::uint32_t>(pcm.size() * 2);
    std::string bytes;
    bytes.reserve(size + 44);
    Put(bytes, "RIFF");
    Put(bytes, size + 36, 4);
    Put(bytes, "WAVEfmt ");
    Put(bytes, 16, 4);
    Put(bytes, 1, 2);
    Put(bytes, channels, 2);
    Put(bytes, kRate, 4);
    Put(bytes, kRate * channels * 2, 4);
    Put(bytes, channels * 2, 2);
    Put(bytes, 16, 2);
    Put(bytes, "data");
    Put(bytes, size, 4);
    for (const std::int16_t value : pcm) Put(bytes, static_cast<std::uint16_t>(value), 2);

    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace marvolin::samples
