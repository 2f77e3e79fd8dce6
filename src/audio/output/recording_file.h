#pragma once
/// \file
/// Writing of the WAV file of a recording.

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace marvolin {

/// A WAV file of 16 bits, stereo, 44100 Hz, that grows while it can already be read: its header says how long it is as
/// of the last `Settle`. Past 4 GiB the header becomes that of RF64, for which room is kept from the start.
class RecordingFile {
public:
    /// Makes the file `path`, which must not exist. Failures are the errors of `RaiseFileError`.
    explicit RecordingFile(const std::string& path);
    /// The header says all that was written.
    ~RecordingFile();
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;

    /// Appends whole frames. When the disk takes no more, as many of them as it took are kept, and the error is that of
    /// `RaiseFileError`.
    void Write(std::span<const std::int16_t> frames);
    /// Brings the header up to date, and waits until everything is on the disk.
    void Settle();
    std::int64_t Frames() const { return frames_; }

private:
    struct Close {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };
    int descriptor_;
    std::unique_ptr<SNDFILE, Close> file_;
    std::int64_t frames_ = 0;
};

}  // namespace marvolin
