#pragma once
/// \file
/// Recording of what is heard.

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "audio/output/output_chain.h"

namespace marvolin {

class RecordingFile;

/// Moves what was recorded into a file. Belongs to one thread at a time.
class RecordingWriter {
public:
    /// Frames between two times at which the header is brought up to date: half a second.
    static constexpr std::int64_t kSettleFrames = 22050;

    /// Both must outlive it.
    RecordingWriter(FrameRing& ring, RecordingFile& file) : ring_(ring), file_(file) {}

    /// Writes everything that has been recorded so far. Fails as `RecordingFile::Write` does.
    void WriteWhatCame();

private:
    FrameRing& ring_;
    RecordingFile& file_;
    std::int64_t settled_ = 0;
    std::array<std::int16_t, 2 * 4096> piece_{};
};

/// Records into a file by a thread of its own. The play does not wait for it. Everything belongs to the user-interface
/// thread.
class Recorder {
public:
    explicit Recorder(std::shared_ptr<OutputChain> chain);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Records into the new file `path` from the next period on; a recording that runs is finished first. Failures are
    /// the errors of `RaiseFileError`, and nothing is recorded.
    void Start(const std::string& path);
    /// Records no more; what was recorded goes to the disk meanwhile. Nothing without a recording.
    void Stop();
    /// The same, and waits until the file is whole.
    void Finish();

    /// True from `Start` until the file is whole: after `Stop`, or when the disk takes no more.
    bool IsRunning() const { return !whole_; }
    /// It runs, but records no more.
    bool IsEnding() const { return IsRunning() && stopped_; }
    /// Frames in the file, of this recording or the last one.
    std::int64_t Frames() const { return frames_; }
    /// Frames that came faster than the disk took them, and are missing.
    std::uint64_t Missed() const { return missed_; }
    /// What stopped the writing, in words; nothing while all is well.
    std::optional<std::string> Failure() const;

private:
    void Run();
    bool WriteOnce(RecordingWriter& writer);

    std::shared_ptr<OutputChain> chain_;
    std::unique_ptr<RecordingFile> file_;  // of the thread, while it runs
    std::thread thread_;
    bool stopped_ = false;
    std::atomic<bool> whole_{true};
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    bool ending_ = false;                 // guarded by `mutex_`
    std::optional<std::string> failure_;  // guarded by `mutex_`
    std::atomic<std::int64_t> frames_{0};
    std::atomic<std::uint64_t> missed_{0};
};

}  // namespace marvolin
