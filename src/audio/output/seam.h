#pragma once

#include <array>
#include <cstdint>

namespace marvolin {

/// Joins what is rendered after a reset of the mixer to what was heard before. The mixer needs some frames to settle,
/// and then sounds otherwise at once; both would click. So the last period of what was heard goes on for a moment, as
/// if nothing had happened, and fades into what is rendered. All calls are made by one thread at a time.
class Seam {
public:
    static constexpr int kHidden = 64;           ///< frames in which nothing of the reset mixer is heard
    static constexpr int kFade = 256;            ///< frames of the fade after them
    static constexpr int kLongestPeriod = 2048;  ///< frames; 22 Hz

    /// The next frame is the first of the reset mixer. Takes about 0.2 ms.
    void Open() noexcept;
    /// What has been rendered passes here, `frames` stereo frames at a time.
    void Pass_rt(std::int16_t* frames, int count) noexcept;

    static constexpr int kLength = kHidden + kFade;

private:
    static constexpr int kCompared = 512;  // frames that must be like those a period before
    static constexpr int kHistory = kLongestPeriod + kCompared;

    int Period() const noexcept;
    void Remember_rt(const std::int16_t* frames, int count) noexcept;

    std::array<std::int16_t, 2 * kHistory> heard_{};  // the last that passed
    std::array<std::int16_t, 2 * kLength> before_{};  // what was heard, going on
    int left_ = 0;                                    // frames of the seam to come
};

}  // namespace marvolin
