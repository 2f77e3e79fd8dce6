#pragma once

#include <span>

#include "window/descriptions/description.h"

namespace marvolin {

/// The dialogues of the toolkit that the program opens: files and message boxes. Their parts keep the toolkit's names.
std::span<const Description> DialogueDescriptions();

}  // namespace marvolin
