#pragma once
/// \file
/// What is kept by itself: the last state of the instrument in a file, and whether the set in hand differs from its
/// file.

#include <cstddef>
#include <cstdint>
#include <future>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/files/record_stream.h"
#include "core/session.h"
#include "persistence/kept/clip_records.h"
#include "persistence/kept/first_stick.h"
#include "persistence/session_writer.h"

namespace marvolin {

/// File in the program's folder that holds the last state. The first one of a run keeps what was there, the last state
/// of the run before, with "~" added to its name.
inline constexpr std::string_view kLastSessionFile = "Last session.mvn";
inline constexpr std::int32_t kLookPeriod = 1000;    ///< ms between two looks at whether the set differs from its file
inline constexpr std::int32_t kKeepPeriod = 20'000;  ///< ms between two states that are kept

/// From now on the session is kept: every 20 s, when something has changed, the whole of it as a set that "Open" and
/// QuickLoad read. What is there now counts as kept, and so does what the demo makes of it; until a state of this run
/// is kept, what sounds, the open tab and the device are no change. The status line says once when it cannot be kept;
/// it is tried again. Nothing is kept when the system has no timer left.
void StartKeeping(Session& s);
/// Nothing more is looked at or kept. A file that is being written goes on.
void StopKeeping(Session& s);
/// Ends it, and saves nothing. Waits for a file that is being written, as long as the disk needs.
void EndKeeping(Session& s);

/// The set in hand is the same as the file `path` from which it was opened or to which it was saved.
void NoteSetOnDisk(Session& s, const std::string& path);
/// The set in hand holds something else than its file `path`, of which only a part was opened.
void NoteSetDiffers(Session& s, const std::string& path);
/// Whether `path` is the last state or the copy of the one before. Neither is a set to be in hand, as the program
/// writes over it by itself.
bool IsLastState(const Session& s, const std::string& path);
/// Whether the set in hand differs from its file, at the last look. What sounds, the open tab and the device do not
/// count. False while there is no set in hand.
bool SetHasChanged(const Session& s);

/// Whether the folder has a last state that it did not have at the previous call.
bool LastStateIsNew(Session& s);
/// Waits until a state that is being written is on the disk, or has failed. The next look knows about it.
void WaitForLastState(Session& s);

/// The last state of one session. Belongs to the user-interface thread; another one only writes the bytes made here.
class LastState {
public:
    explicit LastState(std::string path) : path_(std::move(path)) {}

    /// Begins to look. Raises a `RuntimeError` when the system has no timer left.
    void Start(Session& s);
    void Stop() { timer_.reset(); }
    void NoteOnDisk(Session& s, const std::string& path);
    void NoteDiffers(Session& s, const std::string& path);
    bool Differs() const { return differs_; }
    bool TakeNew();
    void Wait() const;

private:
    using Digest = std::size_t;  ///< of all bytes of a set
    /// What was in a set at one moment, as far as it is work.
    struct Work {
        Digest Bytes = 0;
        FirstStick Stick;
    };

    void Look(Session& s, std::int32_t milliseconds);
    void Keep(Session& s);
    void TakeResult(Session& s);
    void TellFailure(Session& s, const std::string& why);
    void RefreshMark(Session& s);
    bool HasChanged(Session& s);
    bool IsAsAtStart(Session& s);
    void FollowStick(const Session& s);
    Digest DigestOf(Session& s, LoopsSaved loops, const clsSwitchRecord& switches, SetContent content);
    Digest DigestOfAll(Session& s, SetContent content);
    Digest DigestOfStart(Session& s);
    Digest DigestOfSave(Session& s);

    std::string path_;
    RecordWriter records_;  ///< kept for its room
    ClipRecords clips_;
    std::unordered_map<std::string, Work> onDisk_;  ///< by the path of a set: what is in its file
    bool differs_ = false;
    bool settled_ = false;      ///< the demo has ended
    std::int32_t elapsed_ = 0;  ///< ms since a state was last kept
    Digest kept_ = 0;           ///< of the state that was kept
    Work start_;                ///< the work at the start of the run
    Digest writing_ = 0;        ///< of the state that is being written
    bool first_ = true;         ///< no state of this run is kept yet
    bool new_ = false;
    bool told_ = false;                ///< the player knows that it fails
    std::future<std::string> result_;  ///< why the file could not be written; "" when it is on the disk
    std::unique_ptr<PeriodicTimer> timer_;
};

}  // namespace marvolin
