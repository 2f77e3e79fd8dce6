#include "audio/openal/sdl_output.h"

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr int kFrameBytes = 4;
constexpr int kAskedPeriod = MARVOLIN_PERIOD;  // stereo frames that an output is asked to take at a time

}  // namespace

SdlAudio::SdlAudio() {
    // SDL's own handlers would catch the terminal's interrupt, which is meant to end the program.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    up_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
}

SdlAudio::~SdlAudio() {
    if (up_) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

// A negative count means that the devices cannot be listed, but the default one can be opened.
bool SdlAudio::HasOutput() const { return up_ && SDL_GetNumAudioDevices(0) != 0; }

std::vector<std::string> SdlAudio::OutputNames() const {
    std::vector<std::string> names;
    const int count = up_ ? SDL_GetNumAudioDevices(0) : 0;
    for (int i = 0; i < count; ++i)
        if (const char* name = SDL_GetAudioDeviceName(i, 0)) names.emplace_back(name);
    return names;
}

std::string SdlAudio::Driver() const {
    const char* name = up_ ? SDL_GetCurrentAudioDriver() : nullptr;
    return name == nullptr ? "" : name;
}

// SDL goes on asking when the device was pulled out.
void SDLCALL SdlOutput::FillPeriod_rt(void* output, Uint8* stream, int bytes) noexcept {
    const SdlOutput& self = *static_cast<const SdlOutput*>(output);
    self.context_.Render_rt(reinterpret_cast<std::int16_t*>(stream), bytes / kFrameBytes, self.HasGone_rt());
}

SdlOutput::SdlOutput(const std::string& name, OpenAlContext& context) : context_(context) {
    SDL_AudioSpec wanted{};
    wanted.freq = kOutputRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 2;
    wanted.samples = kAskedPeriod;
    wanted.callback = FillPeriod_rt;
    wanted.userdata = this;
    // SDL would cut a longer period of the device into the wanted ones, but ask for them in bursts all the same.
    SDL_AudioSpec granted{};
    const char* device = name.empty() ? nullptr : name.c_str();
    device_ = SDL_OpenAudioDevice(device, 0, &wanted, &granted, SDL_AUDIO_ALLOW_SAMPLES_CHANGE);
    if (device_ == 0) throw SoundError(sound_error::kNoDriver);
    period_ = granted.samples;
}

SdlOutput::~SdlOutput() { SDL_CloseAudioDevice(device_); }

}  // namespace marvolin
