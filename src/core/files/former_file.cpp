#include "core/files/former_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <optional>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/hidden_names.h"

namespace marvolin {

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

FormerFile::FormerFile(const std::string& path) : path_(path) {
    struct stat state {};
    if (::stat(path_.c_str(), &state) != 0) {
        if (errno != ENOENT) RaiseFileError(errno);
        return;
    }
    if (!S_ISREG(state.st_mode)) throw RuntimeError(75, "Path/File access error");
    // A player who has protected a file wants to keep it, although its folder would let it be replaced.
    if (::eaccess(path_.c_str(), W_OK) != 0) RaiseFileError(errno);
    exists_ = true;
}

void FormerFile::Keep() {
    struct stat state {};
    if (::lstat(CopyName(path_).c_str(), &state) != 0) {
        if (errno != ENOENT) RaiseFileError(errno);
    } else if (S_ISDIR(state.st_mode)) {
        RaiseFileError(EISDIR);
    }
    keep_ = true;
}

void FormerFile::ReplaceBy(NewFile& file) {
    std::optional<NewFile> copy;
    try {
        // The copy comes first: the former file is never without a name of its own.
        if (keep_) {
            copy.emplace(CopyName(path_));
            copy->BecomeNameOf(path_);
            copy->TakeName();
        }
        file.TakeName();
        SyncFolder(FolderOf(path_));
    } catch (...) {
        file.Undo();
        if (copy) copy->Undo();
        throw;
    }
    file.DropReplaced();
    if (copy) copy->DropReplaced();
    RemoveLeftovers(FolderOf(path_), std::time(nullptr));
}

}  // namespace marvolin
