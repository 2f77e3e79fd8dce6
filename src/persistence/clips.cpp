#include "persistence/clips.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

#include "browser/clipboard.h"
#include "core/errors.h"
#include "core/files/paths.h"
#include "core/loops/loop_views.h"
#include "core/undo/undo_step.h"
#include "persistence/load_saved_loop.h"
#include "persistence/loop_record.h"

namespace marvolin {

namespace {

clsSwitchRecord ComponentSwitches(const Session& s) {
    struct Component {
        int Box;
        Element Switch;
    };
    static constexpr std::array<Component, 9> kComponents{{{0, Element::LoopTrack},
                                                           {1, Element::Vol},
                                                           {2, Element::Freq},
                                                           {3, Element::Pan},
                                                           {4, Element::VolPattern},
                                                           {4, Element::FreqPattern},
                                                           {4, Element::PanPattern},
                                                           {5, Element::Position},
                                                           {6, Element::CrossFader}}};
    clsSwitchRecord switches;
    switches.SetSwitch(true);
    for (const Component& component : kComponents) {
        if (!s.Clips.Components[component.Box]) switches.Put(component.Switch, false);
    }
    return switches;
}

void RefreshRow(Session& s, Row row) {
    s.World.Screen.ShowCaption(row);
    s.World.Screen.ShowPlayMode(row);
    s.World.Screen.ShowWire(row);
    for (const Knob knob : {Knob::Vol, Knob::Pan, Knob::Hz}) s.World.Screen.ShowKnob(row, knob);
}

}  // namespace

void CopyIt(Session& s, Row dest, std::int16_t clipIndex, bool playItNow) {
    if (dest == kSelectionRow || !HasClip(s, clipIndex)) return;
    SavedLoop staging;
    staging.Index = dest;
    staging.Set = s.Clips.ClipStore[static_cast<std::size_t>(clipIndex)];
    const UndoStep step(s, "Clip " + SampleName(staging.Set.FileName) + " onto " + RowLetter(dest));
    // When the clip's sample cannot be loaded, the row keeps its previous sample, which is not started.
    const SavedFrom from{.NewUse3d = ToBoolean(s.Use3D), .OpenPath = "", .Origin = SampleOrigin::Clip};
    const bool loaded = LoadSavedLoop(s, staging, ComponentSwitches(s), from) && HoldsSavedSample(s, staging, from);
    if (loaded) {
        RefreshRow(s, dest);
        if (playItNow) PlaySavedLoop(s, dest);
    }
    if (dest == s.CurrentLoop) PatternsRefresh(s);
}

void DropClip(Session& s, Row dest, const DragSource& source) {
    const bool leftDrag = source.Tag == "1";
    const Table<bool, 7> components = s.Clips.Components;
    // The labels of the tab promise that a plain drag copies everything, whatever the boxes say.
    if (leftDrag) std::fill(s.Clips.Components.begin(), s.Clips.Components.end(), true);
    CopyIt(s, dest, s.Clips.Selected, leftDrag);
    s.Clips.Components = components;
}

void WriteClipBoard(const Session& s, RecordWriter& file) {
    file.PutInteger(static_cast<std::int16_t>(s.Clips.ClipTop + 1));
    for (const LoopTrackSet& clip : s.Clips.ClipStore) WriteLoopTrackSet(file, clip);
}

void ReadClipBoard(Session& s, RecordReader& file, bool loadIt) {
    const std::int32_t clips = file.CheckedCount(file.GetInteger(), 0);
    // A whole clipboard comes at once: its samples are counted along, not searched for again with each clip.
    std::unordered_map<std::string, std::ptrdiff_t> counts;
    for (const LoopTrackSet& clip : s.Clips.ClipStore) ++counts[clip.FileName];
    // Once a clip was refused, the others of the file would be too, each with a message of its own.
    bool adding = loadIt;
    const auto read = [&] {
        for (std::int32_t clip = 0; clip < clips; ++clip) {
            s.Clips.ClipStaging = ReadLoopTrackSet(file);
            if (adding) adding = AddStagedClip(s, counts[s.Clips.ClipStaging.FileName]++);
        }
    };
    try {
        read();
    } catch (const RuntimeError&) {
        // What came before the damage stays, so it is shown as well.
        s.World.Screen.ShowClips();
        throw;
    }
    if (loadIt && clips > 0) s.World.Screen.ShowClips();
}

}  // namespace marvolin
