#include "browser/sample_bins.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "browser/clipboard.h"
#include "browser/destinations.h"
#include "core/files/name_order.h"
#include "core/files/paths.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kCaptionLength = 10;
constexpr std::int32_t kColumnMargin = 100;  // twips
constexpr std::string_view kSampleEnding = ".WAV";
constexpr std::string_view kShortcutEnding = ".WAV.LNK";
constexpr std::uintmax_t kKilobyte = 1024;

/// The first `count` characters of a UTF-8 text.
std::string FirstCharacters(const std::string& text, std::size_t count) {
    std::size_t at = 0;
    while (at < text.size()) {
        const bool begins = (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80;
        if (begins && count-- == 0) break;
        ++at;
    }
    return text.substr(0, at);
}

/// A folder without the separator at its end, unless it is the root.
std::string SearchFolder(const std::string& folder) {
    const bool ends = folder.size() > 1 && (folder.ends_with('/') || folder.ends_with('\\'));
    return ends ? folder.substr(0, folder.size() - 1) : folder;
}

/// Size of a file in kilobytes as a text; "" when it is no file.
std::string SizeText(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t bytes = fs::file_size(file, error);
    return error ? "" : std::to_string(bytes / kKilobyte);
}

void AddSample(std::vector<BinRow>& rows, const fs::directory_entry& entry, const std::string& name) {
    const std::string size = SizeText(entry.path());
    if (!size.empty()) rows.push_back({name.substr(0, name.size() - kSampleEnding.size()), size, "", name});
}

void AddShortcut(const Session& s, std::vector<BinRow>& rows, const fs::directory_entry& entry,
                 const std::string& name) {
    if (!s.World.ResolveShortcut) return;
    const std::string target = s.World.ResolveShortcut(entry.path().string());
    if (!EndsInIgnoringCase(target, kSampleEnding)) return;
    const std::string size = SizeText(target);
    if (!size.empty()) rows.push_back({name.substr(0, name.size() - kShortcutEnding.size()), size, target, name});
}

std::vector<BinRow> ScanFolder(const Session& s, const std::string& folder) {
    std::vector<BinRow> rows;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (EndsInIgnoringCase(name, kSampleEnding)) {
            AddSample(rows, *entry, name);
        } else if (EndsInIgnoringCase(name, kShortcutEnding)) {
            AddShortcut(s, rows, *entry, name);
        }
    }
    // Files whose names differ in the case of the extension alone keep one order, too.
    std::sort(rows.begin(), rows.end(), [](const BinRow& a, const BinRow& b) {
        return a.Name == b.Name ? a.File < b.File : NameBefore(a.Name, b.Name);
    });
    return rows;
}

/// Place of `wanted` among `rows`; -1 when it is not there.
std::int32_t PlaceOf(const std::vector<BinRow>& rows, const BinRow& wanted) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const BinRow& row) {
        return row.File == wanted.File && row.Target == wanted.Target;
    });
    return found == rows.end() ? -1 : static_cast<std::int32_t>(found - rows.begin());
}

std::vector<std::string> FoldersIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_directory(ignored)) names.push_back(entry->path().filename().string());
    }
    std::sort(names.begin(), names.end(), NameBefore);
    return names;
}

std::array<std::string, kBins> StartFolders(Session& s) {
    const std::string program = s.World.Desk.ProgramFolder();
    const std::string samples = JoinPath(program, "Samples");
    const std::vector<std::string> folders = FoldersIn(samples);
    std::array<std::string, kBins> start;
    for (std::size_t bin = 0; bin < start.size(); ++bin) {
        start[bin] = bin < folders.size() ? JoinPath(samples, folders[bin]) : DirExists(samples) ? samples : program;
    }
    return start;
}

}  // namespace

void InitPicks(Session& s) {
    InitClipBoard(s);
    const std::array<std::string, kBins> folders = StartFolders(s);
    for (int bin = 0; bin < kBins; ++bin) {
        SetPickDir(s, bin, folders[static_cast<std::size_t>(bin)]);
        s.Bins[bin].ClickPlay = 1;
        UpdatePickFile(s, bin);
    }
    ChooseDestination(s, 0, kAllDrag);
}

void UpdatePickFile(Session& s, int bin) {
    if (bin < 0 || bin >= kBins) return;
    SampleBin& picks = s.Bins[bin];
    if (!DirExists(SearchFolder(picks.Folder))) SetPickDir(s, bin, s.World.Desk.ProgramFolder());
    std::vector<BinRow> rows = ScanFolder(s, SearchFolder(picks.Folder));
    // A rescan of the same folder may come between the press on a sample and its drop: the sample stays selected.
    const bool chosen = picks.Selected >= 0 && static_cast<std::size_t>(picks.Selected) < picks.Rows.size();
    picks.Selected = chosen ? PlaceOf(rows, picks.Rows[static_cast<std::size_t>(picks.Selected)]) : -1;
    picks.Rows = std::move(rows);
    std::int32_t widest = 0;
    for (const BinRow& row : picks.Rows) widest = std::max(widest, s.World.Desk.TextWidth(row.Name));
    picks.FirstColumn = widest + kColumnMargin;
    s.World.Screen.ShowBin(bin);
}

void SetPickDirCaption(Session& s, int bin, const std::string& path) {
    const std::string name = LastPathPart(path);
    s.Bins[bin].Caption = FirstCharacters(name.empty() ? path : name, kCaptionLength);
}

void SetPickDir(Session& s, int bin, const std::string& path) {
    SetPickDirCaption(s, bin, path);
    s.Bins[bin].Folder = path;
    s.Bins[bin].Selected = -1;
}

}  // namespace marvolin
