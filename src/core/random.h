#pragma once

namespace marvolin {

/// Where chance comes from.
class Random {
public:
    virtual ~Random() = default;
    /// A uniform number from 0 up to but not including 1.
    virtual double Rnd() = 0;
    /// Starts a new sequence from the clock.
    virtual void SeedFromClock() = 0;
};

}  // namespace marvolin
