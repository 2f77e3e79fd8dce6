#pragma once
/// \file
/// What the player reads when a file operation fails.

namespace marvolin {

/// Raises the error for a file operation that failed with this `errno`: a `RuntimeError` with a number and a
/// description for the player, such as "Disk full" (61), "Permission denied" (70) or "File not found" (53).
[[noreturn]] void RaiseFileError(int systemError);

}  // namespace marvolin
