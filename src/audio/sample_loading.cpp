#include "audio/sample_loading.h"

#include <array>
#include <optional>
#include <vector>

#include "audio/beat_start.h"
#include "audio/loop_clearing.h"
#include "audio/loop_controls.h"
#include "audio/sample_buffers.h"
#include "audio/silent_starts.h"
#include "audio/transport.h"
#include "core/busy_pointer.h"
#include "core/files/paths.h"
#include "core/files/sample_files.h"
#include "core/loops/grouping.h"
#include "core/loops/loop_resets.h"
#include "core/loops/loop_views.h"
#include "core/loops/sample_history.h"
#include "core/routines.h"
#include "core/undo/undo_step.h"
#include "parameters/position.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr Row kNoSource = -1;
constexpr std::int32_t kShortestKeptStep = 6;  // 1/100 s

// Lowest row that holds the file.
Row SourceOf(const Session& s, const std::string& path) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Loaded != False && s.Set[row].FileName == path) return row;
    }
    return kNoSource;
}

void ResetPatterns(Session& s, Row row) {
    for (int patternRow = 0; patternRow < kPatternRows; ++patternRow) PatternReset(s, row, patternRow);
}

void SetBeatStartToZero(Session& s, Row row) {
    std::int32_t start = 0;
    LoopSetBeatStart(s, row, start);
}

// Sends the settings of the row to its buffer through their setters.
void ApplySettings(Session& s, Row row, std::int16_t hz, std::int16_t vol, std::int16_t pan, float x, float y) {
    LoopHzChange(s, row, hz, TakeHold::Yes);
    LoopVolChange(s, row, vol, TakeHold::Yes, UpdateDisplay::Yes);
    if (s.Use3D) {
        PositionSet(s, row, x, y, {.Apply = true, .StoreBall = true});
    } else {
        LoopPanChange(s, row, pan, TakeHold::Yes);
    }
}

void TakeSourceSettings(Session& s, Row row, Row source) {
    LoopTrackSet& set = s.Set[row];
    s.Run[row].Reversed = s.Run[source].Reversed;
    set.SampleRate = s.Set[source].SampleRate;
    set.Length = s.Set[source].Length;
    // A hundredth of the source's start: the division is deliberate.
    std::int32_t start = ToI4(s.Set[source].BeatStart / 100.0);
    LoopSetBeatStart(s, row, start);
    TimingRefresh(s);
    BufferOf(s, row).SetVolume(0);
}

void ReadSampleFacts(Session& s, Row row) {
    LoopTrackSet& set = s.Set[row];
    DirectSoundBuffer& buffer = BufferOf(s, row);
    set.BufferBytes = buffer.GetCaps().BufferBytes;
    const WaveFormat format = buffer.GetFormat();
    if (format.AvgBytesPerSec == 0) throw RuntimeError(11, "Division by zero");
    set.Length = static_cast<double>(set.BufferBytes) / format.AvgBytesPerSec;
    set.AvgBytesPerSec = format.AvgBytesPerSec;
    s.World.Screen.ShowDestinations();
    s.World.Screen.ShowCaption(row);
    s.World.Screen.ShowWaveform(row);
}

std::int32_t WholeSample(const LoopTrackSet& set) { return ToI4(Int(Round(set.Length, 2) * 100)); }

void ResetSettings(Session& s, Row row) {
    s.Set[row].StepDuration = WholeSample(s.Set[row]);
    s.Set[row].Swing = 0;
    SetBeatStartToZero(s, row);
    ResetPatterns(s, row);
    if (row == s.CurrentLoop) PatternsRefresh(s);
    ApplySettings(s, row, kHzUnity, kVolFull, kPanCentre, 0, 0);
}

void KeepSettings(Session& s, Row row) {
    LoopTrackSet& set = s.Set[row];
    if (set.StepDuration < kShortestKeptStep) set.StepDuration = WholeSample(set);
    ApplySettings(s, row, set.Hz, set.Vol, set.Pan, set.PositionX, set.PositionY);
}

// What waited for a device gives way to the sample that the row has now.
void DropInHand(Session& s, Row row) {
    HeldSample& inHand = s.Run[row].InHand;
    if (!inHand.FileName.empty()) ResetLoopClock(s, row);
    inHand = {};
}

// Sets the row up for its new buffer.
void SetUpLoaded(Session& s, Row row, const std::string& path, Row source) {
    if (s.Run[row].Loaded == False) EnableLoopControls(s, row, true);
    s.Set[row].FileName = path;
    if (source == kNoSource) {
        s.Run[row].Reversed = False;
        s.Set[row].SampleRate = BufferOf(s, row).GetFrequency();
        SetBeatStartToZero(s, row);
    } else {
        TakeSourceSettings(s, row, source);
    }
    s.Run[row].Loaded = True;
    s.Run[row].Missing.reset();
    DropInHand(s, row);
    ReadSampleFacts(s, row);
    if (s.ResetVars) {
        ResetSettings(s, row);
    } else {
        KeepSettings(s, row);
    }
}

void LeaveEmpty(Session& s, Row row) {
    s.Set[row].FileName = "";
    s.Set[row].Length = 0;
    s.Run[row].Loaded = False;
    s.World.Screen.ShowDestinations();
    s.World.Screen.ShowCaption(row);
    EnableLoopControls(s, row, false);
    PatternsRefresh(s);
}

// What is loaded takes the place of what was missing, also when the row holds it already.
void KeepLoaded(Session& s, Row row) {
    if (!s.Run[row].Missing) return;
    s.Run[row].Missing.reset();
    s.World.Screen.ShowCaption(row);
}

/// Whether the file could be read, as far as it was asked for.
bool LoadRow(Session& s, Row row, const std::string& path) {
    if (row == kSelectionRow || row == kMasterRow) return true;  // they never hold a sample
    if (!s.DSReady) return true;
    if (path.empty()) {
        s.World.Desk.Report("No File Name!!");
        return true;
    }
    if (!TargetExists(path)) {
        ShowStatus(s, NotLoadedText({FileNameOf(path)}));  // the box does not say which
        s.World.Desk.Report("File Doesn't Exist !!");
        return false;
    }
    if (s.Run[row].Loaded != False) {
        if (s.Set[row].FileName == path) {
            KeepLoaded(s, row);
            return true;
        }
        LoopUnload(s, row);
    }
    const Row source = SourceOf(s, path);
    int failed = 0;
    {
        const BusyPointer busy(s);
        failed = source == kNoSource ? LoopCreateBuffer(s, row, path) : LoopDuplicateBuffer(s, row, source);
    }
    if (failed != 0) {
        LeaveEmpty(s, row);
        ShowStatus(s, NotLoadedText({FileNameOf(path)}));
        return false;
    }
    try {
        SetUpLoaded(s, row, path, source);
    } catch (const std::exception&) {
        ShowStatus(s, "Error setting up loaded loop");
        return true;
    }
    HistoryAdd(s, row, path);
    HistoryAdd(s, kSelectionRow, path);
    PatternsRefresh(s);
    return true;
}

std::vector<Row> RowsReached(Session& s, const SampleRequest& request) {
    const Row row = request.Target;
    if (request.Rows == Reach::Alone) return {row};
    std::vector<Row> rows;
    const auto add = [&](Row each) { rows.push_back(each); };
    if (row == kSelectionRow) {
        ForControlled(s, add);
    } else if (row >= 0 && row < kLoopTracks) {
        if (s.Run[row].InBand != False) {
            ForBand(s, s.Run[row].Band, add);
        } else {
            add(row);
        }
    }
    return rows;
}

std::string StepText(const SampleRequest& request, const std::vector<Row>& rows) {
    return "Load of " + SampleName(request.Path) + " into " + LettersOf(rows);
}

}  // namespace

std::string NotLoadedText(const std::vector<std::string>& names) {
    std::string text = "Not loaded: ";
    for (std::size_t i = 0; i < names.size(); ++i) text += (i == 0 ? "" : ", ") + names[i];
    return text;
}

bool LoadSample(Session& s, const SampleRequest& request) {
    const std::vector<Row> rows = RowsReached(s, request);
    // What a session brings belongs to the step of the session, or to none.
    std::optional<UndoStep> step;
    if (request.Origin != SampleOrigin::Session) step.emplace(s, StepText(request, rows));
    const bool loopTrack = request.Target >= 0 && request.Target < kLoopTracks;
    if (request.Rows == Reach::Gang && loopTrack) PosSetHighlight(s, request.Target);
    bool read = true;
    for (const Row row : rows) read = LoadRow(s, row, request.Path) && read;
    if (!request.Play) return read;
    for (const Row row : rows) LoopPlay(s, row, true);
    return read;
}

void LoopLoad(Session& s, Row row, const std::string& folder, const std::string& fileName) {
    const std::string path = fileName.empty() ? "" : JoinPath(folder, fileName);
    LoadSample(s, {.Path = path, .Target = row, .Rows = Reach::Alone});
}

void LoopLoadRows(Session& s, const std::string& folder, const std::string& name, Row row, bool playAfter) {
    const std::string path = JoinPath(folder, SampleFileName(folder, name));
    LoadSample(s, {.Path = path, .Target = row, .Play = playAfter});
}

std::string SampleFileName(const std::string& folder, const std::string& name) {
    static constexpr std::array<const char*, 8> kSpellings{".WAV", ".wav", ".Wav", ".WAv",
                                                           ".WaV", ".waV", ".wAv", ".wAV"};
    for (const char* extension : kSpellings) {
        if (FileExists(JoinPath(folder, name + extension))) return name + extension;
    }
    return name + kSpellings.front();
}

std::string LoopFileName(const Session& s, Row row) { return SampleName(s.Set[row].FileName); }

}  // namespace marvolin
