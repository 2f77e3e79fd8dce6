#include "audio/openal/device.h"

#include "audio/openal/buffer.h"
#include "audio/openal/primary.h"
#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::int32_t kStereoSpeakers = 4;
constexpr std::int32_t kLowestLevel = 1;
constexpr std::int32_t kHighestLevel = 4;

}  // namespace

OpenAlDevice::OpenAlDevice(std::shared_ptr<OpenAlContext> context, std::unique_ptr<SdlOutput> output)
    : context_(std::move(context)),
      output_(std::move(output)),
      level_(std::make_shared<std::int32_t>(kLowestLevel)),
      alive_(std::make_shared<char>()),
      speakers_(kStereoSpeakers) {}

OpenAlDevice::~OpenAlDevice() {
    // The clock outlives the callback that tells it the time.
    output_.reset();
    context_->LeaveClock();
    context_->RenderByHand();
}

void OpenAlDevice::SetCooperativeLevel(std::int32_t level) {
    context_->AssertOwner();
    if (level < kLowestLevel || level > kHighestLevel) throw SoundError(sound_error::kInvalidArgument);
    *level_ = level;
}

std::unique_ptr<DirectSoundBuffer> OpenAlDevice::CreateSoundBuffer(std::int32_t flags) {
    context_->AssertOwner();
    if ((flags & buffer_flags::kPrimary) == 0) throw SoundError(sound_error::kInvalidArgument);
    return std::make_unique<OpenAlPrimaryBuffer>(context_, level_, flags);
}

std::unique_ptr<DirectSoundBuffer> OpenAlDevice::CreateSoundBufferFromFile(const std::string& path,
                                                                           std::int32_t flags) {
    context_->AssertOwner();
    return std::make_unique<OpenAlBuffer>(context_, path, flags);
}

std::unique_ptr<DirectSoundBuffer> OpenAlDevice::DuplicateSoundBuffer(DirectSoundBuffer& source) {
    context_->AssertOwner();
    const auto* original = dynamic_cast<const OpenAlBuffer*>(&source);
    if (original == nullptr || !original->BelongsTo(*context_)) throw SoundError(sound_error::kInvalidCall);
    return std::make_unique<OpenAlBuffer>(context_, *original);
}

std::unique_ptr<DirectSoundBuffer> OpenAlDevice::CreateSoundBufferFromKept(const std::shared_ptr<KeptSample>& sample,
                                                                           std::int32_t flags) {
    context_->AssertOwner();
    const auto kept = std::dynamic_pointer_cast<SampleMemory>(sample);
    if (!kept) throw SoundError(sound_error::kInvalidCall);
    return std::make_unique<OpenAlBuffer>(context_, kept, flags);
}

std::int32_t OpenAlDevice::GetSpeakerConfig() {
    context_->AssertOwner();
    return speakers_;
}

void OpenAlDevice::SetHeadphones(bool on) {
    // So the output does not have to wait.
    if (output_) context_->AwaitRendering();
    context_->SetHeadphones(on);
}

void OpenAlDevice::SetSpeakerConfig(std::int32_t config) {
    context_->AssertOwner();
    speakers_ = config;
}

}  // namespace marvolin
