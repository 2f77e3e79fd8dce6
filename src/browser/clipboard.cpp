#include "browser/clipboard.h"

#include <algorithm>
#include <new>
#include <string>

#include "core/files/paths.h"
#include "core/undo/undo_step.h"

namespace marvolin {

namespace {

std::string ClipText(const LoopTrackSet& clip, std::ptrdiff_t others) {
    std::string text;
    if (others > 0) text.append(1, '(').append(std::to_string(others + 1)).append(") ");
    return text + SampleName(clip.FileName);
}

/// Clips of the store that hold the sample of `ClipStaging`.
std::ptrdiff_t ClipsOfStagedSample(const Session& s) {
    return std::count_if(s.Clips.ClipStore.begin(), s.Clips.ClipStore.end(),
                         [&](const LoopTrackSet& clip) { return clip.FileName == s.Clips.ClipStaging.FileName; });
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

bool HasClip(const Session& s, std::int16_t clip) { return clip >= 0 && clip <= s.Clips.ClipTop; }

void ReportFullClipBoard(Session& s) { s.World.Desk.Report("Too many LoopTracks on ClipBoard."); }

bool AddStagedClip(Session& s, std::ptrdiff_t others) {
    ClipBoardState& clips = s.Clips;
    if (clips.ClipTop + 1 >= kMostClips) {
        ReportFullClipBoard(s);
        return false;
    }
    try {
        clips.List.push_back(ClipText(clips.ClipStaging, others));
        clips.ClipStore.push_back(clips.ClipStaging);
    } catch (const std::bad_alloc&) {
        clips.List.resize(clips.ClipStore.size());
        s.World.Desk.Report("Out of memory for ClipBoard");
        return false;
    }
    ++clips.ClipTop;
    return true;
}

bool AddNewClip(Session& s) {
    const bool added = AddStagedClip(s, ClipsOfStagedSample(s));
    if (added) s.World.Screen.ShowClips();
    return added;
}

void DeleteClip(Session& s, std::int16_t clipIndex) {
    if (!HasClip(s, clipIndex)) return;
    const std::string name = SampleName(s.Clips.ClipStore[static_cast<std::size_t>(clipIndex)].FileName);
    const UndoStep step(s, "Deletion of the clip " + name, UndoScope::Clips);
    s.Clips.ClipStore.erase(s.Clips.ClipStore.begin() + clipIndex);
    s.Clips.List.erase(s.Clips.List.begin() + clipIndex);
    --s.Clips.ClipTop;
    s.Clips.Selected = -1;
    s.World.Screen.ShowClips();
}

DragSource ClipBoardList_MouseDown(Session& s, std::int16_t clip, std::int16_t button) {
    s.Clips.Selected = clip;
    return {drags::kClipBoardList, 0, std::to_string(button)};
}

bool ClipBoardTakesDrop(const Session& s, const DragSource& source) {
    if (source.Name != drags::kDropDown) return false;
    if (source.Index != kSelectionRow) {
        return source.Index >= 0 && source.Index < kLoopTracks && s.Run[source.Index].Loaded != False;
    }
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Set[row].Selected != False && s.Run[row].Loaded != False) return true;
    }
    return false;
}

void ClipBoardList_DragDrop(Session& s, const DragSource& source) {
    if (source.Name != drags::kDropDown) return;
    if (source.Index == kSelectionRow) {
        for (Row row = 0; row < kLoopTracks; ++row) {
            if (s.Set[row].Selected != False) AddRowAsClip(s, row);
        }
    } else if (source.Index >= 0 && source.Index < kRows) {
        AddRowAsClip(s, source.Index);
    }
}

bool TrashTakesDrop(const Session& s, const DragSource& source) {
    return source.Name == drags::kClipBoardList && HasClip(s, s.Clips.Selected);
}

void Trash_DragDrop(Session& s, const DragSource& source) {
    if (source.Name == drags::kClipBoardList) DeleteClip(s, s.Clips.Selected);
}

void ClearClip_Click(Session& s) {
    if (!s.World.Desk.MessageBox("Clear all items from clipboard?", "Clear?", BoxStyle::Question)) return;
    const UndoStep step(s, "Clear of the clipboard", UndoScope::Clips);
    InitClipBoard(s);
}

}  // namespace marvolin
