#include "core/files/new_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>
#include <vector>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/hidden_names.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kPermissions = 0777;
constexpr std::size_t kCopyBytes = 1 << 18;
constexpr int kMostLinks = 40;  // as the system

/// The path by which an open file without a name can be given one.
std::string PathOfOpen(int file) { return "/proc/self/fd/" + std::to_string(file); }

bool Exists(const std::string& path) {
    struct stat state {};
    return ::lstat(path.c_str(), &state) == 0;
}

int OpenPlainFile(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) RaiseFileError(errno);
    struct stat state {};
    if (::fstat(file, &state) == 0 && S_ISREG(state.st_mode)) return file;
    ::close(file);
    throw RuntimeError(75, "Path/File access error");
}

// Some file systems have no such request; there is nothing to wait for then.
void WaitForDisk(int file) {
    if (::fsync(file) != 0 && errno != EINVAL) RaiseFileError(errno);
}

}  // namespace

NewFile::NewFile(const std::string& path) : path_(path) {
    Open();
    struct stat former {};
    // Not supported everywhere, and not worth a failed save.
    if (::stat(path.c_str(), &former) == 0) (void)::fchmod(file_, former.st_mode & kPermissions);
}

NewFile::~NewFile() {
    if (file_ >= 0) ::close(file_);
    if (!hidden_.empty()) ::unlink(hidden_.c_str());
    DropReplaced();
}

std::string NewFile::Folder() const {
    const std::string folder = fs::path(path_).parent_path().string();
    return folder.empty() ? "." : folder;
}

void NewFile::Open() {
    const std::string folder = Folder();
    file_ = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFileMode);
    if (file_ >= 0 && ::access(PathOfOpen(file_).c_str(), F_OK) == 0) return;
    if (file_ >= 0) ::close(file_);
    OpenHidden();
}

void NewFile::OpenHidden() {
    hidden_ = UnderHiddenName(Folder(), [&](const std::string& name) {
        file_ = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
        return file_ >= 0;
    });
}

void NewFile::Write(std::string_view bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::write(file_, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) RaiseFileError(errno);
        done += static_cast<std::size_t>(written);
    }
}

void NewFile::WriteCopyOf(const std::string& source) {
    const int from = OpenPlainFile(source);
    try {
        Append(from);
    } catch (...) {
        ::close(from);
        throw;
    }
    ::close(from);
}

void NewFile::Append(int file) {
    std::vector<char> part(kCopyBytes);
    for (;;) {
        const ssize_t got = ::read(file, part.data(), part.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) RaiseFileError(errno);
        if (got == 0) return;
        Write({part.data(), static_cast<std::size_t>(got)});
    }
}

void NewFile::BecomeNameOf(const std::string& source) {
    const auto link = [&](const std::string& name) { return ::link(source.c_str(), name.c_str()) == 0; };
    std::string second;
    try {
        second = UnderHiddenName(Folder(), link);
    } catch (const RuntimeError&) {
        struct stat state {};
        if (::stat(source.c_str(), &state) == 0) (void)::fchmod(file_, state.st_mode & kPermissions);
        WriteCopyOf(source);
        Sync();
        return;
    }
    if (!hidden_.empty()) ::unlink(hidden_.c_str());
    hidden_ = second;
}

void NewFile::Sync() { WaitForDisk(file_); }

void NewFile::KeepReplaced() {
    if (!Exists(path_)) return;
    const auto link = [&](const std::string& name) { return ::link(path_.c_str(), name.c_str()) == 0; };
    try {
        replaced_ = UnderHiddenName(Folder(), link);
    } catch (const RuntimeError&) {
        // A file system without second names: a copy then.
        NewFile copy(path_);
        copy.WriteCopyOf(path_);
        copy.Sync();
        copy.TakeHiddenName();
        replaced_ = std::exchange(copy.hidden_, "");
    }
}

void NewFile::TakeHiddenName() {
    if (!hidden_.empty()) return;
    const std::string open = PathOfOpen(file_);
    const auto link = [&](const std::string& name) {
        return ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    try {
        hidden_ = UnderHiddenName(Folder(), link);
    } catch (const RuntimeError&) {
        // Some file systems have nameless files and cannot name them.
        CopyToHiddenName();
    }
}

void NewFile::CopyToHiddenName() {
    const int nameless = file_;
    try {
        OpenHidden();
        struct stat state {};
        if (::fstat(nameless, &state) == 0) (void)::fchmod(file_, state.st_mode & kPermissions);
        if (::lseek(nameless, 0, SEEK_SET) < 0) RaiseFileError(errno);
        Append(nameless);
        Sync();
    } catch (...) {
        if (file_ != nameless) ::close(nameless);
        throw;
    }
    ::close(nameless);
}

void NewFile::TakeName() {
    TakeHiddenName();
    KeepReplaced();
    if (::rename(hidden_.c_str(), path_.c_str()) != 0) RaiseFileError(errno);
    // Still there when both names were names of one file.
    ::unlink(hidden_.c_str());
    hidden_.clear();
    placed_ = true;
}

void NewFile::Undo() noexcept {
    if (!placed_) return;
    placed_ = false;
    if (replaced_.empty()) {
        ::unlink(path_.c_str());
        return;
    }
    if (::rename(replaced_.c_str(), path_.c_str()) == 0) {
        // Still there when both names are names of one file.
        ::unlink(replaced_.c_str());
    }
    // Otherwise it is left: what the player had is under this name alone.
    replaced_.clear();
}

void NewFile::DropReplaced() noexcept {
    if (!replaced_.empty()) ::unlink(replaced_.c_str());
    replaced_.clear();
}

std::string BehindLinks(const std::string& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path whole = fs::canonical(path, error);
    if (!error) return whole.string();
    fs::path real = path;
    for (int links = 0; links < kMostLinks; ++links) {
        const fs::path target = fs::read_symlink(real, error);
        if (error) return real.string();
        real = real.parent_path() / target;
    }
    return path;
}

void SyncFolder(const std::string& folder) {
    const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return;
    try {
        WaitForDisk(file);
    } catch (...) {
        ::close(file);
        throw;
    }
    ::close(file);
}

}  // namespace marvolin
