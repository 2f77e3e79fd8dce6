#pragma once
/// \file
/// Names of files under way, which lists do not show.

#include <ctime>
#include <functional>
#include <string>

namespace marvolin {

/// Makes a file by `make`, which returns false and leaves `errno` when it cannot, under a hidden name in `folder` that
/// no file has, and returns the path. Failures are the errors of `RaiseFileError`.
std::string UnderHiddenName(const std::string& folder, const std::function<bool(const std::string&)>& make);

/// Removes from a folder what killed programs have left there: files with hidden names whose process no
/// longer runs. Nothing is known of the processes of another machine, of another start of this one or of another
/// container: their files go when they are more than a day old at `now`. Errors are ignored.
void RemoveLeftovers(const std::string& folder, std::time_t now);

}  // namespace marvolin
