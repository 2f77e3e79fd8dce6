#pragma once
/// \file
/// A voice on the thread that renders.

#include <atomic>
#include <cstdint>
#include <span>

#include "audio/openal/voice_sources.h"

namespace marvolin {

/// What is known of a voice outside the thread that renders.
struct VoiceState {
    std::uint32_t Serial = 0;  ///< of the last `Play`, `Stop` or `Jump` that has been applied
    bool Playing = false;
    std::int32_t Frame = 0;  ///< the cursor
};

/// Plays a voice in its sources, as the calls say. Made by the user-interface thread; from `Attach` to `Detach`
/// everything but `State` belongs to the thread that renders.
class VoicePlayer {
public:
    /// A sample of `frames` frames of `rate` Hz. `sources` must live until it is past.
    VoicePlayer(VoiceSources& sources, std::int32_t frames, std::int32_t rate);

    VoiceState State() const noexcept;

    /// The voice plays in sources that others have used: sets everything that a source remembers.
    void Attach_rt(std::int32_t hertz, float rolloff) noexcept;
    /// Silent, and never touched again.
    void Detach_rt() noexcept;
    void Switch_rt(VoiceSources& sources) noexcept;

    void Play_rt(std::uint32_t serial, bool looping) noexcept;
    /// It was known to play and to be at `frame`.
    void Stop_rt(std::uint32_t serial, std::int32_t frame) noexcept;
    /// Starts at `frame` when it plays or is known to (`sounds`), else moves the cursor.
    void Jump_rt(std::uint32_t serial, std::int32_t frame, bool sounds) noexcept;
    void SetGains_rt(float left, float right) noexcept;
    /// When sample and output have this rate, the sound goes on from a whole frame, which keeps its treble.
    void SetPitch_rt(std::int32_t hertz, std::int64_t position) noexcept;
    void SetPlace_rt(const float* place) noexcept;
    void SetDistances_rt(float near, float far) noexcept;
    void SetRolloff_rt(float factor) noexcept;

    /// The device stands at frame `position`: ends what has ended.
    void CatchUp_rt(std::int64_t position) noexcept;
    /// The next piece ends at frame `end`.
    void Prepare_rt(std::int64_t end) noexcept;
    void Publish_rt() noexcept;

private:
    std::span<const ALuint> Current() const { return sources_->Set(second_); }
    std::span<const ALuint> Other() const { return sources_->Set(!second_); }
    void SetUp_rt() noexcept;
    void StartAt_rt(std::int32_t frame) noexcept;
    void StopAll_rt() noexcept;
    void RunOut_rt() noexcept;
    std::int32_t SoundingFrame_rt() const noexcept;
    void ShareGains_rt(std::span<const ALuint> set, float share) const noexcept;
    /// Moves a sound that stands between two frames to the nearer one: the other set of sources fades in there.
    void Settle_rt(std::int64_t position) noexcept;

    VoiceSources* sources_;
    std::int32_t frames_;
    std::int32_t rate_;
    bool second_ = false;         ///< the second set is the one that sounds
    bool fading_ = false;         ///< the other set fades out
    bool settleLater_ = false;    ///< once the fade has ended
    std::int64_t fadeBegin_ = 0;  ///< frame of the device
    bool playing_ = false;
    bool looping_ = false;
    std::int32_t cursor_ = 0;  ///< while silent: frame at which the next `Play` begins
    std::int32_t hertz_ = 0;
    float left_ = 1;  ///< gains
    float right_ = 1;
    float place_[3] = {0, 0, 0};
    float near_ = 1;
    float far_ = 1.0e9F;
    float rolloff_ = 1;
    std::uint32_t serial_ = 0;
    std::atomic<std::uint64_t> state_{0};  ///< serial, playing and frame in one word, so that they fit together
};

}  // namespace marvolin
