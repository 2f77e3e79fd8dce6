#pragma once

#include <functional>

#include "core/session.h"

namespace marvolin {

/// Makes a change that takes the samples away, and brings the instrument back by way of a temporary file: the whole
/// session is saved to it, the change is made, the session is loaded back with `taken`, neither as the current one nor
/// with its switches adopted, and the file is deleted. When there is no temporary file to be had only the change is
/// made, and false returned. The clipboard, to which a load adds, stands afterwards as it stood before.
bool KeepSessionAcross(Session& s, const clsSwitchRecord& taken, const std::function<void()>& change);

}  // namespace marvolin
