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

}  // namespace

void OutputChain::Pass_rt(std::int16_t* frames, int count) noexcept {
    if (count <= 0) return;
    Silence_rt(frames, count);
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

void OutputChain::Measure_rt(const std::int16_t* frames, int count) noexcept {
    for (std::size_t channel = 0; channel < peaks_.size(); ++channel) {
        int peak = 0;
        int& inARow = atFullScale_[channel];
        bool cut = false;
        for (int i = 0; i < count; ++i) {
            const int sample = frames[2 * i + static_cast<int>(channel)];
            peak = std::max(peak, std::abs(sample));
            inARow = sample == kHighest || sample == kLowest ? std::min(inARow + 1, kCutOffFrames) : 0;
            cut = cut || inARow == kCutOffFrames;
        }
        // A reader that takes the peak in between makes the exchange fail once; it does not come twice in a period.
        int before = peaks_[channel].load(std::memory_order_relaxed);
        for (int tries = 0; tries < 2 && before < peak; ++tries)
            if (peaks_[channel].compare_exchange_strong(before, peak, std::memory_order_relaxed)) break;
        if (cut) cutOff_.store(true, std::memory_order_relaxed);
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
