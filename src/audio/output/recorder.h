#pragma once
/// \file
/// Recording of what is heard.

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "audio/output/output_chain.h"

namespace marvolin {

class RecordingFile;

/// Moves what was recorded into a file. Belongs to one thread at a time.
class RecordingWriter {
public:
    /// Frames between two times at which it waits until everything is on the disk: five seconds. Each time a slow disk
    /// may take long, and what comes meanwhile is lost to a kill.
    static constexpr std::int64_t kSyncFrames = 5 * 44100;

    /// `frames` becomes how many are in the file, after each piece. All must outlive it.
    RecordingWriter(FrameRing& ring, RecordingFile& file, std::atomic<std::int64_t>& frames)
        : ring_(ring), file_(file), frames_(frames) {}

    /// Writes everything that has been recorded so far; the header says so after each piece. Fails as `RecordingFile`
    /// does.
    void WriteWhatCame();

private:
    FrameRing& ring_;
    RecordingFile& file_;
    std::atomic<std::int64_t>& frames_;
    std::int64_t synced_ = 0;
    std::array<std::int16_t, 2 * 4096> piece_{};
};

/// Records into a file by a thread of its own. The play does not wait for it. Everything belongs to the user-interface
/// thread.
class Recorder {
public:
    /// Starts a thread that does `work`. Throws what `std::thread` does when there can be none.
    using Starter = std::function<std::thread(std::function<void()> work)>;
    /// How long `Finish` waits for a disk.
    static constexpr std::chrono::milliseconds kPatience{5000};

    explicit Recorder(std::shared_ptr<OutputChain> chain, Starter starter = PlainThread,
                      std::chrono::milliseconds patience = kPatience);
    /// As `Finish`. A disk that hangs keeps its thread and its file until the process ends.
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// Records into the new file `path` from the next period on; a recording that runs is finished first. Failures are
    /// a `RuntimeError` with the reason in words: nothing is recorded, and there is no file.
    void Start(const std::string& path);
    /// Records no more; what was recorded goes to the disk meanwhile. Nothing without a recording.
    void Stop();
    /// The same, and waits until the file is whole, but not longer than the patience. Then it goes on by itself.
    void Finish();

    /// True from `Start` until the file is whole: after `Stop`, or when the disk takes no more.
    bool IsRunning() const;
    /// It runs, but records no more.
    bool IsEnding() const { return IsRunning() && stopped_; }
    /// Frames in the file, of this recording or the last one.
    std::int64_t Frames() const;
    /// Frames that came faster than the disk took them, and are silence in the file.
    std::uint64_t Missed() const;
    /// What stopped the writing, in words; nothing while all is well.
    std::optional<std::string> Failure() const;

    /// The `Starter` of the program.
    static std::thread PlainThread(std::function<void()> work);

private:
    class Take;

    std::shared_ptr<OutputChain> chain_;
    Starter starter_;
    std::chrono::milliseconds patience_;
    std::shared_ptr<Take> take_;  // the thread has it too: a disk may hang for longer than this lives
    std::thread thread_;
    bool stopped_ = false;
};

}  // namespace marvolin
