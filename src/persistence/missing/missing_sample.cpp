#include "persistence/missing/missing_sample.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include "audio/sample_loading.h"
#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "persistence/load_saved_loop.h"
#include "persistence/missing/sample_choice.h"

namespace marvolin {

namespace fs = std::filesystem;

namespace {

void CopyHeldSample(const LoopTrackSet& from, LoopTrackSet& to) {
    to.FileName = from.FileName;
    to.SampleRate = from.SampleRate;
    to.BufferBytes = from.BufferBytes;
    to.Length = from.Length;
    to.AvgBytesPerSec = from.AvgBytesPerSec;
    to.PlayMode = from.PlayMode;
    to.Thinnable = from.Thinnable;
}

// With any pattern, as in a set that is opened.
void CopyTiming(const LoopTrackSet& from, LoopTrackSet& to) {
    to.NSteps = from.NSteps;
    to.BeatStart = from.BeatStart;
    to.Swing = from.Swing;
    to.StepDuration = from.StepDuration;
}

void CopyPatterns(const LoopTrackSet& from, LoopTrackSet& to, const clsSwitchRecord& elements) {
    static constexpr std::array<std::pair<Element, int>, kPatternRows> kPatterns{
        {{Element::VolPattern, kVolPattern}, {Element::FreqPattern, kHzPattern}, {Element::PanPattern, kPanPattern}}};
    for (const auto& [element, pattern] : kPatterns) {
        if (!elements.Get(element)) continue;
        to.Pattern[pattern] = from.Pattern[pattern];
        CopyTiming(from, to);
    }
}

void CopyElements(const LoopTrackSet& from, LoopTrackSet& to, const clsSwitchRecord& elements) {
    if (elements.Get(Element::LoopTrack)) CopyHeldSample(from, to);
    if (elements.Get(Element::Freq)) to.Hz = from.Hz;
    if (elements.Get(Element::Vol)) to.Vol = from.Vol;
    if (elements.Get(Element::Pan)) to.Pan = from.Pan;
    if (elements.Get(Element::CrossFader)) to.Channel = from.Channel;
    if (elements.Get(Element::Position)) {
        to.PositionX = from.PositionX;
        to.PositionY = from.PositionY;
    }
    CopyPatterns(from, to, elements);
}

/// Loads the sample of a row from `path`. True when it should play then.
bool LoadInto(Session& s, Row row, const std::string& path) {
    // By value: the load ends it.
    const MissingSample missing = *s.Run[row].Missing;
    const SavedFrom from{.NewUse3d = missing.Use3D, .ForPackage = false, .OpenPath = "", .Found = path};
    LoadSavedLoop(s, missing.Loop, missing.Elements, from);
    if (!HoldsSavedSample(s, missing.Loop, from)) return false;
    s.Run[row].Missing.reset();  // one that waits for a device is not missing either
    s.World.Screen.ShowCaption(row);
    return missing.Elements.Get(Element::PlayState) && missing.Loop.WasPlaying != False;
}

/// Adds the files of `folder` whose name differs from `name` only in the case of its letters.
void AddAlike(const std::string& folder, const std::string& name, std::vector<std::string>& paths) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); entry != fs::directory_iterator(); entry.increment(error)) {
        // A folder may hold a hundred thousand files: nothing is made of the name of one that is not meant.
        const std::string_view whole = entry->path().native();
        if (!SameIgnoringCase(whole.substr(whole.rfind('/') + 1), name)) continue;
        const std::string path = JoinPath(folder, entry->path().filename().string());
        if (TargetExists(path)) paths.push_back(path);
    }
}

std::string Listed(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

using NamesByRow = Table<std::string, kLoopTracks>;

NamesByRow NamesOfRows(const Session& s) {
    NamesByRow names;
    for (Row row = 0; row < kLoopTracks; ++row) names[row] = MissingName(s, row);
    return names;
}

void AddOnce(std::vector<std::string>& names, const std::string& name) {
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
}

void TellResult(Session& s, const NamesByRow& wanted) {
    std::vector<std::string> found;
    std::vector<std::string> left;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!wanted[row].empty() && !s.Run[row].Missing) AddOnce(found, wanted[row]);
    }
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!s.Run[row].Missing) continue;
        const bool alsoFound = std::find(found.begin(), found.end(), wanted[row]) != found.end();
        AddOnce(left, alsoFound ? wanted[row] + " of " + RowLetter(row) : wanted[row]);
    }
    std::string text = found.empty() ? "Not found: " + Listed(left) : "Found: " + Listed(found);
    if (!found.empty() && !left.empty()) text += "; still missing: " + Listed(left);
    ShowStatus(s, text);
}

/// The rows that miss a sample of this name, and the path that each of them has stored.
struct Wanting {
    std::vector<Row> Rows;
    std::vector<std::string> Stored;
};
Wanting RowsThatMiss(const Session& s, const std::string& name) {
    Wanting wanting;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!s.Run[row].Missing || MissingName(s, row) != name) continue;
        wanting.Rows.push_back(row);
        wanting.Stored.push_back(s.Run[row].Missing->Loop.Set.FileName);
    }
    return wanting;
}

/// The file for each row that misses one; "" for none.
NamesByRow FilesForRows(const Session& s, const FoundSamples& found) {
    NamesByRow files;
    for (const auto& [name, paths] : found) {
        const Wanting wanting = RowsThatMiss(s, name);
        const std::vector<std::string> shares = ShareOut(wanting.Stored, paths);
        for (std::size_t i = 0; i < shares.size(); ++i) files[wanting.Rows[i]] = shares[i];
    }
    return files;
}

}  // namespace

std::string NameOfSample(const std::string& path) {
    if (!path.starts_with('/')) return LastPathPart(path);
    std::string folder;
    std::string name;
    SplitFilePath(path, folder, name);
    return name;
}

std::string FindNearby(const Session& s, const std::string& stored, const std::string& setFolder, TakenFiles& taken) {
    const std::string name = NameOfSample(stored);
    std::vector<std::string> folders{setFolder};
    for (const SampleBin& bin : s.Bins) folders.push_back(bin.Folder);
    folders.erase(std::remove(folders.begin(), folders.end(), ""), folders.end());
    for (auto folder = folders.begin(); folder != folders.end(); ++folder) {
        // Bins often show one folder.
        folders.erase(std::remove(folder + 1, folders.end(), *folder), folders.end());
    }
    std::vector<std::string> paths;
    for (const std::string& folder : folders) {
        if (TargetExists(JoinPath(folder, name))) paths.push_back(JoinPath(folder, name));
    }
    if (paths.empty()) {
        for (const std::string& folder : folders) AddAlike(folder, name, paths);
    }
    const auto ofAnother = [&](const std::string& path) {
        const auto taker = taken.find(path);
        return taker != taken.end() && !SameIgnoringCase(taker->second, stored);
    };
    paths.erase(std::remove_if(paths.begin(), paths.end(), ofAnother), paths.end());
    const std::string best = BestMatch(stored, paths);
    if (!best.empty()) taken.emplace(best, stored);
    return best;
}

void KeepPlace(Session& s, MissingSample missing) {
    const Row row = missing.Loop.Index;
    s.Run[row].Missing = std::make_shared<const MissingSample>(std::move(missing));
    s.World.Screen.ShowCaption(row);
}

LoopTrackSet SavedWithPlace(const Session& s, Row row) {
    const MissingSample& missing = *s.Run[row].Missing;
    LoopTrackSet set = s.Set[row];
    CopyElements(missing.Loop.Set, set, missing.Elements);
    return set;
}

void KeepRestored(Session& s, const SavedLoop& given, const clsSwitchRecord& elements) {
    std::shared_ptr<const MissingSample>& missing = s.Run[given.Index].Missing;
    if (!missing) return;
    MissingSample kept = *missing;
    clsSwitchRecord taken = elements;
    for (const Element other : {Element::LoopTrack, Element::PlayState}) taken.Put(other, false);
    CopyElements(given.Set, kept.Loop.Set, taken);
    for (int number = 0; number < kElements; ++number) {
        const auto element = static_cast<Element>(number);
        if (taken.Get(element)) kept.Elements.Put(element, true);
    }
    missing = std::make_shared<const MissingSample>(std::move(kept));
}

std::string MissingName(const Session& s, Row row) {
    if (row < 0 || row >= kLoopTracks || !s.Run[row].Missing) return "";
    return NameOfSample(s.Run[row].Missing->Loop.Set.FileName);
}

std::vector<std::string> MissingNames(const Session& s) {
    std::vector<std::string> names;
    for (Row row = 0; row < kLoopTracks; ++row) {
        const std::string name = MissingName(s, row);
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    return names;
}

std::string SampleTold(const Session& s, Row row) {
    const std::string held = LoopFileName(s, row);
    const std::string missing = MissingName(s, row);
    if (missing.empty()) return held;
    return missing + " is missing" + (held.empty() ? "" : "; " + held);
}

std::string SamplePaths(const Session& s, Row row) {
    const std::string& held = s.Set[row].FileName;
    const std::shared_ptr<const MissingSample>& missing = s.Run[row].Missing;
    if (!missing) return held;
    return "missing: " + missing->Loop.Set.FileName + (held.empty() ? "" : "\n" + held);
}

void LoadFound(Session& s, const FoundSamples& found) {
    const NamesByRow wanted = NamesOfRows(s);
    const NamesByRow files = FilesForRows(s, found);
    const UndoStep step(s, "Missing samples found");
    std::vector<Row> playing;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!files[row].empty() && LoadInto(s, row, files[row])) playing.push_back(row);
    }
    for (const Row row : playing) PlaySavedLoop(s, row);
    PatternsRefresh(s);
    TellResult(s, wanted);
}

}  // namespace marvolin
