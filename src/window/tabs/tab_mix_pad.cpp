#include "window/tabs/tab_mix_pad.h"

#include <algorithm>

#include "performance/joystick/joystick_setup.h"
#include "performance/pad/pad_tables.h"
#include "performance/pad/wire_sets.h"
#include "window/controls/choice.h"
#include "window/descriptions/described.h"
#include "window/surfaces/channel_levels.h"
#include "window/surfaces/pad_surface.h"
#include "window/surfaces/twist_line.h"
#include "window/toolkit/strings.h"

namespace marvolin {

namespace {

constexpr int kPadMiddle = 352;
constexpr int kPadRight = 640;

int CurveEntry(std::int16_t function) {
    const auto found = std::find_if(kPadCurves.begin(), kPadCurves.end(),
                                    [&](const PadCurve& curve) { return curve.Function == function; });
    return found == kPadCurves.end() ? -1 : static_cast<int>(found - kPadCurves.begin());
}

}  // namespace

TabMixPad::TabMixPad(Session& session, QWidget* parent) : QWidget(parent), s(session) {
    Describe(s, *this, "MixPadPage");
    Pad = new PadSurface(s, this);
    Pad->move(14 - BallSurface::kFrame, 10 - BallSurface::kFrame);

    MakeLabel(this, "Pad type", {kPadMiddle, 8, 220, 18});
    type_ = new ChoiceList(s, this, "PadType", -1,
                           [this](int entry) { PadType_Click(s, static_cast<std::int16_t>(entry)); });
    type_->addItems(ToQStrings(kPadTypeTexts));
    type_->setGeometry(kPadMiddle, 28, 220, 30);

    MakeLabel(this, "Fade function", {kPadMiddle, 68, 220, 18});
    function_ = new ChoiceList(s, this, "PadFunction", -1, [this](int entry) {
        PadFunction_Click(s, kPadCurves[static_cast<std::size_t>(entry)].Function);
    });
    for (const PadCurve& curve : kPadCurves) function_->addItem(ToQString(curve.Text));
    function_->setGeometry(kPadMiddle, 88, 220, 30);

    MakeLabel(this, "Wire sets:", {kPadMiddle, 128, 220, 18});
    wires_ = new ChoiceList(s, this, "SetChannel", -1,
                            [this](int entry) { SetChannel_Click(s, static_cast<std::int16_t>(entry)); });
    wires_->addItems(ToQStrings(kWireSets));
    wires_->setPlaceholderText("Choose");
    wires_->setGeometry(kPadMiddle, 148, 220, 30);

    relative_ = new ChoiceBox(s, this, "JoyRelative", 0, [this](bool on) { SetJoyRelative(s, 0, on); });
    relative_->setGeometry(kPadMiddle, 194, 250, 24);

    levels_ = new ChannelLevels(s, this);
    levels_->setGeometry(kPadRight, 8, 368, 170);
    QLabel* words =
        MakeLabel(this,
                  "Each corner of the pad is a channel, by the colours of its flag. A LoopTrack follows the "
                  "channel whose flag it shows: drag the ball, and one corner comes to the front.",
                  {kPadRight, 184, 368, 54});
    words->setWordWrap(true);
    words->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Twist = new TwistLine(s, this);
    Twist->move(kPadRight, 256);
    Refresh();
    RefreshJoystick();
}

void TabMixPad::Refresh() {
    type_->Show(s.PadTypeIndex < static_cast<int>(kPadTypeTexts.size()) ? s.PadTypeIndex : -1);
    function_->Show(CurveEntry(s.PadTable[s.PadTypeIndex].Function));
    wires_->Show(s.SetChannelChoice);
    Pad->update();
    Pad->Ball->update();
    RefreshBall();
    RefreshTwist();
}

void TabMixPad::RefreshBall() {
    Pad->Ball->Refresh();
    levels_->update();
}

void TabMixPad::RefreshWires() { levels_->update(); }

void TabMixPad::RefreshTwist() { Twist->Refresh(); }

void TabMixPad::RefreshJoystick() {
    relative_->Show(s.Joy.Relative[0] != False);
    DescribedOf(*relative_)->RefreshTip();
}

}  // namespace marvolin
