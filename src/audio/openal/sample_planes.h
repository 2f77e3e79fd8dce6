#pragma once
/// \file
/// Single channels of a sample, in the number formats of the mixer.

#include <cstdint>
#include <span>

#include "core/sound_service.h"

namespace marvolin {

/// Which channel is taken out of the frames of a sample.
enum class Plane : std::uint8_t {
    Left,   ///< the first channel
    Right,  ///< the last channel
    Mixed,  ///< the mean of both channels
};

/// Number format of a plane. 8 and 16 bits stay as they are, everything else becomes float.
enum class PlaneNumber : std::uint8_t { Unsigned8, Signed16, Float32 };

PlaneNumber PlaneNumberOf(const WaveFormat& format, Plane plane);
/// Bytes of one number.
std::int32_t PlaneNumberBytes(PlaneNumber number);
/// Writes one number for each frame of `frames` to `out`, which must have room for them.
void ExtractPlane(const WaveFormat& format, Plane plane, std::span<const std::uint8_t> frames, std::uint8_t* out);

}  // namespace marvolin
