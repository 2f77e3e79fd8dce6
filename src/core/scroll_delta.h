#pragma once

#include <cstdint>

namespace marvolin {

/// Thins the stream of drag events for the script: every `Sensitivity`-th passes, with the movement summed since the
/// last that passed.
class clsScrollDelta {
public:
    /// Sets how many events make one, limited to 1..50000.
    void ScrollSensitivity(std::int32_t n);
    /// Starts a drag at this value.
    void Reset(double x, double y);
    /// Counts one event. Sets `send` to true when this one passes: each `Sensitivity`-th, or any with `force`.
    void SendScroll(double x, double y, bool force, bool& send);
    /// Movement since the event that passed before the last.
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
