#pragma once
/// \file
/// The sources in which a voice sounds.

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <span>

#include "audio/openal/sample.h"

namespace marvolin {

/// Two sets of sources, bound to the channels of a sample: without 3D a set is a pair, left and right, with 3D a single
/// source. Made and destroyed by the user-interface thread; in between they belong to the thread that renders.
class VoiceSources final : public OpenAlContext::Thing {
public:
    /// `context` must outlive it. `SoundError` `kOutOfMemory` when the mixer has no more sources.
    VoiceSources(OpenAlContext& context, std::shared_ptr<const PlaneBuffers> planes, bool spatial);
    /// The sources must not sound any more.
    ~VoiceSources() override;
    VoiceSources(const VoiceSources&) = delete;
    VoiceSources& operator=(const VoiceSources&) = delete;

    bool Spatial() const { return spatial_; }
    /// Sources of one set.
    std::size_t Ears() const { return spatial_ ? 1 : 2; }
    /// Both sets.
    std::span<const ALuint> All() const { return {names_.data(), 2 * Ears()}; }
    std::span<const ALuint> Set(bool second) const { return All().subspan(second ? Ears() : 0, Ears()); }

    /// The thread that renders has used them for the last time.
    void MarkPast_rt() noexcept { past_.store(true, std::memory_order_release); }
    bool Past() const override { return past_.load(std::memory_order_acquire); }

private:
    void GiveBack();

    OpenAlContext& context_;
    std::shared_ptr<const PlaneBuffers> planes_;
    bool spatial_;
    std::array<ALuint, 4> names_{};
    std::atomic<bool> past_{false};
};

}  // namespace marvolin
