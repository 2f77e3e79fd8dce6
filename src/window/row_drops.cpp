#include "window/row_drops.h"

#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "core/grouping.h"
#include "core/loop_views.h"
#include "core/paths.h"
#include "core/routines.h"
#include "sequencing/patterns.h"
#include "sequencing/timing.h"

namespace marvolin {

namespace {

constexpr std::string::size_type kExtension = 4;

void LoadAnything(Session& s, Row row, const std::string& folder, const std::string& name) {
    const auto load = [&](Row one) {
        LoopLoad(s, one, folder, name);
        if (s.PlayOnLoad) LoopPlay(s, one, true);
    };
    if (row == kSelectionRow) {
        ForControlled(s, load);
    } else {
        ForGang(s, row, load);
    }
}

void DropFile(Session& s, Row row, const std::string& path) {
    std::string folder;
    std::string name;
    SplitPath(path, folder, name);
    if (name.size() > kExtension && UpperCase(name).ends_with(".WAV")) {
        LoopLoadRows(s, folder, name.substr(0, name.size() - kExtension), row, s.PlayOnLoad);
    } else {
        LoadAnything(s, row, folder, name);
    }
}

}  // namespace

void DropOnRow(Session& s, Row row, const DragSource& source) {
    if (source.Name == "CloneTime") {
        TimingCopy(s, s.CurrentLoop, row, source.Index);
    } else if (source.Name == "AllTiming") {
        TimingCopy(s, s.CurrentLoop, row, kAllTiming);
    } else if (source.Name == "PatternGraph") {
        PatternCopy(s, s.CurrentLoop, row, source.Index);
    } else if (source.Name == "Patterns") {
        PatternCopyAll(s, s.CurrentLoop, row);
    } else if (source.Name == "TabControl") {
        PatternCopyAll(s, s.CurrentLoop, row);
        TimingCopy(s, s.CurrentLoop, row, kAllTiming);
    } else {
        return;
    }
    PatternsRefresh(s);
}

void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths) {
    s.World.Desk.SetBusyPointer(true);
    Row target = row;
    for (const std::string& path : paths) {
        if (target != row && target >= kLoopTracks) break;
        DropFile(s, target, path);
        ++target;
    }
    s.World.Desk.SetBusyPointer(false);
}

}  // namespace marvolin
