#include "performance/pad/mix_pad.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "core/routines.h"
#include "parameters/mapping.h"

namespace marvolin {

namespace {

/// The weight of a channel that the curve does not change.
constexpr double kUntouched = -1.0;

/// One weight a channel, 0 on its corner and 1 on the opposite one.
using Weights = std::array<double, kChannels>;

double Length(double x, double y) { return std::sqrt(x * x + y * y); }

Weights CornerWeights(const PadGeometry& g, double x, double y) {
    if (g.PadDiagonal == 0) return {0.5, 0.5, 0.5, 0.5};  // a pad without size: the ball is in the middle
    return {Length(-g.PadHalfX - x, -g.PadHalfY - y) / g.PadDiagonal,
            Length(g.PadHalfX - x, -g.PadHalfY - y) / g.PadDiagonal,
            Length(g.PadHalfX - x, g.PadHalfY - y) / g.PadDiagonal,
            Length(-g.PadHalfX - x, g.PadHalfY - y) / g.PadDiagonal};
}

Weights SideWeights(const PadGeometry& g, double& x) {
    ClampR8(x, -g.PadHalfX, g.PadHalfX);
    const double left = (x - g.PadHalfX) / g.PadHalfX / 2 + 1;
    const double right = (g.PadHalfX - x) / g.PadHalfX / 2;
    return {left, right, right, left};
}

double Curve(double w, std::int16_t function, double sideCentre) {
    if (function == kFadeAfterCentre) return w <= 0.5 ? kUntouched : (w - 0.5) / 0.5;
    if (function == kFadeAfterSideCentre) {
        if (w <= sideCentre) return kUntouched;
        return w >= 2 * sideCentre ? 1.0 : (w - sideCentre) / sideCentre;
    }
    return w;
}

/// Pitch of a weight: from 0 on the corner to 1000 in the middle, then with `slope` up to the far corner.
double Pitch(double w, double slope) { return w <= 0.5 ? 2 * (w * 1000) : (w - 0.5) * slope * 1000 + 1000; }

/// Stores the level of channel `i`.
void StoreLevel(Session& s, int i, double w, std::int16_t padType) {
    const bool untouched = w == kUntouched;
    switch (padType) {
        case kPitch300Pad:
            s.ChannelHz[i] = untouched ? kHzUnity : ToI2(Pitch(w, 4));
            break;
        case kPitch400Pad:
            s.ChannelHz[i] = untouched ? kHzUnity : ToI2(Pitch(w, 6));
            break;
        case kVolPad:
            s.ChannelVol[i] = untouched ? std::int16_t{0} : ToI2(w * 500);
            break;
        default:
            s.ChannelPan[i] = untouched ? kPanCentre : ToI2(w * 1000);
            break;
    }
}

void ApplyLevels(Session& s, std::int16_t padType) {
    switch (padType) {
        case kVolPad:
            MapVolAll(s);
            break;
        case kPanPad:
            MapPanAll(s);
            break;
        default:
            MapHZAll(s);
            break;
    }
}

/// A short text built on the stack: the readout is made at every move.
class Readout {
public:
    void Add(std::string_view text) { end_ = std::copy(text.begin(), text.end(), end_); }
    void Add(int number) { end_ = std::to_chars(end_, text_.data() + text_.size(), number).ptr; }
    std::string_view Text() const { return {text_.data(), static_cast<std::size_t>(end_ - text_.data())}; }

private:
    std::array<char, 96> text_{};
    char* end_ = text_.data();
};

void ShowLevels(Session& s, std::int16_t padType) {
    static constexpr std::array<std::string_view, kChannels> kLabels{"W: ", ", WB: ", ", BW: ", ", B: "};
    Readout text;
    for (int i = 1; i <= kChannels; ++i) {
        text.Add(kLabels[static_cast<std::size_t>(i - 1)]);
        if (padType == kVolPad) {
            text.Add(kVolFull - s.ChannelVol[i]);
        } else if (padType == kPanPad) {
            text.Add(s.ChannelPan[i] - kPanCentre);
        } else {
            text.Add(s.ChannelHz[i] / 10);
            if (const int tenths = s.ChannelHz[i] % 10; tenths != 0) {
                text.Add(".");
                text.Add(tenths);
            }
        }
    }
    text.Add(", ");
    ShowStatus(s, text.Text());
}

}  // namespace

void PadGeometryInit(Session& s, double innerWidth, double innerHeight) {
    const double pixelX = s.World.Desk.TwipsPerPixelX();
    const double pixelY = s.World.Desk.TwipsPerPixelY();
    PadGeometry& g = s.Geometry;
    g.BallHalfX = 8 * pixelX;
    g.BallHalfY = 8 * pixelY;
    g.BallSizeX = 16 * pixelX;
    g.BallSizeY = 16 * pixelY;
    g.BallCentreX = 8.5 * pixelX;
    g.BallCentreY = 8.5 * pixelY;
    g.InnerWidth = innerWidth;
    g.InnerHeight = innerHeight;
    g.PadHalfX = (innerWidth - 16 * pixelX) / 2;
    g.PadHalfY = (innerHeight - 16 * pixelY) / 2;
    g.PadRadius = Length(g.PadHalfX, g.PadHalfY);
    g.PadDiagonal = 2 * g.PadRadius;
    g.SideCentre = std::sqrt(0.5) / 2;
}

void PadMix(Session& s, double& x, double& y, std::int16_t padType, PadMixFlags flags) {
    const PadGeometry& g = s.Geometry;
    PadRecord& pad = s.PadTable[padType];
    if (!flags.Absolute) {
        x += pad.X;
        y += pad.Y;
    }
    ClampR8(y, -g.PadHalfY, g.PadHalfY);
    ClampR8(x, -g.PadHalfX, g.PadHalfX);
    if (!flags.KeepBall) {
        pad.X = x;
        pad.Y = y;
    }
    const Weights weights = flags.TwoAxes ? CornerWeights(g, x, y) : SideWeights(g, x);
    if (padType > kPanPad) return;
    for (int i = 1; i <= kChannels; ++i) {
        StoreLevel(s, i, Curve(weights[static_cast<std::size_t>(i - 1)], pad.Function, g.SideCentre), padType);
    }
    if (flags.Apply) ApplyLevels(s, padType);
    if (flags.ReadOut) ShowLevels(s, padType);
}

void PadMove(Session& s, double x, double y, double scale, MoveFlags flags) {
    double padX = x * s.Geometry.PadHalfX / scale;
    double padY = s.Geometry.PadHalfY * y / scale;
    PadMix(s, padX, padY, s.PadTypeIndex, {.Absolute = flags.Absolute, .Apply = flags.Apply});
    s.World.Screen.ShowPadBall();
}

void PadRecentre(Session& s) { PadMove(s, 0, 0, 500.0, {.Absolute = true, .Apply = true}); }

void PadBall_DblClick(Session& s) { PadRecentre(s); }

void PadTwistMove(Session& s, std::int16_t position) {
    s.TwistPosition = position;
    s.World.Screen.ShowTwist();
}

BallPoint PadBallPlace(const Session& s) {
    const PadRecord& pad = s.PadTable[s.PadTypeIndex];
    return {pad.X + s.Geometry.PadHalfX - s.Geometry.BallCentreX, pad.Y + s.Geometry.PadHalfY - s.Geometry.BallCentreY};
}

double TwistBallLeft(const Session& s) { return s.TwistPosition + s.Geometry.PadHalfX - s.Geometry.BallCentreX; }

}  // namespace marvolin
