#include "window/rows/row_drops.h"

#include "audio/sample_loading.h"
#include "audio/transport.h"
#include "core/busy_pointer.h"
#include "core/grouping.h"
#include "core/paths.h"
#include "core/routines.h"

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

void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths) {
    const BusyPointer busy(s.World.Desk);
    Row target = row;
    for (const std::string& path : paths) {
        if (target != row && target >= kLoopTracks) break;
        DropFile(s, target, path);
        ++target;
    }
}

}  // namespace marvolin
