// A sound card that records: reads 16-bit stereo frames from a pipe at the pace of 44100 a second, no faster, and
// appends them to a WAV file that may be read while it grows. Ends on SIGTERM or SIGINT.

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int64_t kRate = 44100;
constexpr std::int64_t kFrameBytes = 4;
constexpr std::int64_t kBacklog = kRate / 5;  // frames that a late program may catch up at once
constexpr int kPipeBytes = 4096;              // the smallest pipe: 23 ms

volatile sig_atomic_t stopped = 0;
void Stop(int) { stopped = 1; }

void Put(std::string& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>((number >> (8 * i)) & 0xFF);
}

std::string Header(std::uint32_t size) {
    std::string bytes = "RIFF";
    Put(bytes, size + 36, 4);
    bytes += "WAVEfmt ";
    Put(bytes, 16, 4);
    Put(bytes, 1, 2);
    Put(bytes, 2, 2);
    Put(bytes, kRate, 4);
    Put(bytes, kRate * kFrameBytes, 4);
    Put(bytes, kFrameBytes, 2);
    Put(bytes, 16, 2);
    bytes += "data";
    Put(bytes, size, 4);
    return bytes;
}

bool WriteAll(int file, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = write(file, bytes, count);
        if (written < 0 && errno != EINTR) return false;
        if (written < 0) continue;
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

int Fail(const char* what, const char* name) {
    std::fprintf(stderr, "record_sound: %s %s: %s\n", what, name, std::strerror(errno));
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: record_sound PIPE FILE.wav\n");
        return 2;
    }
    struct sigaction action {};
    action.sa_handler = Stop;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);

    if (mkfifo(argv[1], 0600) != 0 && errno != EEXIST) return Fail("cannot make", argv[1]);
    // Opened for reading and writing, so that the pipe survives when the program closes and reopens its end.
    const int in = open(argv[1], O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (in < 0) return Fail("cannot open", argv[1]);
    fcntl(in, F_SETPIPE_SZ, kPipeBytes);
    const int out = open(argv[2], O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (out < 0) return Fail("cannot open", argv[2]);
    const std::string header = Header(0);
    if (!WriteAll(out, header.data(), header.size())) return Fail("cannot write", argv[2]);

    std::array<char, kPipeBytes> bytes{};
    std::int64_t taken = 0;    // bytes
    std::int64_t skipped = 0;  // frames that were not delivered in time
    const Clock::time_point start = Clock::now();
    while (stopped == 0) {
        const std::int64_t micros = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
        const std::int64_t due = micros * kRate / 1000000 - skipped - taken / kFrameBytes;
        if (due < kRate / 500) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            continue;
        }
        const std::int64_t want = std::min<std::int64_t>(due * kFrameBytes, kPipeBytes);
        const ssize_t got = read(in, bytes.data(), static_cast<std::size_t>(want));
        if (got > 0) {
            if (!WriteAll(out, bytes.data(), static_cast<std::size_t>(got))) return Fail("cannot write", argv[2]);
            taken += got;
            continue;
        }
        if (got < 0 && errno != EAGAIN && errno != EINTR) return Fail("cannot read", argv[1]);
        if (due > kBacklog) skipped += due - kBacklog;
        pollfd wait{in, POLLIN, 0};
        poll(&wait, 1, 20);
    }
    const std::string patched = Header(static_cast<std::uint32_t>(taken));
    if (lseek(out, 0, SEEK_SET) != 0 || !WriteAll(out, patched.data(), patched.size()))
        return Fail("cannot write", argv[2]);
    close(out);
    return 0;
}
