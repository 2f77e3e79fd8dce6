#include "audio/openal/sample_planes.h"

#include <cstddef>
#include <cstring>

namespace marvolin {

namespace {

/// Copies the numbers of one channel unchanged.
template <typename Number, std::size_t kChannels>
void Pick(std::span<const std::uint8_t> frames, std::size_t channel, std::uint8_t* out) {
    const std::size_t count = frames.size() / (sizeof(Number) * kChannels);
    const std::uint8_t* in = frames.data() + channel * sizeof(Number);
    for (std::size_t i = 0; i < count; ++i)
        std::memcpy(out + i * sizeof(Number), in + i * kChannels * sizeof(Number), sizeof(Number));
}

template <typename Number>
void Copy(const WaveFormat& format, Plane plane, std::span<const std::uint8_t> frames, std::uint8_t* out) {
    if (format.Channels == 1)
        std::memcpy(out, frames.data(), frames.size());
    else
        Pick<Number, 2>(frames, plane == Plane::Right ? 1 : 0, out);
}

/// One number as -1..1.
template <int kBytes>
float Decode(const std::uint8_t* bytes) {
    if constexpr (kBytes == 1) {
        return static_cast<float>(*bytes - 128) / 128.0F;
    } else {
        std::uint32_t word = 0;
        for (int i = 0; i < kBytes; ++i) word |= static_cast<std::uint32_t>(bytes[i]) << (8 * (4 - kBytes + i));
        return static_cast<float>(static_cast<std::int32_t>(word)) / 2147483648.0F;
    }
}

template <int kBytes>
void ToFloat(const WaveFormat& format, Plane plane, std::span<const std::uint8_t> frames, std::uint8_t* out) {
    const auto step = static_cast<std::size_t>(format.BlockAlign);
    const std::size_t last = step - kBytes;
    const std::size_t a = plane == Plane::Right ? last : 0;
    const std::size_t b = plane == Plane::Left ? 0 : last;
    const std::size_t count = frames.size() / step;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t* frame = frames.data() + i * step;
        const float number =
            a == b ? Decode<kBytes>(frame + a) : 0.5F * (Decode<kBytes>(frame + a) + Decode<kBytes>(frame + b));
        std::memcpy(out + i * sizeof number, &number, sizeof number);
    }
}

}  // namespace

PlaneNumber PlaneNumberOf(const WaveFormat& format, Plane plane) {
    if (plane == Plane::Mixed && format.Channels == 2) return PlaneNumber::Float32;
    if (format.BitsPerSample == 8) return PlaneNumber::Unsigned8;
    return format.BitsPerSample == 16 ? PlaneNumber::Signed16 : PlaneNumber::Float32;
}

std::int32_t PlaneNumberBytes(PlaneNumber number) {
    switch (number) {
        case PlaneNumber::Unsigned8:
            return 1;
        case PlaneNumber::Signed16:
            return 2;
        default:
            return 4;
    }
}

void ExtractPlane(const WaveFormat& format, Plane plane, std::span<const std::uint8_t> frames, std::uint8_t* out) {
    switch (PlaneNumberOf(format, plane)) {
        case PlaneNumber::Unsigned8:
            return Copy<std::uint8_t>(format, plane, frames, out);
        case PlaneNumber::Signed16:
            return Copy<std::int16_t>(format, plane, frames, out);
        default:
            break;
    }
    switch (format.BitsPerSample) {
        case 8:
            return ToFloat<1>(format, plane, frames, out);
        case 16:
            return ToFloat<2>(format, plane, frames, out);
        case 24:
            return ToFloat<3>(format, plane, frames, out);
        default:
            return ToFloat<4>(format, plane, frames, out);
    }
}

}  // namespace marvolin
