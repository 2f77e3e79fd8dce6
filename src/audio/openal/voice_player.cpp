#include "audio/openal/voice_player.h"

#include <algorithm>
#include <cmath>

namespace marvolin {

namespace {

/// Length of the fade to a whole frame: a change of gain that nobody hears as a click.
constexpr std::int64_t kFadeFrames = 256;

constexpr int kSerialShift = 32;
constexpr std::uint64_t kPlayingBit = std::uint64_t{1} << 31;
constexpr std::uint64_t kFrameBits = kPlayingBit - 1;

}  // namespace

VoicePlayer::VoicePlayer(VoiceSources& sources, std::int32_t frames, std::int32_t rate)
    : sources_(&sources), frames_(frames), rate_(rate), hertz_(rate) {}

VoiceState VoicePlayer::State() const noexcept {
    const std::uint64_t word = state_.load(std::memory_order_acquire);
    return {static_cast<std::uint32_t>(word >> kSerialShift), (word & kPlayingBit) != 0,
            static_cast<std::int32_t>(word & kFrameBits)};
}

void VoicePlayer::Publish_rt() noexcept {
    const auto frame = static_cast<std::uint64_t>(playing_ ? SoundingFrame_rt() : cursor_);
    const std::uint64_t word =
        std::uint64_t{serial_} << kSerialShift | (playing_ ? kPlayingBit : 0) | (frame & kFrameBits);
    state_.store(word, std::memory_order_release);
}

void VoicePlayer::Attach_rt(std::int32_t hertz, float rolloff) noexcept {
    hertz_ = hertz;
    rolloff_ = rolloff;
    SetUp_rt();
}

void VoicePlayer::Detach_rt() noexcept {
    StopAll_rt();
    sources_->MarkPast_rt();
}

void VoicePlayer::Switch_rt(VoiceSources& sources) noexcept {
    RunOut_rt();
    const std::int32_t frame = playing_ ? SoundingFrame_rt() : 0;
    StopAll_rt();
    sources_->MarkPast_rt();
    sources_ = &sources;
    SetUp_rt();
    if (playing_) StartAt_rt(frame);
}

void VoicePlayer::SetUp_rt() noexcept {
    const bool spatial = sources_->Spatial();
    for (std::size_t i = 0; i < sources_->All().size(); ++i) {
        const ALuint source = sources_->All()[i];
        alSourcei(source, AL_LOOPING, looping_ ? AL_TRUE : AL_FALSE);
        alSourcef(source, AL_PITCH, static_cast<float>(hertz_) / static_cast<float>(rate_));
        alSourcei(source, AL_SOURCE_RELATIVE, spatial ? AL_FALSE : AL_TRUE);
        // Without space a source is right at the ear: one output gets all of the sound, the other none.
        const float ear = i % 2 == 0 ? -1.0F : 1.0F;
        if (!spatial) alSource3f(source, AL_POSITION, ear, 0, 0);
        if (!spatial) alSourcef(source, AL_ROLLOFF_FACTOR, 0);
    }
    ShareGains_rt(Current(), 1);
    if (!spatial) return;
    SetPlace_rt(place_);
    SetDistances_rt(near_, far_);
    SetRolloff_rt(rolloff_);
}

void VoicePlayer::RunOut_rt() noexcept {
    if (!playing_) return;
    ALint state = AL_STOPPED;
    alGetSourcei(Current()[0], AL_SOURCE_STATE, &state);
    if (state == AL_PLAYING) return;
    playing_ = false;
    cursor_ = 0;
}

void VoicePlayer::CatchUp_rt(std::int64_t position) noexcept {
    RunOut_rt();
    if (!fading_ || position < fadeBegin_ + kFadeFrames) return;
    alSourceStopv(static_cast<ALsizei>(Other().size()), Other().data());
    fading_ = false;
    if (settleLater_ && playing_) Settle_rt(position);
}

void VoicePlayer::Prepare_rt(std::int64_t end) noexcept {
    if (!fading_) return;
    // The mixer goes to a new gain in a straight line over the piece, so that many pieces make one line.
    const float share = std::min(1.0F, static_cast<float>(end - fadeBegin_) / static_cast<float>(kFadeFrames));
    ShareGains_rt(Current(), share);
    ShareGains_rt(Other(), 1 - share);
}

std::int32_t VoicePlayer::SoundingFrame_rt() const noexcept {
    ALint frame = 0;
    alGetSourcei(Current()[0], AL_SAMPLE_OFFSET, &frame);
    return frame;
}

void VoicePlayer::StartAt_rt(std::int32_t frame) noexcept {
    // A sounding source would go from its old gain to the new one in a line, and its attack with it.
    StopAll_rt();
    ShareGains_rt(Current(), 1);
    alSourcePlayv(static_cast<ALsizei>(Current().size()), Current().data());
    // OpenAL fades in when the offset is set before the start, which would soften the attack.
    if (frame != 0)
        for (const ALuint source : Current()) alSourcei(source, AL_SAMPLE_OFFSET, frame);
    playing_ = true;
}

void VoicePlayer::StopAll_rt() noexcept {
    alSourceStopv(static_cast<ALsizei>(sources_->All().size()), sources_->All().data());
    fading_ = settleLater_ = false;
}

void VoicePlayer::Play_rt(std::uint32_t serial, bool looping) noexcept {
    serial_ = serial;
    RunOut_rt();
    looping_ = looping;
    for (const ALuint source : sources_->All()) alSourcei(source, AL_LOOPING, looping ? AL_TRUE : AL_FALSE);
    if (!playing_) StartAt_rt(cursor_);
}

void VoicePlayer::Stop_rt(std::uint32_t serial, std::int32_t frame) noexcept {
    serial_ = serial;
    RunOut_rt();
    cursor_ = playing_ ? SoundingFrame_rt() : frame;
    playing_ = false;
    StopAll_rt();
}

void VoicePlayer::Jump_rt(std::uint32_t serial, std::int32_t frame, bool sounds) noexcept {
    serial_ = serial;
    RunOut_rt();
    if (playing_ || sounds)
        StartAt_rt(frame);
    else
        cursor_ = frame;
}

void VoicePlayer::ShareGains_rt(std::span<const ALuint> set, float share) const noexcept {
    alSourcef(set[0], AL_GAIN, share * left_);
    if (set.size() > 1) alSourcef(set[1], AL_GAIN, share * right_);
}

void VoicePlayer::SetGains_rt(float left, float right) noexcept {
    left_ = left;
    right_ = right;
    if (!fading_) ShareGains_rt(Current(), 1);
}

void VoicePlayer::SetPitch_rt(std::int32_t hertz, std::int64_t position) noexcept {
    hertz_ = hertz;
    settleLater_ = false;
    const float pitch = static_cast<float>(hertz) / static_cast<float>(rate_);
    for (const ALuint source : sources_->All()) alSourcef(source, AL_PITCH, pitch);
    RunOut_rt();
    if (playing_ && hertz == rate_ && rate_ == kOutputRate) Settle_rt(position);
}

void VoicePlayer::Settle_rt(std::int64_t position) noexcept {
    settleLater_ = fading_;
    if (fading_) return;
    ALdouble place = 0;
    alGetSourcedSOFT(Current()[0], AL_SAMPLE_OFFSET, &place);
    const double last = frames_ - 1;
    if (place == std::floor(place) || last < 1) return;
    // A jump would click. The other set fades in, because its offset is set before its start and is not 0, and this one
    // fades out: both in a straight line, so that their sum keeps its level.
    const auto frame = static_cast<ALint>(std::clamp(std::round(place), 1.0, last));
    second_ = !second_;
    for (const ALuint source : Current()) alSourcei(source, AL_SAMPLE_OFFSET, frame);
    alSourcePlayv(static_cast<ALsizei>(Current().size()), Current().data());
    fading_ = true;
    fadeBegin_ = position;
}

void VoicePlayer::SetPlace_rt(const float* place) noexcept {
    std::copy_n(place, 3, place_);
    for (const ALuint source : sources_->All()) alSource3f(source, AL_POSITION, place_[0], place_[1], place_[2]);
}

void VoicePlayer::SetDistances_rt(float near, float far) noexcept {
    near_ = near;
    far_ = far;
    for (const ALuint source : sources_->All()) {
        alSourcef(source, AL_REFERENCE_DISTANCE, near);
        alSourcef(source, AL_MAX_DISTANCE, far);
    }
}

void VoicePlayer::SetRolloff_rt(float factor) noexcept {
    rolloff_ = factor;
    if (!sources_->Spatial()) return;
    for (const ALuint source : sources_->All()) alSourcef(source, AL_ROLLOFF_FACTOR, factor);
}

}  // namespace marvolin
