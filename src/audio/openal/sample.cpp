#include "audio/openal/sample.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "audio/openal/sample_planes.h"
#include "audio/openal/voice_sources.h"
#include "audio/openal/wave_file.h"
#include "core/errors.h"

namespace marvolin {

namespace {

ALenum AlFormat(PlaneNumber number) {
    switch (number) {
        case PlaneNumber::Unsigned8:
            return AL_FORMAT_MONO8;
        case PlaneNumber::Signed16:
            return AL_FORMAT_MONO16;
        default:
            return AL_FORMAT_MONO_FLOAT32;
    }
}

Plane PlaneAt(std::size_t index, bool spatial) {
    if (spatial) return Plane::Mixed;
    return index == 0 ? Plane::Left : Plane::Right;
}

/// True when a buffer has been made with room for `bytes` bytes. The library's errors may be those of the other thread.
bool Holds(ALuint buffer, std::int32_t bytes) {
    if (buffer == 0) return false;
    ALint size = -1;
    alGetBufferi(buffer, AL_SIZE, &size);
    return size == bytes;
}

}  // namespace

PlaneBuffers::PlaneBuffers(OpenAlContext& context, const WaveFormat& format, std::int32_t frames, bool spatial)
    : context_(context), format_(format), spatial_(spatial) {
    const std::int32_t bytes = PlaneNumberBytes(PlaneNumberOf(format_, PlaneAt(0, spatial_)));
    if (frames > std::numeric_limits<ALsizei>::max() / bytes) throw SoundTooLong();
    plane_.resize(static_cast<std::size_t>(kPieceBytes / format_.BlockAlign * bytes));
    names_.resize(format_.Channels == 2 && !spatial_ ? 2 : 1);
    memory_ = names_.size() * static_cast<std::size_t>(frames) * static_cast<std::size_t>(bytes);
    const OpenAlSetting setting(context_);
    alGenBuffers(static_cast<ALsizei>(names_.size()), names_.data());
    for (std::size_t i = 0; i < names_.size(); ++i) {
        const ALenum number = AlFormat(PlaneNumberOf(format_, PlaneAt(i, spatial_)));
        alBufferData(names_[i], number, nullptr, frames * bytes, format_.SamplesPerSec);
        if (Holds(names_[i], frames * bytes)) continue;
        Release();
        throw SoundError(sound_error::kOutOfMemory);
    }
}

PlaneBuffers::~PlaneBuffers() { Release(); }

void PlaneBuffers::Release() {
    const OpenAlSetting setting(context_);
    alDeleteBuffers(static_cast<ALsizei>(names_.size()), names_.data());
}

void PlaneBuffers::Put(std::int32_t first, std::span<const std::uint8_t> frames) {
    const OpenAlSetting setting(context_);
    const auto count = static_cast<std::int32_t>(frames.size()) / format_.BlockAlign;
    for (std::size_t i = 0; i < names_.size(); ++i) {
        const Plane plane = PlaneAt(i, spatial_);
        const PlaneNumber number = PlaneNumberOf(format_, plane);
        const std::int32_t bytes = PlaneNumberBytes(number);
        ExtractPlane(format_, plane, frames, plane_.data());
        alBufferSubDataSOFT(names_[i], AlFormat(number), plane_.data(), first * bytes, count * bytes);
    }
}

SampleMemory::SampleMemory(std::shared_ptr<OpenAlContext> context, const std::string& path, bool spatial)
    : context_(std::move(context)), spatial_(spatial) {
    context_->Renew();
    WaveFile file(path);
    format_ = file.Format();
    bytes_ = file.Bytes();
    std::shared_ptr<PlaneBuffers> planes = MakeRoom();
    // Piece by piece, so that the bytes are still in the cache when the channels are taken out of them.
    for (std::int32_t at = 0; at < bytes_; at += PlaneBuffers::kPieceBytes) {
        const std::int32_t size = std::min(PlaneBuffers::kPieceBytes, bytes_ - at);
        const std::span<std::uint8_t> piece(data_.get() + at, static_cast<std::size_t>(size));
        file.Read(piece);
        planes->Put(at / format_.BlockAlign, piece);
    }
    planes_ = std::move(planes);
}

SampleMemory::SampleMemory(std::shared_ptr<OpenAlContext> context, const SampleMemory& other, bool spatial)
    : KeptSample(other), context_(std::move(context)), format_(other.format_), bytes_(other.bytes_), spatial_(spatial) {
    context_->Renew();
    std::shared_ptr<PlaneBuffers> planes = MakeRoom();
    std::copy_n(other.data_.get(), bytes_, data_.get());
    Fill(*planes);
    planes_ = std::move(planes);
}

std::shared_ptr<PlaneBuffers> SampleMemory::MakeRoom() {
    // The sample that was there before gives its memory back first.
    context_->CatchUp();
    try {
        data_ = std::make_unique_for_overwrite<std::uint8_t[]>(static_cast<std::size_t>(bytes_));
        return NewPlanes();
    } catch (const std::bad_alloc&) {
        throw SoundError(sound_error::kOutOfMemory);
    }
}

void SampleMemory::Fill(PlaneBuffers& planes) const {
    for (std::int32_t at = 0; at < bytes_; at += PlaneBuffers::kPieceBytes) {
        const std::int32_t size = std::min(PlaneBuffers::kPieceBytes, bytes_ - at);
        planes.Put(at / format_.BlockAlign,
                   Data().subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(size)));
    }
}

std::shared_ptr<PlaneBuffers> SampleMemory::NewPlanes() const {
    return std::make_shared<PlaneBuffers>(*context_, format_, bytes_ / format_.BlockAlign, spatial_);
}

void SampleMemory::Write(std::int32_t start, std::span<const std::uint8_t> data) {
    if (data.empty()) return;
    context_->Renew();
    // OpenAL does not replace a buffer in use: new ones are filled, and all users go over to them at one frame.
    std::shared_ptr<PlaneBuffers> planes;
    std::vector<std::unique_ptr<VoiceSources>> sources;
    try {
        planes = NewPlanes();
        for (SampleUser* user : users_) sources.push_back(user->SourcesFor(planes));
    } catch (const std::bad_alloc&) {
        throw SoundError(sound_error::kOutOfMemory);
    }
    std::copy(data.begin(), data.end(), data_.get() + start);
    Fill(*planes);
    const OpenAlContext::Held together(*context_);
    for (std::size_t i = 0; i < users_.size(); ++i) users_[i]->GoOnIn(std::move(sources[i]));
    planes_ = std::move(planes);
}

}  // namespace marvolin
