#include "browser/bin_gestures.h"

#include "audio/play_commands.h"
#include "audio/sample_loading.h"
#include "browser/destinations.h"
#include "browser/sample_bins.h"
#include "core/files/paths.h"
#include "performance/drops/palette.h"

namespace marvolin {

namespace {

bool HasRow(const SampleBin& bin, int row) { return row >= 0 && static_cast<std::size_t>(row) < bin.Rows.size(); }

bool InRightMargin(double x, double width) { return x >= width * 2 / 3; }

void HideTree(Session& s) { s.World.Screen.ShowFolderTree(false); }

void TakeFolder(Session& s, int bin, const std::string& folder) {
    SetPickDir(s, bin, folder);
    UpdatePickFile(s, bin);
}

}  // namespace

std::string SampleAt(const Session& s, int bin, int row) {
    if (bin < 0 || bin >= kBins || !HasRow(s.Bins[bin], row)) return "";
    const BinRow& picked = s.Bins[bin].Rows[static_cast<std::size_t>(row)];
    return picked.Target.empty() ? JoinPath(SearchFolder(s.Bins[bin]), picked.File) : picked.Target;
}

bool BinDragsAt(const Session& s, int bin, double x, double width) {
    return s.Bins[bin].Destination == kDragDestination || InRightMargin(x, width);
}

std::optional<DragSource> PickFile_MouseDown(Session& s, int bin, std::int16_t button, int row, double x,
                                             double width) {
    SampleBin& picks = s.Bins[bin];
    if (picks.Rows.empty()) {
        PickDir_Click(s, bin);
        return std::nullopt;
    }
    if (!HasRow(picks, row)) return std::nullopt;
    const bool dragOnly = picks.Destination == kDragDestination;
    if (dragOnly ? button != kLeftButton && button != kRightButton : !InRightMargin(x, width)) return std::nullopt;
    s.DragBin = static_cast<std::int16_t>(bin);
    picks.Selected = row;
    s.World.Screen.ShowBin(bin);
    HideTree(s);
    return DragSource{drags::kPickFile, static_cast<Row>(bin), ""};
}

void PickFile_MouseUp(Session& s, int bin, std::int16_t button, int row) {
    SampleBin& picks = s.Bins[bin];
    const std::string path = SampleAt(s, bin, row);
    if (path.empty() || picks.Destination == kDragDestination) return;
    if (button != kLeftButton && button != kRightButton) return;
    picks.Selected = row;
    s.World.Screen.ShowBin(bin);
    HideTree(s);
    if (button == kLeftButton) {
        LoadSample(
            s, {.Path = path, .Target = picks.Destination, .Play = picks.ClickPlay == 1, .Origin = SampleOrigin::Bin});
    } else {
        TogglePlay(s, picks.Destination);
    }
}

void DropFromBin(Session& s, Row row, const DragSource& source) {
    if (source.Index < 0 || source.Index >= kBins) return;
    const std::string path = SampleAt(s, source.Index, s.Bins[source.Index].Selected);
    if (path.empty()) return;
    LoadSample(s, {.Path = path, .Target = row, .Play = DropPlays(s, source.Index), .Origin = SampleOrigin::Bin});
}

void PickDir_Click(Session& s, int bin) {
    s.TreeFolder = s.Bins[bin].Folder;
    s.World.Screen.ShowFolderTree(true);
}

bool PickDirTakesDrop(int bin, const DragSource& source) {
    return source.Name == drags::kPickDir && source.Index >= 0 && source.Index < kBins && source.Index != bin;
}

void PickDir_DragDrop(Session& s, int bin, const DragSource& source) {
    if (!PickDirTakesDrop(bin, source)) return;
    TakeFolder(s, bin, std::string(s.Bins[source.Index].Folder));
}

void PickDir_DropFolder(Session& s, int bin, const std::string& folder) { TakeFolder(s, bin, folder); }

void FolderTree_MouseUp(Session& s, std::int16_t button) {
    if (button == kRightButton) HideTree(s);
}

}  // namespace marvolin
