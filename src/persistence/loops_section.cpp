#include "persistence/loops_section.h"

#include <exception>
#include <utility>

#include "audio/loop_clearing.h"
#include "core/errors.h"
#include "core/files/name_order.h"
#include "core/files/paths.h"
#include "core/table.h"
#include "persistence/load_saved_loop.h"
#include "persistence/missing/missing_sample.h"
#include "persistence/missing/nearby_samples.h"

namespace marvolin {

namespace {

bool WantsSample(const SavedLoop& saved, const clsSwitchRecord& elements) {
    return elements.Get(Element::LoopTrack) && !saved.Set.FileName.empty();
}

/// A LoopTrack as the file has it.
struct StoredRow {
    SavedLoop Saved;
    SavedFrom From;
    bool IsThere = true;  ///< the file of its sample, or it asks for none
};

/// The LoopTracks of the file, as far as they can be read; `failure` says why not all of them.
std::vector<StoredRow> ReadRows(RecordReader& file, const LoopsAsked& asked, std::exception_ptr& failure) {
    std::vector<StoredRow> rows;
    const std::int32_t blocks = file.CheckedCount(file.GetInteger(), 0);
    const std::int16_t use3D = file.GetInteger();
    try {
        for (std::int32_t i = 0; i < blocks; ++i) {
            StoredRow row{ReadSavedLoop(file), {}, true};
            if (row.Saved.Index < 0) throw SubscriptError();
            row.From = {.NewUse3d = use3D, .ForPackage = asked.ForPackage, .OpenPath = asked.Folder};
            if (row.Saved.Index < kLoopTracks) rows.push_back(std::move(row));
        }
    } catch (const RuntimeError&) {
        failure = std::current_exception();
    }
    return rows;
}

/// Whether the sample is where it should be, or in its row already.
bool IsInPlace(const Session& s, const StoredRow& row) {
    const std::string path = SavedSample(row.Saved, row.From);
    if (path.empty() || TargetExists(path)) return true;
    return s.Run[row.Saved.Index].Loaded != False && s.Set[row.Saved.Index].FileName == path;
}

/// Checks which samples are in their places and looks for the others, for all rows at once, so that of two with one
/// name each gets its own.
void FindSamples(const Session& s, std::vector<StoredRow>& rows, const LoopsAsked& asked) {
    std::vector<StoredRow*> away;
    std::vector<std::string> missing;
    std::vector<std::string> inPlace;
    for (StoredRow& row : rows) {
        if (!WantsSample(row.Saved, asked.Elements)) continue;
        row.IsThere = IsInPlace(s, row);
        if (row.IsThere) {
            inPlace.push_back(SavedSample(row.Saved, row.From));
        } else {
            missing.push_back(row.Saved.Set.FileName);
            away.push_back(&row);
        }
    }
    if (!asked.Nearby || away.empty()) return;
    const std::vector<std::string> found = FindNearby(s, missing, inPlace, asked.Folder);
    for (std::size_t i = 0; i < away.size(); ++i) {
        away[i]->From.Found = found[i];
        away[i]->IsThere = !found[i].empty();
    }
}

/// What has become of the rows of a file.
struct LoadedRows {
    Table<bool, kLoopTracks> Loaded;
    Table<bool, kLoopTracks> Playing;
    std::vector<MissingSample> Missing;
    std::vector<std::string>& NotLoaded;
};

void LoadRow(Session& s, const StoredRow& row, const LoopsAsked& asked, LoadedRows& rows) {
    const SavedLoop& saved = row.Saved;
    rows.Playing[saved.Index] = saved.WasPlaying != False;
    // A sample that could not be loaded does not count; the previous one is not started in its place.
    const bool wanted = LoadSavedLoop(s, saved, asked.Elements, row.From);
    rows.Loaded[saved.Index] = wanted && HoldsSavedSample(s, saved, row.From);
    const bool inRow = rows.Loaded[saved.Index] && s.Run[saved.Index].Loaded != False;
    // Without a device nothing is loaded: then only what is missing is worth a word.
    const bool reported = s.DSReady || (asked.Nearby && !row.IsThere);
    if (wanted && !inRow && reported) rows.NotLoaded.push_back(NameOfSample(saved.Set.FileName));
    if (wanted) s.Run[saved.Index].Missing.reset();
    // A row whose file is not there is also missing while it waits for a device.
    if (!row.IsThere && !inRow) rows.Missing.push_back({saved, asked.Elements, row.From.NewUse3d});
}

/// Where the samples were found that were not in their places. A damaged file may ask for two in one row.
std::vector<std::string> FoundFiles(const std::vector<StoredRow>& stored) {
    std::vector<std::string> found;
    for (const StoredRow& row : stored) {
        if (!row.From.Found.empty()) found.push_back(row.From.Found);
    }
    return found;
}

/// Rows whose sample is missing remember the files of its name that other rows got.
void KeepPlaces(Session& s, const std::vector<std::string>& found, std::vector<MissingSample>& missing) {
    for (MissingSample& sample : missing) {
        const std::string name = NameOfSample(sample.Loop.Set.FileName);
        for (const std::string& file : found) {
            if (SameIgnoringCase(NameOfSample(file), name)) sample.OfOthers.push_back(file);
        }
        KeepPlace(s, std::move(sample));
    }
}

}  // namespace

void ReadLoopTracks(Session& s, RecordReader& file, const LoopsAsked& asked, std::vector<std::string>& notLoaded) {
    std::exception_ptr failure;
    std::vector<StoredRow> stored = ReadRows(file, asked, failure);
    FindSamples(s, stored, asked);
    LoadedRows rows{.Loaded = {}, .Playing = {}, .Missing = {}, .NotLoaded = notLoaded};
    for (const StoredRow& row : stored) LoadRow(s, row, asked, rows);
    if (failure) std::rethrow_exception(failure);
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.EmptyBlankSetting == 1 && !rows.Loaded[row]) LoopClear(s, row);
    }
    KeepPlaces(s, FoundFiles(stored), rows.Missing);
    if (!asked.Elements.Get(Element::PlayState)) return;
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (rows.Playing[row] && rows.Loaded[row]) PlaySavedLoop(s, row);
    }
}

}  // namespace marvolin
