#pragma once

#include <QWidget>

#include "core/session.h"
#include "window/surfaces/surface.h"

namespace marvolin {

class ChannelLevels;
class ChoiceBox;
class ChoiceList;
class PadSurface;
class TwistLine;

/// The page of the mix pad.
class TabMixPad : public QWidget {
public:
    TabMixPad(Session& session, QWidget* parent);

    /// Inner size of pad and map, twips.
    static double InnerWidth() { return BallSurface::kInner * kTwipsPerPixel; }
    static double InnerHeight() { return BallSurface::kInner * kTwipsPerPixel; }

    /// Shows type, curve, wire set and what depends on them again.
    void Refresh();
    /// Shows the ball and the levels of the channels again.
    void RefreshBall();
    /// Shows again which LoopTracks follow which channel.
    void RefreshWires();
    /// Shows the twist again, its place and what it moves.
    void RefreshTwist();
    /// Shows the box "Relative JStick Movement (Pad)" again.
    void RefreshJoystick();
    PadSurface* Pad = nullptr;   // owned by the toolkit
    TwistLine* Twist = nullptr;  // owned by the toolkit

private:
    Session& s;
    ChoiceList* type_ = nullptr;
    ChoiceList* function_ = nullptr;
    ChoiceList* wires_ = nullptr;
    ChoiceBox* relative_ = nullptr;
    ChannelLevels* levels_ = nullptr;
};

}  // namespace marvolin
