#include "audio/openal/voice_sources.h"

#include <utility>

#include "core/errors.h"

namespace marvolin {

VoiceSources::VoiceSources(OpenAlContext& context, std::shared_ptr<const PlaneBuffers> planes, bool spatial)
    : context_(context), planes_(std::move(planes)), spatial_(spatial) {
    const OpenAlSetting setting(context_);
    if (!context_.TakeSources({names_.data(), All().size()})) throw SoundError(sound_error::kOutOfMemory);
    for (std::size_t i = 0; i < All().size(); ++i)
        context_.Bind(names_[i], i % Ears() == 0 ? planes_->Left() : planes_->Right());
    try {
        setting.Check();
    } catch (const SoundError&) {
        for (const ALuint source : All()) context_.Bind(source, 0);
        context_.GiveBackSources(All());
        throw;
    }
}

VoiceSources::~VoiceSources() {
    const OpenAlSetting setting(context_);
    for (const ALuint source : All()) context_.Bind(source, 0);
    context_.GiveBackSources(All());
}

}  // namespace marvolin
