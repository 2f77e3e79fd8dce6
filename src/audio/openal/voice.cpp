#include "audio/openal/voice.h"

#include <algorithm>
#include <cmath>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::int32_t kSilence = -10000;

/// The gain of an attenuation in hundredths of a decibel.
float Gain(std::int32_t hundredths) {
    return hundredths <= kSilence ? 0.0F : static_cast<float>(std::pow(10.0, hundredths / 2000.0));
}

}  // namespace

OpenAlVoice::OpenAlVoice(std::shared_ptr<OpenAlContext> context, std::shared_ptr<SampleMemory> sample, bool spatial)
    : context_(std::move(context)),
      sample_(std::move(sample)),
      spatial_(spatial),
      hertz_(sample_->Format().SamplesPerSec) {
    {
        const OpenAlSetting setting(*context_);
        alGenSources(static_cast<ALsizei>(AllSources().size()), sources_.data());
        setting.Check();
        SetUpSources();
        try {
            setting.Check();
        } catch (const SoundError&) {
            alDeleteSources(static_cast<ALsizei>(AllSources().size()), sources_.data());
            throw;
        }
    }
    if (spatial_)
        for (const ALuint source : AllSources()) context_->AddSpatialSource(source);
    sample_->AddUser(*this);
}

OpenAlVoice::~OpenAlVoice() {
    sample_->RemoveUser(*this);
    const OpenAlCall call(*context_);
    if (spatial_)
        for (const ALuint source : AllSources()) context_->RemoveSpatialSource(source);
    alDeleteSources(static_cast<ALsizei>(AllSources().size()), sources_.data());
}

void OpenAlVoice::SetUpSources() {
    const PlaneBuffers& planes = sample_->Planes();
    for (std::size_t i = 0; i < AllSources().size(); ++i) {
        const ALuint source = sources_[i];
        const bool left = i % Ears() == 0;
        alSourcei(source, AL_BUFFER, static_cast<ALint>(left ? planes.Left() : planes.Right()));
        alSourcei(source, AL_SOURCE_RESAMPLER_SOFT, context_->Resampler());
        if (spatial_) {
            alSourcef(source, AL_REFERENCE_DISTANCE, minDistance_);
            alSourcef(source, AL_MAX_DISTANCE, maxDistance_);
        } else {
            // Right at the ear: one output gets all of the sound, the other none.
            alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
            alSource3f(source, AL_POSITION, left ? -1.0F : 1.0F, 0, 0);
            alSourcef(source, AL_ROLLOFF_FACTOR, 0);
        }
    }
}

void OpenAlVoice::CatchUp() {
    if (fadingSince_ && *fadingSince_ != context_->Periods()) {
        alSourceStopv(static_cast<ALsizei>(Ears()), OtherSources().data());
        fadingSince_.reset();
    }
    if (!playing_) return;
    ALint state = AL_STOPPED;
    alGetSourcei(Sources()[0], AL_SOURCE_STATE, &state);
    if (state == AL_PLAYING) return;
    playing_ = false;
    cursor_ = 0;
}

std::int32_t OpenAlVoice::SoundingFrame() const {
    ALint frame = 0;
    alGetSourcei(Sources()[0], AL_SAMPLE_OFFSET, &frame);
    return frame;
}

void OpenAlVoice::StartAt(std::int32_t frame) {
    alSourcePlayv(static_cast<ALsizei>(Ears()), Sources().data());
    // OpenAL fades in when the offset is set before the start, which would soften the attack.
    if (frame != 0)
        for (const ALuint source : Sources()) alSourcei(source, AL_SAMPLE_OFFSET, frame);
}

void OpenAlVoice::StopAll() {
    alSourceStopv(static_cast<ALsizei>(AllSources().size()), sources_.data());
    fadingSince_.reset();
}

void OpenAlVoice::SettleOnWholeFrame() {
    ALdouble place = 0;
    alGetSourcedSOFT(Sources()[0], AL_SAMPLE_OFFSET, &place);
    const double last = sample_->Bytes() / sample_->Format().BlockAlign - 1;
    if (place == std::floor(place) || last < 1) return;
    // A jump would click. The other set fades in, because its offset is set before its start and is not 0, and this one
    // fades out: both in a straight line over the next period, so that their sum keeps its level.
    const auto frame = static_cast<ALint>(std::clamp(std::round(place), 1.0, last));
    for (const ALuint source : Sources()) alSourcef(source, AL_GAIN, 0);
    fadingSince_ = context_->Periods();
    second_ = !second_;
    SetGains(volume_, pan_);
    for (const ALuint source : Sources()) alSourcei(source, AL_SAMPLE_OFFSET, frame);
    alSourcePlayv(static_cast<ALsizei>(Ears()), Sources().data());
}

bool OpenAlVoice::Playing() {
    const OpenAlCall call(*context_);
    CatchUp();
    return playing_;
}

void OpenAlVoice::Play(bool looping) {
    const OpenAlCall call(*context_);
    CatchUp();
    for (const ALuint source : AllSources()) alSourcei(source, AL_LOOPING, looping ? AL_TRUE : AL_FALSE);
    if (!playing_) StartAt(cursor_);
    call.Check();
    playing_ = true;
    looping_ = looping;
}

void OpenAlVoice::Stop() {
    const OpenAlCall call(*context_);
    CatchUp();
    if (!playing_) return;
    cursor_ = SoundingFrame();
    StopAll();
    playing_ = false;
    call.Check();
}

std::int32_t OpenAlVoice::Cursor() {
    const OpenAlCall call(*context_);
    CatchUp();
    return playing_ ? SoundingFrame() : cursor_;
}

void OpenAlVoice::SetCursor(std::int32_t frame) {
    const OpenAlCall call(*context_);
    CatchUp();
    if (!playing_) {
        cursor_ = frame;
    } else if (fadingSince_) {
        // Start the set that is about to fade in again, so that the sound at `frame` keeps its attack.
        StopAll();
        StartAt(frame);
    } else {
        for (const ALuint source : Sources()) alSourcei(source, AL_SAMPLE_OFFSET, frame);
    }
    call.Check();
}

void OpenAlVoice::SetGains(std::int32_t volume, std::int32_t pan) {
    const float gain = Gain(volume);
    alSourcef(Sources()[0], AL_GAIN, gain * Gain(std::min(-pan, 0)));
    if (!spatial_) alSourcef(Sources()[1], AL_GAIN, gain * Gain(std::min(pan, 0)));
}

void OpenAlVoice::SetVolumeAndPan(std::int32_t volume, std::int32_t pan) {
    const OpenAlCall call(*context_);
    SetGains(volume, pan);
    call.Check();
    volume_ = volume;
    pan_ = pan;
}

void OpenAlVoice::SetFrequency(std::int32_t hertz) {
    const OpenAlCall call(*context_);
    CatchUp();
    const std::int32_t ownRate = sample_->Format().SamplesPerSec;
    const float pitch = static_cast<float>(hertz) / static_cast<float>(ownRate);
    for (const ALuint source : AllSources()) alSourcef(source, AL_PITCH, pitch);
    if (playing_ && hertz == ownRate && ownRate == kOutputRate) SettleOnWholeFrame();
    call.Check();
    hertz_ = hertz;
}

void OpenAlVoice::SetPosition(const Vector3& position) {
    const OpenAlCall call(*context_);
    // OpenAL's z points backwards.
    for (const ALuint source : AllSources()) alSource3f(source, AL_POSITION, position.X, position.Y, -position.Z);
    call.Check();
    position_ = position;
}

void OpenAlVoice::SetDistances(float min, float max) {
    const OpenAlCall call(*context_);
    for (const ALuint source : AllSources()) {
        alSourcef(source, AL_REFERENCE_DISTANCE, min);
        alSourcef(source, AL_MAX_DISTANCE, max);
    }
    call.Check();
    minDistance_ = min;
    maxDistance_ = max;
}

void OpenAlVoice::Rebind(const PlaneBuffers& planes) {
    CatchUp();
    const bool sounds = playing_;
    const std::int32_t frame = sounds ? SoundingFrame() : 0;
    StopAll();
    for (std::size_t i = 0; i < AllSources().size(); ++i)
        alSourcei(sources_[i], AL_BUFFER, static_cast<ALint>(i % Ears() == 0 ? planes.Left() : planes.Right()));
    if (sounds) StartAt(frame);
}

}  // namespace marvolin
