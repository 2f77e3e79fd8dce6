#include "audio/play_modes.h"

#include <array>

#include "audio/ds_error.h"
#include "audio/sample_buffers.h"
#include "audio/transport.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_views.h"
#include "parameters/mapping.h"

namespace marvolin {

namespace {

bool IsClocked(std::int16_t mode) { return mode == kTrack || mode == kDrum; }

// A sounding sample keeps its place and only changes its looping.
void ChangeLooping(Session& s, Row row, std::int16_t mode) {
    const std::int16_t old = s.Set[row].PlayMode;
    DirectSoundBuffer& buffer = BufferOf(s, row);
    s.Set[row].PlayMode = mode;
    const std::int32_t status = buffer.GetStatus();
    const std::int32_t flags = LoopPlayFlags(mode);
    // Compared with the whole status word, not with its playing bit: that is the rule. From Drum to Loop always, since
    // the buffer may have run out.
    if ((old == kDrum && mode == kLoop) || flags != status) buffer.Play(flags);
    if (!IsClocked(old)) return;
    // The values of the patterns no longer colour the sound.
    MapHZ(s, row);
    MapPan(s, row);
    MapVol(s, row);
}

// A row that waits for a device sounds in the new mode when the device comes.
void ChangeModeOfWaiting(Session& s, Row row, std::int16_t mode) {
    HeldSample& inHand = s.Run[row].InHand;
    if (!inHand.FileName.empty() && s.Set[row].PlayMode != mode) {
        inHand.Loops = LoopPlayFlags(mode) != 0;
        inHand.Sounds = inHand.Playing && !inHand.Paused;
    }
    s.Set[row].PlayMode = mode;
}

void ChangeMode(Session& s, Row row, std::int16_t mode) {
    LoopTrackSet& set = s.Set[row];
    if (row == kSelectionRow || s.Run[row].Loaded == False) return ChangeModeOfWaiting(s, row, mode);
    if (set.PlayMode == mode) return;
    BufferOf(s, row).GetStatus();
    if (s.Run[row].Playing == False) {
        set.PlayMode = mode;
    } else if (IsClocked(mode)) {
        LoopStop(s, row);
        set.PlayMode = mode;
        LoopPlay(s, row, false);
    } else {
        ChangeLooping(s, row, mode);
    }
}

}  // namespace

std::string_view PlayModeText(std::int16_t mode) {
    static constexpr std::array<std::string_view, 4> kTexts{
        "One shot (sample plays once, stops)", "Loop (sample loops continuously)",
        "Track (sample loops continuously, track the Vol, Freq & Pan patterns)",
        "Drum (track Vol,Pan & Freq pattern, restart sample each beat)"};
    return mode >= kOneShot && mode <= kDrum ? kTexts[static_cast<std::size_t>(mode)] : "";
}

std::int32_t LoopPlayFlags(std::int16_t mode) { return mode == kLoop || mode == kTrack ? 1 : 0; }

void LoopSetPlayMode(Session& s, Row row, std::int16_t mode, bool refresh) {
    try {
        ChangeMode(s, row, mode);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "changing looping", e.Number());
    }
    s.World.Screen.ShowPlayMode(row);
    if (row == s.CurrentLoop) s.World.Screen.ShowPlayMode(kMasterRow);
    if (refresh) TimingRefresh(s);
}

void LoopSetPlayModeRows(Session& s, Row row, std::int16_t mode) {
    ForGang(s, row, [&](Row each) { LoopSetPlayMode(s, each, mode, true); });
}

}  // namespace marvolin
