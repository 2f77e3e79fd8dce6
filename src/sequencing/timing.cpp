#include "sequencing/timing.h"

#include "audio/beat_start.h"
#include "audio/play_modes.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"

namespace marvolin {

namespace {

constexpr double kTwipsATimeUnit = 50;  // of a drag that make one unit of a digit

void StoreTime(Session& s, int group, std::int32_t hundredths) {
    switch (group) {
        case kStepDurationGroup:
            s.Set[s.CurrentLoop].StepDuration = hundredths;
            ShowStepDuration(s);
            return;
        case kSwingGroup:
            s.Set[s.CurrentLoop].Swing = hundredths;
            ShowSwing(s);
            return;
        case kBeatStartGroup:
            LoopSetBeatStart(s, s.CurrentLoop, hundredths);
            ShowBeatStart(s);
            return;
        default:
            return;
    }
}

std::int32_t StoredTime(const Session& s, int group) {
    const LoopTrackSet& set = s.Set[s.CurrentLoop];
    return group == kStepDurationGroup ? set.StepDuration : group == kSwingGroup ? set.Swing : set.BeatStart;
}

void CopyElement(Session& s, Row from, Row to, int what) {
    if (from == to) return;
    const bool all = what == kAllTiming;
    if (what == kCloneStepDuration || all) s.Set[to].StepDuration = s.Set[from].StepDuration;
    if (what == kCloneBeatStart || all) {
        // A sample that waits for a device keeps its start beside it, since its length is not known yet.
        const HeldSample& source = s.Run[from].InHand;
        HeldSample& target = s.Run[to].InHand;
        std::int32_t beatStart = source.FileName.empty() ? s.Set[from].BeatStart : source.BeatStart;
        if (!target.FileName.empty()) target.BeatStart = beatStart;
        LoopSetBeatStart(s, to, beatStart);
    }
    if (what == kCloneSwing || all) s.Set[to].Swing = s.Set[from].Swing;
}

}  // namespace

void TimeDigit_Gesture(Session& s, int digit, Phase phase, double y) {
    const int group = digit / kDigitsAGroup;
    switch (phase) {
        case Phase::Down:
            s.Drag.Dragging = True;
            s.Drag.DragOrigin = static_cast<float>(y);
            if (group < kTimeGroups) s.Drag.DragStartValue = StoredTime(s, group);
            return;
        case Phase::Move: {
            if (s.Drag.Dragging == False) return;
            const double units = Int((y - s.Drag.DragOrigin) * (1 / kTwipsATimeUnit));
            const double weight = kDigitWeight.at(static_cast<std::size_t>(digit));
            StoreTime(s, group, ToI4(s.Drag.DragStartValue - units * weight));
            return;
        }
        case Phase::Up:
            s.Drag.Dragging = False;
            return;
    }
}

void TimeDigit_Step(Session& s, int digit, int units) {
    if (s.Drag.Dragging != False) return;
    const int group = digit / kDigitsAGroup;
    StoreTime(s, group, ToI4(StoredTime(s, group) + units * kDigitWeight.at(static_cast<std::size_t>(digit))));
}

void PercentReadOut_DblClick(Session& s, int element) {
    StoreTime(s, element, element == kStepDurationGroup ? ToI4(s.Set[s.CurrentLoop].Length * 100) : 0);
}

void TimingCopy(Session& s, Row from, Row to, int what) {
    const auto copy = [&](Row row) { CopyElement(s, from, row, what); };
    const auto startAgain = [&](Row row) {
        if (what == kAllTiming) LoopSetPlayMode(s, row, s.Set[row].PlayMode, true);
    };
    if (to == kSelectionRow) {
        ForControlled(s, copy);
        ForControlled(s, startAgain);
    } else if (s.Run[to].InBand == False) {
        copy(to);
        startAgain(to);
    } else {
        ForBand(s, s.Run[to].Band, [&](Row row) {
            copy(row);
            startAgain(row);
        });
    }
}

}  // namespace marvolin
