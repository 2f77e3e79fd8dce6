#include "persistence/set_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/paths.h"
#include "persistence/session_format.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

/// The file behind a link, so that the link stays one.
std::string WithoutLinks(const std::string& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path real = fs::canonical(path, error);
    return error ? path : real.string();
}

std::string FolderOf(const std::string& path) {
    const std::string folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

/// True for a set that was written to its end.
bool IsWholeSet(const std::string& path) {
    constexpr std::uint64_t kEndBytes = 7;  // the tag with its type and length
    RecordReader file(path);
    try {
        if (file.GetString() != kHeaderText || file.Left() < kEndBytes) return false;
        file.Skip(file.Left() - kEndBytes);
        return file.GetTagged() == TaggedValue(std::string(kEndTag));
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

SetFiles::SetFiles(const std::string& fileName) : path_(WithoutLinks(fileName)) {
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

void SetFiles::AddSample(const std::string& sample, const std::string& folder) {
    std::string ownFolder;
    std::string name;
    SplitPath(sample, ownFolder, name);
    const std::string target = JoinPath(folder, name);
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
    set_->File().TakeName();
    if (keepCopy_) set_->File().NameReplaced(CopyName(path_));
}

void SetFiles::PutInPlace() {
    try {
        NameAll();
    } catch (...) {
        set_->File().Undo();
        std::for_each(samples_.rbegin(), samples_.rend(), [](const auto& sample) { sample->Undo(); });
        throw;
    }
    set_.reset();
    samples_.clear();
    RemoveLeftovers(FolderOf(path_));
    SyncFolder(FolderOf(path_));
}

}  // namespace marvolin
