#pragma once
/// \file
/// Looks for the samples of a set that are not at their stored places.

#include <string>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// Where the samples `missing` of one set lie: beside the set, or in the folder of a bin. "" for one that is in none of
/// them. Both lists are paths as the set has them; `setFolder` is its folder, with its separator. A name that differs
/// only in the case of its letters counts when there is none spelled alike. Of several each gets the one that
/// `ShareOut` gives it; a file that is one of `inPlace`, the samples of the set that are at their places, is given to
/// none but the same.
std::vector<std::string> FindNearby(const Session& s, const std::vector<std::string>& missing,
                                    const std::vector<std::string>& inPlace, const std::string& setFolder);

}  // namespace marvolin
