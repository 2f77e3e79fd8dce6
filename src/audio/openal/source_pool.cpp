#include "audio/openal/source_pool.h"

#ifndef AL_ALEXT_PROTOTYPES
#define AL_ALEXT_PROTOTYPES
#endif
#include <AL/alext.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::size_t kFirstSources = 256;
constexpr std::size_t kMoreSources = 64;

/// Voices of the library that are played once at the opening: four times as many as the LoopTracks take.
constexpr std::size_t kWarm = 64;
constexpr int kWarmFrames = 64;

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

/// Plays all of `sources` in silence. The library allocates a record for each change of a sounding source that has not
/// been rendered yet, and keeps the records; so the thread that renders finds as many as it needs.
void WarmUp(ALCdevice* device, std::span<const ALuint> sources) {
    const std::array<std::int16_t, 16> silence{};
    std::array<std::int16_t, 2 * kWarmFrames> rendered{};
    const auto count = static_cast<ALsizei>(sources.size());
    ALuint buffer = 0;
    alGenBuffers(1, &buffer);
    alBufferData(buffer, AL_FORMAT_MONO16, silence.data(), sizeof silence, 44100);
    for (const ALuint source : sources) {
        alSourcei(source, AL_BUFFER, static_cast<ALint>(buffer));
        alSourcei(source, AL_LOOPING, AL_TRUE);
    }
    alSourcePlayv(count, sources.data());
    for (const ALuint source : sources) alSourcef(source, AL_GAIN, 0);
    for (int i = 0; i < 3; ++i) {
        alListener3f(AL_POSITION, 0, 0, 0);
        alListenerf(AL_GAIN, 1);
        alcRenderSamplesSOFT(device, rendered.data(), kWarmFrames);
    }
    alSourceStopv(count, sources.data());
    for (const ALuint source : sources) alSourcei(source, AL_BUFFER, 0);
    alDeleteBuffers(1, &buffer);
}

}  // namespace

SourcePool::SourcePool(ALCdevice* device) : resampler_(SharpestResampler()) {
    SourceGate nobodyRenders;
    Make(kFirstSources, nobodyRenders);
    if (free_.empty()) throw SoundError(sound_error::kOutOfMemory);
    WarmUp(device, std::span<const ALuint>(free_).first(kWarm));
}

void SourcePool::Make(std::size_t count, SourceGate& gate) {
    std::vector<ALuint> sources(count);
    free_.reserve(made_ + count);
    {
        const std::lock_guard<SourceGate> held(gate);
        alGenSources(static_cast<ALsizei>(count), sources.data());
    }
    // All of them are made or none.
    if (sources.back() == 0) return;
    for (const ALuint source : sources) {
        const std::lock_guard<SourceGate> held(gate);
        alSourcei(source, AL_SOURCE_RESAMPLER_SOFT, resampler_);
    }
    free_.insert(free_.end(), sources.begin(), sources.end());
    made_ += count;
}

bool SourcePool::Grow(SourceGate& gate) {
    const std::size_t before = made_;
    if (made_ + kMoreSources <= kMostSources) Make(kMoreSources, gate);
    return made_ > before;
}

bool SourcePool::Take(std::span<ALuint> sources) {
    if (free_.size() < sources.size()) return false;
    std::copy(free_.end() - static_cast<std::ptrdiff_t>(sources.size()), free_.end(), sources.begin());
    free_.resize(free_.size() - sources.size());
    return true;
}

void SourcePool::GiveBack(std::span<const ALuint> sources) {
    free_.insert(free_.end(), sources.begin(), sources.end());
}

}  // namespace marvolin
