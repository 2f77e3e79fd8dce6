#pragma once
/// \file
/// An open device and its primary buffer.

#include <memory>
#include <string>

#include "audio/openal/context.h"
#include "audio/openal/sdl_output.h"
#include "core/sound_service.h"

namespace marvolin {

/// An open device. Its buffers may outlive it; they are then heard no more.
class OpenAlDevice final : public DirectSound {
public:
    /// `output` is null for a device whose sound is fetched by hand.
    OpenAlDevice(std::shared_ptr<OpenAlContext> context, std::unique_ptr<SdlOutput> output);

    /// Gone when the device is.
    std::weak_ptr<const void> Life() const { return alive_; }
    /// Whether its output was pulled out while it was open.
    bool Gone() const { return output_ != nullptr && output_->Gone(); }

    void SetCooperativeLevel(std::int32_t level) override;
    std::unique_ptr<DirectSoundBuffer> CreateSoundBuffer(std::int32_t flags) override;
    std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromFile(const std::string& path, std::int32_t flags) override;
    std::unique_ptr<DirectSoundBuffer> DuplicateSoundBuffer(DirectSoundBuffer& source) override;
    std::int32_t GetSpeakerConfig() override { return speakers_; }
    void SetSpeakerConfig(std::int32_t config) override { speakers_ = config; }

private:
    std::shared_ptr<OpenAlContext> context_;
    std::unique_ptr<SdlOutput> output_;  ///< goes before the mixer that it asks
    std::shared_ptr<std::int32_t> level_;
    std::shared_ptr<const void> alive_;
    std::int32_t speakers_;
};

}  // namespace marvolin
