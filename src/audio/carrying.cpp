#include "audio/carrying.h"

#include <array>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "audio/ds_error.h"
#include "audio/play_modes.h"
#include "audio/reverse.h"
#include "audio/sample_buffers.h"
#include "audio/thinning.h"
#include "audio/transport.h"
#include "core/errors.h"
#include "core/files/paths.h"
#include "core/loops/loop_views.h"
#include "core/loops/row_clock.h"
#include "core/loops/sample_history.h"
#include "core/routines.h"
#include "parameters/mapping.h"
#include "parameters/position.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

constexpr const char* kSessionEnding = ".mvn";
constexpr const char* kNothingChanged = "The session could not be kept, so nothing has changed.";

/// Elements of a LoopTrack that are reloaded; not whether it plays.
constexpr std::array<Element, 9> kCarriedByFile{Element::LoopTrack, Element::Freq,       Element::FreqPattern,
                                                Element::Vol,       Element::VolPattern, Element::PanPattern,
                                                Element::Pan,       Element::Position,   Element::CrossFader};

clsSwitchRecord CarriedByFile() {
    clsSwitchRecord taken;
    for (const Element element : kCarriedByFile) taken.Put(element, true);
    return taken;
}

/// What a file does not bring back of one LoopTrack.
struct CarriedRow {
    HeldSample Sample;
    std::shared_ptr<const MissingSample> Missing;
    bool Waited = false;  ///< the sample has not been loaded since the row got it
    // A file brings these back only with a sample.
    std::int16_t PlayMode = kLoop;
    Boolean Thinnable = True;
    std::int16_t Pan = kPanCentre;
    PatternBlock PanPattern;
    float X = 0;
    float Y = 0;
    std::int16_t Line = kVolFull;  ///< of `SndDisp`
    RowClock Clock;
};

/// What a file does not bring back.
struct Carried {
    Table<CarriedRow, kLoopTracks> Rows;
    std::string ThinList;
    Table<std::vector<std::string>, 5> History;
    bool Use3D = false;
    float RollOff = 0;
};

HeldSample HeldBy(Session& s, Row row) {
    const LoopTrackRun& run = s.Run[row];
    if (run.Loaded == False || !run.Buffer) return run.InHand;
    HeldSample held{.FileName = s.Set[row].FileName,
                    .BeatStart = s.Set[row].BeatStart,
                    .Playing = run.Playing != False,
                    .Paused = run.Paused != False,
                    .Reversed = run.Reversed != False};
    try {
        const std::int32_t status = run.Buffer->GetStatus();
        held.Sounds = (status & buffer_status::kPlaying) != 0;
        held.Loops = (status & buffer_status::kLooping) != 0;
        held.Cursor = run.Buffer->GetCurrentPosition();
    } catch (const RuntimeError&) {
        // A device that no longer answers: the row starts again where it counts as sounding.
        held.Sounds = held.Playing && !held.Paused;
        held.Loops = LoopPlayFlags(s.Set[row].PlayMode) != 0;
    }
    return held;
}

CarriedRow Take(Session& s, Row row) {
    const LoopTrackSet& set = s.Set[row];
    const LoopTrackRun& run = s.Run[row];
    return {.Sample = HeldBy(s, row),
            .Missing = run.Missing,
            .Waited = run.Loaded == False,
            .PlayMode = set.PlayMode,
            .Thinnable = set.Thinnable,
            .Pan = set.Pan,
            .PanPattern = set.Pattern[kPanPattern],
            .X = set.PositionX,
            .Y = set.PositionY,
            .Line = s.SndDisp[row].Line,
            .Clock = ClockOf(run)};
}

Carried Take(Session& s) {
    Carried carried{
        .Rows = {}, .ThinList = s.ThinList, .History = s.History, .Use3D = s.Use3D, .RollOff = s.RollOffValue};
    for (Row row = 0; row < kLoopTracks; ++row) carried.Rows[row] = Take(s, row);
    return carried;
}

void RestoreSettings(Session& s, Row row, const CarriedRow& was) {
    std::int16_t pan = was.Pan;
    LoopPanChange(s, row, pan, TakeHold::Yes);
    s.Set[row].Pattern[kPanPattern] = was.PanPattern;
    TryPositionSet(s, row, was.X, was.Y, {.Apply = true, .StoreBall = true});
    s.SndDisp[row].Line = was.Line;
    s.World.Screen.ShowSoundDisplay(row);
    LoopTrackRun& run = s.Run[row];
    SetClock(run, was.Clock);
    if (was.Sample.Reversed && run.Reversed == False) LoopReverse(s, row);
    // The patterns of the step that is being played.
    MapHZ(s, row);
    MapPan(s, row);
    MapVol(s, row);
    ShowStep(s, row);
}

bool IsBack(const Session& s, Row row, const HeldSample& held) {
    return s.Run[row].Loaded != False && s.Set[row].FileName == held.FileName;
}

void RestoreSounding(Session& s, Row row, const HeldSample& held) {
    s.Run[row].Playing = ToBoolean(held.Playing);
    s.Run[row].Paused = ToBoolean(held.Paused);
    try {
        DirectSoundBuffer& buffer = BufferOf(s, row);
        // The file may have become shorter in the meantime.
        const std::int32_t place = held.Cursor < s.Set[row].BufferBytes ? held.Cursor : StartPosition(s, row);
        if (place != 0) buffer.SetCurrentPosition(place);
        if (held.Sounds) buffer.Play(held.Loops ? 1 : 0);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "playing loop", e.Number());
    }
    s.World.Screen.ShowPlay(row);
}

// As after any load. A sample that was loaded before is in the palettes that came back, or was replaced there by a set.
void AddToPalettes(Session& s, Row row) {
    HistoryAdd(s, row, s.Set[row].FileName);
    HistoryAdd(s, kSelectionRow, s.Set[row].FileName);
}

// The row is empty until a device takes its sample.
void WaitForDevice(Session& s, Row row, const HeldSample& held) {
    s.Run[row].InHand = held;
    if (!held.FileName.empty()) s.Run[row].Paused = False;
}

// The order of thinning, without rows that have lost their sample. A row that a device had refused comes last.
void RestoreThinning(Session& s, const std::string& before) {
    s.ThinList.clear();
    for (const char letter : before) {
        if (CanBeThinned(s, static_cast<Row>(letter - 'A'))) s.ThinList += letter;
    }
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Playing != False) ThinAdd(s, row);
    }
}

void Restore(Session& s, const Carried& carried) {
    s.History = carried.History;
    // Before the settings: more rows than the limit allows are stopped on the way.
    for (Row row = 0; row < kLoopTracks; ++row) {
        s.Run[row].InHand = {};
        LoopSetPlayMode(s, row, carried.Rows[row].PlayMode, false);
        LoopSetThinnable(s, row, carried.Rows[row].Thinnable != False);
    }
    if (s.Use3D && carried.Use3D) SetRollOff(s, carried.RollOff);
    for (Row row = 0; row < kLoopTracks; ++row) RestoreSettings(s, row, carried.Rows[row]);
    // All rows start at the end, so that they stay together.
    for (Row row = 0; row < kLoopTracks; ++row) {
        const HeldSample& held = carried.Rows[row].Sample;
        if (IsBack(s, row, held)) {
            if (carried.Rows[row].Waited) AddToPalettes(s, row);
            RestoreSounding(s, row, held);
        } else if (s.Run[row].Loaded == False) {
            WaitForDevice(s, row, held);
        }
    }
    RestoreThinning(s, carried.ThinList);
    LoopRefreshAny(s);
    PatternsRefresh(s);
}

// A row whose sample the new device has taken misses nothing any more.
void RestoreMissing(Session& s, const Carried& carried) {
    for (Row row = 0; row < kLoopTracks; ++row) {
        const CarriedRow& was = carried.Rows[row];
        if (!was.Missing && !s.Run[row].Missing) continue;
        const bool taken = was.Waited && s.Run[row].Loaded != False;
        s.Run[row].Missing = taken ? nullptr : was.Missing;
        s.World.Screen.ShowCaption(row);
    }
}

void Remove(const std::string& file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

bool Save(Session& s, const std::string& file) {
    if (file.empty()) {
        s.World.Desk.Report(std::string("No temporary file can be made. ") + kNothingChanged);
        return false;
    }
    if (s.World.Store.SaveSession(s, file, LoopsSaved::All, AllSwitches())) return true;
    Remove(file);
    ShowStatus(s, kNothingChanged);
    return false;
}

/// Gives the file of a session that could not be loaded a name that the Open dialogue shows. The name that it has then.
std::string KeepAsSet(const std::string& file) {
    const std::filesystem::path kept = std::filesystem::path(file).replace_extension(kSessionEnding);
    std::error_code failed;
    if (std::filesystem::exists(kept, failed)) return file;
    std::filesystem::rename(file, kept, failed);
    return failed ? file : kept.string();
}

void ShowKept(Session& s, const std::string& file) {
    if (FileExists(file)) {
        s.World.Desk.Report("The session has been kept in the file " + KeepAsSet(file));
    } else {
        s.World.Desk.Report("The session could not be loaded again: there is no file " + file);
    }
}

void Load(Session& s, const std::string& file) {
    // "Empty Blank Loops on Open" is meant for files that the player opens.
    const std::int16_t emptyBlank = std::exchange(s.EmptyBlankSetting, std::int16_t{0});
    const bool loaded = s.World.Store.LoadSession(s, file, SetAsCurrent::No, CarriedByFile(), AdoptSwitches::No);
    s.EmptyBlankSetting = emptyBlank;
    if (loaded) {
        Remove(file);
    } else {
        ShowKept(s, file);
    }
}

}  // namespace

bool CarryAcross(Session& s, const std::function<void()>& change) {
    const Carried carried = Take(s);
    const std::string file = TempFileName(s);
    // The file holds what is in the rows, not what is missing.
    for (Row row = 0; row < kLoopTracks; ++row) s.Run[row].Missing.reset();
    const bool saved = Save(s, file);
    if (saved) {
        change();
        Load(s, file);
        Restore(s, carried);
    }
    RestoreMissing(s, carried);
    return saved;
}

}  // namespace marvolin
