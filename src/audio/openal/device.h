#pragma once
/// \file
/// An open device and its primary buffer.

#include <memory>
#include <string>

#include "audio/device_abilities.h"
#include "audio/openal/context.h"
#include "audio/openal/sdl_output.h"
#include "core/sound_service.h"

namespace marvolin {

/// An open device. Its buffers may outlive it and are then no longer heard.
class OpenAlDevice final : public DirectSound, public HeadphoneSwitch, public OutputPresence {
public:
    /// `output` is null for a device that is rendered by hand.
    OpenAlDevice(std::shared_ptr<OpenAlContext> context, std::unique_ptr<SdlOutput> output);
    ~OpenAlDevice() override;
    OpenAlDevice(const OpenAlDevice&) = delete;
    OpenAlDevice& operator=(const OpenAlDevice&) = delete;

    /// Expires with the device.
    std::weak_ptr<const void> Life() const { return alive_; }
    /// True when its output was pulled out while it was open.
    bool Gone() const override { return output_ != nullptr && output_->Gone(); }
    CallCounts Counts() const { return context_->Counts(); }

    /// Only decides whether the primary buffer takes a format.
    void SetCooperativeLevel(std::int32_t level) override;
    std::unique_ptr<DirectSoundBuffer> CreateSoundBuffer(std::int32_t flags) override;
    std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromFile(const std::string& path, std::int32_t flags) override;
    std::unique_ptr<DirectSoundBuffer> DuplicateSoundBuffer(DirectSoundBuffer& source) override;
    std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromKept(const std::shared_ptr<KeptSample>& sample,
                                                                 std::int32_t flags) override;
    std::int32_t GetSpeakerConfig() override;
    /// Only remembered: the output is always stereo.
    void SetSpeakerConfig(std::int32_t config) override;
    bool HasHeadphones() override { return context_->HasHeadphones(); }
    void SetHeadphones(bool on) override;

private:
    std::shared_ptr<OpenAlContext> context_;
    std::unique_ptr<SdlOutput> output_;
    std::shared_ptr<std::int32_t> level_;
    std::shared_ptr<const void> alive_;
    std::int32_t speakers_;
};

}  // namespace marvolin
