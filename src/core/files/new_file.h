#pragma once
/// \file
/// A file that gets its name when it is whole, or never.

#include <string>
#include <string_view>

namespace marvolin {

/// A file that is written in the folder of `path` and gets that name at the end, in one step. Until then the file that
/// has the name stays as it is. Where the file system can, it is written without any name, so that nothing is left of
/// it when the program is killed; elsewhere it has a hidden name (".marvolin-" and numbers), which the destructor
/// removes.
///
/// "/" alone separates folders here, so a name may hold "\". Failures are the errors of `RaiseFileError`.
class NewFile {
public:
    /// Begins an empty file. It takes over the permissions of the file that has the name.
    explicit NewFile(const std::string& path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    const std::string& Path() const { return path_; }
    void Write(std::string_view bytes);
    /// Appends the content of another file. Only plain files are read: "Path/File access error" (75) for any other.
    void WriteCopyOf(const std::string& source);
    /// Waits until all of it is on the disk.
    void Sync();

    /// Gives the file its name. The file that had it is kept under a hidden name until one of the three below is
    /// called.
    void TakeName();
    /// Gives the replaced file another name, in place of the file that has that one.
    void NameReplaced(const std::string& path);
    /// Gives the name back to the replaced file, or to no file when there was none. Errors are ignored.
    void Undo() noexcept;
    /// Removes the replaced file. The destructor does so, too.
    void DropReplaced() noexcept;

private:
    void Open();
    std::string Folder() const;
    void TakeHiddenName();
    void KeepReplaced();

    std::string path_;
    std::string hidden_;    ///< name of the new file until it has its own; "" for none
    std::string replaced_;  ///< name of the replaced file; "" for none
    bool placed_ = false;
    int file_ = -1;
};

/// Removes from a folder what killed programs have left there: files with hidden names of `NewFile` whose process no
/// longer runs. Errors are ignored.
void RemoveLeftovers(const std::string& folder);

/// Waits until the names in a folder are on the disk. A folder that cannot be read or does not support it is ignored.
void SyncFolder(const std::string& folder);

}  // namespace marvolin
