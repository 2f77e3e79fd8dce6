#pragma once
/// \file
/// The buffers of a device that hold a sample.

#include <memory>
#include <string>

#include "audio/openal/voice.h"
#include "core/sound_service.h"

namespace marvolin {

/// A sample at the service.
class OpenAlBuffer final : public DirectSoundBuffer {
public:
    /// Reads a file. Errors are those of `SampleMemory`, and `kInvalidArgument` for flags that exclude each other.
    OpenAlBuffer(const std::shared_ptr<OpenAlContext>& context, const std::string& path, std::int32_t flags);
    /// A duplicate: silent, its cursor at 0, everything else as in `source`.
    OpenAlBuffer(const std::shared_ptr<OpenAlContext>& context, const OpenAlBuffer& source);

    /// A new buffer with a sample that was kept; shared when it suits the mixer and the flags, otherwise copied. Errors
    /// are `kOutOfMemory`, and `kInvalidArgument` for flags that exclude each other.
    OpenAlBuffer(const std::shared_ptr<OpenAlContext>& context, const std::shared_ptr<SampleMemory>& sample,
                 std::int32_t flags);

    bool BelongsTo(const OpenAlContext& context) const { return &voice_->Context() == &context; }

    BufferCaps GetCaps() override;
    WaveFormat GetFormat() override;
    void SetFormat(const WaveFormat& format) override;
    std::int32_t GetFrequency() override;
    void SetFrequency(std::int32_t hertz) override;
    std::int32_t GetStatus() override;
    std::int32_t GetCurrentPosition() override;
    void SetCurrentPosition(std::int32_t bytes) override;
    void Play(std::int32_t flags) override;
    void Stop() override;
    void SetVolume(std::int32_t hundredths) override;
    void SetPan(std::int32_t hundredths) override;
    void ReadBuffer(std::int32_t start, std::span<std::uint8_t> data) override;
    void WriteBuffer(std::int32_t start, std::span<const std::uint8_t> data) override;
    std::shared_ptr<KeptSample> Keep() override;
    std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() override;
    std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() override;

private:
    bool Can(std::int32_t flag) const { return (flags_ & flag) != 0; }
    /// The voice, for a call on the owner's thread.
    OpenAlVoice& Voice() const;
    SampleMemory& Sample() const { return *Voice().Sample(); }
    /// How many of `wanted` bytes the sample has from byte `start` on.
    std::size_t Share(std::int32_t start, std::size_t wanted) const;

    std::int32_t flags_;
    std::shared_ptr<OpenAlVoice> voice_;
};

}  // namespace marvolin
