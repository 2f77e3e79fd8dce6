#include "performance/joystick/joystick_setup.h"

#include <algorithm>

#include "core/errors.h"
#include "core/routines.h"
#include "performance/joystick/joystick.h"
#include "performance/joystick/joystick_twist.h"
#include "performance/joystick/joystick_waiting.h"

namespace marvolin {

namespace {

constexpr std::int32_t kJoystickFormat = 3;
constexpr std::int32_t kBackgroundNonExclusive = 10;
constexpr std::int32_t kPollMs = 30;
constexpr std::int32_t kByOffset = 1;
constexpr std::int32_t kWholeDevice = 0;
constexpr std::int32_t kLastAxisOffset = 28;

struct AxisName {
    std::int16_t Code;
    std::string_view Name;
};
constexpr std::array<AxisName, 4> kAxisNames{{{kAxisZ, "Z"}, {kAxisRX, "RX"}, {kAxisRY, "RY"}, {kAxisRZ, "RZ"}}};
constexpr std::string_view kNone = "None";

constexpr std::array<JoyPropertyRecord, 5> kProperties{{
    {JoyProperty::DeadZone, 20, 0, kByOffset, 1000, 0},
    {JoyProperty::DeadZone, 20, 4, kByOffset, 1000, 0},
    {JoyProperty::Saturation, 20, 0, kByOffset, 9500, 0},
    {JoyProperty::Saturation, 20, 4, kByOffset, 9500, 0},
    {JoyProperty::Range, 24, 0, kWholeDevice, 0, 10000},
}};

/// One step of the start whose failure is ignored.
template <typename Step>
void Try(Step step) {
    try {
        step();
    } catch (const RuntimeError&) {
    }
}

void NoJoystick(Session& s) {
    s.JoyEnabled = false;
    for (std::int16_t& choice : s.Joy.ButtonChoice) choice = -1;
    for (std::int16_t& choice : s.Joy.AxisChoice) choice = -1;
    for (std::int16_t& axis : s.Joy.Axis) axis = kAxisNone;
    s.World.Screen.ShowJoystick();
}

void OpenDevice(Session& s, const std::string& guid) {
    Try([&] { s.JoyDevice = s.DI->CreateDevice(guid); });
    if (!s.JoyDevice) return;
    DirectInputDevice& device = *s.JoyDevice;
    Try([&] { device.SetCommonDataFormat(kJoystickFormat); });
    Try([&] { device.SetCooperativeLevel(kBackgroundNonExclusive); });
    Try([&] { device.GetCapabilities(); });
    Try([&] { JoyFindAxes(s, device); });
    JoySetProperties(s);
}

void StartPoll(Session& s) {
    Try([&] {
        s.JoyTimer = s.World.Timers.Create([&s](std::int32_t) { JoyTimer_Timer(s); });
        s.JoyTimer->SetInterval(kPollMs);
        s.JoyTimer->SetEnabled(true);
    });
}

void DefaultAssignments(Session& s) {
    s.Joy.Button = Table<std::int16_t, 5>{kJoyStartButtons};
    for (int use = 0; use < std::ssize(kJoyAssignments); ++use) s.Joy.Axis[use] = JoyStartAxis(s, use);
}

void FillLists(Session& s) {
    s.Joy.AxisNames.clear();
    for (const AxisName& axis : kAxisNames) {
        if (s.Joy.AxisPresent[axis.Code]) s.Joy.AxisNames.emplace_back(axis.Name);
    }
    s.Joy.AxisNames.emplace_back(kNone);
    s.Joy.ButtonNames.clear();
    for (int button = 1; button <= kNoButtonEntry; ++button) s.Joy.ButtonNames.push_back(std::to_string(button));
    s.Joy.ButtonNames.emplace_back(kNone);
}

/// Entry of the axis lists with this text; "None", the last, when there is none.
std::int16_t AxisEntry(const Session& s, std::string_view name) {
    const auto& names = s.Joy.AxisNames;
    const auto found = std::find(names.begin(), names.end(), name);
    const auto entry = found == names.end() ? std::ssize(names) - 1 : found - names.begin();
    return static_cast<std::int16_t>(entry);
}

template <typename List>
bool IsEntry(const List& list, std::int16_t entry) {
    return entry >= 0 && static_cast<std::size_t>(entry) < list.size();
}

}  // namespace

void InitDirectInput(Session& s) {
    s.Joy.Refreshing = true;
    std::vector<std::string> devices;
    try {
        s.DI = s.World.CreateDirectInput();
        devices = s.DI->GetDIEnumDevices(kJoystickClass, kAttachedOnly);
    } catch (const RuntimeError&) {
        s.World.Desk.MessageBox("Error initializing DirectInput.");
        s.World.Desk.UnloadMainWindow();
        return;
    }
    if (devices.empty()) {
        NoJoystick(s);
        return;
    }
    OpenDevice(s, devices.front());
    SetJoyRelative(s, 0, true);
    SetJoyRelative(s, 1, true);
    Try([&] {
        if (s.JoyDevice) s.JoyDevice->Acquire();
    });
    s.Joy.LastTwist = kTwistUnread;
    s.JoyEnabled = true;
    StartPoll(s);
    DefaultAssignments(s);
    FillLists(s);
    JoyShowAssignments(s);
}

std::int16_t JoyStartAxis(const Session& s, int index) {
    const std::int16_t axis = kJoyStartAxes[static_cast<std::size_t>(index)];
    return s.Joy.AxisPresent[axis] ? axis : std::int16_t{kAxisNone};
}

bool JoyPlugIn(Session& s, const std::string& guid) {
    const bool open = JoyIsOpen(s);
    const bool assigned = !s.Joy.Refreshing;
    const Table<Boolean, 2> relative = JoyRelativeOfNext(s);
    OpenDevice(s, guid);
    if (!s.JoyDevice) return false;
    Try([&] { s.JoyDevice->Acquire(); });
    if (!assigned) DefaultAssignments(s);
    if (!open) JoyAssignWhatWaits(s);
    for (int box = 0; box < static_cast<int>(relative.size()); ++box) SetJoyRelative(s, box, relative[box] != False);
    s.Joy.Waiting = {};
    JoyTakeAsRead(s);
    s.JoyEnabled = true;
    StartPoll(s);
    FillLists(s);
    JoyShowAssignments(s);
    return true;
}

void JoyUnplug(Session& s) {
    s.JoyEnabled = false;
    s.JoyTimer.reset();
    s.JoyDevice.reset();
    JoyLetWait(s);
    NoJoystick(s);
}

void JoyFindAxes(Session& s, DirectInputDevice& device) {
    s.Joy.AxisPresent = {};
    for (const std::int32_t offset : device.GetDeviceObjectsEnum()) {
        if (offset >= 0 && offset <= kLastAxisOffset && offset % 4 == 0) s.Joy.AxisPresent[offset / 4 + 1] = true;
    }
}

void JoySetProperties(Session& s) {
    for (const JoyPropertyRecord& record : kProperties) {
        Try([&] { s.JoyDevice->SetProperty(record); });
    }
}

void JoyShowAssignments(Session& s) {
    JoystickState& joy = s.Joy;
    for (int i = 0; i < std::ssize(kJoyActions); ++i) {
        if (joy.Button[i] < 0 || joy.Button[i] > kNoButtonEntry) joy.Button[i] = kNoButtonEntry;
        joy.ButtonChoice[i] = joy.Button[i];
    }
    for (int i = 0; i < std::ssize(kJoyAssignments); ++i) joy.AxisChoice[i] = AxisEntry(s, JoyAxisName(joy.Axis[i]));
    joy.Refreshing = false;
    s.World.Screen.ShowJoystick();
}

void JButton_Click(Session& s, int index, std::int16_t entry) {
    JoystickState& joy = s.Joy;
    if (joy.Refreshing || !IsEntry(joy.ButtonNames, entry)) return;
    joy.Button[index] = joy.ButtonChoice[index] = entry;
    for (int other = 0; other < std::ssize(kJoyActions); ++other) {
        if (other == index || joy.ButtonChoice[other] != entry) continue;
        joy.Button[other] = joy.ButtonChoice[other] = kNoButtonEntry;
    }
    s.World.Screen.ShowJoystick();
}

void JAxis_Click(Session& s, int index, std::int16_t entry) {
    JoystickState& joy = s.Joy;
    if (joy.Refreshing || !IsEntry(joy.AxisNames, entry)) return;
    const auto none = static_cast<std::int16_t>(joy.AxisNames.size() - 1);
    joy.Axis[index] = JoyAxisCode(joy.AxisNames[static_cast<std::size_t>(entry)]);
    joy.AxisChoice[index] = entry;
    joy.LastTwist = kTwistUnread;
    for (int other = 0; other < std::ssize(kJoyAssignments); ++other) {
        // "None" takes nothing away: behind it an axis can be assigned that this stick lacks.
        if (other == index || entry == none || joy.AxisChoice[other] != entry) continue;
        joy.Axis[other] = kAxisNone;
        joy.AxisChoice[other] = none;
    }
    s.World.Screen.ShowJoystick();
}

std::string_view JoyAxisName(std::int16_t code) {
    for (const AxisName& axis : kAxisNames) {
        if (axis.Code == code) return axis.Name;
    }
    return "";
}

std::int16_t JoyAxisCode(std::string_view name) {
    for (const AxisName& axis : kAxisNames) {
        if (axis.Name == name) return axis.Code;
    }
    return kAxisNone;
}

void SetJoyFactor(Session& s, int index, std::int16_t value) {
    ClampI2(value, kJoyFactorLow, kJoyFactorHigh);
    s.Joy.Factor[index] = value;
    s.World.Screen.ShowJoystick();
}

void SetJoyRelative(Session& s, int index, bool on) {
    s.Joy.Relative[index] = ToBoolean(on);
    s.World.Screen.ShowJoystick();
}

}  // namespace marvolin
