#pragma once
/// \file
/// What this process holds of the system.

#include <cstdint>

namespace marvolin::soak {

struct ProcessSize {
    std::int64_t InUse = 0;     ///< bytes of the heap that are in use
    std::int64_t Resident = 0;  ///< bytes, RSS
    std::int64_t Own = 0;       ///< bytes, PSS
    int Handles = 0;            ///< open files
    int Threads = 0;
};

/// Gives free memory back to the system first, so that what is left is held.
ProcessSize SizeOfThisProcess();

}  // namespace marvolin::soak
