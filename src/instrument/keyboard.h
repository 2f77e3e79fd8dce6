#pragma once

#include "core/session.h"

namespace marvolin {

/// Keys held beside the released one, as bits.
enum ShiftKeys : int { kNoShift = 0, kShiftKey = 1, kCtrlKey = 2, kAltKey = 4 };

/// A key was released in the main window. `key` is the character of the key in capitals: "A".."P" are rows 0..15, "Z"
/// is row 4, any other is ignored. Alone it is a click with the left button on `Play` of the row; with Shift, Ctrl or
/// Alt (the first of these that is held) it fades up, down or the other way. Errors are shown as "stopping/playing
/// loop".
void Form_KeyUp(Session& s, int key, int shift);

}  // namespace marvolin
