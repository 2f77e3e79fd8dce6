#pragma once
/// \file
/// The order in which the instrument comes up.

#include <functional>

#include "core/session.h"

namespace marvolin {

/// Steps of the start that lie outside the model. One that is not set is skipped.
struct StartUpHooks {
    std::function<bool()> CheckComponents;          ///< false: a component is missing, and the program ends
    std::function<void(Session&)> InitPadGeometry;  ///< `PadGeometryInit` with the sizes of the laid out window
};

/// The largest number of colours for which the player is warned.
inline constexpr double kFewColours = 256;

/// The start of the program, until the main window is shown. False when the program is to end: a component is missing,
/// another instance runs (no message), the root of the audio service cannot be made, or an error occurs, which is shown
/// as "Error loading main: " and its description.
bool RunMain(Session& s, const StartUpHooks& hooks);

/// Makes the root of the audio service. Failure: the box "DirectX Missing", and false.
bool CreateDirectX(Session& s);

/// The main window is loaded: opens the device, sets the defaults, makes the timers, finds the joystick. A device that
/// refuses does not stop the rest. False when a step has ended the program.
bool Form_Load(Session& s, const StartUpHooks& hooks);

/// The main window is activated: the first time places the windows and loads the start-up content. Unless a help file
/// is set, it is that of the program's folder.
void Form_Activate(Session& s);

}  // namespace marvolin
