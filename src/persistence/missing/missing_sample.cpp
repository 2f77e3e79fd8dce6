#include "persistence/missing/missing_sample.h"

#include <algorithm>
#include <array>
#include <memory>
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

bool IsHeld(const Session& s, const std::string& path) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        const bool holds = s.Run[row].Loaded != False && s.Set[row].FileName == path;
        if (holds || s.Run[row].InHand.FileName == path) return true;
    }
    return false;
}

/// What was found for a row, without what another row holds in its place.
std::vector<std::string> FilesFor(const Session& s, Row row, const FoundSamples& found) {
    const auto named = found.find(MissingName(s, row));
    if (named == found.end()) return {};
    std::vector<std::string> paths = named->second;
    const std::vector<std::string>& others = s.Run[row].Missing->OfOthers;
    std::erase_if(paths, [&](const std::string& path) {
        return std::find(others.begin(), others.end(), path) != others.end() && IsHeld(s, path);
    });
    return paths;
}

/// The file for each row that misses one; "" for none.
NamesByRow FilesForRows(const Session& s, const FoundSamples& found) {
    std::vector<Row> rows;
    std::vector<WantedFile> wanted;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!s.Run[row].Missing) continue;
        rows.push_back(row);
        wanted.push_back({s.Run[row].Missing->Loop.Set.FileName, FilesFor(s, row, found)});
    }
    NamesByRow files;
    const std::vector<std::string> shares = ShareOut(wanted);
    for (std::size_t i = 0; i < rows.size(); ++i) files[rows[i]] = shares[i];
    return files;
}

/// The rows that are still missing remember what the others got.
void RememberOthers(Session& s, const NamesByRow& files) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!s.Run[row].Missing) continue;
        MissingSample missing = *s.Run[row].Missing;
        const std::size_t before = missing.OfOthers.size();
        for (const std::string& file : files) {
            if (SameIgnoringCase(NameOfSample(file), MissingName(s, row))) AddOnce(missing.OfOthers, file);
        }
        if (missing.OfOthers.size() == before) continue;
        s.Run[row].Missing = std::make_shared<const MissingSample>(std::move(missing));
    }
}

}  // namespace

std::string NameOfSample(const std::string& path) {
    if (!path.starts_with('/')) return LastPathPart(path);
    std::string folder;
    std::string name;
    SplitFilePath(path, folder, name);
    return name;
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
    RememberOthers(s, files);
    for (const Row row : playing) PlaySavedLoop(s, row);
    PatternsRefresh(s);
    TellResult(s, wanted);
}

}  // namespace marvolin
