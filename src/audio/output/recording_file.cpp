#include "audio/output/recording_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "core/errors.h"
#include "core/files/file_errors.h"

namespace marvolin {

namespace {

constexpr int kRecordedRate = 44100;  // Hz

int NewDescriptor(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) RaiseFileError(errno);
    return descriptor;
}

/// The library does not always know what the system refused. A recording can reach the longest file of a disk that
/// has room left.
[[noreturn]] void RaiseWriteError(int systemError) {
    if (systemError == EFBIG) throw RuntimeError(61, "File too large");
    RaiseFileError(systemError == 0 ? EIO : systemError);
}

}  // namespace

RecordingFile::RecordingFile(const std::string& path) : descriptor_(NewDescriptor(path)) {
    try {
        Begin();
    } catch (...) {
        CloseAll();
        ::unlink(path.c_str());
        throw;
    }
}

RecordingFile::RecordingFile(int descriptor) : descriptor_(descriptor) {
    try {
        Begin();
    } catch (...) {
        CloseAll();
        throw;
    }
}

RecordingFile::~RecordingFile() { CloseAll(); }

void RecordingFile::Begin() {
    SF_INFO info{};
    info.samplerate = kRecordedRate;
    info.channels = 2;
    info.format = SF_FORMAT_RF64 | SF_FORMAT_PCM_16;
    errno = 0;
    file_.reset(sf_open_fd(descriptor_, SFM_WRITE, &info, SF_FALSE));
    if (!file_) RaiseWriteError(errno);
    // A plain WAV file as long as it is short enough for one. The library has already written the other header, which
    // is a little shorter: the first update has its length, the second the right one.
    sf_command(file_.get(), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
    UpdateHeader();
    UpdateHeader();
}

void RecordingFile::CloseAll() {
    file_.reset();
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

void RecordingFile::Write(std::span<const std::int16_t> frames) {
    const auto wanted = static_cast<sf_count_t>(frames.size() / 2);
    errno = 0;
    const sf_count_t written = sf_writef_short(file_.get(), frames.data(), wanted);
    frames_ += written;
    if (written < wanted) RaiseWriteError(errno == 0 ? ENOSPC : errno);
}

void RecordingFile::UpdateHeader() {
    errno = 0;
    sf_command(file_.get(), SFC_UPDATE_HEADER_NOW, nullptr, 0);
    if (sf_error(file_.get()) != SF_ERR_NO_ERROR) RaiseWriteError(errno);
}

void RecordingFile::Sync() {
    if (::fdatasync(descriptor_) != 0) RaiseFileError(errno);
}

void RecordingFile::Finish() {
    UpdateHeader();
    errno = 0;
    if (sf_close(file_.release()) != SF_ERR_NO_ERROR) RaiseWriteError(errno);
    Sync();
    if (::close(std::exchange(descriptor_, -1)) != 0) RaiseFileError(errno);
}

}  // namespace marvolin
