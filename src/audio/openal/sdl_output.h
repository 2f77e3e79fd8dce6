#pragma once
/// \file
/// Output devices as SDL knows them.

#include <SDL.h>

#include <string>
#include <vector>

#include "audio/openal/context.h"

namespace marvolin {

/// SDL's audio, up as long as this lives. Several may live at a time.
class SdlAudio {
public:
    SdlAudio();
    ~SdlAudio();
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

    /// Whether there is any output at all.
    bool HasOutput() const { return hasOutput_; }
    /// Names of the output devices that SDL can tell apart; they are SDL's identifiers too.
    std::vector<std::string> OutputNames() const;

private:
    bool up_;
    bool hasOutput_ = false;
};

/// An open output that asks a mixer for each period, from a thread of its own.
class SdlOutput {
public:
    /// Opens the device called `name`, the system's default when that is empty, and lets it run.
    /// `SoundError` `kNoDriver` when SDL cannot.
    SdlOutput(const std::string& name, OpenAlContext& context);
    ~SdlOutput();
    SdlOutput(const SdlOutput&) = delete;
    SdlOutput& operator=(const SdlOutput&) = delete;

    /// Whether SDL has let go of the device, as it does when that was pulled out.
    bool Gone() const { return SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED; }

private:
    SDL_AudioDeviceID device_;
};

}  // namespace marvolin
