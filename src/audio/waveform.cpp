#include "audio/waveform.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>

namespace marvolin {

namespace {

constexpr std::int64_t kWavePieceBytes = 1 << 18;

// A sample of `bytes` bytes, little endian, as a number of 32 bits.
template <int bytes>
std::int32_t SampleAt(const std::uint8_t* at) {
    if constexpr (bytes == 1) {
        return (static_cast<std::int32_t>(*at) - 128) * (1 << 24);  // 8-bit samples are unsigned
    } else {
        std::uint32_t value = 0;
        for (int i = 0; i < bytes; ++i) value |= std::uint32_t{at[i]} << (8 * (4 - bytes + i));
        return static_cast<std::int32_t>(value);
    }
}

struct Range {
    std::int32_t low = INT32_MAX;
    std::int32_t high = INT32_MIN;
};

template <int bytes>
void Widen(Range& range, std::span<const std::uint8_t> data) {
    Range found = range;
    for (std::size_t at = 0; at + bytes <= data.size(); at += bytes) {
        const std::int32_t value = SampleAt<bytes>(data.data() + at);
        found.low = std::min(found.low, value);
        found.high = std::max(found.high, value);
    }
    range = found;
}

using Widener = void (*)(Range&, std::span<const std::uint8_t>);

Widener WidenerFor(std::int16_t bits) {
    switch (bits) {
        case 8:
            return Widen<1>;
        case 16:
            return Widen<2>;
        case 24:
            return Widen<3>;
        case 32:
            return Widen<4>;
        default:
            return nullptr;
    }
}

WaveformColumn ColumnOf(const Range& range) {
    constexpr float kFull = 2147483648.0F;
    return {static_cast<float>(range.low) / kFull, static_cast<float>(range.high) / kFull};
}

}  // namespace

std::vector<WaveformColumn> WaveformPeaks(DirectSoundBuffer& buffer, int columns, int from, std::int64_t most) {
    const WaveFormat format = buffer.GetFormat();
    const Widener widen = WidenerFor(format.BitsPerSample);
    const std::int64_t frameBytes = std::int64_t{format.Channels} * format.BitsPerSample / 8;
    if (widen == nullptr || frameBytes <= 0) return {};
    const std::int64_t frames = buffer.GetCaps().BufferBytes / frameBytes;
    if (frames == 0) return {};

    std::vector<WaveformColumn> peaks;
    std::vector<std::uint8_t> piece(static_cast<std::size_t>(kWavePieceBytes / frameBytes * frameBytes));
    std::int64_t read = 0;
    for (std::int64_t column = from; column < columns && (peaks.empty() || read < most); ++column) {
        const std::int64_t first = column * frames / columns;
        const std::int64_t end = std::max((column + 1) * frames / columns, first + 1) * frameBytes;
        Range range;
        for (std::int64_t at = first * frameBytes; at < end;) {
            const auto size = std::min<std::int64_t>(static_cast<std::int64_t>(piece.size()), end - at);
            const std::span<std::uint8_t> part(piece.data(), static_cast<std::size_t>(size));
            buffer.ReadBuffer(static_cast<std::int32_t>(at), part);
            widen(range, part);
            at += size;
            read += size;
        }
        peaks.push_back(ColumnOf(range));
    }
    return peaks;
}

std::vector<WaveformColumn> LoopWaveform(const Session& s, Row row, int columns, int from, std::int64_t most) {
    const LoopTrackRun& run = s.Run[row];
    if (run.Loaded == False || run.Buffer == nullptr) return {};
    try {
        return WaveformPeaks(*run.Buffer, columns, from, most);
    } catch (const SoundError&) {
        return {};  // a missing picture needs no message
    }
}

}  // namespace marvolin
