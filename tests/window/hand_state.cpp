#include "hand_state.h"

#include <array>
#include <cstdio>

namespace marvolin::test {

namespace {

void RowFacts(const Session& s, Row row, Facts& facts) {
    const std::string name = row == kMasterRow ? "Master." : std::string(1, RowLetter(row)) + ".";
    const LoopTrackSet& set = s.Set[row];
    const LoopTrackRun& run = s.Run[row];
    const auto put = [&](const char* field, auto value) { facts[name + field] = std::to_string(value); };
    facts[name + "FileName"] = set.FileName;
    put("Vol", set.Vol);
    put("Pan", set.Pan);
    put("Hz", set.Hz);
    put("Selected", set.Selected);
    put("Thinnable", set.Thinnable);
    put("StepDuration", set.StepDuration);
    put("Swing", set.Swing);
    put("BeatStart", set.BeatStart);
    put("PlayMode", set.PlayMode);
    put("NSteps", set.NSteps);
    put("Channel", set.Channel);
    put("PositionX", set.PositionX);
    put("PositionY", set.PositionY);
    for (int block = 0; block < kPatternRows; ++block) {
        std::string& text = facts[name + "Pattern" + std::to_string(block)];
        // Thousands of numbers: the plainest way is several times as fast.
        for (const std::int16_t value : set.Pattern[block]) {
            std::array<char, 8> digits{};
            text.append(digits.data(),
                        static_cast<std::size_t>(std::snprintf(digits.data(), digits.size(), "%d ", value)));
        }
    }
    put("Loaded", run.Loaded);
    put("Playing", run.Playing);
    put("Paused", run.Paused);
    put("FadeState", run.FadeState);
    put("FadeTarget", run.FadeTarget);
    put("InBand", run.InBand);
    put("Band", run.Band);
}

void GestureFacts(const Session& s, Facts& facts) {
    const auto put = [&](const char* field, auto value) { facts[field] = std::to_string(value); };
    put("Dragging", s.Drag.Dragging);
    put("DragPlayModeRow", s.Drag.DragPlayModeRow);
    put("SelectDragTag", s.SelectDragTag);
    put("BandDrag.Lane", s.BandDrag.Lane);
    put("PatternDrawRow", s.PatternDrawRow);
    put("PatternRandomRow", s.PatternRandomRow);
    put("CursorFree", s.CursorFree);
}

void WindowFacts(const Session& s, Facts& facts) {
    const auto put = [&](const std::string& field, auto value) { facts[field] = std::to_string(value); };
    put("SelectionControlled", s.SelectionControlled);
    for (Row band = 0; band < kBands; ++band) {
        const Band& run = s.BandTable[band];
        const std::string name = "Band" + std::to_string(band) + ".";
        put(name + "First", run.First);
        put(name + "Last", run.Last);
        put(name + "Controlled", run.Controlled);
    }
    put("CurrentLoop", s.CurrentLoop);
    facts["ThinList"] = s.ThinList;
    put("Limit", s.Limit);
    put("FadeStep", s.FadeStep);
    for (Row row = 0; row <= kSelectionRow; ++row) {
        put(std::string(1, RowLetter(row)) + ".Level", s.SndDisp[row].Level);
        put(std::string(1, RowLetter(row)) + ".Line", s.SndDisp[row].Line);
    }
    put("StepsShown", s.StepsShown);
    put("PadTypeIndex", s.PadTypeIndex);
    for (int type = 0; type < 5; ++type) {
        put("Pad" + std::to_string(type) + ".X", s.PadTable[type].X);
        put("Pad" + std::to_string(type) + ".Y", s.PadTable[type].Y);
        put("Pad" + std::to_string(type) + ".Function", s.PadTable[type].Function);
    }
    put("SetChannelChoice", s.SetChannelChoice);
    for (int ball = 0; ball < 5; ++ball) {
        put("Ball" + std::to_string(ball) + ".X", s.BallPos[ball].X);
        put("Ball" + std::to_string(ball) + ".Y", s.BallPos[ball].Y);
    }
    put("ListenerAngle", s.ListenerAngle);
    put("PosMacro", s.PosMacro);
    put("MapSize", s.MapSize);
    put("RollOff", s.RollOff);
    put("TwistPosition", s.TwistPosition);
    put("TimingRes", s.TimingRes);
    put("DragAxis", s.DragAxis);
    put("ActiveTab", s.ActiveTab);
    put("ActiveSubTab", s.ActiveSubTab);
    put("MiniMode", s.MiniMode);
    put("ResetVars", s.ResetVars);
    put("PlayOnLoad", s.PlayOnLoad);
    put("Driver", s.Driver);
    put("Use3D", s.Use3D);
    put("Clips.Selected", s.Clips.Selected);
    put("Clips", s.Clips.List.size());
    for (int i = 0; i < 2; ++i) put("ScrollSensitivity" + std::to_string(i), s.ScrollSensitivity[i]);
    for (int i = 0; i < 3; ++i) {
        put("PositionUpdate" + std::to_string(i), s.PositionUpdate[i]);
        put("JoyFactor" + std::to_string(i), s.Joy.Factor[i]);
        put("Bin" + std::to_string(i) + ".Selected", s.Bins[i].Selected);
        put("Bin" + std::to_string(i) + ".Destination", s.Bins[i].Destination);
        put("Bin" + std::to_string(i) + ".ClickPlay", s.Bins[i].ClickPlay);
    }
    for (int i = 0; i < 2; ++i) {
        put("JoyRelative" + std::to_string(i), s.Joy.Relative[i]);
        put("JoyAxis" + std::to_string(i), s.Joy.AxisChoice[i]);
    }
    for (int i = 0; i < 5; ++i) put("JoyButton" + std::to_string(i), s.Joy.ButtonChoice[i]);
    for (int i = 0; i < 7; ++i) put("Component" + std::to_string(i), s.Clips.Components[i]);
}

}  // namespace

Facts FactsOf(const Session& s) {
    Facts facts;
    for (Row row = 0; row < kRows; ++row) RowFacts(s, row, facts);
    GestureFacts(s, facts);
    WindowFacts(s, facts);
    return facts;
}

std::vector<std::string> Changed(const Facts& before, const Facts& after) {
    std::vector<std::string> names;
    for (const auto& [name, value] : after) {
        if (before.at(name) != value) names.push_back(name + " " + value);
    }
    return names;
}

Table<HandState::RunState, kRows> HandState::RunsOf(const Session& s) {
    Table<RunState, kRows> runs;
    for (Row row = 0; row < kRows; ++row) {
        const LoopTrackRun& run = s.Run[row];
        runs[row] = {run.Playing, run.Paused, run.FadeState, run.FadeValue, run.FadeTarget, run.InBand, run.Band};
    }
    return runs;
}

void HandState::PutBack(Session& s) const {
    HandFields(s) = kept_;
    for (Row row = 0; row < kRows; ++row) {
        const RunState& kept = runs_[row];
        LoopTrackRun& run = s.Run[row];
        run.Playing = kept.Playing;
        run.Paused = kept.Paused;
        run.FadeState = kept.FadeState;
        run.FadeValue = kept.FadeValue;
        run.FadeTarget = kept.FadeTarget;
        run.InBand = kept.InBand;
        run.Band = kept.Band;
    }
}

}  // namespace marvolin::test
