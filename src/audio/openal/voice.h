#pragma once
/// \file
/// One play cursor over a sample, with its volume, pan, frequency and place.

#include <cstdint>
#include <memory>

#include "audio/openal/call.h"
#include "audio/openal/sample.h"
#include "audio/openal/voice_player.h"
#include "core/sound_service.h"

namespace marvolin {

/// A sounding sample, as the user-interface thread knows it. What is asked of it is posted to the thread that renders,
/// and what it answers agrees with what was asked, whether that has been heard yet or not. Arguments must have been
/// checked.
class OpenAlVoice final : public SampleUser {
public:
    /// `SoundError` `kOutOfMemory` when the mixer has no more sources.
    OpenAlVoice(std::shared_ptr<OpenAlContext> context, std::shared_ptr<SampleMemory> sample, bool spatial);
    ~OpenAlVoice() override;
    OpenAlVoice(const OpenAlVoice&) = delete;
    OpenAlVoice& operator=(const OpenAlVoice&) = delete;

    OpenAlContext& Context() const { return *context_; }
    const std::shared_ptr<SampleMemory>& Sample() const { return sample_; }

    bool Playing();
    bool Looping() const { return looping_; }
    void Play(bool looping);
    /// The cursor stays where the sound was known to be. The next `Play` goes on where the sound really stopped, which
    /// is less than the lead and a period later; or at the cursor, if it ran out in between.
    void Stop();
    /// The cursor, in frames.
    std::int32_t Cursor();
    void SetCursor(std::int32_t frame);

    std::int32_t Volume() const { return volume_; }  ///< 1/100 dB
    std::int32_t Pan() const { return pan_; }        ///< 1/100 dB, positive to the right
    std::int32_t Frequency() const { return hertz_; }
    void SetVolumeAndPan(std::int32_t volume, std::int32_t pan);
    void SetFrequency(std::int32_t hertz);

    const Vector3& Position() const { return position_; }
    float MinDistance() const { return minDistance_; }
    float MaxDistance() const { return maxDistance_; }
    void SetPosition(const Vector3& position);
    void SetDistances(float min, float max);

    std::unique_ptr<VoiceSources> SourcesFor(const std::shared_ptr<const PlaneBuffers>& planes) override;
    void GoOnIn(std::unique_ptr<VoiceSources> sources) override;

private:
    void Post(Call call, Pace pace);
    void Attach();
    /// Posts a start, a stop or a jump, after which the voice is known to play or not, with the cursor at `cursor`.
    void PostTransport(Call call, Pace pace, bool playing, std::int32_t cursor);

    std::shared_ptr<OpenAlContext> context_;
    std::shared_ptr<SampleMemory> sample_;
    bool spatial_;
    std::unique_ptr<VoiceSources> sources_;  ///< both belong to the thread that renders
    std::unique_ptr<VoicePlayer> player_;
    std::int64_t lastFrame_ = 0;  ///< of the last call
    std::uint32_t serial_ = 0;    ///< of the last start, stop or jump
    bool playing_ = false;        ///< as it was called for, until that call has been applied
    bool stopped_ = false;        ///< the last of those calls was a stop
    std::int32_t cursor_ = 0;     ///< the same, and after a stop
    bool looping_ = false;
    std::int32_t volume_ = 0;
    std::int32_t pan_ = 0;
    std::int32_t hertz_ = 0;
    Vector3 position_;
    float minDistance_ = 1;
    float maxDistance_ = 1.0e9F;
};

}  // namespace marvolin
