#pragma once
/// \file
/// The sources of a mixer, all made when it is opened.

#include <AL/al.h>
#include <AL/alc.h>

#include <span>
#include <vector>

namespace marvolin {

/// Sources that are not in use. Making sources takes a lock of the library that the thread that renders needs, so it is
/// done once, before anything is rendered.
class SourcePool {
public:
    /// Makes the sources of the current context, with the sharpest resampler, and lets the library allocate what it
    /// keeps for playing them: it renders a few silent frames of `device` for that.
    /// `SoundError` `kOutOfMemory` when the library has no memory for them.
    explicit SourcePool(ALCdevice* device);

    static constexpr ALCint kSources = 1024;  ///< for more than two hundred buffers of four each

    /// Fills `sources`. False when there are not so many left.
    bool Take(std::span<ALuint> sources);
    /// Takes back sources that do not sound and have no buffer.
    void GiveBack(std::span<const ALuint> sources);

private:
    std::vector<ALuint> free_;
};

}  // namespace marvolin
