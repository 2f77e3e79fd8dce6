#include "audio/openal/rate_reducer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr int kLobes = 24;        // of the filter, on each side
constexpr double kPassed = 0.92;  // share of the band that the lower rate can hold

/// A low-pass filter: a sinc under a Blackman window, of gain 1.
std::vector<double> LowPass(std::int32_t factor) {
    const int half = kLobes * factor;
    std::vector<double> taps;
    double sum = 0;
    for (int i = -half; i <= half; ++i) {
        const double x = std::numbers::pi * i * kPassed / factor;
        const double turn = std::numbers::pi * i / half;
        const double window = 0.42 + 0.5 * std::cos(turn) + 0.08 * std::cos(2 * turn);
        taps.push_back((i == 0 ? 1.0 : std::sin(x) / x) * window);
        sum += taps.back();
    }
    for (double& tap : taps) tap /= sum;
    return taps;
}

/// Writes a number of -1 to 1 as the bytes of a sample.
void PutSample(double value, std::int16_t bits, std::uint8_t* bytes) {
    const double full = std::ldexp(1.0, bits - 1);
    auto number = static_cast<std::int64_t>(std::nearbyint(std::clamp(value * full, -full, full - 1)));
    if (bits == 8) number += 128;  // the only width without a sign
    for (int i = 0; i < bits / 8; ++i) bytes[i] = static_cast<std::uint8_t>(number >> (8 * i));
}

}  // namespace

std::int32_t RateReducer::FactorFor(std::int32_t rate) { return (rate + kHighestBufferRate - 1) / kHighestBufferRate; }

RateReducer::RateReducer(const WaveFormat& source, std::int64_t frames, std::int32_t factor)
    : format_(source), left_(frames), sourceFrames_(frames), factor_(factor), taps_(LowPass(factor)) {
    format_.SamplesPerSec = (source.SamplesPerSec + factor / 2) / factor;
    format_.AvgBytesPerSec = format_.SamplesPerSec * format_.BlockAlign;
}

std::int64_t RateReducer::Frames() const { return std::max<std::int64_t>(sourceFrames_ / factor_, 1); }

void RateReducer::ReadAhead(const Source& source, std::size_t frames) {
    const auto channels = static_cast<std::size_t>(format_.Channels);
    const auto at = [&](std::size_t frame) { return ahead_.begin() + static_cast<std::ptrdiff_t>(frame * channels); };
    const bool first = left_ == sourceFrames_;
    const std::size_t have = first ? taps_.size() / 2 : ahead_.size() / channels;
    if (have >= frames) return;
    ahead_.resize(frames * channels);
    const auto wanted = std::min<std::int64_t>(left_, static_cast<std::int64_t>(frames - have));
    if (source(&*at(have), wanted) != wanted) throw SoundError(sound_error::kGeneric);
    left_ -= wanted;
    // Beyond its ends a sample stays at its first and its last frame: silence there would put a dip into a loop.
    for (std::size_t frame = 0; first && frame < have; ++frame) std::copy_n(at(have), channels, at(frame));
    for (std::size_t frame = have + static_cast<std::size_t>(wanted); frame < frames; ++frame)
        std::copy_n(at(frame - 1), channels, at(frame));
}

double RateReducer::Filtered(std::size_t frame, std::size_t channel) const {
    const auto channels = static_cast<std::size_t>(format_.Channels);
    const double* sample = ahead_.data() + frame * channels + channel;
    double sum = 0;
    for (const double tap : taps_) {
        sum += tap * *sample;
        sample += channels;
    }
    return sum;
}

void RateReducer::Read(const Source& source, std::span<std::uint8_t> frames) {
    const auto channels = static_cast<std::size_t>(format_.Channels);
    const auto factor = static_cast<std::size_t>(factor_);
    const std::size_t count = frames.size() / static_cast<std::size_t>(format_.BlockAlign);
    ReadAhead(source, (count - 1) * factor + taps_.size());
    std::uint8_t* bytes = frames.data();
    for (std::size_t frame = 0; frame < count; ++frame) {
        for (std::size_t channel = 0; channel < channels; ++channel) {
            PutSample(Filtered(frame * factor, channel), format_.BitsPerSample, bytes);
            bytes += format_.BitsPerSample / 8;
        }
    }
    const std::size_t used = std::min(count * factor * channels, ahead_.size());
    ahead_.erase(ahead_.begin(), ahead_.begin() + static_cast<std::ptrdiff_t>(used));
}

}  // namespace marvolin
