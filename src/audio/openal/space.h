#pragma once
/// \file
/// The 3D side of buffers, and the listener.

#include <memory>

#include "audio/openal/voice.h"
#include "core/sound_service.h"

namespace marvolin {

/// The 3D side of a voice. After the voice is destroyed every call raises `kUninitialised`.
class OpenAl3DBuffer final : public DirectSound3DBuffer {
public:
    explicit OpenAl3DBuffer(std::weak_ptr<OpenAlVoice> voice) : voice_(std::move(voice)) {}
    void SetMinDistance(float distance) override;
    void SetMaxDistance(float distance) override;
    void SetPosition(const Vector3& position) override;
    Vector3 GetPosition() override;

private:
    std::shared_ptr<OpenAlVoice> Voice() const;
    std::weak_ptr<OpenAlVoice> voice_;
};

/// The listener of a mixer.
class OpenAlListener final : public DirectSound3DListener {
public:
    explicit OpenAlListener(std::shared_ptr<OpenAlContext> context) : context_(std::move(context)) {}
    void SetRolloffFactor(float factor) override;
    void SetPosition(const Vector3& position) override;
    void SetOrientation(const Vector3& front, const Vector3& top) override;

private:
    std::shared_ptr<OpenAlContext> context_;
};

}  // namespace marvolin
