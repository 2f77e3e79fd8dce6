// A save that is killed at any moment leaves a whole set: the old or the new one.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "fakes/file_bytes.h"
#include "fakes/limits.h"
#include "kills/killed_child.h"
#include "persistence/session_file_store.h"
#include "persistence/set_instrument.h"
#include "persistence/snapshot.h"
#include "scripting/script_file.h"

namespace marvolin {
namespace {

using namespace test;
using kills::Ending;

constexpr std::int16_t kOld = 700;
constexpr std::int16_t kNew = 800;

/// What the file system can do.
enum class Abilities : std::uint8_t { All, NoNamelessFiles, NoNamesForNamelessFiles, NoLinksEither };

/// Refuses the calls that the process's file system is meant not to support.
void Restrict(Abilities abilities) {
    const RefusedCall nameless{__NR_openat, EOPNOTSUPP, 2, O_TMPFILE & ~O_DIRECTORY};
    std::vector<RefusedCall> refused;
    if (abilities == Abilities::NoNamelessFiles || abilities == Abilities::NoLinksEither) refused.push_back(nameless);
    if (abilities == Abilities::NoNamesForNamelessFiles) refused.push_back({__NR_linkat, ENOENT, 4, AT_SYMLINK_FOLLOW});
    if (abilities == Abilities::NoLinksEither) {
        for (const RefusedCall& link : Links(EPERM)) refused.push_back(link);
    }
    if (!refused.empty()) RefuseCalls(refused);
}

/// Runs `act` in a child process. `entering` sees the number of each system call that it enters, and kills it by true.
Ending Trace(const std::function<bool()>& act, const std::function<bool(std::uint64_t)>& entering) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(3);
        ::raise(SIGSTOP);
        ::_exit(act() ? 0 : 1);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return Ending::Failed;
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    for (;;) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        if (::waitpid(child, &status, 0) != child) return Ending::Failed;
        if (WIFEXITED(status)) return WEXITSTATUS(status) == 0 ? Ending::Finished : Ending::Failed;
        if (!WIFSTOPPED(status) || WSTOPSIG(status) != (SIGTRAP | 0x80)) return Ending::Failed;
        __ptrace_syscall_info call{};
        if (::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof(call), &call) <= 0) return Ending::Failed;
        if (call.op != PTRACE_SYSCALL_INFO_ENTRY || !entering(call.entry.nr)) continue;
        ::kill(child, SIGKILL);
        ::waitpid(child, &status, 0);
        return Ending::Killed;
    }
}

/// A folder that is quick, if the machine has one: what counts here are the calls, not the disk.
std::string QuickFolder() {
    return ::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path().string();
}

/// A folder with sets, and an instrument that saves them.
struct Sets {
    std::string Folder;
    SetInstrument Player;
    SetInstrument Reader;
    SessionFileStore Files;
    Session Filed{Player.For(Player.Screen, Files)};  ///< empty, with the real files behind its gestures

    Sets() : Folder(QuickFolder() + "/marvolin-test-XXXXXX") {
        if (::mkdtemp(Folder.data()) == nullptr) throw std::runtime_error("no folder");
        Filed.SaveOpenSwitches[kWhenSaving] = All();
        Filed.CurrentFolder = Folder + "/";
        Player.Fill(0, Player.Folder / "a.wav");
        Player.Fill(1, Player.Folder / "b.wav");
    }
    ~Sets() { std::filesystem::remove_all(Folder); }

    bool Save(const std::string& name, std::int16_t hz) {
        for (Row row = 0; row < kLoopTracks; ++row) Player.s.Set[row].Hz = hz;
        return SaveSession(Player.s, Folder + "/" + name, LoopsSaved::All, All());
    }
    /// The pitch of the set, the same in all its LoopTracks; nothing if it does not open whole.
    std::optional<std::int16_t> Pitch(const std::string& name) {
        for (Row row = 0; row < kLoopTracks; ++row) Reader.s.Set[row].Hz = 1;
        if (!LoadSession(Reader.s, Folder + "/" + name, SetAsCurrent::No, All(), AdoptSwitches::No)) return {};
        for (Row row = 1; row < kLoopTracks; ++row) {
            if (Reader.s.Set[row].Hz != Reader.s.Set[0].Hz) return {};
        }
        if (!Reader.Desk.Boxes.empty()) return {};
        return Reader.s.Set[0].Hz;
    }
    bool Has(const std::string& name) const { return std::filesystem::exists(Folder + "/" + name); }
    std::string Bytes(const std::string& name) const { return ReadBytes(Folder + "/" + name); }
    std::size_t HiddenFiles() const {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(Folder)) {
            if (entry.path().filename().string().starts_with('.')) ++count;
        }
        return count;
    }
};

/// Kills `save` at each of its system calls, in a state that `prepare` makes anew each time, and runs `check` after.
void KillAtEachSystemCall(Abilities abilities, const std::function<void(Sets&)>& prepare,
                          const std::function<bool(Sets&)>& save, const std::function<void(Sets&, Ending)>& check) {
    constexpr int kFewestCalls = 12;
    for (int call = 1;; ++call) {
        SCOPED_TRACE(call);
        Sets sets;
        prepare(sets);
        int entered = 0;
        const auto act = [&] {
            Restrict(abilities);
            return save(sets);
        };
        const Ending ending = Trace(act, [&](std::uint64_t) { return ++entered == call; });
        ASSERT_NE(ending, Ending::Failed);
        check(sets, ending);
        if (::testing::Test::HasFailure()) return;
        if (ending == Ending::Killed) continue;
        EXPECT_GT(call, kFewestCalls);
        return;
    }
}

class KilledSave : public ::testing::TestWithParam<Abilities> {};

TEST_P(KilledSave, OfASessionLeavesTheOldOrTheNewOneAndAWholeCopy) {
    const auto prepare = [](Sets& sets) {
        ASSERT_TRUE(sets.Save("x.mvn", kOld - 1));
        ASSERT_TRUE(sets.Save("x.mvn", kOld));
    };
    const auto check = [](Sets& sets, Ending) {
        const auto pitch = sets.Pitch("x.mvn");
        ASSERT_TRUE(pitch);
        EXPECT_TRUE(*pitch == kOld || *pitch == kNew) << *pitch;
        const auto copy = sets.Pitch("x.mvn~");
        ASSERT_TRUE(copy);
        EXPECT_TRUE(*copy == kOld || *copy == kOld - 1) << *copy;
        EXPECT_TRUE(*pitch == kOld || *copy == kOld) << "the old set has one of the two names at each moment";
        ASSERT_TRUE(sets.Save("x.mvn", kNew));
        EXPECT_EQ(sets.Pitch("x.mvn"), kNew);
        EXPECT_EQ(sets.HiddenFiles(), 0U) << "the next save removes what was left";
    };
    KillAtEachSystemCall(
        GetParam(), prepare, [](Sets& sets) { return sets.Save("x.mvn", kNew); }, check);
}

TEST_P(KilledSave, OfAPackageLeavesTheOldOrTheNewOneWithWholeSamples) {
    const auto prepare = [](Sets& sets) {
        ASSERT_TRUE(sets.Save("set.mvp", kOld));
        std::filesystem::create_hard_link(sets.Folder + "/a.wav", sets.Folder + "/shared.wav");
        WriteBytes(sets.Player.Folder / "a.wav", "changed");
        sets.Player.Fill(2, sets.Player.Folder / "c.wav");
    };
    const auto check = [](Sets& sets, Ending) {
        const auto pitch = sets.Pitch("set.mvp");
        ASSERT_TRUE(pitch);
        EXPECT_TRUE(*pitch == kOld || *pitch == kNew) << *pitch;
        const std::string sample = sets.Bytes("a.wav");
        EXPECT_TRUE(*pitch == kNew ? sample == "changed" : sample == "changed" || sample == "a.wav") << sample;
        EXPECT_EQ(sets.Bytes("b.wav"), "b.wav");
        EXPECT_EQ(sets.Bytes("shared.wav"), "a.wav");
        if (*pitch == kNew || sets.Has("c.wav")) {
            EXPECT_EQ(sets.Bytes("c.wav"), "c.wav");
        }
        if (sets.Has("set.mvp~")) {
            EXPECT_EQ(sets.Pitch("set.mvp~"), kOld);
        }
        ASSERT_TRUE(sets.Save("set.mvp", kNew));
        EXPECT_EQ(sets.HiddenFiles(), 0U);
    };
    KillAtEachSystemCall(
        GetParam(), prepare, [](Sets& sets) { return sets.Save("set.mvp", kNew); }, check);
}

TEST_P(KilledSave, OfASnapshotLeavesItWholeOrNotAtAll) {
    const auto prepare = [](Sets& sets) { ASSERT_TRUE(sets.Save("Snapshot 000.mvn", kOld)); };
    const auto save = [](Sets& sets) {
        for (Row row = 0; row < kLoopTracks; ++row) sets.Filed.Set[row].Hz = kNew;
        SnapShot_MouseUp(sets.Filed);
        return sets.Filed.StatusText == "Snapshot 001.mvn";
    };
    const auto check = [](Sets& sets, Ending ending) {
        EXPECT_EQ(sets.Pitch("Snapshot 000.mvn"), kOld);
        if (ending == Ending::Finished || sets.Has("Snapshot 001.mvn")) {
            EXPECT_EQ(sets.Pitch("Snapshot 001.mvn"), kNew);
        }
    };
    KillAtEachSystemCall(GetParam(), prepare, save, check);
}

TEST_P(KilledSave, OfAScriptLeavesTheOldOrTheNewTextAndAWholeCopy) {
    const auto prepare = [](Sets& sets) {
        WriteScript(sets.Folder + "/x.mvs", "oldest");
        WriteScript(sets.Folder + "/x.mvs", "old");
    };
    const auto save = [](Sets& sets) {
        WriteScript(sets.Folder + "/x.mvs", "new");
        return true;
    };
    const auto check = [](Sets& sets, Ending ending) {
        const std::string text = sets.Bytes("x.mvs");
        const std::string copy = sets.Bytes("x.mvs~");
        EXPECT_TRUE(text == "new" || (text == "old" && ending == Ending::Killed)) << text;
        EXPECT_TRUE(copy == "old" || (copy == "oldest" && ending == Ending::Killed)) << copy;
        EXPECT_TRUE(text == "old" || copy == "old") << "the old text has one of the two names at each moment";
        WriteScript(sets.Folder + "/x.mvs", "new");
        EXPECT_EQ(sets.Bytes("x.mvs"), "new");
        EXPECT_EQ(sets.HiddenFiles(), 0U) << "the next save removes what was left";
    };
    KillAtEachSystemCall(GetParam(), prepare, save, check);
}

std::string NameOf(const ::testing::TestParamInfo<Abilities>& of) {
    switch (of.param) {
        case Abilities::NoNamelessFiles:
            return "NoNamelessFiles";
        case Abilities::NoNamesForNamelessFiles:
            return "NoNamesForNamelessFiles";
        case Abilities::NoLinksEither:
            return "NoLinksEither";
        default:
            return "All";
    }
}
INSTANTIATE_TEST_SUITE_P(FileSystems, KilledSave,
                         ::testing::Values(Abilities::All, Abilities::NoNamelessFiles,
                                           Abilities::NoNamesForNamelessFiles, Abilities::NoLinksEither),
                         NameOf);

/// One letter for each call of a save that flushes (f) or gives a name (n), in their order.
std::string FlushesAndNames(const std::function<bool()>& save) {
    std::string calls;
    const Ending ending = Trace(save, [&](std::uint64_t number) {
        if (number == __NR_fsync || number == __NR_fdatasync) calls += 'f';
        if (number == __NR_renameat2 || number == __NR_renameat) calls += 'n';
#ifdef __NR_rename
        if (number == __NR_rename) calls += 'n';
#endif
        return false;
    });
    EXPECT_EQ(ending, Ending::Finished);
    return calls;
}

TEST(FlushedSave, ASetIsOnTheDiskBeforeItHasItsNameAndThenItsFolderIs) {
    Sets sets;
    ASSERT_TRUE(sets.Save("x.mvn", kOld));
    // The file; its name and that of the copy; the folder.
    EXPECT_EQ(FlushesAndNames([&] { return sets.Save("x.mvn", kNew); }), "fnnf");
}

TEST(FlushedSave, AScriptIsOnTheDiskBeforeItHasItsNameAndThenItsFolderIs) {
    Sets sets;
    const auto save = [&] {
        WriteScript(sets.Folder + "/x.mvs", "text");
        return true;
    };
    save();
    EXPECT_EQ(FlushesAndNames(save), "fnnf");
}

TEST(FlushedSave, TheSamplesOfAPackageAreOnTheDiskBeforeItsSetHasItsName) {
    Sets sets;
    ASSERT_TRUE(sets.Save("set.mvp", kOld));
    for (const char* sample : {"a.wav", "b.wav"}) WriteBytes(sets.Player.Folder / sample, "changed");
    // Two samples and the set; the names of the samples; their folder; the names of set and copy; the folder.
    EXPECT_EQ(FlushesAndNames([&] { return sets.Save("set.mvp", kNew); }), "fffnnfnnf");
}

/// Saves that a child process has begun and finished.
struct Counts {
    std::atomic<int> Begun = 0;
    std::atomic<int> Finished = 0;
};

/// Saves again and again.
bool SaveOnAndOn(Sets& sets, std::int16_t pitch, kills::Shared<Counts>& counts) {
    for (std::int16_t next = pitch;; next = static_cast<std::int16_t>(next % 4000 + 1)) {
        ++counts->Begun;
        if (!sets.Save("x.mvn", next)) return false;
        ++counts->Finished;
    }
}

TEST(KilledSaves, AThousandAtRandomMomentsLeaveAWholeSetEachTime) {
    constexpr int kKills = 1000;
    std::mt19937 random(1);
    Sets sets;
    kills::Shared<Counts> counts;
    ASSERT_TRUE(sets.Save("x.mvn", 1));
    const long longest = 2 * kills::TimeInChild([&] { return sets.Save("x.mvn", 1); });
    int interrupted = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        SCOPED_TRACE(kill);
        const auto pitch = sets.Pitch("x.mvn");
        ASSERT_TRUE(pitch);
        const long moment = std::uniform_int_distribution<long>(0, longest)(random);
        ASSERT_EQ(kills::RunUntilKilled([&] { return SaveOnAndOn(sets, *pitch, counts); }, moment), Ending::Killed);
        interrupted += counts->Begun > counts->Finished ? 1 : 0;
        counts->Begun = counts->Finished.load();
        if (sets.Has("x.mvn~")) {
            ASSERT_TRUE(sets.Pitch("x.mvn~"));
        }
    }
    EXPECT_GT(counts->Finished, 0);
    EXPECT_GT(interrupted, 0);
    ASSERT_TRUE(sets.Save("x.mvn", 2));
    EXPECT_EQ(sets.Pitch("x.mvn"), 2);
    EXPECT_EQ(sets.HiddenFiles(), 0U);
}

}  // namespace
}  // namespace marvolin
