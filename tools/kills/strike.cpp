#include "kills/strike.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <vector>

#include "kills/killed_child.h"
#include "kills/recording.h"

namespace marvolin::kills {

namespace {

constexpr std::int64_t kFramesOfATake = 40 * 44100;

/// What a child reports.
struct Reported {
    std::atomic<int> Begun = 0;
    std::atomic<int> Saved = 0;
    std::atomic<std::int64_t> Frames = 0;
};

long AnyMoment(long most, std::mt19937& random) { return std::uniform_int_distribution<long>(0, most)(random); }

void Judge(Counts& counts, bool hit, bool whole) {
    ++counts.Strikes;
    counts.Hit += hit ? 1 : 0;
    ++(whole ? counts.Whole : counts.Lost);
}

/// A file that leaves `left` bytes free on its disk, and is gone with this object.
class Ballast {
public:
    Ballast(const std::string& disk, std::uint64_t left) : path_(disk + "/ballast") {
        // The last state may take some of the room meanwhile.
        for (int trial = 0; trial < 100; ++trial) {
            if (Fill(disk, left)) return;
        }
        ::unlink(path_.c_str());
        throw std::runtime_error("no ballast");
    }
    ~Ballast() { ::unlink(path_.c_str()); }
    Ballast(const Ballast&) = delete;
    Ballast& operator=(const Ballast&) = delete;

private:
    bool Fill(const std::string& disk, std::uint64_t left) const {
        ::unlink(path_.c_str());
        struct statvfs status {};
        if (::statvfs(disk.c_str(), &status) != 0) return false;
        const std::uint64_t room = status.f_bavail * status.f_frsize;
        const int file = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (file < 0) return false;
        const int failure = room > left ? ::posix_fallocate(file, 0, static_cast<off_t>(room - left)) : 0;
        ::close(file);
        return failure == 0;
    }
    std::string path_;
};

bool WriteTo(const char* path, const std::string& text) {
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool written = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(file);
    return written;
}

/// Lets an ordinary user mount, in a namespace in which the user is root. Without the maps no file could be made there.
bool BecomeRootOfOnesOwn() {
    const std::string user = "0 " + std::to_string(::geteuid()) + " 1";
    const std::string group = "0 " + std::to_string(::getegid()) + " 1";
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && WriteTo("/proc/self/setgroups", "deny") &&
           WriteTo("/proc/self/uid_map", user) && WriteTo("/proc/self/gid_map", group);
}

/// Bytes of all files of a folder.
std::uint64_t SizeOf(const std::string& folder) {
    std::uint64_t size = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) size += entry.file_size();
    }
    return size;
}

}  // namespace

More UpTo(int count) {
    return [count](int done) { return done < count; };
}

Counts KillSaves(const Kind& kind, const std::string& folder, const More& more, std::mt19937& random) {
    const std::unique_ptr<Saver> saver = kind.Make(folder);
    Shared<Reported> reported;
    // The first one is saved by a child too: of the last state a thread writes, which no child inherits.
    const auto saveFrom = [&](int first, int count) {
        for (int number = first; number < first + count; ++number) {
            reported->Begun = number;
            if (!saver->Save(number)) return false;
            reported->Saved = number;
        }
        return true;
    };
    const long longest = 2 * TimeInChild([&] { return saveFrom(1, 2); });
    Counts counts;
    while (more(counts.Strikes)) {
        const int next = std::max(reported->Begun.load(), reported->Saved.load()) + 1;
        reported->Begun = reported->Saved.load();  // so that a kill before the child has begun to save hits nothing
        const Ending ending = RunUntilKilled([&] { return saveFrom(next, 1'000'000); }, AnyMoment(longest, random));
        const std::optional<int> newest = saver->Newest();
        const bool whole = newest && *newest >= reported->Saved && *newest <= reported->Begun;
        // A child that ends by itself could not save.
        Judge(counts, reported->Begun > reported->Saved, whole && ending == Ending::Killed);
        if (newest) reported->Saved = *newest;
    }
    return counts;
}

Counts KillRecordings(const std::string& folder, const More& more, std::mt19937& random) {
    const std::string path = folder + "/take.wav";
    Shared<Reported> reported;
    const auto record = [&] { return RecordNumbered(path, kFramesOfATake, reported->Frames).empty(); };
    const long longest = TimeInChild(record);
    Counts counts;
    while (more(counts.Strikes)) {
        std::filesystem::remove(path);
        reported->Frames = 0;
        const Ending ending = RunUntilKilled(record, AnyMoment(longest, random));
        const std::int64_t atLeast = reported->Frames;
        const std::optional<std::int64_t> frames = NumberedFramesIn(path);
        // Before anything has been recorded there may be no file, or one without a frame, which is no sample.
        const bool whole = frames ? *frames >= atLeast : atLeast == 0;
        Judge(counts, atLeast < kFramesOfATake, whole && ending != Ending::Failed);
    }
    return counts;
}

Counts FillForSaves(const Kind& kind, const std::string& disk, const More& more, std::mt19937& random) {
    const std::unique_ptr<Saver> saver = kind.Make(disk);
    Counts counts;
    int saved = 1;
    const std::uint64_t before = SizeOf(disk);
    if (!saver->Save(saved)) throw std::runtime_error("nothing can be saved");
    // From almost nothing to more than all of it, and more often little than much: a later save may need less.
    const double most = std::log(2.0 * static_cast<double>(std::max<std::uint64_t>(SizeOf(disk) - before, 4096)));
    for (int number = 2; more(counts.Strikes); ++number) {
        bool accepted = false;
        {
            const double room = std::exp(std::uniform_real_distribution<double>(0, most)(random));
            const Ballast ballast(disk, static_cast<std::uint64_t>(room));
            accepted = saver->Save(number);
        }
        const std::optional<int> newest = saver->Newest();
        // A refused save leaves the former state. The new one is there when the failure came after it had its name, and
        // the last state is tried again by itself, so that one that was refused may come when there is room.
        Judge(counts, !accepted, newest && *newest >= (accepted ? number : saved) && *newest <= number);
        if (newest) saved = *newest;
    }
    return counts;
}

Counts FillForRecordings(const std::string& disk, const More& more, std::mt19937& random) {
    const std::string path = disk + "/take.wav";
    Counts counts;
    while (more(counts.Strikes)) {
        std::filesystem::remove(path);
        std::atomic<std::int64_t> recorded = 0;
        std::string failure;
        {
            const Ballast ballast(disk, std::uniform_int_distribution<std::uint64_t>(0, 3'000'000)(random));
            failure = RecordNumbered(path, kFramesOfATake, recorded);
        }
        const std::optional<std::int64_t> frames = NumberedFramesIn(path);
        const bool whole = frames ? *frames == recorded : recorded == 0;
        Judge(counts, !failure.empty(), whole && failure == "Disk full");
    }
    return counts;
}

bool MountSmallDisk(const std::string& folder, int kilobytes) {
    if (::unshare(CLONE_NEWNS) != 0 && !BecomeRootOfOnesOwn()) return false;
    if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
    const std::string options = "size=" + std::to_string(kilobytes) + "k";
    return ::mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

}  // namespace marvolin::kills
