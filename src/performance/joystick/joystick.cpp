#include "performance/joystick/joystick.h"

#include <string>

#include "core/errors.h"
#include "core/routines.h"
#include "parameters/position.h"
#include "parameters/scroll_events.h"
#include "parameters/setters.h"
#include "performance/joystick/joystick_setup.h"
#include "performance/joystick/joystick_twist.h"
#include "performance/map/map_events.h"
#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"
#include "performance/tabs.h"

namespace marvolin {

namespace {

constexpr std::int32_t kStickLow = 1000;
constexpr std::int32_t kStickCentre = 5000;
constexpr std::int32_t kStickHigh = 9000;
constexpr double kStickScale = 4000.0;
constexpr std::int32_t kCentred = -1;
constexpr std::int32_t kNorthWest = 31500;
constexpr double kHatStep = 4500;

/// What a poll reads from the state record, by the assignments.
struct Snapshot {
    bool Move = false;
    bool Centre = false;
    bool Toggle = false;
    std::int32_t Master = 0;
    JoyTwistRead Twist;
};

bool IsLost(std::uint32_t number) { return number == input_error::kNotAcquired || number == input_error::kInputLost; }

/// Acquires the device again; ignores that it may still be away.
void AcquireAgain(Session& s) {
    try {
        s.JoyDevice->Acquire();
    } catch (const RuntimeError&) {
    }
}

/// Fills the state record. False when the device is away.
bool ReadState(Session& s) {
    try {
        s.JoyDevice->Poll();
    } catch (const RuntimeError& e) {
        if (!IsLost(e.Number())) throw;
        AcquireAgain(s);
        return false;
    }
    try {
        s.JoyDevice->GetDeviceStateJoystick(s.Joy.State);
    } catch (const RuntimeError& e) {
        // After any other error the poll goes on with the previous state.
        if (!IsLost(e.Number())) return true;
        AcquireAgain(s);
        return false;
    }
    return true;
}

bool Pressed(const Session& s, JoyAction action) {
    const std::int16_t button = s.Joy.Button[action];
    const auto& buttons = s.Joy.State.buttons;
    if (button < 0 || static_cast<std::size_t>(button) >= buttons.size()) throw SubscriptError();
    return buttons[static_cast<std::size_t>(button)] != 0;
}

std::int32_t AxisValue(const DIJOYSTATE& state, std::int16_t code) {
    switch (code) {
        case kAxisZ:
            return state.z;
        case kAxisRX:
            return state.rx;
        case kAxisRY:
            return state.ry;
        case kAxisRZ:
            return state.rz;
        default:
            return 0;
    }
}

/// `twistHeld`: "ToggleTwist" was down at the previous poll.
Snapshot Read(const Session& s, bool twistHeld) {
    Snapshot now;
    now.Move = Pressed(s, kJoyMove);
    now.Centre = Pressed(s, kJoyCentre);
    now.Toggle = Pressed(s, kJoyToggle);
    now.Master = AxisValue(s.Joy.State, s.Joy.Axis[kMasterAxis]);
    now.Twist.Axis = AxisValue(s.Joy.State, s.Joy.Axis[kTwistAxis]);
    now.Twist.Centre = Pressed(s, kJoyTwistCentre);
    now.Twist.Toggled = twistHeld && !Pressed(s, kJoyToggleTwist);
    return now;
}

/// The stick and the centre button act on the pad, and on the map while 3D sound is in use.
bool StickActs(const Session& s) { return s.ActiveTab == kMixPadTab || (s.ActiveTab == kMapTab && s.Use3D); }

bool StickActsAgain(const Session& s) {
    const JoystickState& joy = s.Joy;
    return joy.State.x != joy.LastX || joy.State.y != joy.LastY || joy.LastPadType != s.PadTypeIndex;
}

void RememberStick(Session& s) {
    s.Joy.LastPadType = s.PadTypeIndex;
    s.Joy.LastX = s.Joy.State.x;
    s.Joy.LastY = s.Joy.State.y;
}

/// Puts the listener where stick or button want it. False when the service refuses: the player then knows from a box.
bool MoveListener(Session& s, double x, double y, double scale, MoveFlags flags) {
    if (PosScaled(s, x, y, kListenerBall, scale, flags)) return true;
    s.Joy.Refused = true;
    return false;
}

void Stick(Session& s) {
    const JoystickState& joy = s.Joy;
    std::int32_t x = joy.State.x;
    std::int32_t y = joy.State.y;
    ClampI4(x, kStickLow, kStickHigh);
    ClampI4(y, kStickLow, kStickHigh);
    const bool relative = joy.Relative[s.ActiveTab] != False;
    const double factor = joy.Factor[relative ? 0 : 1] / 1000.0;
    const double moveX = (x - kStickCentre) * factor;
    const double moveY = (y - kStickCentre) * factor;
    if (s.ActiveTab == kMixPadTab) {
        PadMove(s, moveX, moveY, kStickScale, {.Absolute = !relative, .Apply = true});
    } else {
        const MoveFlags flags{.Absolute = !relative, .Apply = true, .Quiet = true};
        if (MoveListener(s, moveX, moveY, kStickScale, flags))
            PosScrollEvent(s, kListenerBall, s.ListenerX, s.ListenerY, Force::No, kJoystickScroll);
    }
    RememberStick(s);
}

void Centre(Session& s) {
    if (s.ActiveTab == kMixPadTab) {
        PadRecentre(s);
    } else if (s.ActiveTab == kMapTab) {
        // A script may have opened another tab in the event that the stick sent.
        MoveListener(s, 0, 0, 500.0, {.Absolute = true, .Apply = true});
    }
}

/// After a refused place stick and button do nothing on the map until both rest: one box is enough.
bool IsSilenced(const Session& s) { return s.Joy.Refused && s.ActiveTab == kMapTab; }

void StickAndCentre(Session& s, bool centre) {
    const bool acts = StickActsAgain(s);
    if (!acts && !centre) s.Joy.Refused = false;
    if (IsSilenced(s)) return RememberStick(s);
    if (acts) Stick(s);
    if (centre && !IsSilenced(s)) Centre(s);
}

void Hat(Session& s) {
    const std::int32_t pov = s.Joy.State.POV[0];
    if (pov == kCentred || pov == s.Joy.LastPov) return;
    if (pov == kNorthWest) {
        const auto next = static_cast<std::int16_t>(s.ActiveTab + 1);
        SetTab(s, next > kTabs - 1 ? std::int16_t{0} : next);
    } else {
        const std::int16_t entry = ToI2(pov / kHatStep);
        if (s.ActiveTab == kMixPadTab && entry >= 0 && static_cast<std::size_t>(entry) < kPadTypeTexts.size()) {
            PadType_Click(s, entry);
        }
    }
    s.Joy.LastPov = pov;
}

void Master(Session& s, std::int32_t value) {
    const std::int16_t axis = s.Joy.Axis[kMasterAxis];
    // A set may name an axis that this stick lacks.
    if (axis == kAxisNone || !s.Joy.AxisPresent[axis] || value == s.Joy.LastMaster) return;
    std::int16_t vol = ToI2(500 - value / 20.0);
    LoopVolChange(s, kMasterRow, vol, TakeHold::Yes, UpdateDisplay::Yes);
    s.Joy.LastMaster = value;
}

void Toggle(Session& s, bool pressed) {
    if (pressed) {
        s.Joy.ToggleHeld = true;
    } else if (s.Joy.ToggleHeld) {
        s.Joy.ToggleHeld = false;
        // Only pad and map have this box.
        if (s.ActiveTab > kMapTab) return;
        SetJoyRelative(s, s.ActiveTab, s.Joy.Relative[s.ActiveTab] == False);
    }
}

void Poll(Session& s) {
    const bool twistHeld = Pressed(s, kJoyToggleTwist);
    if (!ReadState(s)) return;
    const Snapshot now = Read(s, twistHeld);
    if (StickActs(s)) StickAndCentre(s, now.Centre);
    JoyTwist(s, now.Twist);
    if (!now.Move) Hat(s);
    Master(s, now.Master);
    Toggle(s, now.Toggle);
}

}  // namespace

void JoyTakeAsRead(Session& s) {
    try {
        s.JoyDevice->Poll();
        s.JoyDevice->GetDeviceStateJoystick(s.Joy.State);
    } catch (const RuntimeError&) {
        return;
    }
    RememberStick(s);
    s.Joy.LastMaster = AxisValue(s.Joy.State, s.Joy.Axis[kMasterAxis]);
    s.Joy.LastPov = s.Joy.State.POV[0];
    s.Joy.LastTwist = kTwistUnread;
    s.Joy.ToggleHeld = false;
}

void JoyTimer_Timer(Session& s) {
    if (!s.JoyEnabled || !s.JoyDevice) return;
    try {
        Poll(s);
    } catch (const RuntimeError& e) {
        // No further poll while the box is open.
        s.JoyEnabled = false;
        s.World.Desk.MessageBox(std::string(e.what()) + " in joystick handler " +
                                std::to_string(static_cast<std::int32_t>(e.Number())));
        s.World.Desk.EndProgram();
    }
}

}  // namespace marvolin
