#include "audio/openal_voice.h"

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
        alGenSources(static_cast<ALsizei>(Sources().size()), sources_.data());
        setting.Check();
        SetUpSources();
    }
    if (spatial_) context_->AddSpatialSource(sources_[0]);
    sample_->AddUser(*this);
}

OpenAlVoice::~OpenAlVoice() {
    sample_->RemoveUser(*this);
    const OpenAlCall call(*context_);
    if (spatial_) context_->RemoveSpatialSource(sources_[0]);
    alDeleteSources(static_cast<ALsizei>(Sources().size()), sources_.data());
}

void OpenAlVoice::SetUpSources() {
    for (const ALuint source : Sources()) {
        const bool left = source == sources_[0];
        const PlaneBuffers& planes = sample_->Planes();
        alSourcei(source, AL_BUFFER, static_cast<ALint>(left ? planes.Left() : planes.Right()));
        alSourcei(source, AL_SOURCE_RESAMPLER_SOFT, context_->Resampler());
        if (spatial_) {
            alSourcef(source, AL_REFERENCE_DISTANCE, minDistance_);
            alSourcef(source, AL_MAX_DISTANCE, maxDistance_);
        } else {
            // Right beside the ear: one output takes all of the sound, the other none.
            alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
            alSource3f(source, AL_POSITION, left ? -1.0F : 1.0F, 0, 0);
            alSourcef(source, AL_ROLLOFF_FACTOR, 0);
        }
    }
}

void OpenAlVoice::NoteEnd() {
    if (!playing_) return;
    ALint state = AL_STOPPED;
    alGetSourcei(sources_[0], AL_SOURCE_STATE, &state);
    if (state == AL_PLAYING) return;
    playing_ = false;
    cursor_ = 0;
}

std::int32_t OpenAlVoice::SoundingFrame() const {
    ALint frame = 0;
    alGetSourcei(sources_[0], AL_SAMPLE_OFFSET, &frame);
    return frame;
}

void OpenAlVoice::StartAt(std::int32_t frame) {
    alSourcePlayv(static_cast<ALsizei>(Sources().size()), sources_.data());
    // An offset that is set before the start makes OpenAL fade in and so takes the attack away.
    if (frame != 0)
        for (const ALuint source : Sources()) alSourcei(source, AL_SAMPLE_OFFSET, frame);
}

bool OpenAlVoice::Playing() {
    const OpenAlCall call(*context_);
    NoteEnd();
    return playing_;
}

void OpenAlVoice::Play(bool looping) {
    const OpenAlCall call(*context_);
    NoteEnd();
    for (const ALuint source : Sources()) alSourcei(source, AL_LOOPING, looping ? AL_TRUE : AL_FALSE);
    if (!playing_) StartAt(cursor_);
    call.Check();
    playing_ = true;
    looping_ = looping;
}

void OpenAlVoice::Stop() {
    const OpenAlCall call(*context_);
    NoteEnd();
    if (!playing_) return;
    cursor_ = SoundingFrame();
    alSourceStopv(static_cast<ALsizei>(Sources().size()), sources_.data());
    playing_ = false;
    call.Check();
}

std::int32_t OpenAlVoice::Cursor() {
    const OpenAlCall call(*context_);
    NoteEnd();
    return playing_ ? SoundingFrame() : cursor_;
}

void OpenAlVoice::SetCursor(std::int32_t frame) {
    const OpenAlCall call(*context_);
    NoteEnd();
    if (playing_)
        for (const ALuint source : Sources()) alSourcei(source, AL_SAMPLE_OFFSET, frame);
    else
        cursor_ = frame;
    call.Check();
}

void OpenAlVoice::SetVolumeAndPan(std::int32_t volume, std::int32_t pan) {
    const OpenAlCall call(*context_);
    const float gain = Gain(volume);
    alSourcef(sources_[0], AL_GAIN, gain * Gain(std::min(-pan, 0)));
    if (!spatial_) alSourcef(sources_[1], AL_GAIN, gain * Gain(std::min(pan, 0)));
    call.Check();
    volume_ = volume;
    pan_ = pan;
}

void OpenAlVoice::SetFrequency(std::int32_t hertz) {
    const OpenAlCall call(*context_);
    const float pitch = static_cast<float>(hertz) / static_cast<float>(sample_->Format().SamplesPerSec);
    for (const ALuint source : Sources()) alSourcef(source, AL_PITCH, pitch);
    call.Check();
    hertz_ = hertz;
}

void OpenAlVoice::SetPosition(const Vector3& position) {
    const OpenAlCall call(*context_);
    // OpenAL's z points backwards.
    alSource3f(sources_[0], AL_POSITION, position.X, position.Y, -position.Z);
    call.Check();
    position_ = position;
}

void OpenAlVoice::SetDistances(float min, float max) {
    const OpenAlCall call(*context_);
    alSourcef(sources_[0], AL_REFERENCE_DISTANCE, min);
    alSourcef(sources_[0], AL_MAX_DISTANCE, max);
    call.Check();
    minDistance_ = min;
    maxDistance_ = max;
}

void OpenAlVoice::Rebind(const PlaneBuffers& planes) {
    NoteEnd();
    const bool sounds = playing_;
    const std::int32_t frame = sounds ? SoundingFrame() : 0;
    if (sounds) alSourceStopv(static_cast<ALsizei>(Sources().size()), sources_.data());
    alSourcei(sources_[0], AL_BUFFER, static_cast<ALint>(planes.Left()));
    if (!spatial_) alSourcei(sources_[1], AL_BUFFER, static_cast<ALint>(planes.Right()));
    if (sounds) StartAt(frame);
}

}  // namespace marvolin
