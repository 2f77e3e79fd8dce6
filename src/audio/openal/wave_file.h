#pragma once
/// \file
/// Reading of PCM WAV files.

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "audio/openal/rate_reducer.h"
#include "core/sound_service.h"

namespace marvolin {

/// A WAV file open for one reading from its first frame to its last.
/// Accepted: RIFF/WAVE with a plain or an extensible header, PCM of 8, 16, 24 or 32 bits, one or two channels,
/// 100..1000000 Hz, at least one whole frame, and a data chunk that lies wholly in the file.
class WaveFile {
public:
    /// `path` is used as bytes. `SoundError` `kGeneric`: not a regular file, or not readable; `kBadFormat`: not
    /// accepted; `kOutOfMemory`: more sample bytes than a position can count.
    explicit WaveFile(const std::string& path);

    /// The format of the bytes that `Read` gives: that of the file, but at most at `kHighestBufferRate`.
    const WaveFormat& Format() const { return format_; }
    /// Bytes of all whole frames that `Read` gives.
    std::int32_t Bytes() const { return bytes_; }
    /// Reads the next bytes, unchanged unless the rate is brought down; `frames` is a whole number of frames.
    /// `SoundError` `kGeneric` when the file ends too early or cannot be read.
    void Read(std::span<std::uint8_t> frames);

private:
    struct Close {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };
    WaveFormat format_;
    std::int32_t bytes_ = 0;
    std::unique_ptr<SNDFILE, Close> file_;
    std::unique_ptr<RateReducer> reducer_;  ///< null for a rate at which a buffer can play
};

}  // namespace marvolin
