#include "audio/output/output_chain.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numbers>

namespace marvolin {

namespace {

constexpr int kHighest = std::numeric_limits<std::int16_t>::max();
constexpr int kLowest = std::numeric_limits<std::int16_t>::min();
constexpr int kCutOffFrames = 2;  // in a row at full scale

std::int16_t Scaled(std::int16_t sample, double gain) {
    return static_cast<std::int16_t>(std::lround(gain * static_cast<double>(sample)));
}

/// The furthest from 0 of each channel. In lanes, so that the compiler takes several samples at once.
std::array<int, 2> Peaks_rt(const std::int16_t* frames, int count) noexcept {
    constexpr int kLanes = 16;
    std::array<std::int16_t, kLanes> high{};
    std::array<std::int16_t, kLanes> low{};
    int i = 0;
    for (; i + kLanes <= 2 * count; i += kLanes) {
        for (int lane = 0; lane < kLanes; ++lane) {
            const auto at = static_cast<std::size_t>(lane);
            high[at] = std::max(high[at], frames[i + lane]);
            low[at] = std::min(low[at], frames[i + lane]);
        }
    }
    std::array<int, 2> peaks{};
    for (std::size_t lane = 0; lane < kLanes; ++lane)
        peaks[lane % 2] = std::max({peaks[lane % 2], static_cast<int>(high[lane]), -low[lane]});
    for (; i < 2 * count; ++i) {
        int& peak = peaks[static_cast<std::size_t>(i % 2)];
        peak = std::max(peak, std::abs(frames[i]));
    }
    return peaks;
}

// A reader that takes the peak in between makes the exchange fail once; it does not come twice in a period.
void Raise_rt(std::atomic<int>& peak, int to) noexcept {
    int before = peak.load(std::memory_order_relaxed);
    for (int tries = 0; tries < 2 && before < to; ++tries)
        if (peak.compare_exchange_strong(before, to, std::memory_order_relaxed)) return;
}

/// Whether enough samples of a channel are at full scale one after the other. `inARow` counts them, from period to
/// period.
bool IsCutOff_rt(const std::int16_t* samples, int count, int& inARow) noexcept {
    bool cutOff = false;
    for (int i = 0; i < count; ++i) {
        const int sample = samples[2 * i];
        inARow = sample == kHighest || sample == kLowest ? std::min(inARow + 1, kCutOffFrames) : 0;
        cutOff = cutOff || inARow == kCutOffFrames;
    }
    return cutOff;
}

}  // namespace

void OutputChain::Pass_rt(std::int16_t* frames, int count, bool hasGone) noexcept {
    if (count <= 0) return;
    Silence_rt(frames, count);
    if (hasGone) return;
    Measure_rt(frames, count);
    if (isRecording_.load(std::memory_order_acquire)) recorded_->Write_rt(frames, static_cast<std::size_t>(count));
}

// The ramp is half a wave of a cosine: it begins and ends level, so that neither end clicks.
void OutputChain::Silence_rt(std::int16_t* frames, int count) noexcept {
    const bool silent = IsSilent();
    if (silent != wasSilent_) {
        const int ramp = std::min(count, kRampFrames);
        for (int i = 0; i < ramp; ++i) {
            const double rising = (1 - std::cos(std::numbers::pi * (i + 1) / ramp)) / 2;
            const double gain = silent ? 1 - rising : rising;
            frames[2 * i] = Scaled(frames[2 * i], gain);
            frames[2 * i + 1] = Scaled(frames[2 * i + 1], gain);
        }
        if (silent) std::fill(frames + 2 * ramp, frames + 2 * count, std::int16_t{0});
    } else if (silent) {
        std::fill_n(frames, 2 * count, std::int16_t{0});
    }
    wasSilent_ = silent;
}

// Full scale is rare: most periods end with the peaks.
void OutputChain::Measure_rt(const std::int16_t* frames, int count) noexcept {
    const std::array<int, 2> peaks = Peaks_rt(frames, count);
    for (std::size_t channel = 0; channel < peaks.size(); ++channel) {
        Raise_rt(peaks_[channel], peaks[channel]);
        const bool full = peaks[channel] >= kHighest;
        if (full && IsCutOff_rt(frames + channel, count, atFullScale_[channel]))
            cutOff_.store(true, std::memory_order_relaxed);
        if (!full) atFullScale_[channel] = 0;
    }
}

OutputLevels OutputChain::TakeLevels() {
    OutputLevels levels;
    for (std::size_t channel = 0; channel < peaks_.size(); ++channel)
        levels.Peak[channel] = peaks_[channel].exchange(0, std::memory_order_relaxed);
    levels.CutOff = cutOff_.exchange(false, std::memory_order_relaxed);
    return levels;
}

void OutputChain::BeginRecording() {
    if (!recorded_) recorded_ = std::make_unique<FrameRing>(kRecordedFrames);
    recorded_->Clear();
    isRecording_.store(true, std::memory_order_release);
}

}  // namespace marvolin
