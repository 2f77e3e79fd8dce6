#pragma once
/// \file
/// A soak: an evening of many hours, with a look at what the process holds again and again.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "soak/evening.h"
#include "soak/process_size.h"

namespace marvolin::soak {

struct SoakOptions {
    std::int64_t Minutes = 24 * 60;  ///< at least 2
    std::int64_t MinutesBetweenLooks = 5;
    unsigned Seed = 1;
    std::vector<std::string> Scripts;   ///< texts of scripts that may run
    std::function<bool()> Enough = {};  ///< true ends it before its time, at a look
    /// Runs after each look but the first, for tests that plant a fault.
    std::function<void(Evening&, std::int64_t minute)> AfterEachLook = {};
    /// Gets a line for each look that is told: the first, those of whole hours, the last.
    std::function<void(const std::string&)> Tell = {};
};

/// What may be more at the end than after the first minute, and what is wrong at all.
struct SoakLimits {
    static constexpr std::int64_t kGrowth = 1 << 20;          ///< bytes of the heap in use
    static constexpr std::int64_t kResidentGrowth = 4 << 20;  ///< bytes of RSS; PSS depends on what else runs
    static constexpr double kClockError = 1;                  ///< ms
};

struct SoakResult {
    ProcessSize First;  ///< after the first minute
    ProcessSize Most;   ///< of what came later, each number by itself
    std::uint64_t Gestures = 0;
    std::int64_t Minutes = 0;
    Measured Found;
    std::vector<std::string> Faults;  ///< in words; empty when all is well
};

/// Runs a soak in a folder of its own, which is removed.
SoakResult RunSoak(const SoakOptions& options);

}  // namespace marvolin::soak
