#pragma once
/// \file
/// What the instrument asks of the audio service, and no more.
///
/// The objects are named for the service whose behaviour they promise, whatever library keeps the promise. Behind them
/// stand OpenAL Soft as the mixer and SDL for the outputs (`audio/openal/`), or a fake in tests. Nothing to do there:
/// `SetSpeakerConfig` (remembered and read back; the output is stereo), `Play` and `Stop` of the primary buffer (only
/// its status changes; the mixer always renders), `SetCooperativeLevel` (only decides whether `SetFormat` is allowed),
/// and of the create flags those for position notification, global focus and the exact position.
///
/// Call every operation from the user-interface thread. An operation that fails raises `SoundError` with the service's
/// number. Volume and pan are hundredths of a decibel, positions are byte offsets into the sample.

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace marvolin {

/// Format of a wave, as the service describes it.
struct WaveFormat {
    std::int16_t FormatTag = 1;       ///< 1 is PCM
    std::int16_t Channels = 0;        ///< 1 or 2
    std::int32_t SamplesPerSec = 0;   ///< Hz
    std::int16_t BitsPerSample = 0;   ///< 8, 16, 24 or 32
    std::int16_t BlockAlign = 0;      ///< bytes of one frame
    std::int32_t AvgBytesPerSec = 0;  ///< bytes per second
    std::int16_t ExtraSize = 0;       ///< always 0
    friend bool operator==(const WaveFormat&, const WaveFormat&) = default;
};

/// What a buffer can do, and its size.
struct BufferCaps {
    std::int32_t Flags = 0;        ///< the create flags
    std::int32_t BufferBytes = 0;  ///< size of the sample
};

/// Create flags of a buffer.
namespace buffer_flags {
inline constexpr std::int32_t kPrimary = 0x1;
inline constexpr std::int32_t kStatic = 0x2;
inline constexpr std::int32_t kControl3D = 0x10;
inline constexpr std::int32_t kControlFrequency = 0x20;
inline constexpr std::int32_t kControlPan = 0x40;
inline constexpr std::int32_t kControlVolume = 0x80;
inline constexpr std::int32_t kSample = 0x181E2;    ///< a LoopTrack's buffer with 3D off
inline constexpr std::int32_t kSample3D = 0x181B2;  ///< a LoopTrack's buffer with 3D on
}  // namespace buffer_flags

/// Bits of the status word.
namespace buffer_status {
inline constexpr std::int32_t kPlaying = 1;
inline constexpr std::int32_t kLooping = 4;
}  // namespace buffer_status

/// A place in the device's space: x to the right, y up, z ahead.
struct Vector3 {
    float X = 0;
    float Y = 0;
    float Z = 0;
    friend bool operator==(const Vector3&, const Vector3&) = default;
};

/// The 3D side of a buffer made with `kControl3D`. The values take effect at once.
class DirectSound3DBuffer {
public:
    virtual ~DirectSound3DBuffer() = default;
    /// Distance in map units up to which the sound does not get softer.
    virtual void SetMinDistance(float distance) = 0;
    /// Distance in map units beyond which the sound gets no softer.
    virtual void SetMaxDistance(float distance) = 0;
    virtual void SetPosition(const Vector3& position) = 0;
    virtual Vector3 GetPosition() = 0;
};

/// The ear of the 3D space. The values take effect at once.
class DirectSound3DListener {
public:
    virtual ~DirectSound3DListener() = default;
    /// Roll-off factor of all sounds, 0..10; 1 is the natural one, 0 none.
    virtual void SetRolloffFactor(float factor) = 0;
    virtual void SetPosition(const Vector3& position) = 0;
    /// Direction of the listener's view, and of the top of the head. Neither needs unit length.
    virtual void SetOrientation(const Vector3& front, const Vector3& top) = 0;
};

/// A sample in memory, apart from the buffers that play it. It does not sound, and outlives them and their device.
class KeptSample {
public:
    virtual ~KeptSample() = default;
    /// Bytes of memory that it takes, with what the service has made of it to play it.
    virtual std::size_t Memory() const = 0;
    bool Backwards = false;  ///< the frames stand in the reverse order of the file; kept by who turns them round
};

/// One sample at the service with its own play cursor, volume, pan and frequency.
class DirectSoundBuffer {
public:
    virtual ~DirectSoundBuffer() = default;
    virtual BufferCaps GetCaps() = 0;
    virtual WaveFormat GetFormat() = 0;
    /// Sets the format; only for the primary buffer.
    virtual void SetFormat(const WaveFormat& format) = 0;
    /// Rate at which the sample plays, Hz; the sample's own rate until set.
    virtual std::int32_t GetFrequency() = 0;
    /// Sets the rate, 100..100000 Hz.
    virtual void SetFrequency(std::int32_t hertz) = 0;
    /// `kPlaying` while playing, with `kLooping` added while that playing loops; else 0.
    virtual std::int32_t GetStatus() = 0;
    /// Play cursor as a byte offset into the sample. For display only.
    virtual std::int32_t GetCurrentPosition() = 0;
    /// Moves the play cursor, also while playing. Rounded down to a whole frame.
    /// Beyond the sample: `kInvalidArgument`.
    virtual void SetCurrentPosition(std::int32_t bytes) = 0;
    /// Plays from the cursor, `flags` 0 once, 1 looping. On a sounding buffer only the looping changes.
    virtual void Play(std::int32_t flags) = 0;
    /// Halts; the cursor stays.
    virtual void Stop() = 0;
    /// -10000 (silence)..0 (full).
    virtual void SetVolume(std::int32_t hundredths) = 0;
    /// -10000 (left only)..10000 (right only); `kControlUnavailable` on a buffer without pan control.
    virtual void SetPan(std::int32_t hundredths) = 0;
    /// Copies the sample's bytes from byte `start` on into `data`, as many as both have.
    virtual void ReadBuffer(std::int32_t start, std::span<std::uint8_t> data) = 0;
    /// Copies bytes into the sample from byte `start` on, for this buffer and all duplicates; state and cursors stay.
    virtual void WriteBuffer(std::int32_t start, std::span<const std::uint8_t> data) = 0;
    /// The sample itself, the same one for a buffer and its duplicates. Null for a buffer without one.
    virtual std::shared_ptr<KeptSample> Keep() { return nullptr; }
    /// The 3D side; `kNoInterface` on a buffer without it. Lives no longer than the buffer's sound.
    virtual std::unique_ptr<DirectSound3DBuffer> GetDirectSound3dBuffer() = 0;
    /// The listener; only of a primary buffer made with `kControl3D`, else `kNoInterface`.
    virtual std::unique_ptr<DirectSound3DListener> GetDirectSound3dListener() = 0;
};

/// An open audio device.
class DirectSound {
public:
    virtual ~DirectSound() = default;
    /// 2 is the priority level, 1 the normal one. Needs no window here.
    virtual void SetCooperativeLevel(std::int32_t level) = 0;
    /// The primary buffer; `flags` is `kPrimary`, with `kControl3D` when 3D is wanted.
    virtual std::unique_ptr<DirectSoundBuffer> CreateSoundBuffer(std::int32_t flags) = 0;
    /// Reads a PCM WAV file wholly into a new buffer made with `flags`.
    /// Anything but PCM of 8, 16, 24 or 32 bits and one or two channels: `kBadFormat`; no memory: `kOutOfMemory`.
    virtual std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromFile(const std::string& path,
                                                                         std::int32_t flags) = 0;
    /// A new buffer that shares the sample memory of `source`, with its own cursor and settings.
    virtual std::unique_ptr<DirectSoundBuffer> DuplicateSoundBuffer(DirectSoundBuffer& source) = 0;
    /// A new buffer with a sample that was kept, made with `flags`. It shares the sample's memory with the buffers that
    /// hold it, when these belong to this device and to the same kind of sound, 3D or not; otherwise it has a copy.
    /// No memory: `kOutOfMemory`; a sample of another service: `kInvalidCall`.
    virtual std::unique_ptr<DirectSoundBuffer> CreateSoundBufferFromKept(const std::shared_ptr<KeptSample>& sample,
                                                                         std::int32_t flags) = 0;
    virtual std::int32_t GetSpeakerConfig() = 0;
    virtual void SetSpeakerConfig(std::int32_t config) = 0;
};

/// The list of output drivers. The index is 1-based.
class DSEnum {
public:
    virtual ~DSEnum() = default;
    virtual std::int16_t GetCount() = 0;
    virtual std::string GetGuid(std::int16_t index) = 0;
    virtual std::string GetDescription(std::int16_t index) = 0;
};

/// The root of the audio service.
class DirectX7 {
public:
    virtual ~DirectX7() = default;
    virtual std::unique_ptr<DSEnum> GetDSEnum() = 0;
    virtual std::unique_ptr<DirectSound> DirectSoundCreate(const std::string& guid) = 0;
};

}  // namespace marvolin
