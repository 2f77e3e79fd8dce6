#pragma once
/// \file
/// The order in which the instrument comes up.

#include <functional>

#include "core/session.h"

namespace marvolin {

/// Steps of the start that are not the model's own. Each keeps its place; one that is not set is passed over.
struct StartUpHooks {
    std::function<bool()> CheckComponents;          ///< false: a part is missing, and the program ends
    std::function<void(Session&)> InitPadGeometry;  ///< `PadGeometryInit` with the sizes of the laid out window
};

/// Largest number of colours that gets the warning.
inline constexpr double kFewColours = 256;

/// The start of the program, up to the shown main window. False when the program is to end: a part is missing, another
/// instance runs (without a word), the root of the audio service cannot be made, or an error rose, which is shown as
/// "Error loading main: " and its description.
bool RunMain(Session& s, const StartUpHooks& hooks);

/// Makes the root of the audio service. Failure: the box "DirectX Missing", and false.
bool CreateDirectX(Session& s);

/// `Form_Load` of the main window: device, defaults, timers, joystick. A device that refuses does not stop it.
/// False when the program has been ended in it.
bool FormLoad(Session& s, const StartUpHooks& hooks);

/// Sets every control and the model to their defaults and makes the timers; part of `FormLoad`.
/// False when there are no timers: the program has then been ended.
bool InitMainForm(Session& s, const StartUpHooks& hooks);

/// `Form_Activate` of the main window: places the windows and loads the start-up content, once.
void FormActivate(Session& s);

}  // namespace marvolin
