#pragma once
/// \file
/// Random numbers. Behind them stands a Mersenne twister (window/toolkit/mersenne_random.h).

namespace marvolin {

/// A source of random numbers.
class Random {
public:
    virtual ~Random() = default;
    /// A uniform number in [0, 1).
    virtual double Rnd() = 0;
    /// Starts a new sequence from the clock.
    virtual void SeedFromClock() = 0;
};

}  // namespace marvolin
