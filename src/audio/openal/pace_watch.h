#pragma once
/// \file
/// Whether a device asks for sound as a card does.

#include <cstdint>

namespace marvolin {

/// Measures the pace of the callbacks of one device. When a device has been pulled out, its driver goes on asking after
/// pauses of its own, up to four tenths too fast; a file as the output asks as fast as it can be written.
class PaceWatch {
public:
    /// The callback at `nanoseconds` of the steady clock has been given `frames` frames before. `endsBurst`: the next
    /// one did not follow at once, so that the pace can be measured here.
    void Add_rt(std::int64_t nanoseconds, std::int64_t frames, bool endsBurst) noexcept;
    /// False once the pace has been higher than any card's for more than a second, until it has been right for a good
    /// third of one. Too slow a pace is that of a card which loses its place now and then.
    bool KeepsTime_rt() const noexcept { return keepsTime_; }

private:
    bool hasBegun_ = false;
    std::int64_t begin_ = 0;  // of the stretch that is being measured
    std::int64_t frames_ = 0;
    int fast_ = 0;  // stretches in a row
    bool keepsTime_ = true;
};

}  // namespace marvolin
