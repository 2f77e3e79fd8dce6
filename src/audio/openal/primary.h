#pragma once
/// \file
/// The primary buffer of a device: its format, and access to the listener. It holds no sample.

#include <memory>

#include "audio/openal/context.h"
#include "core/sound_service.h"

namespace marvolin {

class OpenAlPrimaryBuffer final : public DirectSoundBuffer {
public:
    /// `level` is the cooperative level of the device, which may change later.
    OpenAlPrimaryBuffer(std::shared_ptr<OpenAlContext> context, std::shared_ptr<const std::int32_t> level,
                        std::int32_t flags);

    BufferCaps GetCaps() override;
    WaveFormat GetFormat() override;
    /// Takes only the format in which the mixer renders; any other is `kBadFormat`. Below level 2: `kPriorityNeeded`.
    void SetFormat(const WaveFormat& format) override;
    std::int32_t GetFrequency() override;
    void SetFrequency(std::int32_t hertz) override;
    std::int32_t GetStatus() override;
    std::int32_t GetCurrentPosition() override;
    void SetCurrentPosition(std::int32_t bytes) override;
    /// Only looping. Changes nothing but the status: the mixer renders while it is stopped as well.
    void Play(std::int32_t flags) override;
    void Stop() override;
    void SetVolume(std::int32_t hundredths) override;
    void SetPan(std::int32_t hundredths) override;
    void ReadBuffer(std::int32_t start, std::span<std::uint8_t> data) override;
    void WriteBuffer(std::int32_t start, std::span<const std::uint8_t> data) override;
    std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() override;
    std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() override;

private:
    /// For what a primary buffer has not.
    [[noreturn]] void Refuse(std::uint32_t number) const;

    std::shared_ptr<OpenAlContext> context_;
    std::shared_ptr<const std::int32_t> level_;
    std::int32_t flags_;
    bool playing_ = false;
};

}  // namespace marvolin
