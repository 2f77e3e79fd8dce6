#include "browser/sample_bins.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <numeric>
#include <string_view>
#include <system_error>
#include <utility>

#include "browser/clipboard.h"
#include "browser/destinations.h"
#include "browser/folders.h"
#include "core/files/name_order.h"
#include "core/files/paths.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kCaptionLength = 10;
constexpr std::int32_t kColumnMargin = 100;  // twips
constexpr std::string_view kSampleEnding = ".WAV";
constexpr std::string_view kShortcutEnding = ".WAV.LNK";
constexpr std::int64_t kKilobyte = 1024;
constexpr std::size_t kMostNameWidths = 50000;

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

/// Size of a file in kilobytes as a text; "" when it is no file.
std::string SizeText(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t bytes = fs::file_size(file, error);
    return error ? "" : std::to_string(bytes / static_cast<std::uintmax_t>(kKilobyte));
}

/// The sample that a shortcut leads to; "" when it leads to none.
std::string SampleOf(const Session& s, const std::string& shortcut) {
    if (!s.World.ResolveShortcut) return "";
    const std::string target = s.World.ResolveShortcut(shortcut);
    return EndsInIgnoringCase(target, kSampleEnding) && !SizeText(target).empty() ? target : "";
}

/// What a scan of a folder finds.
struct Found {
    std::vector<BinRow> Rows;
    std::vector<std::string> DeadShortcuts;
};

void AddShortcut(const Session& s, Found& found, const std::string& folder, const std::string& name) {
    const std::string target = SampleOf(s, JoinPath(folder, name));
    if (target.empty()) {
        found.DeadShortcuts.push_back(name);
    } else {
        found.Rows.push_back({name.substr(0, name.size() - kShortcutEnding.size()), SizeText(target), target, name});
    }
}

/// The rows in the order of their names. Places are sorted instead of rows, which are large.
std::vector<BinRow> InOrder(std::vector<BinRow> rows) {
    std::vector<std::uint32_t> places(rows.size());
    std::iota(places.begin(), places.end(), 0U);
    // Files whose names differ in the case of the extension alone keep one order, too.
    std::sort(places.begin(), places.end(), [&](std::uint32_t i, std::uint32_t j) {
        const BinRow& a = rows[i];
        const BinRow& b = rows[j];
        return NameBefore(a.Name, b.Name) || (a.Name == b.Name && a.File < b.File);
    });
    std::vector<BinRow> sorted;
    sorted.reserve(rows.size());
    for (const std::uint32_t place : places) sorted.push_back(std::move(rows[place]));
    return sorted;
}

/// Rows that would look alike show the whole names of their files.
void TellApart(std::vector<BinRow>& rows) {
    for (std::size_t first = 0, last = 0; first < rows.size(); first = last) {
        while (last < rows.size() && rows[last].Name == rows[first].Name) ++last;
        if (last - first == 1) continue;
        for (std::size_t row = first; row < last; ++row) rows[row].Name = rows[row].File;
    }
}

Found ScanFolder(const Session& s, const std::string& folder) {
    Found found;
    FolderReader reader(folder);
    while (const char* entry = reader.Next()) {
        const std::string_view name = entry;
        if (EndsInIgnoringCase(name, kSampleEnding)) {
            const std::int64_t bytes = reader.BytesOf(entry);
            if (bytes < 0) continue;
            const std::string_view stem = name.substr(0, name.size() - kSampleEnding.size());
            found.Rows.push_back({std::string(stem), std::to_string(bytes / kKilobyte), "", std::string(name)});
        } else if (EndsInIgnoringCase(name, kShortcutEnding)) {
            AddShortcut(s, found, folder, std::string(name));
        }
    }
    found.Rows = InOrder(std::move(found.Rows));
    TellApart(found.Rows);
    return found;
}

/// The width of a name, which is measured once, as long as there are not too many of them.
std::int32_t NameWidth(Session& s, const std::string& name) {
    if (s.NameWidths.size() >= kMostNameWidths) s.NameWidths.clear();
    const auto [known, isNew] = s.NameWidths.try_emplace(name, 0);
    if (isNew) known->second = s.World.Desk.TextWidth(name);
    return known->second;
}

/// Entries of a bin that a check compares: its rows, then the shortcuts without a sample.
std::size_t EntriesOf(const SampleBin& picks) { return picks.Rows.size() + picks.DeadShortcuts.size(); }

/// Whether an entry of a bin is still what the bin shows.
bool IsAsShown(const Session& s, const SampleBin& picks, std::size_t entry) {
    const std::string folder = SearchFolder(picks);
    if (entry >= picks.Rows.size()) {
        return SampleOf(s, JoinPath(folder, picks.DeadShortcuts[entry - picks.Rows.size()])).empty();
    }
    const BinRow& row = picks.Rows[entry];
    const std::string file = JoinPath(folder, row.File);
    if (row.Target.empty()) return SizeText(file) == row.Size;
    return SampleOf(s, file) == row.Target && SizeText(row.Target) == row.Size;
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

std::string SearchFolder(const SampleBin& picks) {
    const std::string& folder = picks.Folder;
    if (folder.empty() || folder.ends_with('/')) return folder;
    std::error_code error;
    const bool ownName = !folder.ends_with('\\') || fs::is_directory(folder, error);
    return (ownName ? folder : folder.substr(0, folder.size() - 1)) + "/";
}

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
    if (!DirExists(SearchFolder(picks))) SetPickDir(s, bin, s.World.Desk.ProgramFolder());
    // Before the scan: a change during the scan must be found at the next look.
    picks.Stamp = FolderStamp(SearchFolder(picks));
    Found found = ScanFolder(s, SearchFolder(picks));
    // A rescan of the same folder may come between the press on a sample and its drop: the sample stays selected.
    const bool chosen = picks.Selected >= 0 && static_cast<std::size_t>(picks.Selected) < picks.Rows.size();
    picks.Selected = chosen ? PlaceOf(found.Rows, picks.Rows[static_cast<std::size_t>(picks.Selected)]) : -1;
    picks.Rows = std::move(found.Rows);
    picks.DeadShortcuts = std::move(found.DeadShortcuts);
    picks.Checked = EntriesOf(picks);
    std::int32_t widest = 0;
    for (const BinRow& row : picks.Rows) widest = std::max(widest, NameWidth(s, row.Name));
    picks.FirstColumn = widest + kColumnMargin;
    s.World.Screen.ShowBin(bin);
}

void LookAtPickFiles(Session& s) {
    for (int bin = 0; bin < kBins; ++bin) {
        SampleBin& picks = s.Bins[bin];
        const std::string stamp = FolderStamp(SearchFolder(picks));
        if (stamp.empty() || stamp != picks.Stamp) {
            UpdatePickFile(s, bin);
        } else {
            picks.Checked = 0;
        }
    }
}

bool CheckPickFiles(Session& s, std::size_t count) {
    for (int bin = 0; bin < kBins; ++bin) {
        SampleBin& picks = s.Bins[bin];
        for (; count > 0 && picks.Checked < EntriesOf(picks); --count) {
            if (IsAsShown(s, picks, picks.Checked)) {
                ++picks.Checked;
            } else {
                UpdatePickFile(s, bin);
            }
        }
        if (picks.Checked < EntriesOf(picks)) return true;
    }
    return false;
}

void SetPickDirCaption(Session& s, int bin, const std::string& path) {
    const std::string name = LastPathPart(path);
    s.Bins[bin].Caption = FirstCharacters(name.empty() ? path : name, kCaptionLength);
}

void SetPickDir(Session& s, int bin, const std::string& path) {
    SetPickDirCaption(s, bin, path);
    s.Bins[bin].Folder = path;
    s.Bins[bin].Stamp.clear();
    s.Bins[bin].Selected = -1;
}

}  // namespace marvolin
