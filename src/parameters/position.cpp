#include "parameters/position.h"

#include <cmath>

#include "audio/ds_error.h"
#include "core/errors.h"
#include "core/routines.h"

namespace marvolin {

namespace {

bool IsLoopTrack(int ball) { return ball >= 0 && ball < kLoopTracks; }

void PlaceLoopTrack(Session& s, int ball, float x, float y, bool apply) {
    LoopTrackRun& run = s.Run[ball];
    if (apply && run.Loaded != False && s.Use3D && run.Buffer3D) run.Buffer3D->SetPosition({x, 0, y});
    s.Set[ball].PositionX = x;
    s.Set[ball].PositionY = y;
}

void PlaceListener(Session& s, float x, float y, bool apply) {
    if (apply && s.Use3D && s.Listener) s.Listener->SetPosition({x, 0, y});
    s.ListenerX = x;
    s.ListenerY = y;
}

}  // namespace

void PositionSet(Session& s, int ball, float x, float y, PositionFlags flags) {
    if (ball == kListenerBall) {
        PlaceListener(s, x, y, flags.Apply);
    } else {
        PlaceLoopTrack(s, ball, x, y, flags.Apply);
    }
    if (flags.StoreBall) s.BallPos[ball] = {MapTwips(s, x), MapTwips(s, y)};
    if (flags.Refresh) PositionRefresh(s, ball);
}

bool TryPositionSet(Session& s, int ball, float x, float y, PositionFlags flags) {
    try {
        PositionSet(s, ball, x, y, flags);
        return true;
    } catch (const SoundError& e) {
        // "Off" (entry 0): the next step of a wander would open another box over this one.
        s.PosMacro = 0;
        s.World.Screen.ShowMapControls();
        ShowDSError(s, "placing sound", e.Number());
        return false;
    }
}

void SendHeading(Session& s, std::int32_t degrees) {
    // While the device is closed there is no listener, also with 3D on.
    if (!s.Use3D || !s.Listener) return;
    const double a = degrees;
    s.Listener->SetOrientation({static_cast<float>(std::sin(a)), 0, static_cast<float>(std::cos(a))}, {0, 1, 0});
}

void ListenerRestore(Session& s) {
    TryPositionSet(s, kListenerBall, static_cast<float>(s.ListenerX), static_cast<float>(s.ListenerY),
                   {.Apply = true, .Refresh = false});
    try {
        SendHeading(s, s.ListenerAngle);
    } catch (const SoundError& e) {
        ShowDSError(s, "turning listener", e.Number());
    }
}

void PositionRefresh(Session& s, int ball) {
    // Without 3D sound the balls rest, but their places are written all the same.
    if (s.Use3D) {
        s.World.Screen.ShowMapBall(ball);
    } else {
        s.World.Screen.ShowMapPlaces();
    }
}

BallPoint MapUnits(const Session& s, int ball) {
    if (ball == kListenerBall) return {s.ListenerX, s.ListenerY};
    return {s.Set[ball].PositionX, s.Set[ball].PositionY};
}

double MapTwips(const Session& s, double mapUnits) { return s.Geometry.PadHalfX / s.MapRange * mapUnits; }

BallPoint MapBallPlace(const Session& s, int ball) {
    const BallPoint place = MapUnits(s, ball);
    const PadGeometry& g = s.Geometry;
    return {MapTwips(s, place.X) + g.PadHalfX - g.BallCentreX, MapTwips(s, place.Y) + g.PadHalfY - g.BallCentreY};
}

void PosSetHighlight(Session& s, int ball) {
    if (s.ActiveTab != kMapTab) return;
    const int old = s.PosHighlight;
    s.PosHighlight = static_cast<std::int16_t>(ball);
    if (ball == kListenerBall) {
        // The highlighted LoopTrack keeps its face: later it is no longer the previous highlight that loses it.
        s.World.Screen.RaiseMapBall(ball);
        return;
    }
    if (ball == old) return;
    if (IsLoopTrack(old)) {
        s.BallHighlighted[old] = false;
        s.World.Screen.ShowMapHighlight(old);
    }
    s.BallHighlighted[ball] = true;
    s.World.Screen.ShowMapHighlight(ball);
    s.World.Screen.RaiseMapBall(ball);
}

void SetRollOff(Session& s, float value) {
    try {
        if (!s.Use3D) return;
        s.RollOffValue = value;
        if (s.Listener) s.Listener->SetRolloffFactor(value);
        RefreshRollOff(s);
    } catch (const RuntimeError& e) {
        ShowDSError(s, "setting roll off", e.Number());
    }
}

float GetRoll(const Session& s) { return s.RollOffValue; }

void RefreshRollOff(Session& s) {
    if (!s.Use3D) return;
    s.RollOff = ToI2(ClampVar(GetRoll(s) * 10.0, 0, 100));
    s.World.Screen.ShowRollOff();
}

}  // namespace marvolin
