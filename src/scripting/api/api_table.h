#pragma once

#include <span>

#include "scripting/api/api.h"

namespace marvolin {

/// All functions of the table `marvolin`, by subject, in the order of the page for players.
std::span<const ApiSubject> ApiSubjects();

}  // namespace marvolin
