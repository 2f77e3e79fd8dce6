#include "instrument/dropped_files.h"

#include <algorithm>

#include "core/busy_pointer.h"
#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "core/undo/undo_step.h"
#include "performance/drops/file_drops.h"
#include "persistence/quick_load.h"
#include "persistence/save_open.h"
#include "persistence/session_format.h"

namespace marvolin {

namespace {

bool IsSet(const std::string& path) {
    // The store knows a package by this spelling alone.
    return (EndsInIgnoringCase(path, kSessionExtension) || path.ends_with(kPackageExtension)) && FileExists(path);
}

void OpenSet(Session& s, const std::string& path) {
    const BusyPointer busy(s);
    const UndoStep step(s, "", UndoScope::Everything);
    if (!OpenBesideDialogue(s, path)) return;
    s.SaveItEnabled = !s.CurrentFile.empty();
    s.World.Screen.ShowSaveOpen();
    UpdateQuickLoad(s);
}

}  // namespace

std::string SetAmong(const std::vector<std::string>& paths) {
    const auto set = std::find_if(paths.begin(), paths.end(), IsSet);
    return set == paths.end() ? "" : *set;
}

std::string WhyDropIsRefused(const Session& s, Row row, const std::vector<std::string>& paths) {
    if (!SetAmong(paths).empty()) return "";
    return row >= 0 ? WhyFilesAreRefused(s, row, paths) : "Drop samples on a row; a set opens anywhere here";
}

void DropFiles(Session& s, Row row, const std::vector<std::string>& paths) {
    const std::string set = SetAmong(paths);
    if (!set.empty()) return OpenSet(s, set);
    if (row >= 0) DropFilesOnRow(s, row, paths);
}

}  // namespace marvolin
