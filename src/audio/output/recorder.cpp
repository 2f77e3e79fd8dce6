#include "audio/output/recorder.h"

#include <unistd.h>

#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <span>
#include <system_error>
#include <utility>

#include "audio/output/recording_file.h"
#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::chrono::milliseconds kBetweenWrites{50};

/// The exception that is being handled, in words.
std::string ReasonInHand() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return "Out of memory";
    } catch (const std::system_error&) {
        return "the system starts no more threads";
    } catch (const std::exception& error) {
        return error.what();
    }
}

}  // namespace

void RecordingWriter::WriteWhatCame() {
    while (const std::size_t frames = ring_.Read(piece_)) {
        try {
            file_.Write(std::span(piece_).first(2 * frames));
            file_.UpdateHeader();
        } catch (...) {
            frames_ = file_.Frames();
            throw;
        }
        frames_ = file_.Frames();
        if (file_.Frames() - synced_ < kSyncFrames) continue;
        file_.Sync();
        synced_ = file_.Frames();
    }
}

/// One recording, shared with its thread.
class Recorder::Take {
public:
    Take(std::shared_ptr<OutputChain> chain, const std::string& path) : chain_(std::move(chain)), file_(path) {}

    /// Of the thread: writes until it is told to end, or the disk takes no more.
    void Run();
    void End();
    /// Waits until the file is whole. False when it is not after that time.
    bool Wait(std::chrono::milliseconds longest);

    bool IsWhole() const { return whole_; }
    std::int64_t Frames() const { return frames_; }
    std::uint64_t Missed() const { return missed_; }
    std::optional<std::string> Failure() const;

private:
    template <typename Action>
    bool Try(Action action);

    const std::shared_ptr<OutputChain> chain_;
    RecordingFile file_;  // of the thread, while it runs
    std::atomic<bool> whole_{false};
    std::atomic<std::int64_t> frames_{0};
    std::atomic<std::uint64_t> missed_{0};
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    bool ending_ = false;                 // guarded by `mutex_`
    std::optional<std::string> failure_;  // guarded by `mutex_`
};

/// False when the action fails. The first reason is kept, and nothing is recorded from then on.
template <typename Action>
bool Recorder::Take::Try(Action action) {
    try {
        action();
        return true;
    } catch (const std::exception&) {
        const std::string reason = ReasonInHand();
        chain_->EndRecording();
        const std::lock_guard<std::mutex> guard(mutex_);
        if (!failure_) failure_ = reason;
        return false;
    }
}

void Recorder::Take::Run() {
    RecordingWriter writer(chain_->Recorded(), file_, frames_);
    for (bool last = false; !last;) {
        {
            std::unique_lock<std::mutex> lock(mutex_);
            last = changed_.wait_for(lock, kBetweenWrites, [this] { return ending_; });
        }
        if (!Try([&] { writer.WriteWhatCame(); })) last = true;
        missed_ = chain_->Recorded().Missed();
    }
    Try([this] { file_.Finish(); });
    const std::lock_guard<std::mutex> guard(mutex_);
    whole_ = true;
    changed_.notify_all();
}

void Recorder::Take::End() {
    const std::lock_guard<std::mutex> guard(mutex_);
    ending_ = true;
    changed_.notify_all();
}

bool Recorder::Take::Wait(std::chrono::milliseconds longest) {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, longest, [this] { return whole_.load(); });
}

std::optional<std::string> Recorder::Take::Failure() const {
    const std::lock_guard<std::mutex> guard(mutex_);
    return failure_;
}

Recorder::Recorder(std::shared_ptr<OutputChain> chain, Starter starter, std::chrono::milliseconds patience)
    : chain_(std::move(chain)), starter_(std::move(starter)), patience_(patience) {}

Recorder::~Recorder() {
    Finish();
    if (thread_.joinable()) thread_.detach();
}

std::thread Recorder::PlainThread(std::function<void()> work) { return std::thread(std::move(work)); }

void Recorder::Start(const std::string& path) {
    Finish();
    if (IsRunning()) throw RuntimeError(57, "the disk still writes the last recording");
    auto take = std::make_shared<Take>(chain_, path);
    try {
        chain_->BeginRecording();
        thread_ = starter_([take] { take->Run(); });
    } catch (const std::exception&) {
        const std::string reason = ReasonInHand();
        chain_->EndRecording();
        ::unlink(path.c_str());
        throw RuntimeError(7, reason);
    }
    take_ = std::move(take);
    stopped_ = false;
}

void Recorder::Stop() {
    if (!IsRunning()) return;
    stopped_ = true;
    chain_->EndRecording();
    take_->End();
}

void Recorder::Finish() {
    Stop();
    if (thread_.joinable() && take_->Wait(patience_)) thread_.join();
}

bool Recorder::IsRunning() const { return take_ != nullptr && !take_->IsWhole(); }
std::int64_t Recorder::Frames() const { return take_ == nullptr ? 0 : take_->Frames(); }
std::uint64_t Recorder::Missed() const { return take_ == nullptr ? 0 : take_->Missed(); }
std::optional<std::string> Recorder::Failure() const { return take_ == nullptr ? std::nullopt : take_->Failure(); }

}  // namespace marvolin
