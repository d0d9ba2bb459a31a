#pragma once

#include "benchmarks/BenchMarket.h"

#include <random>

namespace quorin {

inline constexpr Integer ChangesPerBatch = 100; // between two looks
inline constexpr Double MiddlePrice = 150.0;

// Which rows change and to which prices: the same ones for each that is measured.
class TChanges {
public:
    explicit TChanges(Integer rows) : FRows(rows) {}

    // Every second one is a row of the first screen, the others may be anywhere.
    Integer NextRow() {
        FIsOnScreen = !FIsOnScreen;
        const auto rows = static_cast<unsigned>(FIsOnScreen ? WindowRows : FRows);
        return static_cast<Integer>(FRandom() % rows);
    }
    // Half of them above the middle.
    Double NextPrice() { return MiddlePrice - 50.0 + 0.01 * (FRandom() % 10'000u); }
    // Calls `change(row, price)` for a batch of them.
    template <class Change>
    void MakeBatch(Change change) {
        for (Integer count = 0; count < ChangesPerBatch; ++count) {
            const Integer row = NextRow();
            change(row, NextPrice());
        }
    }

private:
    std::mt19937 FRandom{20'240'603};
    Integer FRows;
    bool FIsOnScreen = false;
};

} // namespace quorin
