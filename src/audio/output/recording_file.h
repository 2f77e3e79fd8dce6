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
/// of the last `UpdateHeader`. Past 4 GiB the header becomes that of RF64, for which room is kept from the start.
///
/// Failures are the errors of `RaiseFileError`.
class RecordingFile {
public:
    /// Makes the file `path`, which must not exist, with the header of an empty recording. When that fails there is no
    /// file.
    explicit RecordingFile(const std::string& path);
    /// Writes to what is open as `descriptor` and still empty; it belongs to the recording from now on, also when this
    /// fails.
    explicit RecordingFile(int descriptor);
    /// Closes the file. What fails is not told: call `Finish` first.
    ~RecordingFile();
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;

    /// Appends whole frames. When the disk takes no more, as many of them as it took are kept.
    void Write(std::span<const std::int16_t> frames);
    /// The header says all that was written. A program that is killed leaves it so.
    void UpdateHeader();
    /// Waits until everything is on the disk. A machine that loses its power leaves it so.
    void Sync();
    /// The file is whole, on the disk and closed. Nothing may be called afterwards but `Frames`.
    void Finish();
    std::int64_t Frames() const { return frames_; }

private:
    void Begin();
    void CloseAll();

    struct Close {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };
    int descriptor_;
    std::unique_ptr<SNDFILE, Close> file_;
    std::int64_t frames_ = 0;
};

}  // namespace marvolin
