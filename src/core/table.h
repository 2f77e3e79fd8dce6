#pragma once
/// \file
/// A table of fixed size whose index is checked.

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/errors.h"

namespace marvolin {

/// `N` records by index 0..N-1. An index outside raises `SubscriptError`; iteration is that of an array.
template <typename T, std::size_t N>
class Table {
public:
    Table() = default;
    explicit Table(const std::array<T, N>& rows) : rows_(rows) {}

    template <typename Index>
    T& operator[](Index index) {
        return rows_[Checked(static_cast<std::int64_t>(index))];
    }
    template <typename Index>
    const T& operator[](Index index) const {
        return rows_[Checked(static_cast<std::int64_t>(index))];
    }
    auto begin() { return rows_.begin(); }
    auto end() { return rows_.end(); }
    auto begin() const { return rows_.begin(); }
    auto end() const { return rows_.end(); }
    static constexpr std::size_t size() { return N; }
    friend bool operator==(const Table&, const Table&) = default;

private:
    static std::size_t Checked(std::int64_t index) {
        if (index < 0 || index >= static_cast<std::int64_t>(N)) throw SubscriptError();
        return static_cast<std::size_t>(index);
    }
    std::array<T, N> rows_{};
};

}  // namespace marvolin
