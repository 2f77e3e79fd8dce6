#include "audio/openal/space.h"

#include <cmath>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr float kMostRolloff = 10;

void RequireValid(bool condition) {
    if (!condition) throw SoundError(sound_error::kInvalidArgument);
}

bool Finite(const Vector3& v) { return std::isfinite(v.X) && std::isfinite(v.Y) && std::isfinite(v.Z); }
bool IsDirection(const Vector3& v) { return Finite(v) && (v.X != 0 || v.Y != 0 || v.Z != 0); }

}  // namespace

std::shared_ptr<OpenAlVoice> OpenAl3DBuffer::Voice() const {
    std::shared_ptr<OpenAlVoice> voice = voice_.lock();
    if (!voice) throw SoundError(sound_error::kUninitialised);
    voice->Context().AssertOwner();
    return voice;
}

void OpenAl3DBuffer::SetMinDistance(float distance) {
    const auto voice = Voice();
    RequireValid(std::isfinite(distance) && distance > 0);
    voice->SetDistances(distance, voice->MaxDistance());
}

void OpenAl3DBuffer::SetMaxDistance(float distance) {
    const auto voice = Voice();
    RequireValid(std::isfinite(distance) && distance > 0);
    voice->SetDistances(voice->MinDistance(), distance);
}

void OpenAl3DBuffer::SetPosition(const Vector3& position) {
    const auto voice = Voice();
    RequireValid(Finite(position));
    voice->SetPosition(position);
}

Vector3 OpenAl3DBuffer::GetPosition() { return Voice()->Position(); }

void OpenAlListener::SetRolloffFactor(float factor) {
    context_->AssertOwner();
    RequireValid(factor >= 0 && factor <= kMostRolloff);
    Call call;
    call.Kind = CallKind::Rolloff;
    call.Numbers[0] = factor;
    context_->PostToListener(call);
}

void OpenAlListener::SetPosition(const Vector3& position) {
    context_->AssertOwner();
    RequireValid(Finite(position));
    Call call;
    call.Kind = CallKind::ListenerPlace;
    call.Numbers = {position.X, position.Y, -position.Z};
    context_->PostToListener(call);
}

void OpenAlListener::SetOrientation(const Vector3& front, const Vector3& top) {
    context_->AssertOwner();
    RequireValid(IsDirection(front) && IsDirection(top));
    Call call;
    call.Kind = CallKind::ListenerTurn;
    call.Numbers = {front.X, front.Y, -front.Z, top.X, top.Y, -top.Z};
    context_->PostToListener(call);
}

}  // namespace marvolin
