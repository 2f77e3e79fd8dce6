#include "persistence/settings_section.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>

#include "audio/limiter.h"
#include "core/routines.h"
#include "parameters/fades.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"
#include "sequencing/loop_clock.h"

namespace marvolin {

namespace {

/// A key of the table: how its value is read from the session, and how it is put back. `index` counts an indexed key.
struct SettingKey {
    std::string_view Name;
    int Count;  ///< 0 for a key without an index
    TaggedValue (*Read)(const Session& s, int index);
    void (*Apply)(Session& s, int index, const TaggedValue& value);
};

constexpr std::int16_t kHighestLimit = 4;
constexpr std::int16_t kLastJoyButton = 8;

TaggedValue Integer(int value) { return static_cast<std::int16_t>(value); }
TaggedValue Box(bool on) { return Integer(on ? 1 : 0); }

void ApplyLimit(Session& s, int, const TaggedValue& value) {
    const int limit = std::atoi(Trim(AsText(value)).c_str());
    if (limit >= 1 && limit <= kHighestLimit) s.Limit = static_cast<std::int16_t>(limit);
    s.World.Screen.ShowLimit();
    // As if the hand let go of the control: thinning takes the limit up at once.
    s.Drag.Dragging = True;
    Limiter_Gesture(s, Phase::Up, 0);
}

void ApplyButton(Session& s, int index, const TaggedValue& value) {
    const std::int16_t button = AsInteger(value);
    if (button >= 0 && button <= kLastJoyButton) s.Joy.Button[index] = button;
}

void ApplyAxis(Session& s, int index, const TaggedValue& value) {
    const std::int16_t code = AsInteger(value);
    if (code == 0 || (code >= 3 && code <= 6)) s.Joy.Axis[index] = code;
}

void ApplyFactor(Session& s, int index, const TaggedValue& value) {
    s.Joy.Factor[index] = AsInteger(value);
    ClampI2(s.Joy.Factor[index], 100, 3000);
}

void ApplyFunction(Session& s, int index, const TaggedValue& value) {
    const std::int16_t function = AsInteger(value);
    if (function >= 1 && function <= 3) s.PadTable[index].Function = function;
}

void ApplyFadeStep(Session& s, int, const TaggedValue& value) {
    const double fadeStep = AsNumber(value);
    if (std::isfinite(fadeStep)) SetFadeFactor(s, ClampVar(fadeStep, 0, 10));
}

// Each key once, in the order of the file. The two keys of the driver have no `Apply`: they count only together.
const std::array<SettingKey, 14> kSettings{{
    {"Limit", 0, [](const Session& s, int) -> TaggedValue { return std::to_string(s.Limit); }, ApplyLimit},
    {"Restore", 0, [](const Session& s, int) { return Box(s.ResetVars); },
     [](Session& s, int, const TaggedValue& value) { s.ResetVars = AsInteger(value) != 0; }},
    {"NDevices", 0, [](const Session& s, int) { return Integer(static_cast<int>(s.Drivers.size())); }, nullptr},
    {"DeviceNum", 0, [](const Session& s, int) { return Integer(s.Driver); }, nullptr},
    {"JoyFactor", 3, [](const Session& s, int i) { return Integer(s.Joy.Factor[i]); }, ApplyFactor},
    {"JoyRelative", 2, [](const Session& s, int i) { return Box(s.Joy.Relative[i] != False); },
     [](Session& s, int i, const TaggedValue& value) { s.Joy.Relative[i] = ToBoolean(AsInteger(value) != 0); }},
    {"Button", 5, [](const Session& s, int i) { return Integer(s.Joy.Button[i]); }, ApplyButton},
    {"Axis", 2, [](const Session& s, int i) { return Integer(s.Joy.Axis[i]); }, ApplyAxis},
    {"FadeFunc", 4, [](const Session& s, int i) { return Integer(s.PadTable[i].Function); }, ApplyFunction},
    {"FadeFactor", 0, [](const Session& s, int) -> TaggedValue { return s.FadeStep; }, ApplyFadeStep},
    {"TopTab", 0, [](const Session& s, int) { return Integer(s.ActiveTab); },
     [](Session& s, int, const TaggedValue& value) { SetTab(s, AsInteger(value)); }},
    {"DialAxis", 0, [](const Session& s, int) { return Integer(s.DragAxis); },
     [](Session& s, int, const TaggedValue& value) {
         const std::int16_t axis = AsInteger(value);
         if (axis == 0 || axis == 1) s.DragAxis = axis;
     }},
    {"PositionUpdate", 3, [](const Session& s, int i) { return Box(s.PositionUpdate[i]); },
     [](Session& s, int i, const TaggedValue& value) { s.PositionUpdate[i] = AsInteger(value) != 0; }},
    {"TimingRes", 0, [](const Session& s, int) { return Integer(s.TimingRes); },
     [](Session& s, int, const TaggedValue& value) { SetTimingRes(s, AsInteger(value)); }},
}};

std::string KeyText(const SettingKey& key, int index) {
    return key.Count == 0 ? std::string(key.Name) : IndexedKey(key.Name, index);
}

void ApplyKey(Session& s, const KeyedTable& table, std::string_view name) {
    for (const SettingKey& key : kSettings) {
        if (key.Name != name) continue;
        for (int index = 0; index < std::max(key.Count, 1); ++index) {
            if (const TaggedValue* value = table.Find(KeyText(key, index))) key.Apply(s, index, *value);
        }
    }
}

// The device itself is not changed: only the list shows the choice. On a machine with another number of drivers the
// stored number would name another device.
void ApplyDriver(Session& s, const KeyedTable& table) {
    const TaggedValue* count = table.Find("NDevices");
    const TaggedValue* number = table.Find("DeviceNum");
    if (count == nullptr || number == nullptr) return;
    const std::int16_t driver = AsInteger(*number);
    if (static_cast<std::size_t>(std::max<std::int16_t>(AsInteger(*count), 0)) != s.Drivers.size()) return;
    if (driver < 0 || static_cast<std::size_t>(driver) >= s.Drivers.size()) return;
    s.Driver = driver;
    s.World.Screen.ShowDrivers();
}

}  // namespace

KeyedTable CollectSettings(const Session& s) {
    KeyedTable table;
    for (const SettingKey& key : kSettings) {
        for (int index = 0; index < std::max(key.Count, 1); ++index) table.Put(KeyText(key, index), key.Read(s, index));
    }
    return table;
}

void ApplySettings(Session& s, const KeyedTable& table) {
    ApplyKey(s, table, "Restore");
    ApplyKey(s, table, "Limit");
    ApplyKey(s, table, "JoyFactor");
    if (s.JoyEnabled) {
        ApplyKey(s, table, "Button");
        ApplyKey(s, table, "Axis");
        JoyShowAssignments(s);
    }
    ApplyKey(s, table, "FadeFunc");
    ApplyDriver(s, table);
    ApplyKey(s, table, "JoyRelative");
    PadType_Click(s, s.PadTypeIndex);
    ApplyKey(s, table, "FadeFactor");
    for (const char* key : {"TopTab", "DialAxis", "PositionUpdate", "TimingRes"}) ApplyKey(s, table, key);
    s.World.Screen.ShowOptions();
    s.World.Screen.ShowJoystick();
    s.World.Screen.ShowMapControls();
}

}  // namespace marvolin
