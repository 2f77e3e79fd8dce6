#include "audio/openal/wave_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <limits>
#include <optional>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::int32_t kLowestRate = 100;
constexpr std::int32_t kHighestRate = 1'000'000;
constexpr int kMostChunks = 4096;
constexpr std::uint16_t kPcm = 1;
constexpr std::uint16_t kExtensible = 0xFFFE;

/// A file descriptor that is closed unless it was released.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Get() const { return fd_; }
    void Release() { fd_ = -1; }

private:
    int fd_;
};

template <std::size_t kSize>
bool ReadAt(int fd, std::int64_t place, std::array<std::uint8_t, kSize>& bytes) {
    return pread(fd, bytes.data(), kSize, place) == static_cast<ssize_t>(kSize);
}

std::uint32_t Little(const std::uint8_t* bytes, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i) value = value << 8 | bytes[i];
    return value;
}

[[noreturn]] void Refuse(std::uint32_t number) { throw SoundError(number); }

/// The format chunk as a format, if it is an accepted one.
std::optional<WaveFormat> Accepted(const std::array<std::uint8_t, 16>& fmt) {
    const std::uint32_t tag = Little(&fmt[0], 2);
    const std::uint32_t channels = Little(&fmt[2], 2);
    const std::uint32_t rate = Little(&fmt[4], 4);
    const std::uint32_t align = Little(&fmt[12], 2);
    const std::uint32_t bits = Little(&fmt[14], 2);
    if (tag != kPcm && tag != kExtensible) return {};
    if (channels < 1 || channels > 2) return {};
    if (rate < kLowestRate || rate > kHighestRate) return {};
    if (bits != 8 && bits != 16 && bits != 24 && bits != 32) return {};
    if (align != channels * bits / 8) return {};
    WaveFormat format;
    format.Channels = static_cast<std::int16_t>(channels);
    format.SamplesPerSec = static_cast<std::int32_t>(rate);
    format.BitsPerSample = static_cast<std::int16_t>(bits);
    format.BlockAlign = static_cast<std::int16_t>(align);
    format.AvgBytesPerSec = static_cast<std::int32_t>(rate * align);
    return format;
}

/// Walks the chunks up to the samples. The library accepts a data chunk that is longer than the file and corrects a
/// wrong block size; the service accepts neither, so both are refused here.
WaveFormat CheckChunks(int fd, std::int64_t size) {
    std::array<std::uint8_t, 12> riff{};
    if (!ReadAt(fd, 0, riff) || std::memcmp(&riff[0], "RIFF", 4) != 0 || std::memcmp(&riff[8], "WAVE", 4) != 0)
        Refuse(sound_error::kBadFormat);
    std::optional<WaveFormat> format;
    std::int64_t place = 12;
    for (int n = 0; n < kMostChunks; ++n) {
        std::array<std::uint8_t, 8> head{};
        if (!ReadAt(fd, place, head)) break;
        const std::int64_t length = Little(&head[4], 4);
        place += 8;
        if (length > size - place) break;
        if (std::memcmp(&head[0], "fmt ", 4) == 0) {
            std::array<std::uint8_t, 16> fmt{};
            if (length < 16 || !ReadAt(fd, place, fmt) || !(format = Accepted(fmt))) break;
        } else if (std::memcmp(&head[0], "data", 4) == 0) {
            if (!format || length < format->BlockAlign) break;
            return *format;
        }
        place += length + (length & 1);
    }
    Refuse(sound_error::kBadFormat);
}

int Subtype(std::int16_t bits) {
    switch (bits) {
        case 8:
            return SF_FORMAT_PCM_U8;
        case 16:
            return SF_FORMAT_PCM_16;
        case 24:
            return SF_FORMAT_PCM_24;
        default:
            return SF_FORMAT_PCM_32;
    }
}

bool SameWave(const SF_INFO& info, const WaveFormat& format) {
    const int container = info.format & SF_FORMAT_TYPEMASK;
    return (container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX) &&
           (info.format & SF_FORMAT_SUBMASK) == Subtype(format.BitsPerSample) && info.channels == format.Channels &&
           info.samplerate == format.SamplesPerSec && info.frames > 0;
}

}  // namespace

WaveFile::WaveFile(const std::string& path) {
    if (path.find('\0') != std::string::npos) Refuse(sound_error::kGeneric);
    // Without O_NONBLOCK, opening a pipe would wait.
    Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (file.Get() < 0 || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) Refuse(sound_error::kGeneric);
    format_ = CheckChunks(file.Get(), status.st_size);
    SF_INFO info{};
    file_.reset(sf_open_fd(file.Get(), SFM_READ, &info, SF_TRUE));
    // The library closes the descriptor even when it refuses the file.
    file.Release();
    if (!file_ || !SameWave(info, format_)) Refuse(sound_error::kBadFormat);
    const std::int64_t most = std::numeric_limits<std::int32_t>::max();
    if (info.frames > status.st_size / format_.BlockAlign) Refuse(sound_error::kBadFormat);
    if (info.frames > most / format_.BlockAlign) throw SoundTooLong();
    std::int64_t frames = info.frames;
    if (const std::int32_t factor = RateReducer::FactorFor(format_.SamplesPerSec); factor > 1) {
        reducer_ = std::make_unique<RateReducer>(format_, frames, factor);
        format_ = reducer_->Format();
        frames = reducer_->Frames();
    }
    bytes_ = static_cast<std::int32_t>(frames * format_.BlockAlign);
}

void WaveFile::Read(std::span<std::uint8_t> frames) {
    if (reducer_) {
        const auto numbers = [this](double* to, std::int64_t count) { return sf_readf_double(file_.get(), to, count); };
        return reducer_->Read(numbers, frames);
    }
    const auto wanted = static_cast<sf_count_t>(frames.size());
    if (sf_read_raw(file_.get(), frames.data(), wanted) != wanted) Refuse(sound_error::kGeneric);
}

}  // namespace marvolin
