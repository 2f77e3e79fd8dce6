#include "performance/drops/file_drops.h"

#include "audio/sample_loading.h"
#include "core/busy_pointer.h"
#include "core/files/sample_files.h"
#include "core/routines.h"
#include "performance/drops/row_drops.h"

namespace marvolin {

namespace {

/// Adds the name of a file to a list of names.
void AddName(std::string& names, const std::string& path) { names += (names.empty() ? "" : ", ") + FileNameOf(path); }

/// What the status line says of files that were not loaded; "" when there are none.
std::string TextOf(const std::string& refused, const std::string& surplus) {
    if (surplus.empty()) return refused.empty() ? "" : "Not a sample: " + refused;
    const std::string left = "No row left for: " + surplus;
    return refused.empty() ? left : left + "; not a sample: " + refused;
}

}  // namespace

std::string WhyFilesAreRefused(const Session& s, Row row, const std::vector<std::string>& paths) {
    if (row == kSelectionRow && !AnyIsControlled(s)) return "Nothing is in control of Z: select LoopTracks first";
    std::string refused;
    for (const std::string& path : paths) {
        if (path.empty()) continue;
        if (!IsNoSample(path)) return "";
        AddName(refused, path);
    }
    return refused.empty() ? "Not a file of this computer" : TextOf(refused, "");
}

void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths) {
    const BusyPointer busy(s);
    std::vector<std::string> samples;
    std::string refused;
    std::string surplus;  // names of samples for which no row is left
    // On the selection one sample goes to all.
    const std::size_t room = row < kLoopTracks ? static_cast<std::size_t>(kLoopTracks - row) : 1;
    for (const std::string& path : paths) {
        if (path.empty()) continue;
        if (IsNoSample(path)) {
            AddName(refused, path);
        } else if (samples.size() < room) {
            samples.push_back(path);
        } else {
            AddName(surplus, path);
        }
    }
    const std::string text = TextOf(refused, surplus);
    if (!text.empty()) ShowStatus(s, text);
    // Each of several has a row of its own: in a band the last one would replace all others.
    const Reach rows = row < kLoopTracks && (samples.size() > 1 || !surplus.empty()) ? Reach::Alone : Reach::Gang;
    Row target = row;
    for (const std::string& path : samples) {
        LoadSample(s,
                   {.Path = path, .Target = target, .Rows = rows, .Play = s.PlayOnLoad, .Origin = SampleOrigin::File});
        ++target;
    }
}

}  // namespace marvolin
