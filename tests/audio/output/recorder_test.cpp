/// Recording of what is heard into a file.

#include "audio/output/recorder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "audio/openal/wave_file.h"
#include "audio/output/recording_file.h"
#include "core/errors.h"
#include "fakes/temp_folder.h"

namespace marvolin::test {
namespace {

/// Frames whose numbers tell where they belong.
std::vector<std::int16_t> Numbered(int from, int count) {
    std::vector<std::int16_t> frames;
    for (int i = from; i < from + count; ++i)
        frames.insert(frames.end(), {static_cast<std::int16_t>(i % 30000), static_cast<std::int16_t>(-(i % 30000))});
    return frames;
}

/// The samples of a WAV file, as the instrument itself would load them.
std::vector<std::int16_t> ReadAll(const std::string& path) {
    WaveFile file(path);
    EXPECT_EQ(file.Format().Channels, 2);
    EXPECT_EQ(file.Format().BitsPerSample, 16);
    EXPECT_EQ(file.Format().SamplesPerSec, 44100);
    std::vector<std::int16_t> samples(static_cast<std::size_t>(file.Bytes()) / 2);
    file.Read({reinterpret_cast<std::uint8_t*>(samples.data()), 2 * samples.size()});
    return samples;
}

/// True when the header of a WAV file tells the length that the file has.
bool HeaderIsTrue(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::array<unsigned char, 8> begin{};
    file.read(reinterpret_cast<char*>(begin.data()), begin.size());
    const std::uint64_t told = begin[4] | begin[5] << 8 | begin[6] << 16 | static_cast<std::uint64_t>(begin[7]) << 24;
    return told + 8 == std::filesystem::file_size(path);
}

std::string MessageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return "";
}

class RecordingOfAFile : public ::testing::Test {
protected:
    TempFolder folder_;
    std::string path_ = folder_.In("take.wav");
};

TEST_F(RecordingOfAFile, ItHoldsWhatWasWrittenAndTheInstrumentLoadsIt) {
    {
        RecordingFile file(path_);
        file.Write(Numbered(0, 1000));
        file.Write(Numbered(1000, 500));
        EXPECT_EQ(file.Frames(), 1500);
    }
    EXPECT_EQ(ReadAll(path_), Numbered(0, 1500));
}

TEST_F(RecordingOfAFile, ItsHeaderIsTrueWhileItGrows) {
    RecordingFile file(path_);
    EXPECT_TRUE(HeaderIsTrue(path_)) << "from the first moment on";
    file.Write(Numbered(0, 1000));
    file.UpdateHeader();
    EXPECT_EQ(ReadAll(path_), Numbered(0, 1000));
    file.Write(Numbered(1000, 1000));
    file.UpdateHeader();
    EXPECT_EQ(ReadAll(path_), Numbered(0, 2000));
}

TEST_F(RecordingOfAFile, AFileThatIsThereIsNotTouched) {
    std::ofstream(path_) << "a take of before";
    EXPECT_EQ(MessageOf([&] { const RecordingFile file(path_); }), "File already exists");
    std::ifstream kept(path_);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "a take of before");
}

TEST_F(RecordingOfAFile, AFolderThatIsAFileIsTold) {
    std::ofstream(path_) << "no folder";
    EXPECT_EQ(MessageOf([&] { const RecordingFile file(path_ + "/take.wav"); }), "Path not found");
}

// The bytes in between are a hole of the file.
TEST_F(RecordingOfAFile, PastFourGibibytesItCanStillBeRead) {
    constexpr std::uint64_t kBytes = (std::uint64_t{1} << 32) + 400'000'000;
    {
        RecordingFile file(path_);
        file.Write(Numbered(0, 1000));
        std::filesystem::resize_file(path_, kBytes);
        file.UpdateHeader();
        SF_INFO info{};
        SNDFILE* growing = sf_open(path_.c_str(), SFM_READ, &info);
        ASSERT_NE(growing, nullptr) << sf_strerror(nullptr);
        EXPECT_GT(info.frames, static_cast<sf_count_t>((std::uint64_t{1} << 32) / 4));
        sf_close(growing);
    }
    SF_INFO info{};
    SNDFILE* whole = sf_open(path_.c_str(), SFM_READ, &info);
    ASSERT_NE(whole, nullptr) << sf_strerror(nullptr);
    EXPECT_GT(info.frames, static_cast<sf_count_t>(kBytes / 4) - 100);
    std::vector<std::int16_t> begin(2000);
    EXPECT_EQ(sf_readf_short(whole, begin.data(), 1000), 1000);
    EXPECT_EQ(begin, Numbered(0, 1000));
    sf_close(whole);
}

/// While it lives, a file of this process takes nothing behind `bytes`.
class FileLimit {
public:
    explicit FileLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        before_handler_ = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, before_handler_);
    }

private:
    rlimit before_{};
    void (*before_handler_)(int) = nullptr;
};

/// The number under which this process has a file open, -1 for none.
int OpenDescriptorOf(const std::string& path) {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code closed;
        if (std::filesystem::read_symlink(entry.path(), closed) == path) return std::stoi(entry.path().filename());
    }
    return -1;
}

TEST_F(RecordingOfAFile, AWriterBringsTheHeaderUpToDateEachTimeAndCountsEachPiece) {
    FrameRing ring(std::size_t{1} << 16);
    RecordingFile file(path_);
    std::atomic<std::int64_t> frames{0};
    RecordingWriter writer(ring, file, frames);
    for (int turn = 0; turn < 3; ++turn) {
        const auto came = Numbered(5000 * turn, 5000);
        ring.Write_rt(came.data(), came.size() / 2);
        writer.WriteWhatCame();
        EXPECT_TRUE(HeaderIsTrue(path_)) << turn;
        EXPECT_EQ(ReadAll(path_), Numbered(0, 5000 * (turn + 1)));
        EXPECT_EQ(frames, 5000 * (turn + 1));
    }
}

TEST_F(RecordingOfAFile, AnEndLeavesTheFileWholeAndClosed) {
    RecordingFile file(path_);
    file.Write(Numbered(0, 1000));
    file.Finish();
    EXPECT_TRUE(HeaderIsTrue(path_));
    EXPECT_EQ(ReadAll(path_), Numbered(0, 1000));
}

TEST_F(RecordingOfAFile, AHeaderThatTheDiskRefusesIsAnError) {
    RecordingFile file(path_);
    file.Write(Numbered(0, 1000));
    const FileLimit limit(10);
    EXPECT_EQ(MessageOf([&] { file.UpdateHeader(); }), "File too large");
    EXPECT_EQ(MessageOf([&] { file.Finish(); }), "File too large");
}

// What is open for reading only, and what has no disk behind it, cannot be brought to one.
TEST_F(RecordingOfAFile, ADiskThatRefusesToTakeWhatItHasIsAnError) {
    RecordingFile file(path_);
    file.Write(Numbered(0, 1000));
    const int descriptor = OpenDescriptorOf(path_);
    ASSERT_GE(descriptor, 0);
    const int device = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    const int kept = ::dup(descriptor);
    ::dup2(device, descriptor);  // takes every header, but has nothing to wait for
    EXPECT_EQ(MessageOf([&] { file.Sync(); }), "Path/File access error");
    EXPECT_EQ(MessageOf([&] { file.Finish(); }), "Path/File access error");
    ::close(device);
    ::close(kept);
}

TEST_F(RecordingOfAFile, AFullDeviceIsTold) {
    const int full = ::open("/dev/full", O_RDWR | O_CLOEXEC);
    ASSERT_GE(full, 0);
    EXPECT_EQ(MessageOf([&] { const RecordingFile file(full); }), "Disk full");
    EXPECT_EQ(::fcntl(full, F_GETFD), -1) << "it was not closed";
}

TEST_F(RecordingOfAFile, AFileThatCannotBeBegunIsTakenAway) {
    const FileLimit limit(10);
    EXPECT_EQ(MessageOf([&] { const RecordingFile file(path_); }), "File too large");
    EXPECT_FALSE(std::filesystem::exists(path_));
}

class RecorderOfAChain : public RecordingOfAFile {
protected:
    void Pass(const std::vector<std::int16_t>& frames) {
        std::vector<std::int16_t> passing = frames;
        chain_->Pass_rt(passing.data(), static_cast<int>(passing.size() / 2));
    }
    /// True when the chain has nothing for a recording.
    bool NothingCame() {
        std::array<std::int16_t, 2> frame{};
        return chain_->Recorded().Read(frame) == 0;
    }
    /// Waits for what the thread of the recorder is to do.
    template <typename Condition>
    bool Comes(Condition condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
        return condition();
    }
    std::shared_ptr<OutputChain> chain_ = std::make_shared<OutputChain>();
    Recorder recorder_{chain_};
};

TEST_F(RecorderOfAChain, EverythingFromStartToStopIsInTheFileAndNothingElse) {
    Pass(Numbered(0, 100));
    recorder_.Start(path_);
    EXPECT_TRUE(recorder_.IsRunning());
    for (int i = 0; i < 200; ++i) Pass(Numbered(100 + 128 * i, 128));
    recorder_.Stop();
    Pass(Numbered(0, 100));
    recorder_.Finish();
    EXPECT_FALSE(recorder_.IsRunning());
    EXPECT_EQ(ReadAll(path_), Numbered(100, 200 * 128));
    EXPECT_EQ(recorder_.Frames(), 200 * 128);
    EXPECT_EQ(recorder_.Missed(), 0U);
    EXPECT_FALSE(recorder_.Failure());
}

TEST_F(RecorderOfAChain, AStopDoesNotWaitAndTheFileBecomesWholeByItself) {
    recorder_.Start(path_);
    Pass(Numbered(0, 100'000));
    EXPECT_FALSE(recorder_.IsEnding());
    recorder_.Stop();
    EXPECT_EQ(recorder_.IsEnding(), recorder_.IsRunning());
    ASSERT_TRUE(Comes([&] { return !recorder_.IsRunning(); }));
    EXPECT_FALSE(recorder_.IsEnding());
    EXPECT_EQ(ReadAll(path_), Numbered(0, 100'000));
    EXPECT_EQ(recorder_.Frames(), 100'000);
}

TEST_F(RecorderOfAChain, TheTimeRunsWhileItRecords) {
    recorder_.Start(path_);
    Pass(Numbered(0, 4410));
    EXPECT_TRUE(Comes([&] { return recorder_.Frames() == 4410; }));
}

TEST_F(RecorderOfAChain, ASecondStartEndsTheFirstRecording) {
    recorder_.Start(path_);
    Pass(Numbered(0, 10));
    recorder_.Start(folder_.In("second.wav"));
    Pass(Numbered(10, 20));
    recorder_.Finish();
    EXPECT_EQ(ReadAll(path_), Numbered(0, 10));
    EXPECT_EQ(ReadAll(folder_.In("second.wav")), Numbered(10, 20));
}

TEST_F(RecorderOfAChain, AStartThatFailsRecordsNothing) {
    EXPECT_EQ(MessageOf([&] { recorder_.Start(folder_.In("none/take.wav")); }), "File not found");
    EXPECT_FALSE(recorder_.IsRunning());
    Pass(Numbered(0, 10));
    recorder_.Finish();
    recorder_.Start(path_);
    recorder_.Finish();
    EXPECT_EQ(recorder_.Frames(), 0);
}

TEST_F(RecorderOfAChain, ADiskThatIsFullEndsItWithItsMessageAndLeavesWhatThereIs) {
    const FileLimit disk(100'000);
    recorder_.Start(path_);
    Pass(Numbered(0, 50'000));
    ASSERT_TRUE(Comes([&] { return !recorder_.IsRunning(); })) << "it ends by itself";
    EXPECT_EQ(recorder_.Failure(), "File too large");
    Pass(Numbered(50'000, 100));
    const auto kept = ReadAll(path_);
    EXPECT_GT(kept.size(), 2U * 20'000);
    EXPECT_EQ(kept, Numbered(0, static_cast<int>(kept.size() / 2)));
    EXPECT_EQ(recorder_.Frames(), static_cast<std::int64_t>(kept.size() / 2));
}

TEST_F(RecorderOfAChain, ANewRecordingForgetsTheFailureOfTheLastOne) {
    {
        const FileLimit disk(1000);
        recorder_.Start(path_);
        Pass(Numbered(0, 5000));
        ASSERT_TRUE(Comes([&] { return !recorder_.IsRunning(); }));
    }
    recorder_.Start(folder_.In("second.wav"));
    Pass(Numbered(0, 5000));
    recorder_.Finish();
    EXPECT_FALSE(recorder_.Failure());
    EXPECT_EQ(ReadAll(folder_.In("second.wav")), Numbered(0, 5000));
}

TEST_F(RecorderOfAChain, AKilledProgramLeavesAllButTheLastSecond) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const auto chain = std::make_shared<OutputChain>();
        Recorder recorder(chain);
        recorder.Start(path_);
        for (int i = 0; i < 3 * 44100; i += 441) {
            auto frames = Numbered(i, 441);
            chain->Pass_rt(frames.data(), 441);
        }
        // When it never comes the test fails for want of frames.
        Comes([&] { return recorder.Frames() >= 3 * 44100; });
        ::raise(SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    const auto kept = ReadAll(path_);
    EXPECT_GE(kept.size() / 2, 2U * 44100);
    EXPECT_EQ(kept, Numbered(0, static_cast<int>(kept.size() / 2)));
}

TEST_F(RecorderOfAChain, AThreadThatCannotStartIsAnErrorAndLeavesNoFile) {
    bool refuses = true;
    Recorder recorder(chain_, [&](std::function<void()> work) {
        if (refuses) throw std::system_error(EAGAIN, std::generic_category());
        return Recorder::PlainThread(std::move(work));
    });
    EXPECT_EQ(MessageOf([&] { recorder.Start(path_); }), "the system starts no more threads");
    EXPECT_FALSE(recorder.IsRunning());
    EXPECT_FALSE(std::filesystem::exists(path_));
    Pass(Numbered(0, 10));
    EXPECT_TRUE(NothingCame()) << "the chain still records";
    refuses = false;
    recorder.Start(path_);
    Pass(Numbered(10, 10));
    recorder.Finish();
    EXPECT_EQ(ReadAll(path_), Numbered(10, 10));
}

TEST_F(RecorderOfAChain, WithoutMemoryItIsAnErrorToo) {
    Recorder recorder(chain_, [](std::function<void()>) -> std::thread { throw std::bad_alloc(); });
    EXPECT_EQ(MessageOf([&] { recorder.Start(path_); }), "Out of memory");
    EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(RecorderOfAChain, ADiskThatHangsIsWaitedForNotLongerThanThePatience) {
    std::promise<void> goesOn;
    std::promise<void> done;
    {
        Recorder recorder(
            chain_,
            [&](std::function<void()> work) {
                return std::thread([&, work = std::move(work), hangs = goesOn.get_future()]() mutable {
                    hangs.wait();
                    work();
                    done.set_value();
                });
            },
            std::chrono::milliseconds(1));
        recorder.Start(path_);
        Pass(Numbered(0, 100));
        recorder.Finish();
        EXPECT_TRUE(recorder.IsRunning());
        EXPECT_TRUE(recorder.IsEnding());
        EXPECT_EQ(MessageOf([&] { recorder.Start(folder_.In("second.wav")); }),
                  "the disk still writes the last recording");
        EXPECT_FALSE(std::filesystem::exists(folder_.In("second.wav")));
    }
    goesOn.set_value();
    done.get_future().wait();
    EXPECT_EQ(ReadAll(path_), Numbered(0, 100)) << "it is finished when the disk goes on";
}

TEST_F(RecorderOfAChain, TheLastErrorOfTheDiskIsToldAndOnlyOnce) {
    recorder_.Start(path_);
    Pass(Numbered(0, 1000));
    ASSERT_TRUE(Comes([&] { return recorder_.Frames() == 1000; }));
    {
        const FileLimit limit(10);
        recorder_.Finish();
    }
    EXPECT_FALSE(recorder_.IsRunning());
    EXPECT_EQ(recorder_.Failure(), "File too large");
}

}  // namespace
}  // namespace marvolin::test
