#pragma once

#include "benchmarks/BenchMarket.h"

#include <random>

namespace quorin {

inline constexpr Integer SortedUniverse = 100'000;
inline constexpr Integer SortedBatch = 100; // rows that change between two looks
inline constexpr Double SortedPriceMiddle = 150.0;

// Which rows change and to which prices: the same ones for each that is measured.
class TSortedChanges {
public:
    explicit TSortedChanges(Integer rows) : FRows(rows) {}

    Integer NextRow() { return static_cast<Integer>(FRandom() % static_cast<unsigned>(FRows)); }
    // Half of them above the middle.
    Double NextPrice() { return SortedPriceMiddle - 50.0 + 0.01 * (FRandom() % 10'000u); }

private:
    std::mt19937 FRandom{20'240'603};
    Integer FRows;
};

} // namespace quorin
