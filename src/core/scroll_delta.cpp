#include "core/scroll_delta.h"

#include <algorithm>

namespace marvolin {

void clsScrollDelta::ScrollSensitivity(std::int32_t n) { sensitivity_ = std::clamp(n, 1, 50000); }

void clsScrollDelta::Reset(double x, double y) {
    lastX_ = x;
    lastY_ = y;
    deltaX_ = deltaY_ = 0;
    count_ = 0;
}

void clsScrollDelta::SendScroll(double x, double y, bool force, bool& send) {
    ++count_;
    send = force || count_ >= sensitivity_;
    if (!send) return;
    deltaX_ = x - lastX_;
    deltaY_ = y - lastY_;
    lastX_ = x;
    lastY_ = y;
    count_ = 0;
}

}  // namespace marvolin
