#pragma once
/// \file
/// Thinning of drag events for scripts.

#include <cstdint>

namespace marvolin {

/// Thins the stream of drag events for the script: every n-th event passes, with the movement since the previous one
/// that passed.
class clsScrollDelta {
public:
    /// Sets n, limited to 1..50000.
    void ScrollSensitivity(std::int32_t n);
    /// Starts a drag at this value.
    void Reset(double x, double y);
    /// Counts one event. Sets `send` to whether it passes: every n-th one does, and any with `force`.
    void SendScroll(double x, double y, bool force, bool& send);
    /// Movement between the last two events that passed.
    double DeltaX() const { return deltaX_; }
    double DeltaY() const { return deltaY_; }

private:
    double deltaX_ = 0;
    double deltaY_ = 0;
    double lastX_ = 0;
    double lastY_ = 0;
    std::int32_t sensitivity_ = 1;
    std::int32_t count_ = 0;
};

}  // namespace marvolin
