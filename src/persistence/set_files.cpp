#include "persistence/set_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/hidden_names.h"
#include "core/files/paths.h"
#include "persistence/session_format.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

std::string FolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

/// True for a set that was written to its end. What lies behind the end does not matter.
bool IsWholeSet(const std::string& path) {
    constexpr std::uint64_t kPart = 1 << 16;
    const std::string end = std::string("\x08\0\x03\0", 4) + std::string(kEndTag);  // with its type and length
    RecordReader file(path);
    try {
        if (file.GetString() != kHeaderText || file.GetInteger() != kHeaderNumber) return false;
        std::string part;
        while (file.Left() > 0) {
            part = part.substr(part.size() - std::min(part.size(), end.size() - 1));
            part += file.GetBytes(std::min(kPart, file.Left()));
            if (part.find(end) != std::string::npos) return true;
        }
        return false;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool SameContent(const std::string& a, const std::string& b) {
    constexpr std::uint64_t kPart = 1 << 16;
    try {
        RecordReader left(a);
        RecordReader right(b);
        if (left.Left() != right.Left()) return false;
        while (left.Left() > 0) {
            const std::uint64_t part = std::min(kPart, left.Left());
            if (left.GetBytes(part) != right.GetBytes(part)) return false;
        }
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

SetFiles::SetFiles(const std::string& fileName) : path_(BehindLinks(fileName)) {
    CheckTarget();
    set_ = std::make_unique<RecordWriter>(path_);
}

void SetFiles::CheckTarget() {
    struct stat state {};
    if (::stat(path_.c_str(), &state) != 0) {
        if (errno != ENOENT) RaiseFileError(errno);
        return;
    }
    if (!S_ISREG(state.st_mode)) throw RuntimeError(75, "Path/File access error");
    // A player who has protected a set wants to keep it, although its folder would let it be replaced.
    if (::eaccess(path_.c_str(), W_OK) != 0) RaiseFileError(errno);
    keepCopy_ = IsWholeSet(path_);
    if (!keepCopy_) return;
    if (::lstat(CopyName(path_).c_str(), &state) != 0) {
        if (errno != ENOENT) RaiseFileError(errno);
    } else if (S_ISDIR(state.st_mode)) {
        RaiseFileError(EISDIR);
    }
}

void SetFiles::AddSample(const std::string& sample) {
    std::string ownFolder;
    std::string name;
    SplitFilePath(sample, ownFolder, name);
    const std::string target = JoinPath(FolderOf(path_), name);
    std::erase_if(samples_, [&](const std::unique_ptr<NewFile>& earlier) { return earlier->Path() == target; });
    std::error_code error;
    if (fs::equivalent(sample, target, error) || SameContent(sample, target)) return;
    if (fs::is_directory(target, error)) RaiseFileError(EISDIR);
    auto copy = std::make_unique<NewFile>(target);
    copy->WriteCopyOf(sample);
    copy->Sync();
    samples_.push_back(std::move(copy));
}

void SetFiles::NameAll() {
    set_->Finish();
    for (const auto& sample : samples_) sample->TakeName();
    // The set comes last, and on the disk, too, its samples are there before it.
    if (!samples_.empty()) SyncFolder(FolderOf(samples_.front()->Path()));
    // The copy comes before it: the former set is never without a name of its own.
    if (keepCopy_) {
        copy_ = std::make_unique<NewFile>(CopyName(path_));
        copy_->BecomeNameOf(path_);
        copy_->TakeName();
    }
    set_->File().TakeName();
    SyncFolder(FolderOf(path_));
}

void SetFiles::PutInPlace() {
    try {
        NameAll();
    } catch (...) {
        set_->File().Undo();
        if (copy_) copy_->Undo();
        std::for_each(samples_.rbegin(), samples_.rend(), [](const auto& sample) { sample->Undo(); });
        throw;
    }
    set_.reset();
    copy_.reset();
    samples_.clear();
    RemoveLeftovers(FolderOf(path_), std::time(nullptr));
}

}  // namespace marvolin
