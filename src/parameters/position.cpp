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

/// Twips from the centre of the map; both axes go by the map's half width.
double ToTwips(const Session& s, double mapUnits) { return s.Geometry.PadHalfX / s.MapRange * mapUnits; }

}  // namespace

void PositionSet(Session& s, int ball, float x, float y, PositionFlags flags) {
    if (ball == kListenerBall) {
        PlaceListener(s, x, y, flags.Apply);
    } else {
        PlaceLoopTrack(s, ball, x, y, flags.Apply);
    }
    if (flags.StoreBall) s.BallPos[ball] = {ToTwips(s, x), ToTwips(s, y)};
    if (flags.Refresh) PositionRefresh(s, ball);
}

bool TryPositionSet(Session& s, int ball, float x, float y, PositionFlags flags) {
    try {
        PositionSet(s, ball, x, y, flags);
        return true;
    } catch (const SoundError& e) {
        // A wander goes off ("Off" is entry 0): its next step would open a box over this one.
        s.PosMacro = 0;
        s.World.Screen.ShowMapControls();
        ShowDSError(s, "placing sound", e.Number());
        return false;
    }
}

void SendHeading(Session& s, std::int32_t degrees) {
    // The device can be closed while 3D is on; then nobody listens.
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
    if (s.Use3D) s.World.Screen.ShowMapBall(ball);
}

BallPoint MapBallPlace(const Session& s, int ball) {
    const bool listener = ball == kListenerBall;
    const double x = listener ? s.ListenerX : s.Set[ball].PositionX;
    const double y = listener ? s.ListenerY : s.Set[ball].PositionY;
    const PadGeometry& g = s.Geometry;
    return {ToTwips(s, x) + g.PadHalfX - g.BallCentreX, ToTwips(s, y) + g.PadHalfY - g.BallCentreY};
}

void PosSetHighlight(Session& s, int ball) {
    if (s.ActiveTab != kMapTab) return;
    const int old = s.PosHighlight;
    s.PosHighlight = static_cast<std::int16_t>(ball);
    if (ball == kListenerBall) {
        // The LoopTrack keeps its highlighted face, and since the listener has none to give up, for good.
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
