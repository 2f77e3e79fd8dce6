#pragma once
/// \file
/// Output devices as SDL knows them.

#include <SDL.h>

#include <string>
#include <vector>

#include "audio/openal/context.h"

namespace marvolin {

/// Keeps SDL's audio initialised while it lives. Several may live at a time.
class SdlAudio {
public:
    SdlAudio();
    ~SdlAudio();
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

    /// True when there is any output at all.
    bool HasOutput() const;
    /// Names of the output devices that SDL can tell apart. They serve as identifiers too.
    std::vector<std::string> OutputNames() const;
    /// SDL's name of the driver in use, "" when there is none.
    std::string Driver() const;

private:
    bool up_;
};

/// An open output. Once started, it asks a mixer for each period, on a thread of its own.
class SdlOutput {
public:
    /// Opens the device `name`; "" is the system's default. `context` must outlive it.
    /// `SoundError` `kNoDriver` when SDL cannot open it.
    SdlOutput(const std::string& name, OpenAlContext& context);
    ~SdlOutput();
    SdlOutput(const SdlOutput&) = delete;
    SdlOutput& operator=(const SdlOutput&) = delete;

    void Start() { SDL_PauseAudioDevice(device_, 0); }
    /// Frames that it asks for at a time: what the build says (MARVOLIN_PERIOD), or what the device grants instead.
    int Period() const { return period_; }

    /// True once SDL has released the device, as it does when it was pulled out.
    bool Gone() const { return HasGone_rt(); }

private:
    static void SDLCALL FillPeriod_rt(void* output, Uint8* stream, int bytes) noexcept;
    bool HasGone_rt() const noexcept { return SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED; }

    OpenAlContext& context_;
    SDL_AudioDeviceID device_ = 0;
    int period_;
};

}  // namespace marvolin
