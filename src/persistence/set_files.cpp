#include "persistence/set_files.h"

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

SetFiles::SetFiles(const std::string& fileName) : path_(BehindLinks(fileName)), former_(path_) {
    if (former_.Exists() && IsWholeSet(path_)) former_.Keep();
    set_ = std::make_unique<RecordWriter>(path_);
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

void SetFiles::PutInPlace() {
    try {
        set_->Finish();
        for (const auto& sample : samples_) sample->TakeName();
        // The set comes last, and on the disk, too, its samples are there before it.
        if (!samples_.empty()) SyncFolder(FolderOf(samples_.front()->Path()));
        former_.ReplaceBy(set_->File());
    } catch (...) {
        std::for_each(samples_.rbegin(), samples_.rend(), [](const auto& sample) { sample->Undo(); });
        throw;
    }
    set_.reset();
    samples_.clear();
}

}  // namespace marvolin
