#include "browser/folders.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <ctime>

namespace marvolin {

namespace {

constexpr std::time_t kCoarsestTime = 2;  // s; some file systems count in steps of two seconds

}  // namespace

std::string FolderStamp(const std::string& folder) {
    struct stat now {};
    if (::stat(folder.c_str(), &now) != 0 || !S_ISDIR(now.st_mode)) return "";
    // A time in the future, as of a clock that was wrong, changes with the next entry all the same.
    if (std::abs(now.st_mtim.tv_sec - std::time(nullptr)) <= kCoarsestTime) return "";
    std::string stamp = folder;
    for (const auto part : {static_cast<long long>(now.st_dev), static_cast<long long>(now.st_ino),
                            static_cast<long long>(now.st_mtim.tv_sec), static_cast<long long>(now.st_mtim.tv_nsec),
                            static_cast<long long>(now.st_ctim.tv_sec), static_cast<long long>(now.st_ctim.tv_nsec)}) {
        stamp += ' ';
        stamp += std::to_string(part);
    }
    return stamp;
}

struct FolderReader::Open {
    DIR* Entries;
};

FolderReader::FolderReader(const std::string& folder) : open_(new Open{::opendir(folder.c_str())}) {}

FolderReader::~FolderReader() {
    if (open_->Entries != nullptr) ::closedir(open_->Entries);
}

const char* FolderReader::Next() {
    const dirent* entry = open_->Entries == nullptr ? nullptr : ::readdir(open_->Entries);
    return entry == nullptr ? nullptr : entry->d_name;
}

// By the open folder: the path to it is not walked again for each file.
std::int64_t FolderReader::BytesOf(const char* name) const {
    struct stat now {};
    const bool isFile = ::fstatat(::dirfd(open_->Entries), name, &now, 0) == 0 && S_ISREG(now.st_mode);
    return isFile ? now.st_size : -1;
}

}  // namespace marvolin
