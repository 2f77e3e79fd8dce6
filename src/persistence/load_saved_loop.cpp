#include "persistence/load_saved_loop.h"

#include <cmath>
#include <utility>

#include "audio/beat_start.h"
#include "audio/play_modes.h"
#include "audio/sample_loading.h"
#include "audio/thinning.h"
#include "audio/transport.h"
#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "core/routines.h"
#include "parameters/position.h"
#include "parameters/setters.h"
#include "parameters/wires.h"
#include "persistence/missing/missing_sample.h"

namespace marvolin {

namespace {

/// The file of a package that `name` means; "" when there is none. A package that was made on another system may spell
/// the extension otherwise.
std::string PackageFile(const std::string& folder, const std::string& name) {
    const std::string path = JoinPath(folder, name);
    if (FileExists(path) || !EndsInIgnoringCase(name, ".WAV")) return path;
    return JoinPath(folder, SampleFileName(folder, SampleName(path)));
}

// A sample that no device has taken enters the row with the next one. It replaces one that still waited.
void WaitForDevice(Session& s, Row row, const std::string& path) {
    if (s.Run[row].Loaded != False) return;
    if (!s.DSReady || FileExists(path)) s.Run[row].InHand = {.FileName = path};
    // It takes the place of what was missing, unless its file is away as well.
    if (TargetExists(path) && std::exchange(s.Run[row].Missing, nullptr)) s.World.Screen.ShowCaption(row);
}

bool IsWaiting(const Session& s, Row row, const std::string& path) {
    return !path.empty() && s.Run[row].Loaded == False && s.Run[row].InHand.FileName == path;
}

void RestoreSample(Session& s, const SavedLoop& saved, const SavedFrom& from) {
    LoadSample(s,
               {.Path = SavedSample(saved, from), .Target = saved.Index, .Rows = Reach::Alone, .Origin = from.Origin});
    WaitForDevice(s, saved.Index, SavedSample(saved, from));
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
    HeldSample& inHand = s.Run[saved.Index].InHand;
    if (!inHand.FileName.empty()) inHand.BeatStart = saved.Set.BeatStart;
    target.Swing = saved.Set.Swing;
    target.StepDuration = saved.Set.StepDuration;
}

/// What of `asked` the row was given: pan and position only under the 3D state in which they were stored.
clsSwitchRecord Given(const Session& s, const clsSwitchRecord& asked, const SavedFrom& from) {
    clsSwitchRecord given = asked;
    const bool placed = (from.NewUse3d != False) == s.Use3D;
    if (!placed || s.Use3D) given.Put(Element::Pan, false);
    if (!placed || s.Use3D) given.Put(Element::PanPattern, false);
    if (!placed || !s.Use3D) given.Put(Element::Position, false);
    return given;
}

}  // namespace

std::string SavedSample(const SavedLoop& saved, const SavedFrom& from) {
    if (!from.Found.empty()) return from.Found;
    std::string folder;
    std::string name;
    SplitPath(saved.Set.FileName, folder, name);
    if (name.empty()) return "";
    if (!from.ForPackage) return saved.Set.FileName;
    // A package holds its samples by name. A name of this system may hold "\", which separates folders on others.
    std::string nameHere;
    SplitFilePath(saved.Set.FileName, folder, nameHere);
    const std::string path = PackageFile(from.OpenPath, nameHere);
    return FileExists(path) ? path : PackageFile(from.OpenPath, name);
}

bool LoadSavedLoop(Session& s, const SavedLoop& saved, const clsSwitchRecord& loadSwitch, const SavedFrom& from) {
    if (saved.Index >= kLoopTracks) return false;
    const LoopTrackSet& set = saved.Set;
    LoopTrackSet& target = s.Set[saved.Index];
    bool loaded = false;
    if (loadSwitch.Get(Element::LoopTrack) && !set.FileName.empty()) {
        RestoreSample(s, saved, from);
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
    if ((from.NewUse3d != False) == s.Use3D) RestorePlace(s, saved, loadSwitch);
    if (loadSwitch.Get(Element::VolPattern) || loadSwitch.Get(Element::FreqPattern) ||
        loadSwitch.Get(Element::PanPattern)) {
        RestoreTiming(s, saved);
    }
    if (loadSwitch.Get(Element::CrossFader)) {
        std::int16_t channel = set.Channel;
        LoopSetChannel(s, saved.Index, channel, Apply::Yes);
    }
    KeepRestored(s, saved, Given(s, loadSwitch, from));
    return loaded;
}

bool HoldsSavedSample(const Session& s, const SavedLoop& saved, const SavedFrom& from) {
    const std::string path = SavedSample(saved, from);
    if (IsWaiting(s, saved.Index, path)) return true;
    return s.Run[saved.Index].Loaded != False && s.Set[saved.Index].FileName == path;
}

void PlaySavedLoop(Session& s, Row row) {
    if (s.Run[row].Loaded != False) return LoopPlay(s, row, true);
    s.Run[row].InHand.Playing = s.Run[row].InHand.Sounds = true;
    s.Run[row].InHand.Loops = LoopPlayFlags(s.Set[row].PlayMode) != 0;
    ThinAdd(s, row);
}

}  // namespace marvolin
