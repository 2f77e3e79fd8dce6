#include "audio/openal/context.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <string_view>

#include "core/errors.h"

namespace marvolin {

namespace {

/// Enough for more than a hundred buffers of four sources each.
constexpr ALCint kSources = 512;

/// How sharp a resampler is, by its name: sinc filters by their order, all others below them.
int Sharpness(std::string_view name) {
    if (name.find("Sinc") != std::string_view::npos) {
        const int order = std::atoi(name.data());
        const bool fast = name.find("fast") != std::string_view::npos;
        return 2 * order + (fast ? 9 : 10);
    }
    if (name.find("Cubic") != std::string_view::npos || name.find("Spline") != std::string_view::npos) return 3;
    return name.find("Linear") != std::string_view::npos ? 2 : 1;
}

ALint SharpestResampler() {
    const ALint count = alGetInteger(AL_NUM_RESAMPLERS_SOFT);
    ALint best = alGetInteger(AL_DEFAULT_RESAMPLER_SOFT);
    int sharpness = 0;
    for (ALint i = 0; i < count; ++i) {
        const ALchar* name = alGetStringiSOFT(AL_RESAMPLER_NAME_SOFT, i);
        if (name == nullptr || Sharpness(name) <= sharpness) continue;
        sharpness = Sharpness(name);
        best = i;
    }
    return best;
}

}  // namespace

OpenAlContext::OpenAlContext(std::shared_ptr<LoadMeter> meter)
    : meter_(std::move(meter)), device_(alcLoopbackOpenDeviceSOFT(nullptr)) {
    if (device_ == nullptr) throw SoundError(sound_error::kNoDriver);
    // The limiter would delay the sound by its look-ahead and change the volume where the sum is loud.
    const std::array<ALCint, 13> attributes{ALC_FREQUENCY,
                                            kOutputRate,
                                            ALC_FORMAT_CHANNELS_SOFT,
                                            ALC_STEREO_SOFT,
                                            ALC_FORMAT_TYPE_SOFT,
                                            ALC_SHORT_SOFT,
                                            ALC_MONO_SOURCES,
                                            kSources,
                                            ALC_HRTF_SOFT,
                                            ALC_FALSE,
                                            ALC_OUTPUT_LIMITER_SOFT,
                                            ALC_FALSE,
                                            0};
    context_ = alcCreateContext(device_, attributes.data());
    if (context_ == nullptr) {
        const bool memory = alcGetError(device_) == ALC_OUT_OF_MEMORY;
        alcCloseDevice(device_);
        throw SoundError(memory ? sound_error::kOutOfMemory : sound_error::kNoDriver);
    }
    const OpenAlSetting setting(*this);
    resampler_ = SharpestResampler();
    alDistanceModel(AL_INVERSE_DISTANCE_CLAMPED);
}

OpenAlContext::~OpenAlContext() {
    AssertOwner();
    if (alcGetThreadContext() == context_) alcSetThreadContext(nullptr);
    alcDestroyContext(context_);
    alcCloseDevice(device_);
}

void OpenAlContext::Render_rt(std::int16_t* out, int frames) noexcept {
    using Clock = std::chrono::steady_clock;
    while (frames > 0) {
        const int now = std::min(frames, kPeriodFrames);
        const auto begin = Clock::now();
        {
            const std::lock_guard<std::mutex> guard(rendering_);
            alcRenderSamplesSOFT(device_, out, now);
            ++periods_;
        }
        meter_->Add_rt(std::chrono::duration<double>(Clock::now() - begin).count(),
                       static_cast<double>(now) / kOutputRate);
        out += 2 * now;
        frames -= now;
    }
}

void OpenAlContext::SetRolloff(float factor) {
    const OpenAlCall call(*this);
    for (const ALuint source : spatial_) alSourcef(source, AL_ROLLOFF_FACTOR, factor);
    call.Check();
    rolloff_ = factor;
}

void OpenAlContext::AddSpatialSource(ALuint source) {
    const OpenAlCall call(*this);
    alSourcef(source, AL_ROLLOFF_FACTOR, rolloff_);
    spatial_.push_back(source);
}

void OpenAlContext::RemoveSpatialSource(ALuint source) { std::erase(spatial_, source); }

OpenAlSetting::OpenAlSetting(OpenAlContext& context) {
    context.AssertOwner();
    if (alcGetThreadContext() != context.context_) alcSetThreadContext(context.context_);
    alGetError();
}

void OpenAlSetting::Check() const {
    switch (alGetError()) {
        case AL_NO_ERROR:
            return;
        case AL_OUT_OF_MEMORY:
            throw SoundError(sound_error::kOutOfMemory);
        case AL_INVALID_VALUE:
            throw SoundError(sound_error::kInvalidArgument);
        default:
            throw SoundError(sound_error::kGeneric);
    }
}

}  // namespace marvolin
