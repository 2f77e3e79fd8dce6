#include "instrument/init_main_form.h"

#include <chrono>
#include <ctime>

#include "audio/beat_start.h"
#include "audio/loop_controls.h"
#include "audio/play_modes.h"
#include "browser/sample_bins.h"
#include "core/files/paths.h"
#include "core/loops/loop_resets.h"
#include "core/routines.h"
#include "parameters/scroll_events.h"
#include "parameters/setters.h"
#include "performance/map/scatter.h"
#include "performance/map/sound_map.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"
#include "persistence/quick_load.h"
#include "scripting/script_host.h"
#include "sequencing/loop_clock.h"

namespace marvolin {

namespace {

constexpr std::int16_t kFirstTimingRes = 10;  // ms
constexpr std::int32_t kFadeInterval = 40;    // ms

void ResetOptions(Session& s) {
    SetTab(s, kMixPadTab);
    ScrollSensitivity_Change(s, 0, 1);
    ScrollSensitivity_Change(s, 1, 4);
    ClearProcedureFlags(s);
    ClearScriptEvents(s);
    s.DeviceSwapArmed = true;
    s.PositionUpdate[0] = true;
    s.PositionUpdate[1] = true;
    s.PositionUpdate[2] = false;
    s.World.Screen.ShowMapControls();
    s.DragAxis = kHorizontalDrag;
    s.World.Screen.ShowOptions();
}

void SpreadChannels(Session& s) {
    for (Row row = 0; row < kRows; ++row) {
        s.Set[row].Channel = static_cast<std::uint8_t>(row + 1);
        if (row < kLoopTracks) s.World.Screen.ShowWire(row);
    }
}

void ResetBands(Session& s) {
    for (Band& band : s.BandTable) band = Band{};
    s.BandTable[0].First = 0;
    s.SelectionControlled = true;
    s.World.Screen.ShowBands();
    for (int button = 0; button <= kBands; ++button) s.World.Screen.ShowSelector(button);
}

void ResetKnobs(Session& s, Row row) {
    std::int16_t hz = kHzUnity;
    LoopHzChange(s, row, hz, TakeHold::No);
    std::int16_t vol = kVolFull;
    LoopVolChange(s, row, vol, TakeHold::No, UpdateDisplay::Yes);
    std::int16_t pan = kPanCentre;
    LoopPanChange(s, row, pan, TakeHold::No);
}

void ResetRow(Session& s, Row row) {
    LoopTrackSet& set = s.Set[row];
    LoopTrackRun& run = s.Run[row];
    run.Loaded = run.Playing = run.Paused = False;
    LoopSetPlayMode(s, row, kLoop, false);
    ResetKnobs(s, row);
    set.Selected = False;
    s.World.Screen.ShowSelected(row);
    ResetLoopClock(s, row);
    set.Length = 0;
    std::int32_t start = 0;
    LoopSetBeatStart(s, row, start);
    s.World.Screen.ShowPlay(row);
    if (row == kSelectionRow) return;
    set.Thinnable = True;
    EnableLoopControls(s, row, false);
    s.World.Screen.ShowCaption(row);
    set.StepDuration = 1;
}

void ResetMaster(Session& s) {
    std::int16_t vol = kVolFull;
    LoopVolChange(s, kMasterRow, vol, TakeHold::No, UpdateDisplay::Yes);
}

void MakeTimers(Session& s) {
    s.LoopTimer = s.World.Timers.Create([&s](std::int32_t milliseconds) { LoopTimer_Timer(s, milliseconds); });
    ResSlider_Change(s, kFirstTimingRes);
    s.LoopTimerBusy = false;
    s.LoopTimer->SetEnabled(true);
    s.FadeTimer = s.World.Timers.Create([&s](std::int32_t milliseconds) { FadeTimer_Timer(s, milliseconds); });
    s.FadeTimer->SetInterval(kFadeInterval);
    s.FadeTimer->SetEnabled(true);
}

void ResetChannels(Session& s) {
    for (int channel = 0; channel <= kChannels; ++channel) {
        s.ChannelVol[channel] = 0;
        s.ChannelPan[channel] = kPanCentre;
        s.ChannelHz[channel] = kHzUnity;
    }
}

std::string Today() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    return TodayText(local.tm_mon + 1, local.tm_mday);
}

}  // namespace

bool InitMainForm(Session& s, const std::function<void(Session&)>& initPadGeometry) {
    ResetOptions(s);
    SpreadChannels(s);
    InitPicks(s);
    s.GangReady = false;
    ResetBands(s);
    for (Row row = 0; row <= kSelectionRow; ++row) ResetRow(s, row);
    ResetMaster(s);
    s.ResetVars = true;
    s.GangReady = true;
    ClockReset(s);
    s.World.Screen.ShowOptions();
    s.World.Screen.ShowClock();
    try {
        MakeTimers(s);
    } catch (const std::exception&) {
        s.World.Desk.MessageBox("Error initializing timer objects. Make sure Marvolin was properly installed.");
        s.World.Desk.EndProgram();
        return false;
    }
    s.CurrentFolder = JoinPath(s.World.Desk.ProgramFolder(), "");
    ResetChannels(s);
    s.Use3D = false;
    // Pad and map take their sizes from the layout of the window.
    if (initPadGeometry) initPadGeometry(s);
    PadListInit(s);
    PadTablesInit(s);
    MapInit(s);
    s.World.Screen.ShowSelectList(false);
    TabControl_Changed(s);
    s.TodayLabel = Today();
    for (clsSwitchRecord& switches : s.SaveOpenSwitches) switches.SetSwitch(true);
    UpdateQuickLoad(s);
    return true;
}

}  // namespace marvolin
