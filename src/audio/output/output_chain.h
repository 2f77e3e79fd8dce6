#pragma once
/// \file
/// What happens to the sound on its way to the card.

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>

#include "audio/output/frame_ring.h"
#include "core/card_output.h"

namespace marvolin {

/// The last thing that the sound of every device passes, in this order: silence, the meter, the recording. It outlives
/// the devices, so silence and a recording go on when another one is opened. One device renders at a time.
///
/// Everything but `Pass_rt` belongs to the user-interface thread; `Recorded` to the one that writes the recording.
class OutputChain {
public:
    /// Frames in which the sound goes away or comes back: too short to be a fade, long enough not to click.
    static constexpr int kRampFrames = 128;
    /// Frames of sound that wait for the disk at most: almost 24 s.
    static constexpr std::size_t kRecordedFrames = std::size_t{1} << 20;

    /// Lets stereo frames pass. Allocates nothing and waits for nothing. `hasGone`: the device was pulled out, nobody
    /// hears them and nothing sets their pace; they are neither measured nor recorded.
    void Pass_rt(std::int16_t* frames, int count, bool hasGone = false) noexcept;

    /// From the next period on, everything is silent, or heard again where it would be by now.
    void SetSilent(bool silent) { silent_.store(silent, std::memory_order_relaxed); }
    bool IsSilent() const { return silent_.load(std::memory_order_relaxed); }

    /// The levels since this was last called. Two or more frames in a row at full scale in one channel are taken for a
    /// sum that was cut off: the 16 bits do not tell more.
    OutputLevels TakeLevels();

    /// From the next period on, what passes is recorded too. `std::bad_alloc` when there is no memory for it.
    void BeginRecording();
    /// What passed before is still in `Recorded`.
    void EndRecording() { isRecording_.store(false, std::memory_order_release); }
    /// Where the recorded frames are taken from. After the first `BeginRecording`.
    FrameRing& Recorded() { return *recorded_; }

private:
    void Silence_rt(std::int16_t* frames, int count) noexcept;
    void Measure_rt(const std::int16_t* frames, int count) noexcept;

    std::atomic<bool> silent_{false};
    bool wasSilent_ = false;  // of the thread that renders

    std::array<std::atomic<int>, 2> peaks_{};
    std::atomic<bool> cutOff_{false};
    std::array<int, 2> atFullScale_{};  // of the thread that renders: frames in a row, by channel

    std::unique_ptr<FrameRing> recorded_;
    std::atomic<bool> isRecording_{false};
};

}  // namespace marvolin
