#pragma once

#include <cstdint>

namespace marvolin::samples {

/// White noise that is the same on every machine: a xorshift generator with the caller's seed.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed * 2654435761u + 0x9E3779B9u) {
        if (state_ == 0) state_ = 1;
    }

    /// The next value, uniform in -1..1.
    double Next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<double>(state_) / 2147483648.0 - 1.0;
    }

private:
    std::uint32_t state_;
};

}  // namespace marvolin::samples
