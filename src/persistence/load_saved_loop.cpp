#include "persistence/load_saved_loop.h"

#include <cmath>

#include "audio/beat_start.h"
#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "audio/thinning.h"
#include "core/paths.h"
#include "core/routines.h"
#include "parameters/position.h"
#include "parameters/setters.h"
#include "parameters/wires.h"

namespace marvolin {

namespace {

/// Where the sample of a stored LoopTrack is looked for.
void SplitSample(const SavedLoop& saved, bool forPackage, const std::string& openPath, std::string& folder,
                 std::string& name) {
    SplitPath(saved.Set.FileName, folder, name);
    if (forPackage) folder = openPath;
    if (!folder.empty()) folder.pop_back();
}

void LoadSample(Session& s, const SavedLoop& saved, bool forPackage, const std::string& openPath) {
    std::string folder;
    std::string name;
    SplitSample(saved, forPackage, openPath, folder, name);
    LoopLoad(s, saved.Index, folder, name);
    LoopSetThinnable(s, saved.Index, saved.Set.Thinnable != False);
    s.World.Screen.ShowCaption(saved.Index);
    const std::int16_t mode = saved.Set.PlayMode;
    if (mode >= kOneShot && mode <= kDrum) LoopSetPlayMode(s, saved.Index, mode, true);
}

void RestorePlace(Session& s, const SavedLoop& saved, const clsSwitchRecord& loadSwitch) {
    const LoopTrackSet& set = saved.Set;
    if (s.Use3D) {
        if (!loadSwitch.Get(Element::Position)) return;
        if (!std::isfinite(set.PositionX) || !std::isfinite(set.PositionY)) return;
        TryPositionSet(s, saved.Index, set.PositionX, set.PositionY, {.Apply = true, .StoreBall = true});
        return;
    }
    if (loadSwitch.Get(Element::Pan)) {
        std::int16_t pan = set.Pan;
        LoopPanChange(s, saved.Index, pan, TakeHold::Yes);
    }
    if (loadSwitch.Get(Element::PanPattern)) s.Set[saved.Index].Pattern[kPanPattern] = set.Pattern[kPanPattern];
}

// Timing travels with the patterns, not with the sample.
void RestoreTiming(Session& s, const SavedLoop& saved) {
    LoopTrackSet& target = s.Set[saved.Index];
    target.NSteps = saved.Set.NSteps;
    ClampI2(target.NSteps, 0, kPatternSteps - 1);
    std::int32_t beatStart = saved.Set.BeatStart;
    LoopSetBeatStart(s, saved.Index, beatStart);
    target.Swing = saved.Set.Swing;
    target.StepDuration = saved.Set.StepDuration;
}

}  // namespace

bool LoadSavedLoop(Session& s, const SavedLoop& saved, const clsSwitchRecord& loadSwitch, std::int16_t newUse3D,
                   bool forPackage, const std::string& openPath) {
    if (saved.Index >= kLoopTracks) return false;
    const LoopTrackSet& set = saved.Set;
    LoopTrackSet& target = s.Set[saved.Index];
    bool loaded = false;
    if (loadSwitch.Get(Element::LoopTrack) && !set.FileName.empty()) {
        LoadSample(s, saved, forPackage, openPath);
        loaded = true;
    }
    if (loadSwitch.Get(Element::Freq)) {
        std::int16_t hz = set.Hz;
        LoopHzChange(s, saved.Index, hz, TakeHold::Yes);
    }
    if (loadSwitch.Get(Element::FreqPattern)) target.Pattern[kHzPattern] = set.Pattern[kHzPattern];
    if (loadSwitch.Get(Element::Vol)) {
        std::int16_t vol = set.Vol;
        LoopVolChange(s, saved.Index, vol, TakeHold::Yes, UpdateDisplay::Yes);
    }
    if (loadSwitch.Get(Element::VolPattern)) target.Pattern[kVolPattern] = set.Pattern[kVolPattern];
    if ((newUse3D != False) == s.Use3D) RestorePlace(s, saved, loadSwitch);
    if (loadSwitch.Get(Element::VolPattern) || loadSwitch.Get(Element::FreqPattern) ||
        loadSwitch.Get(Element::PanPattern)) {
        RestoreTiming(s, saved);
    }
    if (loadSwitch.Get(Element::CrossFader)) {
        std::int16_t channel = set.Channel;
        LoopSetChannel(s, saved.Index, channel, Apply::Yes);
    }
    return loaded;
}

bool HoldsSavedSample(const Session& s, const SavedLoop& saved, bool forPackage, const std::string& openPath) {
    std::string folder;
    std::string name;
    SplitSample(saved, forPackage, openPath, folder, name);
    return s.Run[saved.Index].Loaded != False && s.Set[saved.Index].FileName == JoinPath(folder, name);
}

}  // namespace marvolin
