#pragma once

#include <chrono>
#include <random>

#include "core/random.h"

namespace marvolin {

/// Random numbers from a Mersenne twister.
class MersenneRandom : public Random {
public:
    double Rnd() override { return std::generate_canonical<double, 53>(engine_); }
    void SeedFromClock() override {
        engine_.seed(
            static_cast<std::mt19937::result_type>(std::chrono::system_clock::now().time_since_epoch().count()));
    }

private:
    std::mt19937 engine_;
};

}  // namespace marvolin
