#include "performance/pad/pad_tables.h"

#include "performance/pad/pad_twist.h"

namespace marvolin {

namespace {

// Colour, Icon, X, Y, Function, TwistIcon, TwistTarget.
constexpr std::array<PadRecord, 5> kStartTable{{
    {{237, 226, 197}, 1, 0, 0, 1, 2, 1},
    {{234, 237, 197}, 1, 0, 0, 1, 2, 2},
    {{190, 211, 212}, 0, 0, 0, 2, 0, 3},
    {{212, 212, 212}, 2, 0, 0, 1, 1, 0},
    {{163, 167, 130}, 0, 0, 0, 0, kNoTwistIcon, 0},
}};

}  // namespace

void PadListInit(Session& s) { s.World.Screen.ShowPad(); }

void PadTablesInit(Session& s) {
    s.PadTable = Table<PadRecord, 5>(kStartTable);
    PadTwistLeave(s, kVolPad);
    PadTwistMove(s, 0);
    s.PadTypeIndex = kVolPad;
    PadType_Click(s, kVolPad);
    PadTwistMove(s, 0);
}

void PadType_Click(Session& s, std::int16_t entry) {
    // Still under the old type, so that its channels take their centre values.
    PadRecentre(s);
    PadTwistLeave(s, entry);
    PadTwistMove(s, 0);
    s.PadTypeIndex = entry;
    s.World.Screen.ShowPad();
    s.World.Screen.ShowPadBall();
    PadTwistShow(s, entry);
}

void PadFunction_Click(Session& s, std::int16_t function) {
    s.PadTable[s.PadTypeIndex].Function = function;
    PadType_Click(s, s.PadTypeIndex);
}

void PadTwistShow(Session& s, std::int16_t) { s.World.Screen.ShowTwist(); }

int PadTwistFace(const Session& s, std::int16_t padType) {
    const std::int16_t icon = s.PadTable[padType].TwistIcon;
    return icon == kNoTwistIcon ? 0 : icon + 1;
}

int PadBallFace(const Session& s) { return s.PadTypeIndex + 1; }

}  // namespace marvolin
