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
    std::vector<std::string> samples;
    std::string refused;
    for (const std::string& path : paths) {
        if (IsNoSample(path)) {
            refused += (refused.empty() ? "" : ", ") + FileNameOf(path);
        } else {
            samples.push_back(path);
        }
    }
    if (!refused.empty()) ShowStatus(s, "Not a sample: " + refused);
    // Each of several has a row of its own: in a band the last one would replace all others.
    const Reach rows = samples.size() > 1 && row < kLoopTracks ? Reach::Alone : Reach::Gang;
    Row target = row;
    for (const std::string& path : samples) {
        if (target != row && target >= kLoopTracks) break;
        LoadSample(
            s, {.Path = path, .Target = target, .Rows = rows, .Play = s.PlayOnLoad, .Origin = SampleOrigin::File});
        ++target;
    }
}

}  // namespace marvolin
