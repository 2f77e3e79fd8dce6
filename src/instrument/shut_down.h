#pragma once

#include "core/session.h"

namespace marvolin {

/// The main window is about to close: shuts the instrument down step by step. A step that fails is shown as
/// "Shutdown error while ", its context, "; ", the description, " #" and the number, and the next step runs.
/// Nothing is saved.
void Form_QueryUnload(Session& s);

}  // namespace marvolin
