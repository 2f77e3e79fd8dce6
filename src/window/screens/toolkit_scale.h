#pragma once
/// \file
/// How large the toolkit draws. It scales everything that is drawn, laid out and pointed at, so the program knows
/// logical pixels only, and text and pictures are as sharp at each scale.

#include <functional>

namespace marvolin {

/// Whether this release of the toolkit can change its scale while the program runs.
bool CanScale();
/// Makes everything `factor` times as large as the desktop and `QT_SCALE_FACTOR` have it. No window may be open
/// natively. False, and nothing changes, when the toolkit cannot.
bool ScaleToolkit(double factor);
/// Closes all native windows, runs `between`, and opens again those that were open, each in front of the same one as
/// before, the main window in front of the others, and before all the one that was active. What the forms hold stays.
/// No dialogue may be waiting for its answer.
void ReopenWindows(const std::function<void()>& between);
/// Whether a window is hidden and shown by `ReopenWindows`: for the player it is open all the time.
bool IsReopening();

}  // namespace marvolin
