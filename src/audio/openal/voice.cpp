#include "audio/openal/voice.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace marvolin {

namespace {

constexpr std::int32_t kSilence = -10000;

/// The gain of an attenuation in hundredths of a decibel.
float Gain(std::int32_t hundredths) {
    if (hundredths == 0) return 1;
    return hundredths <= kSilence ? 0.0F : static_cast<float>(std::pow(10.0, hundredths / 2000.0));
}

Call MakeCall(CallKind kind) {
    Call call;
    call.Kind = kind;
    return call;
}

/// A voice that has been released and may still sound.
class ReleasedVoice final : public OpenAlContext::Thing {
public:
    ReleasedVoice(std::unique_ptr<VoiceSources> sources, std::unique_ptr<VoicePlayer> player)
        : sources_(std::move(sources)), player_(std::move(player)) {}
    bool Past() const override { return sources_->Past(); }

private:
    std::unique_ptr<VoiceSources> sources_;
    std::unique_ptr<VoicePlayer> player_;
};

}  // namespace

OpenAlVoice::OpenAlVoice(std::shared_ptr<OpenAlContext> context, std::shared_ptr<SampleMemory> sample, bool spatial)
    : context_(std::move(context)),
      sample_(std::move(sample)),
      spatial_(spatial),
      sources_(SourcesFor(sample_->Planes())),
      hertz_(sample_->Format().SamplesPerSec) {
    player_ = std::make_unique<VoicePlayer>(*sources_, sample_->Bytes() / sample_->Format().BlockAlign, hertz_);
    sample_->AddUser(*this);
    // Last, because from then on the other thread knows the voice.
    try {
        Attach();
    } catch (...) {
        sample_->RemoveUser(*this);
        throw;
    }
}

void OpenAlVoice::Attach() {
    Call call = MakeCall(CallKind::Attach);
    call.Number = hertz_;
    Post(call, Pace::Soon);
}

OpenAlVoice::~OpenAlVoice() {
    sample_->RemoveUser(*this);
    Post(MakeCall(CallKind::Detach), Pace::Soon);
    context_->Forget(lastFrame_);
    context_->Retire(std::make_unique<ReleasedVoice>(std::move(sources_), std::move(player_)));
}

std::unique_ptr<VoiceSources> OpenAlVoice::SourcesFor(const std::shared_ptr<const PlaneBuffers>& planes) {
    context_->CatchUp();
    return std::make_unique<VoiceSources>(*context_, planes, spatial_);
}

void OpenAlVoice::GoOnIn(std::unique_ptr<VoiceSources> sources) {
    Call call = MakeCall(CallKind::Switch);
    call.Sources = sources.get();
    Post(call, Pace::Soon);
    std::swap(sources_, sources);
    context_->Retire(std::move(sources));
}

void OpenAlVoice::Post(Call call, Pace pace) {
    call.Voice = player_.get();
    context_->Post(call, pace, lastFrame_);
}

void OpenAlVoice::PostTransport(Call call, Pace pace, bool playing, std::int32_t cursor) {
    call.Serial = ++serial_;
    playing_ = playing;
    stopped_ = call.Kind == CallKind::Stop;
    cursor_ = cursor;
    Post(call, pace);
}

bool OpenAlVoice::Playing() {
    context_->CatchUp();
    const VoiceState state = player_->State();
    return state.Serial == serial_ ? state.Playing : playing_;
}

void OpenAlVoice::Play(bool looping) {
    Call call = MakeCall(CallKind::Play);
    call.Flag = looping;
    // Of a sounding sample it only changes the looping.
    PostTransport(call, Playing() ? Pace::Soon : Pace::OnFrame, true, Cursor());
    looping_ = looping;
}

void OpenAlVoice::Stop() {
    // Stopping again would take the cursor from where the sound really stopped.
    if (!Playing()) return;
    Call call = MakeCall(CallKind::Stop);
    call.Number = Cursor();
    PostTransport(call, Pace::Soon, false, call.Number);
}

std::int32_t OpenAlVoice::Cursor() {
    context_->CatchUp();
    const VoiceState state = player_->State();
    return state.Serial == serial_ && !stopped_ ? state.Frame : cursor_;
}

void OpenAlVoice::SetCursor(std::int32_t frame) {
    Call call = MakeCall(CallKind::Jump);
    call.Number = frame;
    call.Flag = Playing();
    PostTransport(call, call.Flag ? Pace::OnFrame : Pace::Soon, call.Flag, frame);
}

void OpenAlVoice::SetVolumeAndPan(std::int32_t volume, std::int32_t pan) {
    Call call = MakeCall(CallKind::Gains);
    const float gain = Gain(volume);
    call.Numbers[0] = gain * Gain(std::min(-pan, 0));
    call.Numbers[1] = gain * Gain(std::min(pan, 0));
    Post(call, Pace::Soon);
    volume_ = volume;
    pan_ = pan;
}

void OpenAlVoice::SetFrequency(std::int32_t hertz) {
    Call call = MakeCall(CallKind::Pitch);
    call.Number = hertz;
    Post(call, Pace::Soon);
    hertz_ = hertz;
}

void OpenAlVoice::SetPosition(const Vector3& position) {
    Call call = MakeCall(CallKind::Place);
    // OpenAL's z points backwards.
    call.Numbers = {position.X, position.Y, -position.Z};
    Post(call, Pace::Soon);
    position_ = position;
}

void OpenAlVoice::SetDistances(float min, float max) {
    Call call = MakeCall(CallKind::Distances);
    call.Numbers = {min, max};
    Post(call, Pace::Soon);
    minDistance_ = min;
    maxDistance_ = max;
}

}  // namespace marvolin
