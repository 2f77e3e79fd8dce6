#pragma once
/// \file
/// The records of the two surfaces, pad and map, and of their balls.

#include <cstdint>
#include <optional>

#include "core/types.h"

namespace marvolin {

/// The ball, the curve and the looks of one pad type.
struct PadRecord {
    Colour BackColor;
    std::int16_t Icon = 0;         ///< stored, read by nothing
    double X = 0;                  ///< ball, twips from the centre, right positive
    double Y = 0;                  ///< ball, twips from the centre, down positive
    std::int16_t Function = 0;     ///< curve 1..3
    std::int16_t TwistIcon = 0;    ///< face of `TwistBall`; 4 hides it
    std::int16_t TwistTarget = 0;  ///< stored, read by nothing
};

/// Sizes of pad, map and balls in twips; set once by `PadGeometryInit`.
struct PadGeometry {
    double BallHalfX = 0, BallHalfY = 0;      ///< 8 pixels
    double BallSizeX = 0, BallSizeY = 0;      ///< 16 pixels
    double BallCentreX = 0, BallCentreY = 0;  ///< 8.5 pixels
    double PadHalfX = 0, PadHalfY = 0;        ///< half the travel of a ball on pad and map
    double PadRadius = 0;                     ///< centre to corner
    double PadDiagonal = 0;                   ///< corner to corner
    double SideCentre = 0;                    ///< corner to the middle of a side, in diagonals of a square pad
    double InnerWidth = 0, InnerHeight = 0;   ///< inner size of `Map`, and so of `Pad`
};

/// A point in twips relative to the centre of pad or map.
struct BallPoint {
    double X = 0;
    double Y = 0;
};

/// A point on the screen in logical pixels. On a scaled display the pointer stands between whole ones.
struct ScreenPoint {
    double X = 0;
    double Y = 0;
};

/// What the hand has done to a ball of pad or map so far.
struct BallHold {
    std::int16_t FirstButton = kNoButton;  ///< button of the press that a second one may make a double click
    std::uint64_t FirstTime = 0;           ///< its time, ms
    bool Centred = false;                  ///< the held button is that of a double click: the ball stays on the centre
    ScreenPoint Taken;                     ///< left and top of the ball when the hand took it
    ScreenPoint From;                      ///< the hand counts from here
    ScreenPoint Seen;                      ///< where the hand was last
    std::optional<ScreenPoint> Put;        ///< where the pointer was put, until an event comes from there
};

}  // namespace marvolin
