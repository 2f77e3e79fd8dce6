#pragma once
/// \file
/// The memory of a sample, shared by a buffer and its duplicates.

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "audio/openal/context.h"
#include "core/sound_service.h"

namespace marvolin {

/// The channels of a sample as OpenAL holds them: two of its buffers, or twice the same one.
class PlaneBuffers {
public:
    /// Room for `frames` frames, uninitialised. `spatial`: one channel, mixed from all. `context` must outlive it.
    PlaneBuffers(OpenAlContext& context, const WaveFormat& format, std::int32_t frames, bool spatial);
    ~PlaneBuffers();
    PlaneBuffers(const PlaneBuffers&) = delete;
    PlaneBuffers& operator=(const PlaneBuffers&) = delete;

    /// Stores whole frames, at most `kPieceBytes` bytes, from frame `first` on.
    void Put(std::int32_t first, std::span<const std::uint8_t> frames);
    /// Bytes of all its channels.
    std::size_t Memory() const { return memory_; }
    ALuint Left() const { return names_.front(); }
    ALuint Right() const { return names_.back(); }

    static constexpr std::int32_t kPieceBytes = 96 * 1024;  ///< divisible by every frame size

private:
    void Release();
    OpenAlContext& context_;
    WaveFormat format_;
    bool spatial_;
    std::vector<ALuint> names_;
    std::size_t memory_ = 0;
    std::vector<std::uint8_t> plane_;  ///< scratch for one piece of one channel
};

class VoiceSources;

/// Plays a sample, and changes to its new buffers after a write.
class SampleUser {
public:
    virtual ~SampleUser() = default;
    /// New sources with the new buffers; `SoundError` `kOutOfMemory` when there are none left.
    virtual std::unique_ptr<VoiceSources> SourcesFor(const std::shared_ptr<const PlaneBuffers>& planes) = 0;
    /// Goes on in new sources.
    virtual void GoOnIn(std::unique_ptr<VoiceSources> sources) = 0;
};

/// The bytes of a sample as in the file, and the buffers of OpenAL made from them.
class SampleMemory final : public KeptSample {
public:
    /// Reads a file wholly; the errors are those of `WaveFile`, and `kOutOfMemory`.
    SampleMemory(std::shared_ptr<OpenAlContext> context, const std::string& path, bool spatial);

    /// A copy of `other` for a mixer and a kind of sound that are not its own. Errors: `kOutOfMemory`.
    SampleMemory(std::shared_ptr<OpenAlContext> context, const SampleMemory& other, bool spatial);

    /// True when buffers of this mixer can sound it as it is.
    bool Suits(const OpenAlContext& context, bool spatial) const {
        return context_.get() == &context && spatial_ == spatial;
    }
    std::size_t Memory() const override { return static_cast<std::size_t>(bytes_) + planes_->Memory(); }
    const WaveFormat& Format() const { return format_; }
    std::int32_t Bytes() const { return bytes_; }
    std::span<const std::uint8_t> Data() const { return {data_.get(), static_cast<std::size_t>(bytes_)}; }
    const std::shared_ptr<const PlaneBuffers>& Planes() const { return planes_; }

    /// Writes into the sample from byte `start` on; all users sound the new bytes from the same frame on. `start` and
    /// `data` lie within the sample. A failure leaves everything unchanged.
    void Write(std::int32_t start, std::span<const std::uint8_t> data);

    void AddUser(SampleUser& user) { users_.push_back(&user); }
    void RemoveUser(SampleUser& user) { std::erase(users_, &user); }

private:
    std::shared_ptr<PlaneBuffers> NewPlanes() const;
    /// Makes room for the bytes, and the planes for them. `SoundError` `kOutOfMemory`.
    std::shared_ptr<PlaneBuffers> MakeRoom();
    /// Fills the planes with the bytes.
    void Fill(PlaneBuffers& planes) const;

    std::shared_ptr<OpenAlContext> context_;
    WaveFormat format_;
    std::int32_t bytes_ = 0;
    bool spatial_;
    std::unique_ptr<std::uint8_t[]> data_;
    std::shared_ptr<const PlaneBuffers> planes_;
    std::vector<SampleUser*> users_;
};

}  // namespace marvolin
