#pragma once
/// \file
/// Samples of a rate that no buffer can be played at, brought down to one that can.

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/sound_service.h"

namespace marvolin {

/// The highest rate of a buffer, Hz.
inline constexpr std::int32_t kHighestBufferRate = 100'000;

/// Reads a file at a whole fraction of its rate. What the lower rate cannot hold is filtered out first; pitch, length
/// and number format stay.
class RateReducer {
public:
    /// The whole divisor of `rate`; 1 up to `kHighestBufferRate`.
    static std::int32_t FactorFor(std::int32_t rate);

    /// `source` is the format of the file, `frames` what it holds. `factor` is above 1.
    RateReducer(const WaveFormat& source, std::int64_t frames, std::int32_t factor);
    /// The format that `Read` gives.
    const WaveFormat& Format() const { return format_; }
    /// Frames that `Read` gives, at least one.
    std::int64_t Frames() const;
    /// Reads the next frames of the file as numbers of -1 to 1, and returns how many it has read.
    using Source = std::function<std::int64_t(double* numbers, std::int64_t frames)>;
    /// The next frames. `SoundError` `kGeneric` when the file ends too early.
    void Read(const Source& source, std::span<std::uint8_t> frames);

private:
    void ReadAhead(const Source& source, std::size_t frames);
    double Filtered(std::size_t frame, std::size_t channel) const;

    WaveFormat format_;
    std::int64_t left_;  ///< frames of the file that are not read yet
    std::int64_t sourceFrames_;
    std::int32_t factor_;
    std::vector<double> taps_;
    std::vector<double> ahead_;  ///< frames of the file from half the filter before the next frame on
};

}  // namespace marvolin
