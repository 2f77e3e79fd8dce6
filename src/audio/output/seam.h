#pragma once

#include <array>
#include <cstdint>

namespace marvolin {

/// Joins what is rendered after a reset of the mixer to what was heard before. The mixer needs some frames to settle,
/// and then sounds otherwise at once; both would click. So what was heard goes on backwards for a moment, and fades
/// into what is rendered. All calls are made by one thread at a time.
class Seam {
public:
    static constexpr int kHidden = 64;  ///< frames in which nothing of the reset mixer is heard
    static constexpr int kFade = 256;   ///< frames of the fade after them
    static constexpr int kLength = kHidden + kFade;

    /// The next frame is the first of the reset mixer.
    void Open() noexcept;
    /// What has been rendered passes here, `frames` stereo frames at a time.
    void Pass_rt(std::int16_t* frames, int count) noexcept;

private:
    using Frames = std::array<std::int16_t, 2 * static_cast<std::size_t>(kLength)>;
    void Remember_rt(const std::int16_t* frames, int count) noexcept;

    Frames heard_{};  // the last that passed
    Frames before_{};
    int left_ = 0;  // frames of the seam to come
};

}  // namespace marvolin
