#include "performance/drops/file_drops.h"

#include <cctype>

#include "audio/sample_loading.h"
#include "core/busy_pointer.h"
#include "core/files/sample_files.h"
#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "performance/drops/row_drops.h"

namespace marvolin {

namespace {

constexpr std::size_t kMostNamed = 3;  // of the files that are not loaded
constexpr int kMostRead = 48;          // files of a drag whose beginnings are looked at

using Paths = std::vector<std::string>;

/// The names of the files; of many the first, and how many more there are.
std::string NamesOf(const Paths& paths) {
    if (paths.size() > kMostNamed)
        return FileNameOf(paths.front()) + " and " + std::to_string(paths.size() - 1) + " more";
    std::string names;
    for (const std::string& path : paths) names += (names.empty() ? "" : ", ") + FileNameOf(path);
    return names;
}

/// What the status line says of files that were not loaded; "" when there are none.
std::string TextOf(const Paths& refused, const Paths& surplus) {
    if (surplus.empty()) return refused.empty() ? "" : "Not a sample: " + NamesOf(refused);
    const std::string left = "No row left for: " + NamesOf(surplus);
    return refused.empty() ? left : left + "; not a sample: " + NamesOf(refused);
}

/// One report of two; `more` may be "".
std::string Joined(const std::string& report, std::string more) {
    if (more.empty()) return report;
    more.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(more.front())));
    return report + "; " + more;
}

}  // namespace

std::string WhyFilesAreRefused(const Session& s, Row row, const std::vector<std::string>& paths) {
    if (row == kSelectionRow && !AnyIsControlled(s)) return "Nothing is in control of Z: select LoopTracks first";
    Paths refused;
    int read = 0;
    for (const std::string& path : paths) {
        if (path.empty()) continue;
        // Every control on the way of a drag asks this: what lies behind so many others is not read.
        if (read < kMostRead && !IsNoSample(path)) return "";
        ++read;
        refused.push_back(path);
    }
    return refused.empty() ? "Not a file of this computer" : TextOf(refused, {});
}

void DropFilesOnRow(Session& s, Row row, const std::vector<std::string>& paths) {
    const BusyPointer busy(s);
    std::vector<std::string> samples;
    Paths refused;
    Paths surplus;  // samples for which no row is left
    // On the selection one sample goes to all.
    const std::size_t room = row < kLoopTracks ? static_cast<std::size_t>(kLoopTracks - row) : 1;
    for (const std::string& path : paths) {
        if (path.empty()) continue;
        if (IsNoSample(path)) {
            refused.push_back(path);
        } else if (samples.size() < room) {
            samples.push_back(path);
        } else {
            surplus.push_back(path);
        }
    }
    const std::string text = TextOf(refused, surplus);
    if (!text.empty()) ShowStatus(s, text);
    // Each of several has a row of its own: in a band the last one would replace all others.
    const Reach rows = row < kLoopTracks && (samples.size() > 1 || !surplus.empty()) ? Reach::Alone : Reach::Gang;
    // A single sample gives the step its own name.
    const UndoStep step(s, samples.size() > 1 ? "Load of " + std::to_string(samples.size()) + " samples" : "");
    Row target = row;
    Paths notLoaded;
    for (const std::string& path : samples) {
        const bool read = LoadSample(
            s, {.Path = path, .Target = target, .Rows = rows, .Play = s.PlayOnLoad, .Origin = SampleOrigin::File});
        if (!read) notLoaded.push_back(FileNameOf(path));
        ++target;
    }
    // Each has shown its own name over what stood there.
    if (!notLoaded.empty()) ShowStatus(s, Joined(NotLoadedText(notLoaded), text));
}

}  // namespace marvolin
