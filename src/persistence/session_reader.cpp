#include "persistence/session_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "audio/loop_clearing.h"
#include "browser/destinations.h"
#include "browser/sample_bins.h"
#include "core/errors.h"
#include "core/files/paths.h"
#include "core/files/record_stream.h"
#include "core/loops/loop_views.h"
#include "core/routines.h"
#include "parameters/position.h"
#include "performance/map/sound_map.h"
#include "performance/map/use_3d.h"
#include "persistence/bin_record.h"
#include "persistence/clips.h"
#include "persistence/load_saved_loop.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/session_format.h"
#include "persistence/settings_section.h"
#include "persistence/switch_record_file.h"

namespace marvolin {

namespace {

constexpr int kBandFields = 4;
constexpr double kTenths = 10;  // of the gauge `RollOff` in a factor of 1

/// One load: what is asked for, and what the file holds.
struct Loading {
    const clsSwitchRecord& Switches;
    clsSwitchRecord FileSwitches;
    bool ForPackage = false;
    std::string Folder;                  ///< folder of the file, with its separator
    std::vector<std::string> NotLoaded;  ///< names of the samples that no LoopTrack got
    bool Nearby = true;                  ///< samples are looked for also where they were not stored
    TakenFiles Taken;                    ///< those that were found there

    bool Asked(Element element) const { return Switches.Get(element); }
};

/// The file is no session file of this format.
struct FormatError {};

void ReadHeader(RecordReader& file) {
    if (file.GetInteger() != static_cast<std::int16_t>(kHeaderText.size())) throw FormatError();
    if (file.GetBytes(kHeaderText.size()) != kHeaderText) throw FormatError();
    if (file.GetInteger() != kHeaderNumber) throw FormatError();
}

// What can be read is applied, so a count that the file cannot hold ends the load where the file ends.
std::int32_t Count(RecordReader& file) { return file.CheckedCount(file.GetInteger(), 0); }

void ReadSettings(Session& s, RecordReader& file, Loading& load) {
    const KeyedTable table = ReadDictionary(file);
    if (load.Asked(Element::General)) ApplySettings(s, table);
}

// Bands are saved and not loaded.
void ReadBands(Session&, RecordReader& file, Loading&) {
    for (int field = 0; field < kBands * kBandFields; ++field) file.GetInteger();
}

void ReadThreeD(Session& s, RecordReader& file, Loading& load) {
    const bool use3D = file.GetInteger() != False;
    const float rollOff = file.GetSingle();
    const double mapSize = file.GetDouble();
    if (!load.Asked(Element::ThreeD)) return;
    ChangeUse3D(s, use3D);
    // The sound gets no value that the gauges could not show.
    if (std::isfinite(rollOff))
        SetRollOff(s, static_cast<float>(ClampVar(rollOff, kRollOffLow / kTenths, kRollOffHigh / kTenths)));
    if (std::isfinite(mapSize)) SetMapSize(s, mapSize);
}

void RestoreBin(Session& s, int bin, const BinRecord& record) {
    SetPickDir(s, bin, record.Dir);
    UpdatePickFile(s, bin);
    if (const auto destination = DecodeDestination(record.Dest)) ChooseDestination(s, bin, *destination);
    s.Bins[bin].ClickPlay = record.ClickPlay ? 1 : 0;
    s.World.Screen.ShowBin(bin);
}

void ReadPickLists(Session& s, RecordReader& file, Loading& load) {
    for (int number = 0; number < kBinRecords; ++number) {
        const BinRecord record = ReadBinRecord(file);
        // A package's folders point at the machine on which it was made.
        if (number >= kBins || !load.Asked(Element::PickLists) || load.ForPackage) continue;
        RestoreBin(s, number, record);
    }
}

bool WantsSample(const SavedLoop& saved, const clsSwitchRecord& elements) {
    return elements.Get(Element::LoopTrack) && !saved.Set.FileName.empty();
}

/// Whether the file of a sample is there: where it should be, or nearby, where `from` leads then.
bool FindSample(const Session& s, const SavedLoop& saved, SavedFrom& from, Loading& load) {
    const std::string path = SavedSample(saved, from);
    if (path.empty() || TargetExists(path)) return true;
    if (s.Run[saved.Index].Loaded != False && s.Set[saved.Index].FileName == path) return true;
    if (!load.Nearby) return false;
    from.Found = FindNearby(s, saved.Set.FileName, from.OpenPath, load.Taken);
    return !from.Found.empty();
}

void ReadLoops(Session& s, RecordReader& file, Loading& load) {
    Table<bool, kLoopTracks> playingInFile;
    Table<bool, kLoopTracks> loadedFromFile;
    const std::int32_t blocks = Count(file);
    const std::int16_t use3D = file.GetInteger();
    clsSwitchRecord effective;
    clsSwitchRecord::AndSwitch(load.Switches, load.FileSwitches, effective);
    std::vector<MissingSample> missing;
    for (std::int32_t i = 0; i < blocks; ++i) {
        const SavedLoop saved = ReadSavedLoop(file);
        if (saved.Index >= kLoopTracks) continue;
        playingInFile[saved.Index] = saved.WasPlaying != False;
        SavedFrom from{.NewUse3d = use3D, .ForPackage = load.ForPackage, .OpenPath = load.Folder};
        const bool isThere = !WantsSample(saved, effective) || FindSample(s, saved, from, load);
        // A sample that could not be loaded does not count; the previous one is not started in its place.
        const bool asked = LoadSavedLoop(s, saved, effective, from);
        loadedFromFile[saved.Index] = asked && HoldsSavedSample(s, saved, from);
        const bool inRow = loadedFromFile[saved.Index] && s.Run[saved.Index].Loaded != False;
        // Without a device nothing is loaded: then only what is missing is worth a word.
        const bool told = s.DSReady || (load.Nearby && !isThere);
        if (asked && !inRow && told) load.NotLoaded.push_back(NameOfSample(saved.Set.FileName));
        if (asked) s.Run[saved.Index].Missing.reset();
        // One whose file is away is missing also while no device is open, for which it waits.
        if (!isThere && !inRow) missing.push_back({saved, effective, use3D});
    }
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.EmptyBlankSetting == 1 && !loadedFromFile[row]) LoopClear(s, row);
    }
    for (const MissingSample& sample : missing) KeepPlace(s, sample);
    if (!effective.Get(Element::PlayState)) return;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (!playingInFile[row] || !loadedFromFile[row]) continue;
        PlaySavedLoop(s, row);
    }
}

void ReadHistory(Session& s, RecordReader& file, Loading& load) {
    const std::int32_t blocks = Count(file);
    for (std::int32_t i = 0; i < blocks; ++i) {
        const std::int16_t index = file.GetInteger();
        const std::int32_t entries = Count(file);
        const bool apply = index < kLoopTracks && load.Asked(Element::HistoryLists);
        if (apply) s.History[index].clear();
        for (std::int32_t entry = 0; entry < entries; ++entry) {
            const TaggedValue path = file.GetTagged();
            if (apply) s.History[index].push_back(AsText(path));
        }
    }
}

void ReadClips(Session& s, RecordReader& file, Loading& load) {
    ReadClipBoard(s, file, load.Asked(Element::ClipBoard));
}

struct SectionReader {
    std::string_view Tag;
    void (*Read)(Session& s, RecordReader& file, Loading& load);
};

constexpr std::array<SectionReader, 7> kSections{{{kSettingsTag, ReadSettings},
                                                  {kBandsTag, ReadBands},
                                                  {kThreeDTag, ReadThreeD},
                                                  {kPickListsTag, ReadPickLists},
                                                  {kLoopsTag, ReadLoops},
                                                  {kHistoryTag, ReadHistory},
                                                  {kClipBoardTag, ReadClips}}};

// Sections have no length field: a value that is no known tag is ignored, and the next value is read.
void ReadSections(Session& s, RecordReader& file, Loading& load) {
    for (;;) {
        const TaggedValue value = file.GetTagged();
        const auto* tag = std::get_if<std::string>(&value);
        if (tag == nullptr) continue;
        if (*tag == kEndTag) return;
        const auto* section =
            std::find_if(kSections.begin(), kSections.end(), [&](const SectionReader& row) { return row.Tag == *tag; });
        if (section != kSections.end()) section->Read(s, file, load);
    }
}

// The box of a missing sample does not say which one it is.
void ShowNotLoaded(Session& s, const Loading& load) {
    if (load.NotLoaded.empty()) return;
    std::string names;
    for (const std::string& name : load.NotLoaded) names += (names.empty() ? "" : ", ") + name;
    ShowStatus(s, "Not loaded: " + names);
}

void MakeCurrent(Session& s, const std::string& fileName) {
    SplitFilePath(fileName, s.CurrentFolder, s.CurrentFile);
    s.Title = "marvolin-" + s.CurrentFile;
    s.World.Screen.ShowTitle();
}

}  // namespace

bool LoadSession(Session& s, const std::string& fileName, SetAsCurrent current, const clsSwitchRecord& switches,
                 AdoptSwitches adopt) {
    if (!FileExists(fileName)) return false;
    Loading load{switches, {}, IsPackage(fileName), "", {}, true, {}};
    // A change of device brings its own rows back: the same file, or it waits. It alone asks for no play state by a
    // file that gives the session no name.
    load.Nearby = current == SetAsCurrent::Yes || switches.Get(Element::PlayState);
    std::string name;
    // The samples of a package lie beside its file, not beside a link to it.
    SplitFilePath(BehindLinks(fileName), load.Folder, name);
    try {
        RecordReader file(fileName);
        ReadHeader(file);
        GetIt(load.FileSwitches, file);
        ReadSections(s, file, load);
    } catch (const FormatError&) {
        s.World.Desk.Report("File Format Error on Open in " + fileName, "", BoxStyle::Critical);
        return false;
    } catch (const RuntimeError& e) {
        ShowNotLoaded(s, load);
        s.World.Desk.Report(std::string("Error Opening ") + e.what());
        return false;
    }
    if (adopt == AdoptSwitches::Yes) s.SaveOpenSwitches[kWhenSaving] = load.FileSwitches;
    if (current == SetAsCurrent::Yes) MakeCurrent(s, fileName);
    PatternsRefresh(s);
    ShowNotLoaded(s, load);
    return true;
}

}  // namespace marvolin
