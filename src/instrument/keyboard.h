#pragma once

#include "core/session.h"

namespace marvolin {

/// Keys that are held while another is released, as bits.
enum ShiftKeys : int { kNoShift = 0, kShiftKey = 1, kCtrlKey = 2, kAltKey = 4 };

/// A key is released in the main window. `key` is the character of the key in capitals: "A".."P" stand for rows 0..15,
/// "Z" for row 4; any other is ignored. Alone it acts as a click with the left button on `Play` of the row. With Shift
/// it fades up, otherwise with Ctrl down, otherwise with Alt in the other direction. Errors are shown as
/// "stopping/playing loop".
void Form_KeyUp(Session& s, int key, int shift);

}  // namespace marvolin
