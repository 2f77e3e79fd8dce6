#pragma once

#include "fakes/instrument.h"
#include "performance/map/sound_map.h"
#include "performance/pad/mix_pad.h"
#include "performance/pad/pad_tables.h"

namespace marvolin::test {

/// An instrument whose pad and map are 300 x 300 pixels inside, in the state after the start.
struct Surfaces : Instrument {
    static constexpr double kHalf = 2130;  ///< (300 - 16) / 2 pixels in twips

    Surfaces() {
        PadGeometryInit(s, 4500, 4500);
        PadListInit(s);
        PadTablesInit(s);
        MapInit(s);
        Clear();
    }
    /// Empties the logs.
    void Clear() {
        Screen.Log.clear();
        Sound.Log.clear();
        Desk.Log.clear();
        s.StatusText.clear();
    }
    /// 3D sound on an open device.
    void Use3D() {
        s.Use3D = true;
        s.MapEnabled = true;
        s.Listener = std::make_unique<FakeListener>(Sound);
        Clear();
    }
};

}  // namespace marvolin::test
