#include "audio/openal/primary.h"

#include "audio/openal/space.h"
#include "core/errors.h"

namespace marvolin {

namespace {

constexpr WaveFormat kRendered{1, 2, kOutputRate, 16, 4, 4 * kOutputRate, 0};
constexpr std::int32_t kPriorityLevel = 2;

}  // namespace

OpenAlPrimaryBuffer::OpenAlPrimaryBuffer(std::shared_ptr<OpenAlContext> context,
                                         std::shared_ptr<const std::int32_t> level, std::int32_t flags)
    : context_(std::move(context)), level_(std::move(level)), flags_(flags) {}

void OpenAlPrimaryBuffer::Refuse(std::uint32_t number) const {
    context_->AssertOwner();
    throw SoundError(number);
}

BufferCaps OpenAlPrimaryBuffer::GetCaps() {
    context_->AssertOwner();
    return {flags_, 0};
}

WaveFormat OpenAlPrimaryBuffer::GetFormat() {
    context_->AssertOwner();
    return kRendered;
}

void OpenAlPrimaryBuffer::SetFormat(const WaveFormat& format) {
    context_->AssertOwner();
    if (*level_ < kPriorityLevel) throw SoundError(sound_error::kPriorityNeeded);
    if (format != kRendered) throw SoundError(sound_error::kBadFormat);
}

std::int32_t OpenAlPrimaryBuffer::GetFrequency() { Refuse(sound_error::kControlUnavailable); }
void OpenAlPrimaryBuffer::SetFrequency(std::int32_t) { Refuse(sound_error::kControlUnavailable); }

std::int32_t OpenAlPrimaryBuffer::GetStatus() {
    context_->AssertOwner();
    return playing_ ? buffer_status::kPlaying | buffer_status::kLooping : 0;
}

std::int32_t OpenAlPrimaryBuffer::GetCurrentPosition() {
    context_->AssertOwner();
    return 0;
}

void OpenAlPrimaryBuffer::SetCurrentPosition(std::int32_t) { Refuse(sound_error::kInvalidCall); }

void OpenAlPrimaryBuffer::Play(std::int32_t flags) {
    context_->AssertOwner();
    if (flags != 1) throw SoundError(sound_error::kInvalidArgument);
    playing_ = true;
}

void OpenAlPrimaryBuffer::Stop() {
    context_->AssertOwner();
    playing_ = false;
}

void OpenAlPrimaryBuffer::SetVolume(std::int32_t) { Refuse(sound_error::kControlUnavailable); }
void OpenAlPrimaryBuffer::SetPan(std::int32_t) { Refuse(sound_error::kControlUnavailable); }
void OpenAlPrimaryBuffer::ReadBuffer(std::int32_t, std::span<std::uint8_t>) { Refuse(sound_error::kInvalidCall); }
void OpenAlPrimaryBuffer::WriteBuffer(std::int32_t, std::span<const std::uint8_t>) {
    Refuse(sound_error::kInvalidCall);
}

std::unique_ptr<DirectSound3DBuffer> OpenAlPrimaryBuffer::GetDirectSound3dBuffer() {
    Refuse(sound_error::kNoInterface);
}

std::unique_ptr<DirectSound3DListener> OpenAlPrimaryBuffer::GetDirectSound3dListener() {
    context_->AssertOwner();
    if ((flags_ & buffer_flags::kControl3D) == 0) throw SoundError(sound_error::kNoInterface);
    return std::make_unique<OpenAlListener>(context_);
}

}  // namespace marvolin
