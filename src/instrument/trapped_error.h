#pragma once
/// \file
/// The error in hand, for traps that must hold whatever is raised: those of the start and of the end.

#include <cstdint>
#include <string>

namespace marvolin {

/// An error as the boxes of start and end show it.
struct TrappedError {
    std::string Description;
    std::int32_t Number = 0;
};

/// The error that is being handled; call it inside a `catch`. Errors of the program keep their description and number.
/// No memory is number 7; any other error of the language or a library is number 51, an internal one, with its text.
TrappedError ErrorInHand();

}  // namespace marvolin
