#include "audio/transport.h"

#include "audio/ds_error.h"
#include "audio/play_modes.h"
#include "audio/sample_buffers.h"
#include "audio/thinning.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_resets.h"
#include "core/routines.h"
#include "parameters/mapping.h"

namespace marvolin {

namespace {

constexpr std::int32_t kEndMargin = 32;  // bytes between the last start position and the end
constexpr std::int32_t kSounding = buffer_status::kPlaying | buffer_status::kLooping;

void Start(Session& s, Row row, bool request) {
    if (!StartOrJump(s, row)) return;
    s.Run[row].MapError = {};
    s.Run[row].Playing = True;
    s.World.Screen.ShowPlay(row);
    s.Run[row].PlayRequest = ToBoolean(request);
    ThinAdd(s, row);
}

// A row that waits for a device is stopped when the device comes.
void StopWaiting(Session& s, Row row) {
    HeldSample& inHand = s.Run[row].InHand;
    inHand.Playing = inHand.Sounds = false;  // only a resume ends a pause
    if (inHand.FileName.empty()) return;
    inHand.Cursor = 0;
    ResetLoopClock(s, row);
    ThinRemove(s, row);
}

bool HasPanControl(Session& s, Row row) {
    return s.Run[row].Loaded != False && (BufferOf(s, row).GetCaps().Flags & buffer_flags::kControlPan) != 0;
}

void SetPlayingOfRowFour(Session& s, bool playing) {
    s.Run[kSelectionRow].Playing = ToBoolean(playing);
    s.World.Screen.ShowPlay(kSelectionRow);
}

}  // namespace

std::int32_t StartPosition(const Session& s, Row row) {
    const LoopTrackSet& set = s.Set[row];
    if (set.PlayMode != kDrum) return 0;
    const double last = static_cast<double>(set.BufferBytes) - kEndMargin;
    return static_cast<std::int32_t>(ClampVar(s.Run[row].BeatStartBytes, 0, last));
}

bool StartOrJump(Session& s, Row row) {
    DirectSoundBuffer& buffer = BufferOf(s, row);
    const bool sounding = (buffer.GetStatus() & kSounding) != 0;
    buffer.SetCurrentPosition(StartPosition(s, row));
    if (!sounding) buffer.Play(LoopPlayFlags(s.Set[row].PlayMode));
    return !sounding;
}

void LoopPlay(Session& s, Row row, bool request) {
    if (row == kSelectionRow) return;
    try {
        if (s.Run[row].Loaded != False) Start(s, row, request);
        if (s.Set[row].Selected == True) SetPlayingOfRowFour(s, true);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "playing loop", e.Number());
    }
}

void LoopStop(Session& s, Row row) {
    if (row < 0 || row >= kLoopTracks) return;
    if (s.Run[row].Loaded == False) return StopWaiting(s, row);
    try {
        ResetLoopClock(s, row);
        // The Map routines may report a failure, and when that has been shown the row may be empty or have another
        // buffer.
        MapHZ(s, row);
        if (HasPanControl(s, row)) MapPan(s, row);
        MapVol(s, row);
        if (s.Run[row].Loaded == False) return;
        BufferOf(s, row).Stop();
        BufferOf(s, row).SetCurrentPosition(0);
        s.Run[row].Playing = False;
        s.World.Screen.ShowPlay(row);
        LoopRefreshAny(s);
        ThinRemove(s, row);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "stopping loop", e.Number());
    }
}

void LoopRefreshAny(Session& s) {
    bool playing = false;
    ForControlled(s, [&](Row row) { playing = playing || s.Run[row].Playing == True; });
    SetPlayingOfRowFour(s, playing);
}

void PlayAll(Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) LoopPlay(s, row, true);
}

void StopAll(Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) LoopStop(s, row);
}

}  // namespace marvolin
