#include "persistence/settings_section.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

#include "audio/thinning.h"
#include "core/routines.h"
#include "parameters/fades.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_waiting.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"
#include "sequencing/loop_clock.h"

namespace marvolin {

namespace {

/// Both halves of a setting, of one type: how a save reads it from the session and how a load applies it. `index`
/// counts the values of an indexed key. A setting that lacks a half does not compile.
template <typename Value>
struct Halves {
    using Getter = Value (*)(const Session& s, int index);
    using Applier = void (*)(Session& s, int index, Value value);
    constexpr Halves(Getter get, Applier apply) : Get(get), Apply(apply) {}
    Halves(std::nullptr_t, Applier) = delete;
    Halves(Getter, std::nullptr_t) = delete;

    Getter Get;
    Applier Apply;
};
using Integers = Halves<std::int16_t>;
using Doubles = Halves<double>;
using Texts = Halves<std::string>;

/// The turns in which a load applies its settings, in this order, as some have effects on others.
enum class Turn : std::uint8_t {
    Reset,
    Limit,
    Factors,
    Assignments,  ///< of the joystick; without one they wait for it
    Curves,
    Driver,  ///< only when the file comes from a machine with as many drivers
    Relative,
    FadeSpeed,
    View,
};
constexpr int kTurns = static_cast<int>(Turn::View) + 1;

struct Setting {
    std::string_view Key;
    int Count;  ///< values of an indexed key; 0 for a key without an index
    Turn When;
    std::variant<Integers, Doubles, Texts> Value;
};

std::int16_t Box(bool on) { return on ? 1 : 0; }

void ApplyLimit(Session& s, int, std::string text) {
    const int limit = std::atoi(Trim(text).c_str());
    if (limit >= 1 && limit <= kNoLimit) s.Limit = static_cast<std::int16_t>(limit);
    s.World.Screen.ShowLimit();
    ThinTo(s);
}

// The machine knows its own number of drivers; the stored one only decides whether "DeviceNum" means anything here.
void KeepDriverCount(Session&, int, std::int16_t) {}

// The device itself is not changed: only the list shows the choice.
void ApplyDriver(Session& s, int, std::int16_t driver) {
    if (driver < 0 || static_cast<std::size_t>(driver) >= s.Drivers.size()) return;
    s.Driver = driver;
    s.World.Screen.ShowDrivers();
}

void ApplyButton(Session& s, int index, std::int16_t button) {
    if (button >= 0 && button <= kNoButtonEntry) JoyAssignButton(s, index, button);
}

void ApplyAxis(Session& s, int index, std::int16_t code) {
    if (code == kAxisNone || !JoyAxisName(code).empty()) JoyAssignAxis(s, index, code);
}

void ApplyCurve(Session& s, int index, std::int16_t function) {
    const bool known = std::any_of(kPadCurves.begin(), kPadCurves.end(),
                                   [&](const PadCurve& curve) { return curve.Function == function; });
    if (known) s.PadTable[index].Function = function;
}

void ApplyFadeStep(Session& s, int, double fadeStep) {
    if (std::isfinite(fadeStep)) SetFadeFactor(s, fadeStep);
}

void ApplyDragAxis(Session& s, int, std::int16_t axis) {
    if (axis == kVerticalDrag || axis == kHorizontalDrag) s.DragAxis = axis;
}

constexpr std::string_view kRelativeKey = "JoyRelative";
constexpr std::string_view kAxisKey = "Axis";

// Every key once, in the order of the file.
constexpr std::array<Setting, 14> kSettings{{
    {"Limit", 0, Turn::Limit, Texts{[](const Session& s, int) { return std::to_string(s.Limit); }, ApplyLimit}},
    {"Restore", 0, Turn::Reset,
     Integers{[](const Session& s, int) { return Box(s.ResetVars); },
              [](Session& s, int, std::int16_t value) { s.ResetVars = value != 0; }}},
    {"NDevices", 0, Turn::Driver,
     Integers{[](const Session& s, int) { return static_cast<std::int16_t>(s.Drivers.size()); }, KeepDriverCount}},
    {"DeviceNum", 0, Turn::Driver, Integers{[](const Session& s, int) { return s.Driver; }, ApplyDriver}},
    {"JoyFactor", 3, Turn::Factors, Integers{[](const Session& s, int i) { return s.Joy.Factor[i]; }, SetJoyFactor}},
    {kRelativeKey, 2, Turn::Relative,
     Integers{[](const Session& s, int i) { return Box(s.Joy.Relative[i] != False); },
              [](Session& s, int i, std::int16_t value) { SetJoyRelative(s, i, value != 0); }}},
    {"Button", 5, Turn::Assignments, Integers{JoyButtonToKeep, ApplyButton}},
    {kAxisKey, 2, Turn::Assignments, Integers{JoyAxisToKeep, ApplyAxis}},
    {"FadeFunc", 4, Turn::Curves, Integers{[](const Session& s, int i) { return s.PadTable[i].Function; }, ApplyCurve}},
    {"FadeFactor", 0, Turn::FadeSpeed, Doubles{[](const Session& s, int) { return s.FadeStep; }, ApplyFadeStep}},
    {"TopTab", 0, Turn::View,
     Integers{[](const Session& s, int) { return s.ActiveTab; },
              [](Session& s, int, std::int16_t value) { SetTab(s, value); }}},
    {"DialAxis", 0, Turn::View, Integers{[](const Session& s, int) { return s.DragAxis; }, ApplyDragAxis}},
    {"PositionUpdate", 3, Turn::View,
     Integers{[](const Session& s, int i) { return Box(s.PositionUpdate[i]); },
              [](Session& s, int i, std::int16_t value) { s.PositionUpdate[i] = value != 0; }}},
    {"TimingRes", 0, Turn::View,
     Integers{[](const Session& s, int) { return s.TimingRes; },
              [](Session& s, int, std::int16_t value) { SetTimingRes(s, value); }}},
}};

std::string KeyText(const Setting& setting, int index) {
    return setting.Count == 0 ? std::string(setting.Key) : IndexedKey(setting.Key, index);
}

int Values(const Setting& setting) { return std::max(setting.Count, 1); }

void ApplyHalf(const Integers& half, Session& s, int index, const TaggedValue& value) {
    half.Apply(s, index, AsInteger(value));
}
void ApplyHalf(const Doubles& half, Session& s, int index, const TaggedValue& value) {
    half.Apply(s, index, AsNumber(value));
}
void ApplyHalf(const Texts& half, Session& s, int index, const TaggedValue& value) {
    half.Apply(s, index, AsText(value));
}

/// Applies those values of a setting that the file holds.
void ApplySetting(Session& s, const Setting& setting, const KeyedTable& table) {
    for (int index = 0; index < Values(setting); ++index) {
        const TaggedValue* value = table.Find(KeyText(setting, index));
        if (value == nullptr) continue;
        std::visit([&](const auto& half) { ApplyHalf(half, s, index, *value); }, setting.Value);
    }
}

/// On a machine with another number of drivers the stored choice would name another device.
bool SameDrivers(const Session& s, const KeyedTable& table) {
    const TaggedValue* count = table.Find("NDevices");
    return count != nullptr && AsInteger(*count) == static_cast<int>(s.Drivers.size());
}

bool IsDue(const Session& s, Turn turn, const KeyedTable& table) {
    return turn != Turn::Driver || SameDrivers(s, table);
}

/// What the change of a turn's settings brings with it, whether or not the file holds them.
void Follow(Session& s, Turn turn) {
    if (turn == Turn::Assignments && s.JoyEnabled) JoyShowAssignments(s);
    if (turn == Turn::Relative) PadType_Click(s, s.PadTypeIndex);
}

bool IsAny(const Setting&) { return true; }
bool IsWork(const Setting& setting) { return setting.When != Turn::Driver && setting.Key != "TopTab"; }

KeyedTable Collect(const Session& s, bool (*wanted)(const Setting&)) {
    KeyedTable table;
    for (const Setting& setting : kSettings) {
        if (!wanted(setting)) continue;
        for (int index = 0; index < Values(setting); ++index) {
            std::visit([&](const auto& half) { table.Put(KeyText(setting, index), half.Get(s, index)); },
                       setting.Value);
        }
    }
    return table;
}

}  // namespace

KeyedTable CollectSettings(const Session& s) { return Collect(s, IsAny); }
KeyedTable CollectSettingsOfWork(const Session& s) { return Collect(s, IsWork); }

void PutStartOfStick(const Session& s, KeyedTable& settings) {
    bool set = false;
    for (int i = 0; i < 2; ++i) {
        const std::string axis = IndexedKey(kAxisKey, i);
        if (settings.Find(axis) != nullptr) settings.Put(axis, JoyStartAxis(s, i));
        const TaggedValue* relative = settings.Find(IndexedKey(kRelativeKey, i));
        set = set || (relative != nullptr ? AsInteger(*relative) != 0 : s.Joy.Relative[i] != False);
    }
    for (int i = 0; i < 2; ++i) {
        const std::string relative = IndexedKey(kRelativeKey, i);
        if (!set && settings.Find(relative) != nullptr) settings.Put(relative, Box(true));
    }
}

void ApplySettings(Session& s, const KeyedTable& table) {
    for (int number = 0; number < kTurns; ++number) {
        const auto turn = static_cast<Turn>(number);
        if (!IsDue(s, turn, table)) continue;
        for (const Setting& setting : kSettings) {
            if (setting.When == turn) ApplySetting(s, setting, table);
        }
        Follow(s, turn);
    }
    s.World.Screen.ShowOptions();
    s.World.Screen.ShowJoystick();
    s.World.Screen.ShowMapControls();
}

}  // namespace marvolin
