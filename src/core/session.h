#pragma once
/// \file
/// All state of the instrument, on one page.
///
/// What happens to it is written as free procedures that take the `Session` first. There is no other mutable state that
/// outlives a call, so one process can hold several sessions.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/input_service.h"
#include "core/loops/loop_track.h"
#include "core/script_events.h"
#include "core/scroll_delta.h"
#include "core/services.h"
#include "core/sound_service.h"
#include "core/surface_records.h"
#include "core/switch_record.h"
#include "core/table.h"
#include "core/timer.h"
#include "core/types.h"

namespace marvolin {

class DeviceWatch;
class LastState;
class UndoHistory;

/// One shared drag of a knob-like control: only one control is dragged at a time.
struct DragState {
    Boolean Dragging = False;
    float DragOrigin = 0;             ///< position at the press, twips
    std::int32_t DragStartValue = 0;  ///< value at the press
    bool Moved = false;               ///< flag, `LoopIt`: the hand has gone further than a click goes
    std::int16_t DragPlayMode = 0;    ///< mode chosen so far in a `LoopIt` drag
    Row DragPlayModeRow = -1;         ///< the `LoopIt` (0..5) that is being dragged; -1 none
};

/// A drag along a lane of the band editor, and the run of LoopTracks that it has covered.
struct BandDrag {
    Row Lane = -1;  ///< band being drawn; -1 none
    Row First = 0;
    Row Last = 0;
};

/// The two needles of a `SndDisp`, on the scale 0..500.
struct SoundDisplayState {
    std::int16_t Level = kVolFull;  ///< needle 0, along the top: the volume
    std::int16_t Line = kVolFull;   ///< needle 1, along the bottom: the target of a fade
    std::int16_t Current = 0;       ///< the needle that is being dragged
};

/// What a set has assigned to a joystick that has not come yet; none where it has said nothing.
struct WaitingAssignments {
    Table<std::optional<std::int16_t>, 5> Button;
    Table<std::optional<std::int16_t>, 2> Axis;
};

/// Settings and memory of the joystick.
struct JoystickState {
    bool Refreshing = true;                            ///< the lists are being filled; their clicks do nothing
    Table<std::int16_t, 5> Button{{0, 2, 1, 5, 4}};    ///< `JoyButton`: index of each action's button, 8 "None"
    Table<std::int16_t, 2> Axis;                       ///< `JoyAxis`: code of each assignable axis, 0 none
    WaitingAssignments Waiting;                        ///< of the next joystick; empty while there is one
    Table<bool, 9> AxisPresent;                        ///< entries 1..8
    Table<std::int16_t, 3> Factor{{500, 1500, 1000}};  ///< `JoyFactor`: "XY Rel:", "XY Abs:", "Twist:", 100..3000
    Table<Boolean, 2> Relative;                        ///< `JoyRelative`: 0 the pad, 1 the map
    std::int32_t LastX = 0, LastY = 0;                 ///< raw values of the last poll that changed something
    std::int16_t LastPadType = 0;
    std::int32_t LastMaster = 0;
    std::int32_t LastPov = 0;
    std::int32_t LastTwist = 0;
    bool TwistLetGo = false;  ///< the stick does not move `TwistBall`
    bool ToggleHeld = false;
    bool Refused = false;  ///< the service has refused a place of the stick, and the player knows
    /// Entries of the lists `JButton` and `JAxis`, and the chosen entry of each (-1 none).
    std::vector<std::string> ButtonNames;
    std::vector<std::string> AxisNames;
    Table<std::int16_t, 5> ButtonChoice{{-1, -1, -1, -1, -1}};
    Table<std::int16_t, 2> AxisChoice{{-1, -1}};
    DIJOYSTATE State;  ///< the state record that a poll fills
};

/// One row of a sample bin.
struct BinRow {
    std::string Name;    ///< file name without its extension
    std::string Size;    ///< kilobytes as text
    std::string Target;  ///< full path that a shortcut leads to; "" for a plain file
    std::string File;    ///< file name as it is spelled on disk
};

/// One of the three sample bins of `frmBrowse`.
struct SampleBin {
    std::string Folder;   ///< full path, the tool tip of `PickDir`
    std::string Caption;  ///< of `PickDir`
    std::vector<BinRow> Rows;
    std::int16_t Destination = 5;  ///< row of `FileDestination`, 0..8
    std::int16_t ClickPlay = 1;    ///< 1: start the LoopTrack after loading into it
    std::int32_t FirstColumn = 0;  ///< width of the name column
    std::int32_t Selected = -1;    ///< the selected row

    std::string Stamp;                       ///< what the folder was when it was scanned; "" scans it at the next look
    std::vector<std::string> DeadShortcuts;  ///< file names of the shortcuts that have led to no sample
    std::size_t Checked = 0;                 ///< entries that the running check of the files has compared
};

/// The clipboard of whole LoopTracks.
struct ClipBoardState {
    std::vector<LoopTrackSet> ClipStore;
    std::int16_t ClipTop = -1;      ///< index of the last clip; -1 when empty
    std::vector<std::string> List;  ///< `ClipBoardList`, one text a clip
    std::int16_t Selected = -1;     ///< the chosen clip
    LoopTrackSet ClipStaging;       ///< the record that is added as the next clip
    /// Elements of a clip that a right drag copies, in the order of the boxes `Components`.
    Table<bool, 7> Components{{true, true, true, true, true, true, true}};
};

/// The running-time clock.
struct SessionClock {
    std::int32_t ClockMs = 0;
    std::int32_t ClockMsPart = 0;
    std::int32_t ClockSeconds = 0;
    std::int32_t ClockMinutes = 0;
    std::int32_t ClockHours = 0;
    std::string Panel;  ///< text of the clock panel
};

/// One instrument: tables, flags and services.
struct Session {
    explicit Session(Services services) : World(std::move(services)) {
        for (Row row = 0; row < kLoopTracks; ++row) Set[row].Channel = static_cast<std::uint8_t>(row + 1);
        BandTable[0].First = 0;
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Services World;

    // The tables.
    Table<LoopTrackSet, kRows> Set;  ///< `LoopTrackSet`: settings by row
    Table<LoopTrackRun, kRows> Run;  ///< `LoopTrackRun`: live state by row
    Table<Band, kBands> BandTable;
    Table<std::int16_t, kChannels + 1> ChannelVol{{0, 0, 0, 0, 0}};                ///< attenuation 0..500
    Table<std::int16_t, kChannels + 1> ChannelPan{{500, 500, 500, 500, 500}};      ///< 0..1000, centre 500
    Table<std::int16_t, kChannels + 1> ChannelHz{{1000, 1000, 1000, 1000, 1000}};  ///< thousandths, unity 1000

    // The audio device.
    bool Use3D = false;                        ///< buffers are made with 3D control instead of pan control
    std::unique_ptr<DirectX7> DX;              ///< root of the audio service, from start to shutdown
    std::unique_ptr<marvolin::DSEnum> DSEnum;  ///< the driver list
    std::unique_ptr<DirectSound> DS;           ///< the open device, null when none
    std::unique_ptr<DirectSoundBuffer> PrimaryBuffer;
    std::unique_ptr<DirectSound3DListener> Listener;  ///< null when `Use3D` is off
    bool DSReady = false;                  ///< a device is open; sound operations quietly do nothing while it is false
    bool DeviceSwapArmed = false;          ///< a change of device saves and restores the session
    float RollOffValue = 0;                ///< roll-off factor in use; 0 when 3D is off
    std::string RecordingFile;             ///< full path of the recording that runs; "" for none
    std::string RecordingText;             ///< its time and size, "" for none
    bool Headphones = false;               ///< 3D is made for headphones, by HRTF
    std::shared_ptr<DeviceWatch> Devices;  ///< waits for outputs and joysticks that come and go; null until it runs
    std::vector<std::string> Drivers;      ///< entries of `cboDrivers`; the last is "No Sound"
    std::int16_t Driver = -1;              ///< chosen entry of `cboDrivers`; -1 before the first choice
    std::int16_t OpenDriver = -1;          ///< entry of the open device; -1 while there is none

    // Transport and selection.
    std::string ThinList;                    ///< letters of the playing thinnable LoopTracks, oldest first
    std::int16_t Limit = 4;                  ///< `Limiter`: how many may sound, 1..4; 4 means no limit
    bool SelectionControlled = true;         ///< the selection's selector button is on
    Table<Boolean, kLoopTracks> SelectWork;  ///< the selection being built
    std::int16_t SelectDragTag = 0;          ///< button of the current drag over the selection flags; 0 none
    marvolin::BandDrag BandDrag;
    Row CurrentLoop = 0;      ///< LoopTrack shown by the pattern and timing views
    bool GangReady = false;   ///< row-4 operations walk the controlled rows
    bool ResetVars = true;    ///< "Reset on Load"
    bool PlayOnLoad = false;  ///< play after a drop load
    DragState Drag;
    int BusyPointers = 0;                     ///< routines under way that show the busy pointer
    std::int16_t DragAxis = kHorizontalDrag;  ///< a `KnobDragAxis`
    double FadeStep = 2;                      ///< `Vol` units per 10 ms, 0.04..4
    Table<SoundDisplayState, 5> SndDisp;
    Table<bool, kRows> PanKnobOn{{true, true, true, true, true, true}};  ///< `PanKnob` of the row is enabled

    // Clocks and timers.
    std::unique_ptr<PeriodicTimer> LoopTimer;
    std::unique_ptr<PeriodicTimer> FadeTimer;
    std::unique_ptr<PeriodicTimer> JoyTimer;
    std::unique_ptr<PeriodicTimer> ScriptTimer;
    std::unique_ptr<PeriodicTimer> StartUpDemoCountDown;
    bool LoopTimerBusy = false;   ///< guard against re-entry of `LoopTimer_Timer`
    bool FadeTimerBusy = false;   ///< guard against re-entry of `FadeTimer_Timer`
    std::int16_t TimingRes = 10;  ///< milliseconds, 1..100
    SessionClock Clock;
    std::int16_t PatternDrawRow = -1;                       ///< pattern row whose steps are being drawn; -1 idle
    std::int16_t PatternRandomRow = -1;                     ///< pattern row whose random column is being drawn; -1 idle
    std::array<std::int16_t, kPatternRows> GraphColumns{};  ///< step columns that each graph is laid out for
    std::int16_t StepsShown = 4;                            ///< number on the label `NSteps`, 1..32
    std::int16_t StepReadOutTop = 0;  ///< top of the scale of `StepReadOut`: the steps that it is laid out for
    std::array<std::string, 3> TimeText{"000.00", "000.00", "000.00"};  ///< `ShowTime` of the three groups
    std::array<std::string, 3> PercentText;                             ///< `PercentReadOut`

    // Mix pad and sound map.
    PadGeometry Geometry;
    Table<PadRecord, 5> PadTable;
    std::int16_t PadTypeIndex = kVolPad;
    std::int16_t SetChannelChoice = -1;  ///< chosen entry of `SetChannel`
    std::int16_t TwistPosition = 0;
    bool CursorFree = true;  ///< no ball is being dragged
    Table<BallHold, 7>
        BallHolds;          ///< 0..3 the LoopTracks and 4 the listener on the map, 5 the pad's ball, 6 `TwistBall`
    double MapRange = 1.5;  ///< half the side of the map in map units
    double ListenerX = 0;   ///< map units
    double ListenerY = 0;   ///< map units
    std::int16_t ListenerAngle = 0;            ///< whole degrees, 0..359
    Table<BallPoint, 5> BallPos;               ///< twips; 0..3 the LoopTracks, 4 the listener
    std::int16_t PosHighlight = -1;            ///< the ball that was highlighted last; -1 none
    Table<bool, kLoopTracks> BallHighlighted;  ///< shows its highlighted face; two can, after the listener's turn
    std::int16_t PosMacro = 0;                 ///< chosen entry of `PosMacros`
    std::int32_t WanderElapsed = 0;            ///< ms since the last wander step
    std::int16_t WanderTrack = 0;              ///< LoopTrack that the next wander step moves
    Table<bool, 3> PositionUpdate{{true, true, false}};  ///< the sound follows a drag of listener, LoopTrack, heading
    bool MapEnabled = false;                             ///< the controls of the map are enabled
    bool Enable3dHeld = false;                           ///< the box `Enable3d` is being set; its click does nothing
    std::int16_t MapSize = 30;                           ///< gauge, tenths of a map unit, 5..100
    std::int16_t RollOff = 10;                           ///< gauge, tenths, 0..100

    // Joystick.
    bool JoyEnabled = false;
    std::unique_ptr<DirectInput> DI;
    std::unique_ptr<DirectInputDevice> JoyDevice;
    JoystickState Joy;

    // Script events.
    Table<std::int16_t, kScriptEvents> EventWanted;         ///< per event, whether it is passed on to the script
    Table<std::unique_ptr<clsScrollDelta>, 3> ScrollDelta;  ///< 0 the knobs, 1 a map ball, 2 the joystick on the map
    Table<std::int32_t, 2> ScrollSensitivity{{1, 4}};       ///< drag events that make one script event: 0 knobs, 1 map
    bool ScriptAvailable = false;
    bool ScriptEnabled = false;  ///< `ScriptTimer` has been started
    bool ScriptBusy = false;     ///< guard against re-entry of the clock event

    // Samples, sets, clips.
    Table<std::vector<std::string>, 5> History;  ///< full paths by row, newest first; row 4 has those of all rows
    Row HistoryRow = 0;                          ///< row whose list `HistoryList` shows
    std::int16_t HistoryChoice = -1;             ///< chosen entry of `HistoryList`
    std::vector<std::string> HistoryEntries;
    Row LoopDropTarget = 0;  ///< row that receives the next sample drop
    Table<SampleBin, kBins> Bins;
    /// In twips, of every name that a bin has shown.
    std::unordered_map<std::string, std::int32_t> NameWidths;
    std::int16_t DragBin = 0;  ///< bin from which a sample was last dragged
    std::string TreeFolder;    ///< folder that `FolderTreeview1` shows selected
    ClipBoardState Clips;
    Table<clsSwitchRecord, 2> SaveOpenSwitches;  ///< by `SwitchRow`
    std::int16_t SelectionsOnlySetting = 0;      ///< "Only Save Selected Loops"
    std::int16_t EmptyBlankSetting = 0;          ///< "Empty Blank Loops on Open"
    std::string SessionName;                     ///< "Session Name (for SnapShots)"
    std::string CurrentFolder;                   ///< folder of the current session, with its separator
    std::string CurrentFile;                     ///< its name
    std::string DialogueFile;                    ///< file of the Save/Open dialogue, a name in the current folder
    bool SaveItEnabled = false;
    std::vector<std::string> QuickLoadRows{"<Close>"};
    std::vector<std::string> QuickLoadFiles{""};  ///< file of each row as it is spelled on disk; "" for "<Close>"
    bool QuickLoadEnabled = false;
    std::int16_t QuickLoadTag = 0;  ///< button that opened the QuickLoad list
    std::int16_t DemoStep = 0;      ///< 0 idle, 1..4 the steps of the start-up demo

    // What is kept against mistakes.
    std::shared_ptr<UndoHistory> Undo;  ///< what can be taken back; null until there is something
    std::shared_ptr<LastState> Kept;    ///< the last state as it is kept by itself; null until it is

    // Window and start.
    std::int16_t ActiveTab = 0;
    std::int16_t ActiveSubTab = 0;  ///< open tab of `OptionSubTabs`
    bool MiniMode = false;          ///< `ToTop` is at "1"
    bool FirstActivate = false;     ///< the one-time work of `Form_Activate` is still due
    bool HelpShown = false;
    std::string HelpFile;
    std::string StatusText;   ///< first panel of `StatusBar1`
    std::string ReadoutText;  ///< value shown beside the hint
    std::string Title = "marvolin";
    std::string TodayLabel;  ///< month and day, made at start
    struct {
        std::int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
    } WorkArea;                                    ///< twips
    std::array<std::int16_t, 9> ProcedureFlags{};  ///< one for each gesture of several stages; read by nothing
};

}  // namespace marvolin
