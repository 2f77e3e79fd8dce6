#pragma once

#include <cstddef>
#include <cstdint>

namespace marvolin::hand {

/// Random numbers of a seed, the same on every machine.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}
    /// The numbers of one gesture of a run. They depend on nothing else, so a gesture that draws more or fewer changes
    /// none of the others.
    Dice(std::uint64_t seed, int gesture) : state_(seed * 0x9E3779B97F4A7C15U) {
        state_ ^= Next() + static_cast<std::uint64_t>(gesture) * 0xD1B54A32D192ED03U;
        Next();
    }

    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }
    /// 0..n - 1; 0 for an `n` below 1.
    int Below(int n) { return n < 1 ? 0 : static_cast<int>(Next() % static_cast<std::uint64_t>(n)); }
    /// `low`..`high`, both included.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool OneIn(int n) { return Below(n) == 0; }
    /// 0 to less than 1.
    double Share() { return static_cast<double>(Next() >> 11U) * 0x1.0p-53; }
    template <typename Container>
    auto& Of(Container& container) {
        return container[static_cast<std::size_t>(Below(static_cast<int>(container.size())))];
    }
    template <typename T, std::size_t N>
    T& Of(T (&array)[N]) {
        return array[static_cast<std::size_t>(Below(static_cast<int>(N)))];
    }

private:
    std::uint64_t state_;
};

}  // namespace marvolin::hand
