#pragma once
/// \file
/// The controls that the program draws, as assistive technology sees them.

namespace marvolin {

/// Lets each drawn control answer by its row of the table: role, name, value, hint and key. The toolkit's own controls
/// answer by themselves. Called once, before the first window.
void InstallAccessibility();

}  // namespace marvolin
