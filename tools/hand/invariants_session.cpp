#include <cmath>
#include <string>

#include "core/loops/grouping.h"
#include "invariants.h"
#include "parameters/scroll_events.h"
#include "performance/selection/bands.h"
#include "sequencing/loop_clock.h"

namespace marvolin::hand {

namespace {

constexpr int kTicks = 3;
constexpr std::int32_t kLongestTime = 99'999;  // 1/100 s: five digits

/// Collects the first thing that is out of its range.
class Ranges {
public:
    template <typename Value, typename Low, typename High>
    void In(const char* what, int index, Value value, Low low, High high) {
        if (!wrong_.empty() || (value >= static_cast<Value>(low) && value <= static_cast<Value>(high))) return;
        wrong_ = std::string(what) + (index < 0 ? "" : " " + std::to_string(index)) + " is " + std::to_string(value);
    }
    void Holds(const char* what, int index, bool holds) {
        if (wrong_.empty() && !holds) wrong_ = std::string(what) + (index < 0 ? "" : " " + std::to_string(index));
    }
    const std::string& Wrong() const { return wrong_; }

private:
    std::string wrong_;
};

void RowRanges(Ranges& r, const Session& s, Row row) {
    const LoopTrackSet& set = s.Set[row];
    r.In("Vol", row, set.Vol, 0, kVolFull);
    r.In("Pan", row, set.Pan, 0, kPanRight);
    r.In("Hz", row, set.Hz, 1, kHzTop);
    r.In("PlayMode", row, set.PlayMode, 0, kDrum);
    r.In("NSteps", row, set.NSteps, 0, kPatternSteps - 1);
    r.In("StepDuration", row, set.StepDuration, 0, kLongestTime);
    r.In("Swing", row, set.Swing, 0, kLongestTime);
    r.In("BeatStart", row, set.BeatStart, 0, kLongestTime);
    r.In("Channel", row, set.Channel, 1, 8);
    r.Holds("a place on the map is no number", row, std::isfinite(set.PositionX) && std::isfinite(set.PositionY));
    for (int block = 0; block < kPatternRows; ++block) {
        const PatternLimits& limits = kPatternRange[static_cast<std::size_t>(block)];
        for (int step = 0; step < kPatternSteps; ++step)
            r.In("a step of the pattern", row, set.Pattern[block][step], limits.Min, limits.Max);
    }
    const LoopTrackRun& run = s.Run[row];
    r.In("FadeState", row, run.FadeState, 0, kFalling);
    r.In("FadeTarget", row, run.FadeTarget, 0, kVolFull);
    r.In("Band", row, run.Band, 0, kBands - 1);
}

void PadRanges(Ranges& r, const Session& s) {
    for (int channel = 1; channel <= kChannels; ++channel) {
        r.In("ChannelVol", channel, s.ChannelVol[channel], 0, kVolFull);
        r.In("ChannelPan", channel, s.ChannelPan[channel], 0, kPanRight);
        r.In("ChannelHz", channel, s.ChannelHz[channel], 0, kHzTop);
    }
    const PadGeometry& pad = s.Geometry;
    for (int type = 0; type < 4; ++type) {
        r.In("PadTable X", type, s.PadTable[type].X, -pad.PadHalfX - 1, pad.PadHalfX + 1);
        r.In("PadTable Y", type, s.PadTable[type].Y, -pad.PadHalfY - 1, pad.PadHalfY + 1);
        r.In("curve", type, s.PadTable[type].Function, 1, 3);
    }
    r.In("PadTypeIndex", -1, s.PadTypeIndex, 0, 3);
    r.In("MapSize", -1, s.MapSize, 5, 100);
    r.In("RollOff", -1, s.RollOff, 0, 100);
    r.In("ListenerAngle", -1, s.ListenerAngle, 0, 359);
}

void OptionRanges(Ranges& r, const Session& s) {
    r.In("Limit", -1, s.Limit, 1, 4);
    r.In("FadeStep", -1, s.FadeStep, 0.04, 4.0);
    r.In("TimingRes", -1, s.TimingRes, 1, 100);
    r.In("DragAxis", -1, s.DragAxis, 0, 1);
    r.In("ActiveTab", -1, s.ActiveTab, 0, kTabs - 1);
    r.In("ActiveSubTab", -1, s.ActiveSubTab, 0, 3);
    r.In("CurrentLoop", -1, s.CurrentLoop, 0, kLoopTracks - 1);
    r.In("StepsShown", -1, s.StepsShown, 1, kPatternSteps);
    for (int i = 0; i < 2; ++i) r.In("ScrollSensitivity", i, s.ScrollSensitivity[i], 1, kMostScrollMoves);
    for (int i = 0; i < 3; ++i) r.In("JoyFactor", i, s.Joy.Factor[i], 100, 3000);
    for (int i = 0; i < 5; ++i) r.In("JoyButton", i, s.Joy.Button[i], 0, 8);
    r.In("Driver", -1, static_cast<int>(s.Driver), -1, static_cast<int>(s.Drivers.size()) - 1);
    r.In("OpenDriver", -1, static_cast<int>(s.OpenDriver), -1, static_cast<int>(s.Drivers.size()) - 1);
}

void ListRanges(Ranges& r, const Session& s) {
    for (int i = 0; i < kBins; ++i) {
        const SampleBin& bin = s.Bins[i];
        r.In("Destination of bin", i, bin.Destination, 0, 8);
        r.In("the selected sample of bin", i, bin.Selected, -1, static_cast<int>(bin.Rows.size()) - 1);
    }
    const ClipBoardState& clips = s.Clips;
    r.Holds("clips and their list differ", -1, clips.List.size() == static_cast<std::size_t>(clips.ClipTop + 1));
    r.Holds("clips are missing in the store", -1, clips.ClipStore.size() >= clips.List.size());
    r.In("the selected clip", -1, static_cast<int>(clips.Selected), -1, static_cast<int>(clips.ClipTop));
    r.Holds("QuickLoad's rows and files differ", -1, s.QuickLoadRows.size() == s.QuickLoadFiles.size());
}

void BandSums(Ranges& r, const Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].InBand == False) continue;
        const Band& band = s.BandTable[s.Run[row].Band];
        r.In("a row outside its band,", row, row, band.First, band.Last);
    }
    for (Row band = 0; band < kBands; ++band) {
        const BandRun run = DrawnBand(s, band);
        for (Row row = run.First; row <= run.Last && !run.Empty(); ++row)
            r.Holds("a row of the band does not know it,", row, s.Run[row].InBand != False && s.Run[row].Band == band);
    }
}

void SampleSums(Ranges& r, const Session& s) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackRun& run = s.Run[row];
        r.Holds("loaded and the buffer differ,", row, (run.Loaded != False) == (run.Buffer != nullptr));
        r.Holds("a loaded row has no name,", row, run.Loaded == False || !s.Set[row].FileName.empty());
        r.Holds("the 3D side of a buffer,", row, run.Buffer == nullptr || (run.Buffer3D != nullptr) == s.Use3D);
        r.Holds("plays without a sample,", row, run.Playing == False || run.Loaded != False || !s.DSReady);
    }
}

void ThinSums(Ranges& r, const Session& s) {
    for (std::size_t i = 0; i < s.ThinList.size(); ++i) {
        const auto row = static_cast<Row>(s.ThinList[i] - 'A');
        r.In("a letter of ThinList", static_cast<int>(i), row, 0, kLoopTracks - 1);
        r.Holds("ThinList has a letter twice,", row, s.ThinList.find(s.ThinList[i]) == i);
        if (row >= 0 && row < kLoopTracks)
            r.Holds("ThinList has a row that is not thinned,", row, s.Set[row].Thinnable != False);
    }
}

// Between two ticks the button of the selection may say something else, by the rules.
std::string WrongPlayOfSelection(const Session& s) {
    bool plays = false;
    for (Row row = 0; row < kLoopTracks; ++row) plays = plays || (IsControlled(s, row) && s.Run[row].Playing == True);
    if ((s.Run[kSelectionRow].Playing != False) == plays) return "";
    return plays ? "a controlled row plays, the selection does not" : "the selection plays, none of its rows does";
}

/// Whether something plays at each tick of a clock of its own: a script, or a fade that rises on an empty row, which
/// plays the selection with each of its ticks.
bool StartsAtTicks(const World& world) {
    bool starts = world.Room.Runs();
    for (Row row = 0; row < kLoopTracks; ++row) {
        const LoopTrackRun& run = world.s.Run[row];
        starts = starts || (run.FadeState == kRising && run.Loaded == False && world.s.Set[row].Selected != False);
    }
    return starts;
}

}  // namespace

std::string WrongRange(const Session& s) {
    Ranges ranges;
    for (Row row = 0; row < kRows; ++row) RowRanges(ranges, s, row);
    PadRanges(ranges, s);
    OptionRanges(ranges, s);
    ListRanges(ranges, s);
    return ranges.Wrong();
}

std::string WrongSum(const Session& s) {
    Ranges sums;
    BandSums(sums, s);
    SampleSums(sums, s);
    ThinSums(sums, s);
    return sums.Wrong();
}

std::string WrongAfterTick(World& world) {
    Session& s = world.s;
    // What starts at each tick of its own may have done so since: a tick of the step clock alone puts it right.
    if (StartsAtTicks(world) && !WrongPlayOfSelection(s).empty()) LoopTimer_Timer(s, 0);
    // A stick may have played something after the tick, so the next ticks count, too.
    for (int tick = 0; tick < kTicks && !WrongPlayOfSelection(s).empty(); ++tick) world.Pass(s.TimingRes);
    return WrongPlayOfSelection(s);
}

}  // namespace marvolin::hand
