#include "parameters/knob_gesture.h"

#include <array>
#include <string>

#include "core/routines.h"
#include "parameters/fades.h"
#include "parameters/position.h"
#include "parameters/scroll_events.h"
#include "parameters/setters.h"

namespace marvolin {

namespace {

/// The rules of one kind of knob.
struct KnobRules {
    std::int16_t LoopTrackSet::*Field;
    std::string (*Text)(std::int16_t);
    double Coarse;  ///< units a twip
    double Fine;
    double Top, Bottom;
    double EventOffset, EventScale;  ///< the script gets (value - offset) / scale
    ScriptEvent Change, Scroll;
};

// By `Knob`.
constexpr std::array<KnobRules, 3> kKnobs{{
    {&LoopTrackSet::Vol, Vol2Text, 1, 0.05, kVolFull, 0, 0, 1, ScriptEvent::OnVolChange, ScriptEvent::OnVolScroll},
    {&LoopTrackSet::Pan, Pan2Text, 1, 0.05, kPanRight, 0, kPanCentre, 1, ScriptEvent::OnPanChange,
     ScriptEvent::OnPanScroll},
    {&LoopTrackSet::Hz, Hz2Text, 10, 1, kHzTop, 1, 0, 10, ScriptEvent::OnPitchChange, ScriptEvent::OnPitchScroll},
}};

const KnobRules& RulesOf(Knob knob) { return kKnobs[static_cast<std::size_t>(knob)]; }

std::int16_t ValueOf(const Session& s, Knob knob, Row row) { return s.Set[row].*RulesOf(knob).Field; }

void ChangeGang(Session& s, Knob knob, Row row, std::int16_t value) {
    switch (knob) {
        case Knob::Vol:
            return LoopVolChangeGang(s, row, value, UpdateDisplay::Yes);
        case Knob::Pan:
            return LoopPanChangeGang(s, row, value);
        case Knob::Hz:
            return LoopHzChangeGang(s, row, value);
    }
}

/// Whether a joystick axis drives the knob, so that the hand cannot.
bool HeldByJoystick(const Session& s, Knob knob, Row row) {
    return knob == Knob::Vol && row == kMasterRow && s.Joy.Axis[0] != 0;
}

/// What every gesture does before it moves a knob.
void TakeKnob(Session& s, Knob knob, Row row) {
    if (knob == Knob::Vol && row <= kSelectionRow) LoopSetFadeGang(s, row, FadeCommand::Cancel, kOwnBand);
    if (row < kLoopTracks) PosSetHighlight(s, row);
    ScrollCounter(s, kKnobScroll).Reset(ValueOf(s, knob, row), 0);
}

void ShowValue(Session& s, Knob knob, Row row) { ShowReadout(s, RulesOf(knob).Text(ValueOf(s, knob, row))); }

void SetLimited(Session& s, Knob knob, Row row, double value) {
    ChangeGang(s, knob, row, ToI2(ClampVar(value, -32000, 32000)));
}

void DragTo(Session& s, Knob knob, Row row, std::int16_t button, double x, double y) {
    const double distance =
        s.DragAxis == 0 ? static_cast<float>(y) - s.Drag.DragOrigin : s.Drag.DragOrigin - static_cast<float>(x);
    const double unitsATwip = button == kRightButton ? RulesOf(knob).Fine : RulesOf(knob).Coarse;
    SetLimited(s, knob, row, s.Drag.DragStartValue - Int(unitsATwip * distance));
}

double ScriptValue(const KnobRules& rules, std::int16_t value) {
    return (value - rules.EventOffset) / rules.EventScale;
}

void SendChange(Session& s, Knob knob, Row row) {
    const KnobRules& rules = RulesOf(knob);
    if (s.EventWanted[rules.Change] == 0) return;
    const std::array<double, 2> arguments{row + 1.0, ScriptValue(rules, ValueOf(s, knob, row))};
    SendScriptEvent(s, rules.Change, arguments);
}

void SendScroll(Session& s, Knob knob, Row row, Force force) {
    const KnobRules& rules = RulesOf(knob);
    if (s.EventWanted[rules.Scroll] == 0) return;
    clsScrollDelta& counter = ScrollCounter(s, kKnobScroll);
    const std::int16_t value = ValueOf(s, knob, row);
    bool send = false;
    counter.SendScroll(value, 0, force == Force::Yes, send);
    if (!send) return;
    const std::array<double, 3> arguments{row + 1.0, ScriptValue(rules, value), counter.DeltaX() / rules.EventScale};
    SendScriptEvent(s, rules.Scroll, arguments);
}

void Press(Session& s, Knob knob, Row row, double x, double y) {
    if (HeldByJoystick(s, knob, row)) return;
    TakeKnob(s, knob, row);
    s.Drag.DragOrigin = static_cast<float>(s.DragAxis == 0 ? y : x);
    s.Drag.DragStartValue = ValueOf(s, knob, row);
    s.Drag.Dragging = True;
    s.Drag.Moved = false;
}

void Move(Session& s, Knob knob, Row row, std::int16_t button, double x, double y) {
    if (s.Drag.Dragging != False) {
        s.Drag.Moved = true;
        DragTo(s, knob, row, button, x, y);
        // A report of a failure may have taken the pointer from the knob: the release has then run inside the move.
        if (s.Drag.Dragging != False) SendScroll(s, knob, row, Force::No);
    }
    ShowValue(s, knob, row);
}

void Release(Session& s, Knob knob, Row row, std::int16_t button, double x, double y) {
    if (s.Drag.Dragging == False) return;
    s.Drag.Dragging = False;
    DragTo(s, knob, row, button, x, y);
    ShowValue(s, knob, row);
    SendChange(s, knob, row);
    SendScroll(s, knob, row, Force::Yes);
}

}  // namespace

void KnobGesture(Session& s, Knob knob, Row row, Phase phase, std::int16_t button, double x, double y) {
    switch (phase) {
        case Phase::Down:
            return Press(s, knob, row, x, y);
        case Phase::Move:
            return Move(s, knob, row, button, x, y);
        case Phase::Up:
            return Release(s, knob, row, button, x, y);
    }
}

void KnobPointerLost(Session& s, Knob knob, Row row) {
    if (s.Drag.Dragging == False) return;
    s.Drag.Dragging = False;
    if (!s.Drag.Moved) return;
    SendChange(s, knob, row);
    SendScroll(s, knob, row, Force::Yes);
}

void Knob_DblClick(Session& s, Knob knob, Row row) {
    switch (knob) {
        case Knob::Vol:
            ChangeGang(s, knob, row, s.Set[row].Vol > 0 ? 0 : kVolFull);
            break;
        case Knob::Pan:
            ChangeGang(s, knob, row, kPanCentre);
            break;
        case Knob::Hz:
            ChangeGang(s, knob, row, kHzUnity);
            break;
    }
    if (knob == Knob::Hz) {
        ShowReadout(s, "Freq: Original Hz Restored");
    } else {
        ShowValue(s, knob, row);
    }
    KnobGesture(s, knob, row, Phase::Up, kNoButton, 0, 0);
}

bool KnobStep(Session& s, Knob knob, Row row, int units) {
    if (s.Drag.Dragging != False || HeldByJoystick(s, knob, row)) return false;
    TakeKnob(s, knob, row);
    SetLimited(s, knob, row, static_cast<double>(ValueOf(s, knob, row)) + units);
    ShowValue(s, knob, row);
    SendChange(s, knob, row);
    SendScroll(s, knob, row, Force::Yes);
    return true;
}

void DragAxisSelect_Click(Session& s, std::int16_t entry) {
    s.DragAxis = entry;
    s.World.Screen.ShowOptions();
}

int KnobFrameOf(const Session& s, Knob knob, Row row) {
    const KnobRules& rules = RulesOf(knob);
    return KnobFrame(ValueOf(s, knob, row), rules.Top, rules.Bottom);
}

}  // namespace marvolin
