#include "persistence/undo/row_state.h"

#include <algorithm>
#include <array>

#include "audio/play_modes.h"

namespace marvolin {

namespace {

struct PartRow {
    RowPart Part;
    bool (*Same)(const RowState& a, const RowState& b);
    void (*Copy)(RowState& to, const RowState& from);
};

template <auto Field>
bool SameField(const RowState& a, const RowState& b) {
    return a.*Field == b.*Field;
}
template <auto Field>
void CopyField(RowState& to, const RowState& from) {
    to.*Field = from.*Field;
}
template <auto Field>
bool SameSetting(const RowState& a, const RowState& b) {
    return a.Set.*Field == b.Set.*Field;
}
template <auto Field>
void CopySetting(RowState& to, const RowState& from) {
    to.Set.*Field = from.Set.*Field;
}
template <int PatternRow>
bool SamePattern(const RowState& a, const RowState& b) {
    return a.Set.Pattern[PatternRow] == b.Set.Pattern[PatternRow];
}
template <int PatternRow>
void CopyPattern(RowState& to, const RowState& from) {
    to.Set.Pattern[PatternRow] = from.Set.Pattern[PatternRow];
}

bool SameSample(const RowState& a, const RowState& b) {
    return a.Loaded == b.Loaded && a.Sample == b.Sample && a.Set.FileName == b.Set.FileName &&
           a.Set.Length == b.Set.Length && a.InHand.FileName == b.InHand.FileName && a.Missing == b.Missing;
}

void CopySample(RowState& to, const RowState& from) {
    to.Loaded = from.Loaded;
    to.Sample = from.Sample;
    to.Set.FileName = from.Set.FileName;
    to.Set.SampleRate = from.Set.SampleRate;
    to.Set.BufferBytes = from.Set.BufferBytes;
    to.Set.Length = from.Set.Length;
    to.Set.AvgBytesPerSec = from.Set.AvgBytesPerSec;
    to.InHand.FileName = from.InHand.FileName;
    to.Missing = from.Missing;
}

// The cursor and the step go on by themselves, and a sample runs out by itself unless it loops. A pause that has been
// resumed shows in the looping alone. What would loop if it sounded counts with the mode.
bool SameSounding(const RowState& a, const RowState& b) {
    const bool silent = !a.InHand.Sounds && !b.InHand.Sounds;
    const bool sameLooping = silent || a.Set.PlayMode != b.Set.PlayMode || a.InHand.Loops == b.InHand.Loops;
    return a.InHand.Playing == b.InHand.Playing && a.InHand.Paused == b.InHand.Paused && sameLooping;
}

void CopySounding(RowState& to, const RowState& from) {
    CopySounding(to.InHand, from.InHand);
    to.Clock = from.Clock;
}

// A step of no length counts as the shortest one, to which the read-outs limit it.
bool SameStepDuration(const RowState& a, const RowState& b) {
    return std::max(a.Set.StepDuration, 1) == std::max(b.Set.StepDuration, 1);
}

bool SameBeatStart(const RowState& a, const RowState& b) {
    return a.Set.BeatStart == b.Set.BeatStart && a.BeatStartBytes == b.BeatStartBytes;
}
void CopyBeatStart(RowState& to, const RowState& from) {
    to.Set.BeatStart = from.Set.BeatStart;
    to.BeatStartBytes = from.BeatStartBytes;
}

bool SamePlace(const RowState& a, const RowState& b) {
    return a.Set.PositionX == b.Set.PositionX && a.Set.PositionY == b.Set.PositionY;
}
void CopyPlace(RowState& to, const RowState& from) {
    to.Set.PositionX = from.Set.PositionX;
    to.Set.PositionY = from.Set.PositionY;
}

bool SameBand(const RowState& a, const RowState& b) { return a.InBand == b.InBand && a.Band == b.Band; }
void CopyBand(RowState& to, const RowState& from) {
    to.InBand = from.InBand;
    to.Band = from.Band;
}

constexpr std::array<PartRow, 20> kParts{{
    {kSamplePart, SameSample, CopySample},
    {kReversedPart, SameField<&RowState::Reversed>, CopyField<&RowState::Reversed>},
    {kSoundingPart, SameSounding, CopySounding},
    {kVolPart, SameSetting<&LoopTrackSet::Vol>, CopySetting<&LoopTrackSet::Vol>},
    {kPanPart, SameSetting<&LoopTrackSet::Pan>, CopySetting<&LoopTrackSet::Pan>},
    {kHzPart, SameSetting<&LoopTrackSet::Hz>, CopySetting<&LoopTrackSet::Hz>},
    {kModePart, SameSetting<&LoopTrackSet::PlayMode>, CopySetting<&LoopTrackSet::PlayMode>},
    {kThinnablePart, SameSetting<&LoopTrackSet::Thinnable>, CopySetting<&LoopTrackSet::Thinnable>},
    {kStepDurationPart, SameStepDuration, CopySetting<&LoopTrackSet::StepDuration>},
    {kSwingPart, SameSetting<&LoopTrackSet::Swing>, CopySetting<&LoopTrackSet::Swing>},
    {kBeatStartPart, SameBeatStart, CopyBeatStart},
    {kNStepsPart, SameSetting<&LoopTrackSet::NSteps>, CopySetting<&LoopTrackSet::NSteps>},
    {kVolPatternPart, SamePattern<kVolPattern>, CopyPattern<kVolPattern>},
    {kHzPatternPart, SamePattern<kHzPattern>, CopyPattern<kHzPattern>},
    {kPanPatternPart, SamePattern<kPanPattern>, CopyPattern<kPanPattern>},
    {kPlacePart, SamePlace, CopyPlace},
    {kWirePart, SameSetting<&LoopTrackSet::Channel>, CopySetting<&LoopTrackSet::Channel>},
    {kSelectedPart, SameSetting<&LoopTrackSet::Selected>, CopySetting<&LoopTrackSet::Selected>},
    {kLinePart, SameField<&RowState::Line>, CopyField<&RowState::Line>},
    {kBandPart, SameBand, CopyBand},
}};

void CaptureSounding(Session& s, Row row, RowState& state) {
    const LoopTrackRun& run = s.Run[row];
    HeldSample& sounding = state.InHand;
    sounding = run.InHand;
    if (row == kSelectionRow) sounding.Playing = run.Playing != False;
    if (run.Loaded == False || !run.Buffer) return;
    sounding.Playing = run.Playing != False;
    sounding.Paused = run.Paused != False;
    try {
        const std::int32_t status = run.Buffer->GetStatus();
        sounding.Sounds = (status & buffer_status::kPlaying) != 0;
        sounding.Loops = (status & buffer_status::kLooping) != 0;
        sounding.Cursor = run.Buffer->GetCurrentPosition();
    } catch (const RuntimeError&) {
        sounding.Sounds = sounding.Playing && !sounding.Paused;
        sounding.Loops = LoopPlayFlags(s.Set[row].PlayMode) != 0;
    }
}

}  // namespace

bool Waits(const LoopTrackRun& run) { return run.Loaded == False && !run.InHand.FileName.empty(); }

void CopySounding(HeldSample& to, const HeldSample& from) {
    to.Playing = from.Playing;
    to.Paused = from.Paused;
    to.Sounds = from.Sounds;
    to.Loops = from.Loops;
    to.Cursor = from.Cursor;
}

RowState CaptureRow(Session& s, Row row) {
    const LoopTrackRun& run = s.Run[row];
    RowState state;
    state.Set = s.Set[row];
    state.Loaded = run.Loaded;
    if (run.Loaded != False && run.Buffer) state.Sample = run.Buffer->Keep();
    if (run.Loaded != False) state.Reversed = run.Reversed;  // an empty row keeps the mark of the sample before
    if (Waits(run)) {
        state.Reversed = ToBoolean(run.InHand.Reversed);
        state.Set.BeatStart = run.InHand.BeatStart;
    }
    state.BeatStartBytes = run.BeatStartBytes;
    state.Missing = run.Missing;
    CaptureSounding(s, row, state);
    state.Clock = ClockOf(run);
    if (row < static_cast<Row>(s.SndDisp.size())) state.Line = s.SndDisp[row].Line;
    state.InBand = run.InBand;
    state.Band = run.Band;
    return state;
}

RowParts DifferentParts(const RowState& before, const RowState& after) {
    RowParts parts = 0;
    for (const PartRow& part : kParts) {
        if (!part.Same(before, after)) parts |= part.Part;
    }
    if ((parts & kSamplePart) != 0) parts |= kReversedPart | kSoundingPart | kBeatStartPart;
    return parts;
}

bool Fades(const RowState& row) { return row.Clock.FadeState != kNoFade; }

void CopyParts(RowState& to, const RowState& from, RowParts parts) {
    for (const PartRow& part : kParts) {
        if ((parts & part.Part) != 0) part.Copy(to, from);
    }
}

}  // namespace marvolin
