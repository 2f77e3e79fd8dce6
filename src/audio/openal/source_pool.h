#pragma once
/// \file
/// The sources of a mixer, all made when it is opened.

#include <AL/al.h>
#include <AL/alc.h>

#include <span>
#include <vector>

#include "audio/openal/source_gate.h"

namespace marvolin {

/// Sources that are not in use. Making sources takes a lock of the library that the thread that renders needs, so most
/// are made once, before anything is rendered.
class SourcePool {
public:
    /// Makes sources of the current context, and lets the library allocate what it keeps for playing them: it renders a
    /// few silent frames of `device` for that. `SoundError` `kOutOfMemory` when there is no memory for them.
    explicit SourcePool(ALCdevice* device);

    /// For thousands of buffers of four each: what has been released is in use until the thread that renders is past
    /// it, and much can be released between two of its turns.
    static constexpr ALCint kMostSources = 16384;

    /// Fills `sources`. False when there are not so many left.
    bool Take(std::span<ALuint> sources);
    /// Makes some more, with `gate` held for each call of the library. False when there is no room.
    bool Grow(SourceGate& gate);
    /// Takes back sources that do not sound and have no buffer.
    void GiveBack(std::span<const ALuint> sources);

private:
    void Make(std::size_t count, SourceGate& gate);

    ALint resampler_;
    std::size_t made_ = 0;
    std::vector<ALuint> free_;
};

}  // namespace marvolin
