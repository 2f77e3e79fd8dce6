#include "audio/output/recording_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "core/files/file_errors.h"

namespace marvolin {

namespace {

constexpr int kRecordedRate = 44100;  // Hz

int NewDescriptor(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) RaiseFileError(errno);
    return descriptor;
}

}  // namespace

RecordingFile::RecordingFile(const std::string& path) : descriptor_(NewDescriptor(path)) {
    SF_INFO info{};
    info.samplerate = kRecordedRate;
    info.channels = 2;
    info.format = SF_FORMAT_RF64 | SF_FORMAT_PCM_16;
    errno = 0;
    file_.reset(sf_open_fd(descriptor_, SFM_WRITE, &info, SF_FALSE));
    if (!file_) {
        const int error = errno == 0 ? EIO : errno;
        ::close(descriptor_);
        RaiseFileError(error);
    }
    // A plain WAV file as long as it is short enough for one.
    sf_command(file_.get(), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
}

RecordingFile::~RecordingFile() {
    file_.reset();
    ::close(descriptor_);
}

void RecordingFile::Write(std::span<const std::int16_t> frames) {
    const auto wanted = static_cast<sf_count_t>(frames.size() / 2);
    errno = 0;
    const sf_count_t written = sf_writef_short(file_.get(), frames.data(), wanted);
    frames_ += written;
    if (written < wanted) RaiseFileError(errno == 0 ? ENOSPC : errno);
}

void RecordingFile::Settle() {
    sf_command(file_.get(), SFC_UPDATE_HEADER_NOW, nullptr, 0);
    ::fdatasync(descriptor_);
}

}  // namespace marvolin
