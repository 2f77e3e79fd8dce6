#include "core/files/own_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <exception>
#include <filesystem>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "core/errors.h"
#include "core/files/file_errors.h"
#include "core/files/file_list.h"
#include "core/files/former_file.h"
#include "core/files/hidden_names.h"
#include "core/files/new_file.h"
#include "core/files/paths.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

constexpr const char* kUnfinished = "unfinished";  // no id of a list
constexpr mode_t kPrivate = 0700;
constexpr std::size_t kAtATime = 64;  // files that are open together

bool CanWrite(const std::string& folder) { return ::eaccess(folder.c_str(), W_OK | X_OK) == 0; }

/// Keeps other starts from filling the folder until it goes. A file system without locks has none.
class FolderLock {
public:
    explicit FolderLock(const std::string& folder) : file_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (file_ < 0) return;
        while (::flock(file_, LOCK_EX) != 0 && errno == EINTR) continue;
    }
    ~FolderLock() {
        if (file_ >= 0) ::close(file_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

private:
    int file_;
};

/// Makes a folder and those above it, for the player alone.
void MakeFolder(const fs::path& folder) {
    if (fs::is_directory(folder)) return;
    if (folder.has_parent_path() && folder.parent_path() != folder) MakeFolder(folder.parent_path());
    if (::mkdir(folder.c_str(), kPrivate) != 0 && errno != EEXIST) RaiseFileError(errno);
}

/// What the player's folder has under the name of a listed file.
enum class Found : std::uint8_t { Nothing, AsListed, AsLaid, Players };

Found LookAt(const std::string& path, const ListedFile& listed, const ListedFile* laid) {
    struct stat state {};
    if (::lstat(path.c_str(), &state) != 0) return errno == ENOENT ? Found::Nothing : Found::Players;
    if (!S_ISREG(state.st_mode)) return Found::Players;
    try {
        const std::string mark = FileMark(path);
        if (mark == listed.Mark) return Found::AsListed;
        // A file that the player has protected is to stay.
        const bool untouched = laid != nullptr && mark == laid->Mark && ::eaccess(path.c_str(), W_OK) == 0;
        return untouched ? Found::AsLaid : Found::Players;
    } catch (const RuntimeError&) {
        return Found::Players;
    }
}

/// Fills the player's folder from the installed one.
class Filling {
public:
    Filling(std::string installed, std::string own)
        : installed_(std::move(installed)), own_(std::move(own)), former_(ReadListOf(own_)) {}

    /// Lays what is missing, and notes it. Returns the description of the first error, "" for none.
    std::string Run(const FileList& list) {
        Choose(list);
        for (std::size_t first = 0; first < wanted_.size(); first += kAtATime) {
            Lay(first, std::min(first + kAtATime, wanted_.size()));
        }
        RemoveWhatKilledStartsLeft(list);
        now_.Id = error_.empty() ? list.Id : kUnfinished;
        Try([&] { Note(); });
        return error_;
    }

private:
    template <class Act>
    void Try(const Act& act) {
        try {
            act();
        } catch (const std::exception& e) {
            if (error_.empty()) error_ = e.what();
        }
    }

    std::string InOwn(const ListedFile& file) const { return JoinPath(own_, file.Name); }
    std::string InInstalled(const ListedFile& file) const { return JoinPath(installed_, file.Name); }

    /// Decides what is to be laid, and what is noted of everything else.
    void Choose(const FileList& list) {
        for (const ListedFile& file : list.Files) {
            const ListedFile* laid = former_.Find(file.Name);
            const Found found = LookAt(InOwn(file), file, laid);
            const bool missing = found == Found::Nothing && laid == nullptr;
            // Whoever installed the program may have left out what it comes with.
            if ((missing || found == Found::AsLaid) && TargetExists(InInstalled(file))) {
                wanted_.push_back(file);
            } else if (found == Found::AsListed) {
                now_.Files.push_back(file);
            } else if (laid != nullptr) {
                now_.Files.push_back(*laid);
            }
        }
        for (const ListedFile& laid : former_.Files) {
            if (list.Find(laid.Name) == nullptr) now_.Files.push_back(laid);
        }
    }

    /// Writes some of the files. Each gets its name when it is on the disk; the disk has them all to write by then.
    void Lay(std::size_t first, std::size_t last) {
        std::vector<std::pair<ListedFile, std::unique_ptr<NewFile>>> files;
        for (std::size_t place = first; place < last; ++place) {
            const ListedFile& file = wanted_[place];
            Try([&] {
                MakeFolder(fs::path(InOwn(file)).parent_path());
                auto copy = std::make_unique<NewFile>(InOwn(file));
                copy->WriteCopyOf(InInstalled(file));
                files.emplace_back(file, std::move(copy));
            });
        }
        std::set<std::string> laid;
        for (const auto& entry : files) {
            Try([&] {
                entry.second->Sync();
                entry.second->TakeName();
                laid.insert(entry.first.Name);
                now_.Files.push_back(entry.first);
            });
        }
        // Of a file that could not be renewed the player still has the former one.
        for (std::size_t place = first; place < last; ++place) {
            const ListedFile* former = former_.Find(wanted_[place].Name);
            if (former != nullptr && !laid.contains(wanted_[place].Name)) now_.Files.push_back(*former);
        }
    }

    void RemoveWhatKilledStartsLeft(const FileList& list) const {
        std::set<std::string> folders{own_};
        for (const ListedFile& file : list.Files) folders.insert(FolderOf(InOwn(file)));
        for (const std::string& folder : folders) RemoveLeftovers(folder, std::time(nullptr));
    }

    void Note() const {
        NewFile file(JoinPath(own_, std::string(kListFile)));
        file.Write(ListText(now_));
        file.Sync();
        file.TakeName();
        SyncFolder(own_);
    }

    const std::string installed_;
    const std::string own_;
    const FileList former_;           // what was laid before
    FileList now_;                    // what has been laid by now
    std::vector<ListedFile> wanted_;  // what is to be laid
    std::string error_;
};

/// Fills the player's folder unless that has been done. Returns the description of an error, "" for none.
std::string Fill(const std::string& installed, const std::string& own) {
    const std::string known = ListIdOf(installed);
    if (!known.empty() && known == ListIdOf(own)) return "";
    // A folder that cannot be written and was never installed has no list.
    const FileList list = known.empty() ? ListFolder(installed) : ReadListOf(installed);
    const FolderLock lock(own);
    // Another start may have filled it in the meantime.
    return list.Id == ListIdOf(own) ? "" : Filling(installed, own).Run(list);
}

std::string NothingIsKept(const std::string& why) {
    return "Marvolin is installed where it keeps nothing, and " + why +
           "\nIt plays as ever, but the demo cannot be disabled, and what is saved must be given another folder.";
}

}  // namespace

std::string PlayersFolder(const char* dataHome, const char* home) {
    // A path that is not whole is to be ignored.
    if (dataHome != nullptr && *dataHome == '/') return JoinPath(dataHome, "marvolin");
    if (home != nullptr && *home == '/') return JoinPath(home, ".local/share/marvolin");
    return "";
}

bool IsSelfContained(const std::string& installed) {
    if (!CanWrite(installed)) return false;
    return ::geteuid() != 0 || !FileExists(JoinPath(installed, std::string(kListFile)));
}

ProgramFolders PrepareFolders(const std::string& installed, const std::string& players) {
    ProgramFolders folders{installed, installed, ""};
    if (IsSelfContained(installed)) return folders;
    if (players.empty()) {
        folders.Trouble = NothingIsKept("there is no folder of your own: HOME is not set.");
        return folders;
    }
    try {
        MakeFolder(players);
        if (!CanWrite(players)) RaiseFileError(errno);
        folders.Own = players;
        const std::string error = Fill(installed, players);
        if (error.empty()) return folders;
        folders.Trouble = "Not everything that comes with Marvolin could be put into your own folder, " + players +
                          ": " + error + ".\nThe next start tries again.";
    } catch (const std::exception& e) {
        // What the player has kept there before can still be read.
        if (!ListIdOf(players).empty()) folders.Own = players;
        folders.Trouble = NothingIsKept("your own folder, " + players + ", cannot be written: " + e.what() + ".");
    }
    return folders;
}

}  // namespace marvolin
