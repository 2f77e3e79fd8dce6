#include "performance/map/sound_map.h"

#include "core/routines.h"
#include "parameters/position.h"
#include "performance/map/listener.h"

namespace marvolin {

namespace {

constexpr int kBalls = 5;

/// A hundredth of the value, cut to two decimals; never "-0".
double TwoDecimals(double hundredfold) { return Int(hundredfold) / 100 + 0.0; }

void ShowPosition(Session& s, int ball) {
    const BallPoint place = ShownPlace(s, ball);
    ShowStatus(s, NumberText(place.X) + ", " + NumberText(place.Y));
}

}  // namespace

BallPoint ShownPlace(const Session& s, int ball) {
    if (ball == kListenerBall) return {TwoDecimals(s.ListenerX * 100), TwoDecimals(s.ListenerY * 100)};
    // In single precision, like the stored place: 0.7 would show as 0.69 otherwise.
    return {TwoDecimals(s.Set[ball].PositionX * 100.0F), TwoDecimals(s.Set[ball].PositionY * 100.0F)};
}

void MapInit(Session& s) {
    s.CursorFree = true;
    TryPositionSet(s, kListenerBall, 0, 0, {.Apply = true, .StoreBall = true});
    for (int ball = kListenerBall; ball >= 0; --ball) {
        s.World.Screen.RaiseMapBall(ball);
        s.World.Screen.ShowMapBall(ball);
    }
    SetMapSize(s, 3.0);
    s.RollOffValue = 1.0F;
    RefreshRollOff(s);
    s.ListenerAngle = 0;
    RotateListener(s, 0, Apply::Yes);
}

bool PosMove(Session& s, double x, double y, int ball, MoveFlags flags) {
    const PadGeometry& g = s.Geometry;
    if (!flags.Absolute) {
        x += s.BallPos[ball].X;
        y += s.BallPos[ball].Y;
    }
    ClampR8(y, -g.PadHalfY, g.PadHalfY);
    ClampR8(x, -g.PadHalfX, g.PadHalfX);
    const auto mapY = static_cast<float>(y / g.PadHalfX * s.MapRange);
    const auto mapX = static_cast<float>(x / g.PadHalfX * s.MapRange);
    if (!TryPositionSet(s, ball, mapX, mapY, {.Apply = flags.Apply, .Quiet = flags.Quiet})) return false;
    s.BallPos[ball] = {x, y};
    ShowPosition(s, ball);
    return true;
}

bool PosScaled(Session& s, double x, double y, int ball, double scale, MoveFlags flags) {
    return PosMove(s, s.Geometry.PadHalfX * x / scale, s.Geometry.PadHalfY * y / scale, ball, flags);
}

void PosBall_DblClick(Session& s, int ball) { PosScaled(s, 0, 0, ball, 500.0, {.Absolute = true, .Apply = true}); }

void CentreAll_Click(Session& s) {
    for (int ball = 0; ball < kBalls; ++ball)
        PosScaled(s, 0, 0, ball, s.Geometry.PadHalfX, {.Absolute = true, .Apply = true});
}

void PosPop_Click(Session& s) {
    ClampR8(s.ListenerX, -s.MapRange, s.MapRange);
    ClampR8(s.ListenerY, -s.MapRange, s.MapRange);
    PositionRefresh(s, kListenerBall);
    PosSetHighlight(s, kListenerBall);
}

void SetMapSize(Session& s, double size) { MapSize_Change(s, ToI2(ClampVar(size * 10, kMapSizeLow, kMapSizeHigh))); }

void MapSize_Change(Session& s, std::int16_t value) {
    ClampI2(value, kMapSizeLow, kMapSizeHigh);
    s.MapSize = value;
    s.MapRange = value / 10.0 / 2;
    for (int ball = 0; ball < kBalls; ++ball) {
        PositionRefresh(s, ball);
        // For the listener this takes the place of row 4, not the listener's: its next relative move starts there.
        s.BallPos[ball] = {MapTwips(s, s.Set[ball].PositionX), MapTwips(s, s.Set[ball].PositionY)};
    }
    s.World.Screen.ShowMapSize();
}

void MapSize_Moving(Session& s, std::int16_t value) {
    MapSize_Change(s, value);
    ShowStatus(s, MapSizeText(s));
}

void RollOff_Moving(Session& s, std::int16_t value) {
    ClampI2(value, kRollOffLow, kRollOffHigh);
    s.RollOff = value;
    ShowStatus(s, TenthsText(value));
}

void RollOff_Release(Session& s, std::int16_t button, std::int16_t value) {
    if (button == kLeftButton) {
        ClampI2(value, kRollOffLow, kRollOffHigh);
        s.RollOff = value;
        SetRollOff(s, static_cast<float>(value / 10.0));
    } else if (button == kRightButton) {
        s.RollOff = kPlainRollOff;
        s.World.Screen.ShowRollOff();
        ShowStatus(s, RollOffText(s));
        SetRollOff(s, 1.0F);
    }
}

std::string MapSizeText(const Session& s) {
    const std::string side = TenthsText(s.MapSize);
    return side + " x " + side;
}

std::string RollOffText(const Session& s) { return s.RollOff == kPlainRollOff ? "RollOff =1" : TenthsText(s.RollOff); }

std::string TenthsText(std::int16_t tenths) {
    std::string text;
    if (tenths >= 10) text = std::to_string(tenths / 10);
    text += '.';
    if (tenths % 10 != 0) text += std::to_string(tenths % 10);
    return text;
}

}  // namespace marvolin
