#pragma once

#include <cstdint>
#include <string_view>

#include "core/session.h"

namespace marvolin {

/// The description of a number of the audio service; "" for a number that is not in the table.
std::string_view DSErrorText(std::uint32_t number);

/// Shows "Error ", `context`, ": " and the description of `number` in a plain box. Does nothing else.
void ShowDSError(Session& s, std::string_view context, std::uint32_t number);

}  // namespace marvolin
