#pragma once

#include <memory>

#include "core/input_service.h"

namespace marvolin {

/// The input service, implemented with SDL's joysticks. It needs no SDL window. Devices may outlive it.
/// Raises `RuntimeError` when SDL refuses.
std::unique_ptr<DirectInput> CreateSdlInput();

}  // namespace marvolin
