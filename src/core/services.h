#pragma once
/// \file
/// The services on which a session runs: what lies outside the instrument, as `main.cpp` or a test provides it.

#include <functional>
#include <memory>
#include <string>

#include "core/card_output.h"
#include "core/desktop.h"
#include "core/display.h"
#include "core/input_service.h"
#include "core/random.h"
#include "core/script_events.h"
#include "core/session_store.h"
#include "core/sound_service.h"
#include "core/timer.h"
#include "core/windows.h"

namespace marvolin {

/// References to the services. The objects must outlive the session.
struct Services {
    Display& Screen;
    Desktop& Desk;
    Windows& Forms;
    Random& Chance;
    TimerFactory& Timers;
    ScriptEvents& Scripts;
    SessionStore& Store;
    /// Makes the root of the audio service. Raises `RuntimeError` when the service is missing.
    std::function<std::unique_ptr<DirectX7>()> CreateDirectX7;
    /// Makes the root of the input service. Raises `RuntimeError` when it refuses.
    std::function<std::unique_ptr<DirectInput>()> CreateDirectInput;
    /// Full path of the file to which a shortcut leads; "" when the shortcut cannot be read or is broken.
    std::function<std::string(const std::string& path)> ResolveShortcut = nullptr;
    /// The sound on its way to the card; null when there is nothing to silence, measure or record.
    CardOutput* Output = nullptr;
};

}  // namespace marvolin
