#include "persistence/undo/instrument_restore.h"

#include "audio/thinning.h"
#include "browser/destinations.h"
#include "browser/sample_bins.h"
#include "parameters/mapping.h"
#include "parameters/position.h"
#include "performance/map/sound_map.h"
#include "performance/pad/pad_tables.h"
#include "persistence/quick_load.h"
#include "persistence/settings_section.h"

namespace marvolin {

namespace {

bool Asks(InstrumentParts parts, InstrumentPart part) { return (parts & part) != 0; }

void PutBands(Session& s, const InstrumentState& goal) {
    s.BandTable = goal.Bands;
    s.SelectionControlled = goal.SelectionControlled;
    s.World.Screen.ShowBands();
    for (int button = 0; button <= kBands; ++button) s.World.Screen.ShowSelector(button);
}

void PutNames(Session& s, const InstrumentState& goal) {
    s.CurrentFolder = goal.Folder;
    s.CurrentFile = goal.File;
    s.DialogueFile = goal.DialogueFile;
    s.Title = goal.Title;
    s.SaveItEnabled = goal.SaveItEnabled;
    s.SaveOpenSwitches[kWhenSaving] = goal.SavingSwitches;
    s.World.Screen.ShowTitle();
    s.World.Screen.ShowSaveOpen();
    UpdateQuickLoad(s);
}

void PutBins(Session& s, const InstrumentState& goal, InstrumentParts parts) {
    for (int bin = 0; bin < kBins; ++bin) {
        if ((parts & kFirstBinPart << bin) == 0) continue;
        const BinState& wanted = goal.Bins[bin];
        if (s.Bins[bin].Folder != wanted.Folder) {
            SetPickDir(s, bin, wanted.Folder);
            UpdatePickFile(s, bin);
        }
        s.Bins[bin].ClickPlay = wanted.ClickPlay;
        SetFileDestination(s, bin, wanted.Destination);
        s.World.Screen.ShowBin(bin);
    }
}

void PutPad(Session& s, const InstrumentState& goal) {
    for (int type = 0; type < static_cast<int>(s.PadTable.size()); ++type) {
        s.PadTable[type].X = goal.Pad[type].X;
        s.PadTable[type].Y = goal.Pad[type].Y;
    }
    s.PadTypeIndex = goal.PadType;
    s.TwistPosition = goal.Twist;
    s.ChannelVol = goal.ChannelVol;
    s.ChannelPan = goal.ChannelPan;
    s.ChannelHz = goal.ChannelHz;
    MapHZAll(s);
    MapPanAll(s);
    MapVolAll(s);
    s.World.Screen.ShowPad();
    s.World.Screen.ShowPadBall();
    PadTwistShow(s, s.PadTypeIndex);
}

void PutSettings(Session& s, const InstrumentState& goal, const InstrumentState& now) {
    KeyedTable different = DifferentSettings(goal.Settings, now.Settings);
    if (different.Pairs().empty()) return;
    // The first joystick has come since, and goes on as if the step had not been.
    if (goal.JoyOpen && !s.Joy.Refreshing) PutStartOfStick(s, different);
    // Without the number of drivers a stored driver means nothing.
    if (const TaggedValue* drivers = goal.Settings.Find("NDevices")) different.Put("NDevices", *drivers);
    ApplySettings(s, different);
}

}  // namespace

void RestoreSpace(Session& s, const InstrumentState& goal, InstrumentParts parts) {
    if (Asks(parts, kMapSizePart) && s.MapSize != goal.MapSize) MapSize_Change(s, goal.MapSize);
    const bool rollOff = Asks(parts, kRollOffPart) && s.Use3D && goal.Use3D;
    if (rollOff && s.RollOffValue != goal.RollOff) SetRollOff(s, goal.RollOff);
}

void RestoreTables(Session& s, const InstrumentState& goal, InstrumentParts parts) {
    if (Asks(parts, kBandsPart)) PutBands(s, goal);
    if (Asks(parts, kHistoryPart)) s.History = goal.History;
    if (Asks(parts, kMacroPart)) {
        s.PosMacro = goal.PosMacro;
        s.World.Screen.ShowMapControls();
    }
    if (Asks(parts, kWireChoicePart)) {
        s.SetChannelChoice = goal.WireChoice;
        s.World.Screen.ShowPad();
    }
    if (Asks(parts, kNamesPart)) PutNames(s, goal);
}

void RestoreThinList(Session& s, const std::string& goal) {
    std::string letters;
    const auto add = [&](char letter) {
        const Row row = ThinnedRow(letter);
        const bool takesPart = s.Set[row].Thinnable != False && CanBeThinned(s, row);
        if (takesPart && letters.find(letter) == std::string::npos) letters += letter;
    };
    for (const char letter : goal) add(letter);
    // What plays and is not in that order, as the hand has started it since, comes last.
    for (Row row = 0; row < kLoopTracks; ++row) {
        if (s.Run[row].Playing != False) add(RowLetter(row));
    }
    s.ThinList = letters;
}

void RestoreOptions(Session& s, const InstrumentState& goal, const InstrumentState& now, InstrumentParts parts) {
    if (Asks(parts, kSettingsPart)) PutSettings(s, goal, now);
    PutBins(s, goal, parts);
    // After the settings, whose curves centre the ball.
    if (Asks(parts, kPadPart)) PutPad(s, goal);
}

}  // namespace marvolin
