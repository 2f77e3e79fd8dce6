#include "persistence/kept/last_state.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>

#include "core/errors.h"
#include "core/files/former_file.h"
#include "core/files/paths.h"
#include "core/routines.h"
#include "persistence/set_files.h"
#include "persistence/start_up_demo.h"

namespace marvolin {

namespace {

constexpr std::int16_t kLastDemoStep = 4;

std::string PathInHand(const Session& s) {
    return s.CurrentFile.empty() ? "" : JoinPath(s.CurrentFolder, s.CurrentFile);
}

/// The demo plays itself: its countdown runs, or a row still fades.
bool DemoRuns(const Session& s) {
    if (s.DemoStep == 0) return false;
    if (s.DemoStep < kLastDemoStep) return true;
    return std::any_of(s.Run.begin(), s.Run.end(), [](const LoopTrackRun& run) { return run.FadeState != kNoFade; });
}

/// While it is there, the rows that the demo fades are as the demo leaves them.
class FadedOut {
public:
    explicit FadedOut(Session& s) : s_(s) {
        for (std::size_t k = 0; k < kDemoFades.size(); ++k) volumes_[k] = std::exchange(Volume(k), std::int16_t{0});
    }
    ~FadedOut() {
        for (std::size_t k = 0; k < kDemoFades.size(); ++k) Volume(k) = volumes_[k];
    }
    FadedOut(const FadedOut&) = delete;
    FadedOut& operator=(const FadedOut&) = delete;

private:
    std::int16_t& Volume(std::size_t k) { return s_.Set[kDemoFades[k]].Vol; }

    Session& s_;
    std::array<std::int16_t, kDemoFades.size()> volumes_{};
};

enum class Former : std::uint8_t { Keep, Replace };

/// On a thread of its own. Returns why it failed; "" when the state is on the disk.
std::string WriteState(const std::string& path, const std::string& bytes, Former former) {
    try {
        if (former == Former::Keep) {
            SetFiles files(path);
            files.Set().File().Write(bytes);
            files.PutInPlace();
        } else {
            const std::string behind = BehindLinks(path);
            FormerFile replaced(behind);
            NewFile file(behind);
            file.Write(bytes);
            file.Sync();
            replaced.ReplaceBy(file);
        }
        return "";
    } catch (const std::exception& e) {
        return e.what();
    }
}

}  // namespace

void LastState::Start(Session& s) {
    timer_ = s.World.Timers.Create([this, &s](std::int32_t milliseconds) { Look(s, milliseconds); });
    timer_->SetInterval(kLookPeriod);
    timer_->SetEnabled(true);
    start_ = {DigestOfStart(s), FirstStick(s)};
}

LastState::Digest LastState::DigestOf(Session& s, LoopsSaved loops, const clsSwitchRecord& switches,
                                      SetContent content) {
    records_.Clear();
    WriteSetBeforeClips(s, records_, loops, switches, content);
    const Digest digest = std::hash<std::string_view>()(records_.Bytes());
    if (!switches.Get(Element::ClipBoard)) return digest;
    clips_.Follow(s);
    return std::rotl(digest, 1) ^ clips_.Digest();
}

LastState::Digest LastState::DigestOfAll(Session& s, SetContent content) {
    return DigestOf(s, LoopsSaved::All, AllSwitches(), content);
}

// Taken at once, so that what the player does during the demo is a change.
LastState::Digest LastState::DigestOfStart(Session& s) {
    try {
        if (!DemoRuns(s)) return DigestOfAll(s, SetContent::Work);
        const FadedOut faded(s);
        return DigestOfAll(s, SetContent::Work);
    } catch (const RuntimeError&) {
        return 0;  // the first look that keeps says so
    }
}

LastState::Digest LastState::DigestOfSave(Session& s) {
    const LoopsSaved loops = s.SelectionsOnlySetting == 1 ? LoopsSaved::SelectionsOnly : LoopsSaved::All;
    return DigestOf(s, loops, s.SaveOpenSwitches[kWhenSaving], SetContent::Work);
}

void LastState::NoteOnDisk(Session& s, const std::string& path) {
    try {
        onDisk_[path] = {DigestOfSave(s), FirstStick(s)};
    } catch (const RuntimeError&) {
        onDisk_.erase(path);
    }
    RefreshMark(s);
}

void LastState::NoteDiffers(Session& s, const std::string& path) {
    onDisk_.erase(path);
    RefreshMark(s);
}

bool LastState::HasChanged(Session& s) {
    const std::string path = PathInHand(s);
    if (path.empty()) return false;
    const auto file = onDisk_.find(path);
    // A set that was only half opened or not saved has the name of a file that holds something else.
    if (file == onDisk_.end()) return true;
    try {
        const AsBeforeStick as(s, file->second.Stick);
        return DigestOfSave(s) != file->second.Bytes;
    } catch (const RuntimeError&) {
        return true;
    }
}

void LastState::RefreshMark(Session& s) {
    const bool differs = HasChanged(s);
    if (std::exchange(differs_, differs) != differs) s.World.Screen.ShowTitle();
}

void LastState::FollowStick(const Session& s) {
    start_.Stick.Follow(s);
    for (auto& [path, work] : onDisk_) work.Stick.Follow(s);
}

void LastState::Look(Session& s, std::int32_t milliseconds) {
    TakeResult(s);
    FollowStick(s);
    settled_ = settled_ || !DemoRuns(s);
    elapsed_ += milliseconds;
    // Never both: each makes the bytes of the set.
    if (elapsed_ < kKeepPeriod) return RefreshMark(s);
    elapsed_ = 0;
    if (settled_) Keep(s);
}

bool LastState::IsAsAtStart(Session& s) {
    const AsBeforeStick as(s, start_.Stick);
    return DigestOfAll(s, SetContent::Work) == start_.Bytes;
}

void LastState::Keep(Session& s) {
    if (result_.valid()) return;  // a disk that has stalled
    try {
        // The first state pushes out that of the run before, so there must be work in it.
        if (first_ && IsAsAtStart(s)) return;
        writing_ = DigestOfAll(s, SetContent::Whole);
        if (!first_ && writing_ == kept_) return;
        WriteSetFromClipsOn(records_, AllSwitches(), clips_.Bytes());
        result_ = std::async(std::launch::async, WriteState, path_, std::string(records_.Bytes()),
                             first_ ? Former::Keep : Former::Replace);
    } catch (const RuntimeError& e) {
        TellFailure(s, e.what());
    } catch (const std::system_error& e) {
        TellFailure(s, e.what());
    }
}

void LastState::TakeResult(Session& s) {
    if (!result_.valid() || result_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
    const std::string failure = result_.get();
    if (!failure.empty()) return TellFailure(s, failure);
    kept_ = writing_;
    told_ = false;
    if (std::exchange(first_, false)) new_ = true;
}

void LastState::TellFailure(Session& s, const std::string& why) {
    if (std::exchange(told_, true)) return;
    ShowStatus(s, "The last state cannot be kept: " + why + ". It is tried again every 20 seconds.");
}

bool LastState::TakeNew() { return std::exchange(new_, false); }

void LastState::Wait() const {
    if (result_.valid()) result_.wait();
}

void StartKeeping(Session& s) {
    s.Kept = std::make_shared<LastState>(JoinPath(s.World.Desk.ProgramFolder(), std::string(kLastSessionFile)));
    try {
        s.Kept->Start(s);
    } catch (const RuntimeError&) {
        s.Kept.reset();
    }
}

void StopKeeping(Session& s) {
    if (s.Kept) s.Kept->Stop();
}

void EndKeeping(Session& s) { s.Kept.reset(); }

void NoteSetOnDisk(Session& s, const std::string& path) {
    if (s.Kept) s.Kept->NoteOnDisk(s, path);
}

void NoteSetDiffers(Session& s, const std::string& path) {
    if (s.Kept) s.Kept->NoteDiffers(s, path);
}

bool IsLastState(const Session& s, const std::string& path) {
    std::string folder;
    std::string name;
    SplitFilePath(path, folder, name);
    if (name != kLastSessionFile && name != CopyName(kLastSessionFile)) return false;
    std::error_code error;
    return std::filesystem::equivalent(FolderOf(path), s.World.Desk.ProgramFolder(), error);
}

bool SetHasChanged(const Session& s) { return s.Kept && s.Kept->Differs(); }
bool LastStateIsNew(Session& s) { return s.Kept && s.Kept->TakeNew(); }

void WaitForLastState(Session& s) {
    if (s.Kept) s.Kept->Wait();
}

}  // namespace marvolin
