#include "browser/clipboard.h"

#include <algorithm>
#include <new>
#include <string>
#include <unordered_map>
#include <vector>

#include "audio/transport.h"
#include "core/errors.h"
#include "core/loop_views.h"
#include "core/paths.h"
#include "persistence/load_saved_loop.h"
#include "persistence/loop_record.h"

namespace marvolin {

namespace {

constexpr std::int16_t kLastClip = 2000;

bool HasClip(const Session& s, std::int16_t clip) { return clip >= 0 && clip <= s.Clips.ClipTop; }

std::string ClipText(const LoopTrackSet& clip, std::ptrdiff_t others) {
    std::string text;
    if (others > 0) text.append(1, '(').append(std::to_string(others + 1)).append(") ");
    return text + SampleName(clip.FileName);
}

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

/// Clips of the store that hold the sample of `ClipStaging`.
std::ptrdiff_t ClipsOfStagedSample(const Session& s) {
    return std::count_if(s.Clips.ClipStore.begin(), s.Clips.ClipStore.end(),
                         [&](const LoopTrackSet& clip) { return clip.FileName == s.Clips.ClipStaging.FileName; });
}

/// Adds `ClipStaging`, of whose sample the store holds `others` clips, without showing the list. False when the clip
/// was refused, with the reason shown.
bool AddStagedClip(Session& s, std::ptrdiff_t others) {
    ClipBoardState& clips = s.Clips;
    if (clips.ClipTop >= kLastClip) {
        s.World.Desk.MessageBox("Too many LoopTracks on ClipBoard.");
        return false;
    }
    try {
        clips.List.push_back(ClipText(clips.ClipStaging, others));
        clips.ClipStore.push_back(clips.ClipStaging);
    } catch (const std::bad_alloc&) {
        clips.List.resize(clips.ClipStore.size());
        s.World.Desk.MessageBox("Out of memory for ClipBoard");
        return false;
    }
    ++clips.ClipTop;
    return true;
}

void AddRowAsClip(Session& s, Row row) {
    if (s.Run[row].Loaded == False) return;
    s.Clips.ClipStaging = s.Set[row];
    AddNewClip(s);
}

}  // namespace

void InitClipBoard(Session& s) {
    s.Clips.ClipStore.clear();
    s.Clips.ClipStore.shrink_to_fit();
    s.Clips.ClipTop = -1;
    s.Clips.List.clear();
    s.Clips.Selected = -1;
    s.World.Screen.ShowClips();
}

bool AddNewClip(Session& s) {
    const bool added = AddStagedClip(s, ClipsOfStagedSample(s));
    if (added) s.World.Screen.ShowClips();
    return added;
}

void DeleteClip(Session& s, std::int16_t clipIndex) {
    if (!HasClip(s, clipIndex)) return;
    s.Clips.ClipStore.erase(s.Clips.ClipStore.begin() + clipIndex);
    s.Clips.List.erase(s.Clips.List.begin() + clipIndex);
    --s.Clips.ClipTop;
    s.Clips.Selected = -1;
    s.World.Screen.ShowClips();
}

void CopyIt(Session& s, Row dest, std::int16_t clipIndex, bool playItNow) {
    if (dest == kSelectionRow || !HasClip(s, clipIndex)) return;
    SavedLoop staging;
    staging.Index = dest;
    staging.Set = s.Clips.ClipStore[static_cast<std::size_t>(clipIndex)];
    // A sample that has gone away leaves the one of before, which nobody asked to start.
    const bool loaded = LoadSavedLoop(s, staging, ComponentSwitches(s), ToBoolean(s.Use3D), false, "") &&
                        HoldsSavedSample(s, staging, false, "");
    if (loaded) {
        RefreshRow(s, dest);
        if (playItNow) LoopPlay(s, dest, true);
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

DragSource ClipBoardList_MouseDown(Session& s, std::int16_t clip, std::int16_t button) {
    s.Clips.Selected = clip;
    return {"ClipBoardList", 0, std::to_string(button)};
}

void ClipBoardList_DragDrop(Session& s, const DragSource& source) {
    if (source.Name != "DropDown") return;
    if (source.Index == kSelectionRow) {
        for (Row row = 0; row < kLoopTracks; ++row) {
            if (s.Set[row].Selected != False) AddRowAsClip(s, row);
        }
    } else if (source.Index >= 0 && source.Index < kRows) {
        AddRowAsClip(s, source.Index);
    }
}

void Trash_DragDrop(Session& s, const DragSource& source) {
    if (source.Name == "ClipBoardList") DeleteClip(s, s.Clips.Selected);
}

void ClearClip_Click(Session& s) {
    if (s.World.Desk.MessageBox("Clear all items from clipboard?", "Clear?", BoxStyle::Question)) InitClipBoard(s);
}

void WriteClipBoard(const Session& s, RecordWriter& file) {
    file.PutInteger(static_cast<std::int16_t>(s.Clips.ClipTop + 1));
    for (const LoopTrackSet& clip : s.Clips.ClipStore) WriteLoopTrackSet(file, clip);
}

void ReadClipBoard(Session& s, RecordReader& file, bool loadIt) {
    const std::int32_t clips = file.CheckedCount(file.GetInteger(), kSmallestLoopRecord);
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
