#include "audio/output/recorder.h"

#include <chrono>
#include <span>
#include <utility>

#include "audio/output/recording_file.h"
#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::chrono::milliseconds kBetweenWrites{50};

}  // namespace

void RecordingWriter::WriteWhatCame() {
    while (const std::size_t frames = ring_.Read(piece_)) {
        file_.Write(std::span(piece_).first(2 * frames));
        if (file_.Frames() - settled_ < kSettleFrames) continue;
        file_.Settle();
        settled_ = file_.Frames();
    }
}

Recorder::Recorder(std::shared_ptr<OutputChain> chain) : chain_(std::move(chain)) {}

Recorder::~Recorder() { Finish(); }

void Recorder::Start(const std::string& path) {
    Finish();
    file_ = std::make_unique<RecordingFile>(path);
    stopped_ = false;
    ending_ = false;
    failure_.reset();
    frames_ = 0;
    missed_ = 0;
    chain_->BeginRecording();
    whole_ = false;
    thread_ = std::thread([this] { Run(); });
}

void Recorder::Stop() {
    if (!IsRunning()) return;
    stopped_ = true;
    chain_->EndRecording();
    {
        const std::lock_guard<std::mutex> guard(mutex_);
        ending_ = true;
    }
    wake_.notify_one();
}

void Recorder::Finish() {
    Stop();
    if (thread_.joinable()) thread_.join();
}

std::optional<std::string> Recorder::Failure() const {
    const std::lock_guard<std::mutex> guard(mutex_);
    return failure_;
}

bool Recorder::WriteOnce(RecordingWriter& writer) {
    std::optional<std::string> failure;
    try {
        writer.WriteWhatCame();
    } catch (const RuntimeError& error) {
        failure = error.what();
    }
    frames_ = file_->Frames();
    missed_ = chain_->Recorded().Missed();
    if (!failure) return true;
    chain_->EndRecording();
    const std::lock_guard<std::mutex> guard(mutex_);
    failure_ = failure;
    return false;
}

void Recorder::Run() {
    RecordingWriter writer(chain_->Recorded(), *file_);
    for (bool last = false; !last;) {
        {
            std::unique_lock<std::mutex> lock(mutex_);
            last = wake_.wait_for(lock, kBetweenWrites, [this] { return ending_; });
        }
        if (!WriteOnce(writer)) break;
    }
    file_->Settle();
    file_.reset();
    whole_ = true;
}

}  // namespace marvolin
