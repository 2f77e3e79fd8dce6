#include "audio/openal/voice_sources.h"

#include <utility>

#include "core/errors.h"

namespace marvolin {

VoiceSources::VoiceSources(OpenAlContext& context, std::shared_ptr<const PlaneBuffers> planes, bool spatial)
    : context_(context), planes_(std::move(planes)), spatial_(spatial) {
    const OpenAlSetting setting(context_);
    if (!context_.TakeSources({names_.data(), All().size()})) throw SoundError(sound_error::kOutOfMemory);
    bool bound = true;
    for (std::size_t i = 0; i < All().size(); ++i)
        bound = context_.Bind(names_[i], i % Ears() == 0 ? planes_->Left() : planes_->Right()) && bound;
    if (bound) return;
    GiveBack();
    throw SoundError(sound_error::kOutOfMemory);
}

VoiceSources::~VoiceSources() {
    const OpenAlSetting setting(context_);
    GiveBack();
}

void VoiceSources::GiveBack() {
    for (const ALuint source : All()) context_.Bind(source, 0);
    context_.GiveBackSources(All());
}

}  // namespace marvolin
