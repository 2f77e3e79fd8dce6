#include "persistence/session_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "audio/sample_loading.h"
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
#include "persistence/loops_section.h"
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
    std::string Readout;                 ///< what the status line has of a control that was set

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
    if (!load.Asked(Element::General)) return;
    ApplySettings(s, table);
    load.Readout = s.StatusText;
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

void ReadLoops(Session& s, RecordReader& file, Loading& load) {
    LoopsAsked asked{.Elements = {}, .ForPackage = load.ForPackage, .Folder = load.Folder, .Nearby = load.Nearby};
    clsSwitchRecord::AndSwitch(load.Switches, load.FileSwitches, asked.Elements);
    ReadLoopTracks(s, file, asked, load.NotLoaded);
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
    if (!load.NotLoaded.empty()) ShowStatus(s, NotLoadedText(load.NotLoaded));
}

// The readout of the pad, which a set moves, means nothing to whoever has opened it. A report stays.
void ShowOpened(Session& s, const Loading& load, const std::string& fileName) {
    if (s.StatusText == load.Readout) ShowStatus(s, "Opened " + LastPathPart(fileName));
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
    Loading load{switches, {}, IsPackage(fileName), "", {}, true, ""};
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
        // So that a report of this load counts also when the line has the same one of before.
        if (adopt == AdoptSwitches::Yes) ShowStatus(s, "");
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
    if (adopt == AdoptSwitches::Yes) ShowOpened(s, load, fileName);
    ShowNotLoaded(s, load);
    return true;
}

}  // namespace marvolin
