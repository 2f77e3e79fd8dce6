#pragma once
/// \file
/// An input of a fuzz target as a file.

#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace marvolin::fuzz {

/// A folder of this process, removed at its end.
struct OwnFolder {
    std::filesystem::path Path;
    OwnFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "marvolin-fuzz-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) std::abort();
        Path = name;
    }
    ~OwnFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(Path, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;
};

/// The one of this run.
inline const std::filesystem::path& FolderOfTheRun() {
    static const OwnFolder folder;
    return folder.Path;
}

/// A plain file in memory with the input, under a given name.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size, const std::string& name) : file_(::memfd_create("fuzz", 0)) {
        if (file_ < 0 || ::write(file_, data, size) != static_cast<ssize_t>(size)) std::abort();
        link_ = FolderOfTheRun() / name;
        std::filesystem::create_symlink("/proc/self/fd/" + std::to_string(file_), link_);
    }
    ~MemoryFile() {
        std::error_code ignored;
        std::filesystem::remove(link_, ignored);
        ::close(file_);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    std::string Path() const { return link_.string(); }

private:
    int file_;
    std::filesystem::path link_;
};

}  // namespace marvolin::fuzz
