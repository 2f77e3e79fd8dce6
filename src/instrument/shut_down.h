#pragma once

#include "core/session.h"

namespace marvolin {

/// `Form_QueryUnload` of the main window: takes the instrument down step by step. A step that fails is shown as
/// "Shutdown error while ", its context, "; ", the description, " #" and the number, and the next step runs.
/// Nothing is saved.
void FormQueryUnload(Session& s);

}  // namespace marvolin
