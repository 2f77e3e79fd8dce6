#pragma once
/// \file
/// A file that gets its name when it is whole, or never.

#include <string>
#include <string_view>

namespace marvolin {

/// A file that is written in the folder of `path` and gets that name at the end, in one step. Until then the file that
/// has the name stays as it is. Where the file system can, it is written without any name, so that nothing is left of
/// it when the program is killed; elsewhere it has a hidden name, which the destructor
/// removes. The hidden name is ".marvolin-", the start of the system, the process and a number.
///
/// "/" alone separates folders here, so a name may hold "\". Failures are the errors of `RaiseFileError`.
class NewFile {
public:
    /// Begins an empty file. It takes over the permissions of the file that has the name.
    explicit NewFile(const std::string& path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// The name that the file gets.
    const std::string& Path() const { return path_; }
    void Write(std::string_view bytes);
    /// Appends the content of another file. Only plain files are read: "Path/File access error" (75) for any other.
    void WriteCopyOf(const std::string& source);
    /// Makes this file, still empty, another name of the plain file `source` in the same folder. On a file system
    /// without second names it becomes a copy of it with its permissions, on the disk.
    void BecomeNameOf(const std::string& source);
    /// Waits until all of it is on the disk.
    void Sync();

    /// Gives the file its name. The file that had it is kept under a hidden name until one of the two below is called.
    void TakeName();
    /// Restores the replaced file; removes the new one when there was none. When the file system refuses that, the
    /// replaced file stays under its hidden name.
    void Undo() noexcept;
    /// Removes the replaced file. The destructor does so, too.
    void DropReplaced() noexcept;

private:
    void Open();
    void OpenHidden();
    void Append(int file);
    std::string Folder() const;
    void TakeHiddenName();
    void CopyToHiddenName();
    void KeepReplaced();

    std::string path_;
    std::string hidden_;    ///< name of the new file until it has its own; "" for none
    std::string replaced_;  ///< name of the replaced file; "" for none
    bool placed_ = false;
    int file_ = -1;
};

/// The file behind a symbolic link, also one that does not exist yet; any other path as it is. Links that lead in a
/// circle: the path as it is.
std::string BehindLinks(const std::string& path);

/// Waits until the names in a folder are on the disk. A folder that cannot be read or does not support it is ignored.
void SyncFolder(const std::string& folder);

}  // namespace marvolin
