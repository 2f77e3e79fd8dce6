#pragma once
/// \file
/// The mixer: a loopback device of OpenAL, which renders when it is asked to.

#ifndef AL_ALEXT_PROTOTYPES
#define AL_ALEXT_PROTOTYPES
#endif
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "audio/openal/load_meter.h"
#include "audio/openal/owner_thread.h"

namespace marvolin {

inline constexpr int kOutputRate = 44100;  ///< Hz
inline constexpr int kPeriodFrames = 256;  ///< stereo frames rendered at a time

/// One mixer. It belongs to the thread that makes it; only `Render_rt` may be called from another one.
class OpenAlContext {
public:
    /// `SoundError` `kNoDriver` when the library opens no device, `kOutOfMemory` when it has no memory for one.
    explicit OpenAlContext(std::shared_ptr<LoadMeter> meter);
    ~OpenAlContext();
    OpenAlContext(const OpenAlContext&) = delete;
    OpenAlContext& operator=(const OpenAlContext&) = delete;

    /// Renders the next `frames` stereo frames of 16 bits.
    void Render_rt(std::int16_t* out, int frames) noexcept;

    /// Stops a debug build when another thread than the owner calls.
    void AssertOwner() const noexcept { owner_.Assert(); }

    /// How many periods have been rendered. Call it while rendering is held off.
    std::uint64_t Periods() const { return periods_; }

    /// Number of the sharpest resampler.
    ALint Resampler() const { return resampler_; }

    /// Sets the roll-off of all spatial sources, later ones included.
    void SetRolloff(float factor);
    /// Makes a source follow the roll-off.
    void AddSpatialSource(ALuint source);
    void RemoveSpatialSource(ALuint source);

private:
    friend class OpenAlCall;
    friend class OpenAlSetting;

    std::shared_ptr<LoadMeter> meter_;
    OwnerThread owner_;
    ALCdevice* device_ = nullptr;
    ALCcontext* context_ = nullptr;
    ALint resampler_ = 0;
    float rolloff_ = 1;
    std::vector<ALuint> spatial_;
    std::uint64_t periods_ = 0;
    std::mutex rendering_;  ///< held while a period is rendered, and by `OpenAlCall`
};

/// While it lives, calls of OpenAL go to this mixer. Rendering goes on meanwhile.
class OpenAlSetting {
public:
    explicit OpenAlSetting(OpenAlContext& context);
    /// Raises the first error that OpenAL reports since this was made: `kOutOfMemory`, `kInvalidArgument` or
    /// `kGeneric`.
    void Check() const;
};

/// The same, with rendering held off: all calls made while it lives are heard from the same frame on.
/// Keep it short: the output waits for it.
class OpenAlCall : public OpenAlSetting {
public:
    explicit OpenAlCall(OpenAlContext& context) : OpenAlSetting(context), guard_(context.rendering_) {}

private:
    std::lock_guard<std::mutex> guard_;
};

}  // namespace marvolin
