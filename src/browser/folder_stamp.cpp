#include "browser/folder_stamp.h"

#include <sys/stat.h>

#include <ctime>

namespace marvolin {

namespace {

constexpr std::time_t kCoarsestTime = 2;  // s; some file systems count in steps of two seconds

}  // namespace

std::string FolderStamp(const std::string& folder) {
    struct stat now {};
    if (::stat(folder.c_str(), &now) != 0 || !S_ISDIR(now.st_mode)) return "";
    if (now.st_mtim.tv_sec + kCoarsestTime >= std::time(nullptr)) return "";
    std::string stamp = folder;
    for (const auto part : {static_cast<long long>(now.st_dev), static_cast<long long>(now.st_ino),
                            static_cast<long long>(now.st_mtim.tv_sec), static_cast<long long>(now.st_mtim.tv_nsec),
                            static_cast<long long>(now.st_ctim.tv_sec), static_cast<long long>(now.st_ctim.tv_nsec)}) {
        stamp += ' ';
        stamp += std::to_string(part);
    }
    return stamp;
}

}  // namespace marvolin
