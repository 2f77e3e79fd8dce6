#include "core/files/file_errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>

#include "core/errors.h"

namespace marvolin {

namespace {

struct FileErrorText {
    int SystemError;
    std::uint32_t Number;
    const char* Description;
};

constexpr std::array<FileErrorText, 15> kFileErrors{{{ENOENT, 53, "File not found"},
                                                     {ENOTDIR, 76, "Path not found"},
                                                     {EACCES, 70, "Permission denied"},
                                                     {EPERM, 70, "Permission denied"},
                                                     {EROFS, 70, "Permission denied"},
                                                     {ETXTBSY, 70, "Permission denied"},
                                                     {ENOSPC, 61, "Disk full"},
                                                     {EDQUOT, 61, "Disk full"},
                                                     {EFBIG, 61, "Disk full"},
                                                     {EISDIR, 75, "Path/File access error"},
                                                     {ENAMETOOLONG, 52, "Bad file name or number"},
                                                     {EMFILE, 67, "Too many files"},
                                                     {ENFILE, 67, "Too many files"},
                                                     {EEXIST, 58, "File already exists"},
                                                     {EIO, 57, "Device I/O error"}}};

}  // namespace

void RaiseFileError(int systemError) {
    const auto* found = std::find_if(kFileErrors.begin(), kFileErrors.end(),
                                     [&](const FileErrorText& row) { return row.SystemError == systemError; });
    if (found == kFileErrors.end()) throw RuntimeError(75, "Path/File access error");
    throw RuntimeError(found->Number, found->Description);
}

}  // namespace marvolin
