#include "instrument/keyboard.h"

#include "audio/play_gestures.h"
#include "parameters/fades.h"

namespace marvolin {

namespace {

constexpr Row kNoRow = -1;

Row RowOfKey(int key) {
    if (key == 'Z') return kSelectionRow;
    return key >= 'A' && key <= 'P' ? static_cast<Row>(key - 'A') : kNoRow;
}

FadeCommand FadeOf(int shift) {
    if ((shift & kShiftKey) != 0) return FadeCommand::Up;
    return (shift & kCtrlKey) != 0 ? FadeCommand::Down : FadeCommand::Toggle;
}

}  // namespace

void Form_KeyUp(Session& s, int key, int shift) {
    const Row row = RowOfKey(key);
    if (row == kNoRow) return;
    if ((shift & (kShiftKey | kCtrlKey | kAltKey)) == 0) {
        Play_MouseUp(s, row, kLeftButton);
    } else if (row < kRows) {
        // Out of range: ignored, as no trap would report the subscript error.
        LoopSetFadeGang(s, row, FadeOf(shift), kOwnBand);
    }
}

}  // namespace marvolin
