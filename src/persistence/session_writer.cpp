#include "persistence/session_writer.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "core/errors.h"
#include "core/files/paths.h"
#include "core/files/record_stream.h"
#include "parameters/position.h"
#include "persistence/bin_record.h"
#include "persistence/clips.h"
#include "persistence/loop_record.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/session_format.h"
#include "persistence/set_files.h"
#include "persistence/settings_section.h"
#include "persistence/switch_record_file.h"

namespace marvolin {

namespace {

std::vector<Row> SavedRows(const Session& s, LoopsSaved loops) {
    std::vector<Row> rows;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (loops == LoopsSaved::All || s.Set[row].Selected != False) rows.push_back(row);
    }
    return rows;
}

void WriteThreeD(const Session& s, RecordWriter& file) {
    file.PutTagged(kThreeDTag);
    file.PutBoolean(s.Use3D);
    file.PutSingle(GetRoll(s));
    file.PutDouble(s.MapRange * 2);
}

void WritePickLists(const Session& s, RecordWriter& file) {
    file.PutTagged(kPickListsTag);
    for (int record = 0; record < kBinRecords; ++record) WriteBinRecord(file, s.Bins[std::min(record, kBins - 1)]);
}

/// The record of a row as a file keeps it: a sample that waits for a device belongs to the set, and a row whose sample
/// is missing stays as it was asked for.
LoopTrackSet SavedSet(const Session& s, Row row) {
    if (s.Run[row].Missing) return SavedWithPlace(s, row);
    LoopTrackSet set = s.Set[row];
    const HeldSample& inHand = s.Run[row].InHand;
    if (inHand.FileName.empty()) return set;
    set.FileName = inHand.FileName;
    set.BeatStart = inHand.BeatStart;
    return set;
}

/// Whether the file of the row's sample belongs into a package. One that is not loaded may be away; its name is kept.
bool HoldsSample(const LoopTrackRun& run) {
    if (run.Missing) return false;
    return run.Loaded != False || (!run.InHand.FileName.empty() && FileExists(run.InHand.FileName));
}
bool Plays(const LoopTrackRun& run) {
    // A sample whose play state was not asked for would have been loaded and not started.
    if (run.Missing) return run.Missing->Elements.Get(Element::PlayState) && run.Missing->Loop.WasPlaying != False;
    return run.Playing != False || run.InHand.Playing;
}

void WriteLoops(const Session& s, RecordWriter& file, const std::vector<Row>& rows, bool playState) {
    file.PutTagged(kLoopsTag);
    file.PutInteger(static_cast<std::int16_t>(rows.size()));
    file.PutBoolean(s.Use3D);
    for (const Row row : rows) {
        file.PutInteger(row);
        WriteLoopTrackSet(file, SavedSet(s, row));
        file.PutBoolean(playState && Plays(s.Run[row]));
    }
}

void WriteHistory(const Session& s, RecordWriter& file, const std::vector<Row>& rows) {
    file.PutTagged(kHistoryTag);
    file.PutInteger(static_cast<std::int16_t>(rows.size()));
    for (const Row row : rows) {
        file.PutInteger(row);
        file.PutInteger(static_cast<std::int16_t>(s.History[row].size()));
        for (const std::string& path : s.History[row]) file.PutTagged(std::string_view(path));
    }
}

void WriteBands(const Session& s, RecordWriter& file) {
    file.PutTagged(kBandsTag);
    for (const Band& band : s.BandTable) {
        file.PutInteger(band.First);
        file.PutInteger(band.Last);
        file.PutInteger(band.BandSpare);
        file.PutInteger(band.Controlled);
    }
}

void WriteSettings(const Session& s, RecordWriter& file, SetContent content) {
    file.PutTagged(kSettingsTag);
    WriteDictionary(content == SetContent::Work ? CollectSettingsOfWork(s) : CollectSettings(s), file);
}

void WriteSections(Session& s, RecordWriter& file, LoopsSaved loops, const clsSwitchRecord& switches,
                   SetContent content) {
    const std::vector<Row> rows = SavedRows(s, loops);
    const bool playState = content == SetContent::Whole && switches.Get(Element::PlayState);
    if (switches.Get(Element::General)) WriteSettings(s, file, content);
    if (switches.Get(Element::ThreeD)) WriteThreeD(s, file);
    if (switches.Get(Element::PickLists)) WritePickLists(s, file);
    if (switches.SaveLoopComponent()) WriteLoops(s, file, rows, playState);
    if (switches.Get(Element::HistoryLists)) WriteHistory(s, file, rows);
    if (switches.Get(Element::Bands)) WriteBands(s, file);
}

void AddSamples(const Session& s, SetFiles& files, LoopsSaved loops) {
    for (const Row row : SavedRows(s, loops)) {
        const std::string sample = SavedSet(s, row).FileName;
        if (!sample.empty() && HoldsSample(s.Run[row])) files.AddSample(sample);
    }
}

}  // namespace

void WriteSet(Session& s, RecordWriter& file, LoopsSaved loops, const clsSwitchRecord& switches, SetContent content) {
    WriteSetBeforeClips(s, file, loops, switches, content);
    if (switches.Get(Element::ClipBoard)) {
        file.PutTagged(kClipBoardTag);
        WriteClipBoard(s, file);
    }
    file.PutTagged(kEndTag);
}

void WriteSetBeforeClips(Session& s, RecordWriter& file, LoopsSaved loops, const clsSwitchRecord& switches,
                         SetContent content) {
    file.PutString(kHeaderText);
    file.PutInteger(kHeaderNumber);
    PutIt(switches, file);
    WriteSections(s, file, loops, switches, content);
}

void WriteSetFromClipsOn(RecordWriter& file, const clsSwitchRecord& switches, std::string_view clips) {
    if (switches.Get(Element::ClipBoard)) {
        file.PutTagged(kClipBoardTag);
        file.PutBytes(clips);
    }
    file.PutTagged(kEndTag);
}

bool SaveSession(Session& s, const std::string& fileName, LoopsSaved loops, const clsSwitchRecord& switches) {
    std::optional<SetFiles> files;
    try {
        files.emplace(fileName);
    } catch (const RuntimeError&) {
        s.World.Desk.Report("Error Creating File: " + fileName);
        return false;
    }
    try {
        if (IsPackage(fileName) && switches.SaveLoopComponent()) AddSamples(s, *files, loops);
        WriteSet(s, files->Set(), loops, switches);
        files->PutInPlace();
        return true;
    } catch (const RuntimeError& e) {
        // Before the message, during which the player may do anything.
        files.reset();
        s.World.Desk.Report(std::string("Error Saving ") + e.what());
        return false;
    }
}

}  // namespace marvolin
