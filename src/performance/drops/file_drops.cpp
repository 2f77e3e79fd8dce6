#include "performance/drops/file_drops.h"

#include <algorithm>

#include "audio/sample_loading.h"
#include "core/busy_pointer.h"
#include "core/files/sample_files.h"
#include "core/routines.h"

namespace marvolin {

bool TakesFiles(const std::vector<std::string>& paths) {
    return std::any_of(paths.begin(), paths.end(), [](const std::string& path) { return !path.empty(); });
}

void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths) {
    const BusyPointer busy(s);
    Row target = row;
    for (const std::string& path : paths) {
        if (target != row && target >= kLoopTracks) break;
        if (IsNoSample(path)) {
            ShowStatus(s, "Not a sample: " + FileNameOf(path));
            continue;
        }
        LoadSample(s, {.Path = path, .Target = target, .Play = s.PlayOnLoad, .Origin = SampleOrigin::File});
        ++target;
    }
}

}  // namespace marvolin
