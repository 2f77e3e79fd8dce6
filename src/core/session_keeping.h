#pragma once
/// \file
/// Keeping the session across a change that unloads the samples.

#include <functional>

#include "core/session.h"

namespace marvolin {

/// Makes a change that unloads the samples, and restores the instrument from a temporary file: saves the whole session,
/// makes the change, loads what `taken` selects, and deletes the file. The load neither makes the file the current
/// session nor adopts its switches, and leaves the clipboard unchanged. Without a temporary file only makes the change,
/// and returns false.
bool KeepSessionAcross(Session& s, const clsSwitchRecord& taken, const std::function<void()>& change);

}  // namespace marvolin
