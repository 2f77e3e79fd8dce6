#pragma once
/// \file
/// One play cursor over a sample, with its volume, pan, frequency and place.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "audio/openal/sample.h"
#include "core/sound_service.h"

namespace marvolin {

/// A sounding sample: without 3D a pair of sources at the left and the right ear that are always called together, with
/// 3D one source in space. A second set of the same sources takes over when the sound has to move by a part of a frame
/// without a click. Arguments must have been checked.
class OpenAlVoice final : public SampleUser {
public:
    OpenAlVoice(std::shared_ptr<OpenAlContext> context, std::shared_ptr<SampleMemory> sample, bool spatial);
    ~OpenAlVoice() override;
    OpenAlVoice(const OpenAlVoice&) = delete;
    OpenAlVoice& operator=(const OpenAlVoice&) = delete;

    OpenAlContext& Context() const { return *context_; }
    const std::shared_ptr<SampleMemory>& Sample() const { return sample_; }

    bool Playing();
    bool Looping() const { return looping_; }
    void Play(bool looping);
    void Stop();
    /// The cursor, in frames.
    std::int32_t Cursor();
    void SetCursor(std::int32_t frame);

    std::int32_t Volume() const { return volume_; }  ///< 1/100 dB
    std::int32_t Pan() const { return pan_; }        ///< 1/100 dB, positive to the right
    std::int32_t Frequency() const { return hertz_; }
    void SetVolumeAndPan(std::int32_t volume, std::int32_t pan);
    /// When sample and output have this rate, the sound goes on from a whole frame, which keeps its treble.
    void SetFrequency(std::int32_t hertz);

    const Vector3& Position() const { return position_; }
    float MinDistance() const { return minDistance_; }
    float MaxDistance() const { return maxDistance_; }
    void SetPosition(const Vector3& position);
    void SetDistances(float min, float max);

    void Rebind(const PlaneBuffers& planes) override;

private:
    std::size_t Ears() const { return spatial_ ? 1 : 2; }
    /// Both sets of sources.
    std::span<const ALuint> AllSources() const { return {sources_.data(), 2 * Ears()}; }
    /// The set that sounds.
    std::span<const ALuint> Sources() const { return AllSources().subspan(second_ ? Ears() : 0, Ears()); }
    /// The set that is silent or fading out.
    std::span<const ALuint> OtherSources() const { return AllSources().subspan(second_ ? 0 : Ears(), Ears()); }
    void SetUpSources();

    // Call these while rendering is held off.

    /// Brings the state up to date: a sample that has run out, a set that has faded out.
    void CatchUp();
    std::int32_t SoundingFrame() const;
    void StartAt(std::int32_t frame);
    void StopAll();
    void SetGains(std::int32_t volume, std::int32_t pan);
    /// Moves a sound that stands between two frames to the nearer one, over the next period.
    void SettleOnWholeFrame();

    std::shared_ptr<OpenAlContext> context_;
    std::shared_ptr<SampleMemory> sample_;
    bool spatial_;
    std::array<ALuint, 4> sources_{};
    bool second_ = false;                            ///< the second set is the one that sounds
    std::optional<std::uint64_t> fadingSince_ = {};  ///< period in which the other set begins to fade out
    bool playing_ = false;
    bool looping_ = false;
    std::int32_t cursor_ = 0;  ///< while silent: frame at which the next `Play` begins
    std::int32_t volume_ = 0;
    std::int32_t pan_ = 0;
    std::int32_t hertz_ = 0;
    Vector3 position_;
    float minDistance_ = 1;
    float maxDistance_ = 1.0e9F;
};

}  // namespace marvolin
