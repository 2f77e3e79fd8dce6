#include "persistence/session_writer.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "core/errors.h"
#include "core/files/paths.h"
#include "core/files/record_stream.h"
#include "parameters/position.h"
#include "persistence/bin_record.h"
#include "persistence/clips.h"
#include "persistence/loop_record.h"
#include "persistence/session_format.h"
#include "persistence/settings_section.h"
#include "persistence/switch_record_file.h"

namespace marvolin {

namespace {

namespace fs = std::filesystem;

/// Moves the existing file to its name with "~" added, and opens a new one. When no new file can be made, the existing
/// one gets its name back.
std::unique_ptr<RecordWriter> CreateFile(const std::string& fileName) {
    const std::string safe = fileName + "~";
    std::error_code error;
    bool kept = false;
    if (FileExists(fileName)) {
        if (fs::is_directory(fileName, error)) throw RuntimeError(75, "Path/File access error");
        // An empty file only reserves a name; it is not worth a copy.
        const bool empty = fs::is_regular_file(fileName, error) && fs::file_size(fileName, error) == 0;
        if (!empty) {
            fs::rename(fileName, safe, error);
            kept = !error;
        }
        if (!kept && !fs::remove(fileName, error)) throw RuntimeError(70, "Permission denied");
    }
    try {
        return std::make_unique<RecordWriter>(fileName);
    } catch (const RuntimeError&) {
        if (kept) fs::rename(safe, fileName, error);
        throw;
    }
}

void CopySample(const std::string& sample, const std::string& packageFolder) {
    std::string folder;
    std::string name;
    SplitPath(sample, folder, name);
    const std::string target = JoinPath(packageFolder, name);
    std::error_code error;
    // The sample is in the package's folder already.
    if (fs::equivalent(sample, target, error)) return;
    fs::copy_file(sample, target, fs::copy_options::overwrite_existing, error);
    if (error) RaiseFileError(error.value());
}

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

void WriteLoops(Session& s, RecordWriter& file, const std::vector<Row>& rows, bool playState,
                const std::string& packageFolder) {
    file.PutTagged(kLoopsTag);
    file.PutInteger(static_cast<std::int16_t>(rows.size()));
    file.PutBoolean(s.Use3D);
    for (const Row row : rows) {
        const LoopTrackSet& set = s.Set[row];
        if (!packageFolder.empty() && !set.FileName.empty() && s.Run[row].Loaded != False) {
            CopySample(set.FileName, packageFolder);
        }
        file.PutInteger(row);
        WriteLoopTrackSet(file, set);
        file.PutBoolean(playState && s.Run[row].Playing != False);
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

void WriteSections(Session& s, RecordWriter& file, LoopsSaved loops, const clsSwitchRecord& switches,
                   const std::string& packageFolder) {
    const std::vector<Row> rows = SavedRows(s, loops);
    if (switches.Get(Element::General)) {
        file.PutTagged(kSettingsTag);
        WriteDictionary(CollectSettings(s), file);
    }
    if (switches.Get(Element::ThreeD)) WriteThreeD(s, file);
    if (switches.Get(Element::PickLists)) WritePickLists(s, file);
    if (switches.SaveLoopComponent()) WriteLoops(s, file, rows, switches.Get(Element::PlayState), packageFolder);
    if (switches.Get(Element::HistoryLists)) WriteHistory(s, file, rows);
    if (switches.Get(Element::Bands)) WriteBands(s, file);
    if (switches.Get(Element::ClipBoard)) {
        file.PutTagged(kClipBoardTag);
        WriteClipBoard(s, file);
    }
}

}  // namespace

bool SaveSession(Session& s, const std::string& fileName, LoopsSaved loops, const clsSwitchRecord& switches) {
    std::string packageFolder;
    std::string name;
    SplitPath(fileName, packageFolder, name);
    if (!IsPackage(fileName)) packageFolder.clear();
    std::unique_ptr<RecordWriter> file;
    try {
        file = CreateFile(fileName);
    } catch (const RuntimeError&) {
        s.World.Desk.Report("Error Creating File: " + fileName);
        return false;
    }
    try {
        file->PutString(kHeaderText);
        file->PutInteger(kHeaderNumber);
        PutIt(switches, *file);
        WriteSections(s, *file, loops, switches, packageFolder);
        file->PutTagged(kEndTag);
        file->Close();
        return true;
    } catch (const RuntimeError& e) {
        file.reset();
        s.World.Desk.Report(std::string("Error Saving ") + e.what());
        return false;
    }
}

}  // namespace marvolin
