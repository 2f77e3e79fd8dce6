#pragma once
/// \file
/// The primary buffer of a device: its format, and the way to the listener. It holds no sample.

#include <memory>

#include "audio/openal/context.h"
#include "core/sound_service.h"

namespace marvolin {

class OpenAlPrimaryBuffer final : public DirectSoundBuffer {
public:
    /// `level` is the cooperative level of the device at any time.
    OpenAlPrimaryBuffer(std::shared_ptr<OpenAlContext> context, std::shared_ptr<const std::int32_t> level,
                        std::int32_t flags);

    BufferCaps GetCaps() override { return {flags_, 0}; }
    WaveFormat GetFormat() override;
    /// Only the format in which the mixer renders is taken, others are `kBadFormat`; below level 2 `kPriorityNeeded`.
    void SetFormat(const WaveFormat& format) override;
    std::int32_t GetFrequency() override;
    void SetFrequency(std::int32_t hertz) override;
    std::int32_t GetStatus() override;
    std::int32_t GetCurrentPosition() override { return 0; }
    void SetCurrentPosition(std::int32_t bytes) override;
    /// Only looping. The mixer renders all the same while it is stopped.
    void Play(std::int32_t flags) override;
    void Stop() override { playing_ = false; }
    void SetVolume(std::int32_t hundredths) override;
    void SetPan(std::int32_t hundredths) override;
    void ReadBuffer(std::int32_t start, std::span<std::uint8_t> data) override;
    void WriteBuffer(std::int32_t start, std::span<const std::uint8_t> data) override;
    std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() override;
    std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() override;

private:
    std::shared_ptr<OpenAlContext> context_;
    std::shared_ptr<const std::int32_t> level_;
    std::int32_t flags_;
    bool playing_ = false;
};

}  // namespace marvolin
