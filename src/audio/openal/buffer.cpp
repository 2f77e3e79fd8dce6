#include "audio/openal/buffer.h"

#include <algorithm>

#include "audio/openal/space.h"
#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::int32_t kLowestFrequency = 100;
constexpr std::int32_t kHighestFrequency = 100000;
constexpr std::int32_t kQuietest = -10000;
constexpr std::int32_t kFarthestPan = 10000;

void Require(bool condition, std::uint32_t number = sound_error::kInvalidArgument) {
    if (!condition) throw SoundError(number);
}

void RequireSampleFlags(std::int32_t flags) {
    Require((flags & buffer_flags::kControl3D) == 0 || (flags & buffer_flags::kControlPan) == 0);
    Require((flags & buffer_flags::kPrimary) == 0);
}

}  // namespace

OpenAlBuffer::OpenAlBuffer(const std::shared_ptr<OpenAlContext>& context, const std::string& path, std::int32_t flags)
    : flags_(flags) {
    const bool spatial = Can(buffer_flags::kControl3D);
    RequireSampleFlags(flags);
    voice_ = std::make_shared<OpenAlVoice>(context, std::make_shared<SampleMemory>(context, path, spatial), spatial);
}

OpenAlBuffer::OpenAlBuffer(const std::shared_ptr<OpenAlContext>& context, const OpenAlBuffer& source)
    : flags_(source.flags_) {
    const OpenAlVoice& original = *source.voice_;
    const bool spatial = Can(buffer_flags::kControl3D);
    voice_ = std::make_shared<OpenAlVoice>(context, original.Sample(), spatial);
    voice_->SetVolumeAndPan(original.Volume(), original.Pan());
    voice_->SetFrequency(original.Frequency());
    if (!spatial) return;
    voice_->SetDistances(original.MinDistance(), original.MaxDistance());
    voice_->SetPosition(original.Position());
}

OpenAlBuffer::OpenAlBuffer(const std::shared_ptr<OpenAlContext>& context, const std::shared_ptr<SampleMemory>& sample,
                           std::int32_t flags)
    : flags_(flags) {
    const bool spatial = Can(buffer_flags::kControl3D);
    RequireSampleFlags(flags);
    const auto own =
        sample->Suits(*context, spatial) ? sample : std::make_shared<SampleMemory>(context, *sample, spatial);
    voice_ = std::make_shared<OpenAlVoice>(context, own, spatial);
}

OpenAlVoice& OpenAlBuffer::Voice() const {
    voice_->Context().AssertOwner();
    return *voice_;
}

BufferCaps OpenAlBuffer::GetCaps() { return {flags_, Sample().Bytes()}; }
WaveFormat OpenAlBuffer::GetFormat() { return Sample().Format(); }
void OpenAlBuffer::SetFormat(const WaveFormat&) {
    Voice();
    throw SoundError(sound_error::kInvalidCall);
}
std::int32_t OpenAlBuffer::GetFrequency() { return Voice().Frequency(); }

void OpenAlBuffer::SetFrequency(std::int32_t hertz) {
    OpenAlVoice& voice = Voice();
    Require(Can(buffer_flags::kControlFrequency), sound_error::kControlUnavailable);
    Require(hertz >= kLowestFrequency && hertz <= kHighestFrequency);
    voice.SetFrequency(hertz);
}

std::int32_t OpenAlBuffer::GetStatus() {
    OpenAlVoice& voice = Voice();
    if (!voice.Playing()) return 0;
    return buffer_status::kPlaying | (voice.Looping() ? buffer_status::kLooping : 0);
}

std::int32_t OpenAlBuffer::GetCurrentPosition() { return Voice().Cursor() * Sample().Format().BlockAlign; }

void OpenAlBuffer::SetCurrentPosition(std::int32_t bytes) {
    OpenAlVoice& voice = Voice();
    Require(bytes >= 0 && bytes < voice.Sample()->Bytes());
    voice.SetCursor(bytes / voice.Sample()->Format().BlockAlign);
}

void OpenAlBuffer::Play(std::int32_t flags) {
    OpenAlVoice& voice = Voice();
    Require(flags == 0 || flags == 1);
    voice.Play(flags != 0);
}

void OpenAlBuffer::Stop() { Voice().Stop(); }

void OpenAlBuffer::SetVolume(std::int32_t hundredths) {
    OpenAlVoice& voice = Voice();
    Require(Can(buffer_flags::kControlVolume), sound_error::kControlUnavailable);
    Require(hundredths >= kQuietest && hundredths <= 0);
    voice.SetVolumeAndPan(hundredths, voice.Pan());
}

void OpenAlBuffer::SetPan(std::int32_t hundredths) {
    OpenAlVoice& voice = Voice();
    Require(Can(buffer_flags::kControlPan), sound_error::kControlUnavailable);
    Require(hundredths >= -kFarthestPan && hundredths <= kFarthestPan);
    voice.SetVolumeAndPan(voice.Volume(), hundredths);
}

std::size_t OpenAlBuffer::Share(std::int32_t start, std::size_t wanted) const {
    Require(start >= 0 && start <= Sample().Bytes());
    return std::min(wanted, static_cast<std::size_t>(Sample().Bytes() - start));
}

void OpenAlBuffer::ReadBuffer(std::int32_t start, std::span<std::uint8_t> data) {
    const std::size_t count = Share(start, data.size());
    const auto bytes = Sample().Data().subspan(static_cast<std::size_t>(start), count);
    std::copy(bytes.begin(), bytes.end(), data.begin());
}

void OpenAlBuffer::WriteBuffer(std::int32_t start, std::span<const std::uint8_t> data) {
    Sample().Write(start, data.first(Share(start, data.size())));
}

std::shared_ptr<KeptSample> OpenAlBuffer::Keep() { return Voice().Sample(); }

std::unique_ptr<DirectSound3DBuffer> OpenAlBuffer::GetDirectSound3dBuffer() {
    Voice();
    Require(Can(buffer_flags::kControl3D), sound_error::kNoInterface);
    return std::make_unique<OpenAl3DBuffer>(voice_);
}

std::unique_ptr<DirectSound3DListener> OpenAlBuffer::GetDirectSound3dListener() {
    Voice();
    throw SoundError(sound_error::kNoInterface);
}

}  // namespace marvolin
