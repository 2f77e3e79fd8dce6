#pragma once

#include <memory>

#include "core/input_service.h"

namespace marvolin {

/// The input service on SDL's joysticks. It needs no window of SDL's own. Devices may outlive it.
/// Raises `RuntimeError` when SDL refuses.
std::unique_ptr<DirectInput> CreateSdlInput();

}  // namespace marvolin
