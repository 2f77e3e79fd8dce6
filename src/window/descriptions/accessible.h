#pragma once
/// \file
/// The controls that the program draws, as assistive technology sees them.

namespace marvolin {

/// Lets each drawn control answer by its row of the table: role, name, value, range, state, hint and key, and do what
/// it is asked for: to be pressed, as Space does, to take the right button (the action that shows a menu), to turn up
/// and down or to a value, to take the focus. The toolkit's own controls answer by themselves. Called once, before the
/// first window.
void InstallAccessibility();

}  // namespace marvolin
