#pragma once

#include "platform/rtl/Variant.h"

#include <limits>
#include <vector>

namespace quorin {

// What a cell sorts by: numbers as numbers, before texts, which compare without regard to case.
// Null and empty text are blank and stand last, whatever the direction is.
class TcxSortKey {
public:
    // Takes over what the value says; True when the key is another one now.
    bool Assign(const Variant& value);

    // Below 0, 0 or above 0 as this key stands before, with or after the other one. Descending
    // swaps the two, except for blanks.
    int Compare(const TcxSortKey& other, bool descending) const;

    // The same for two rows of a table of keys that has one key per sort column, row by row: the
    // first column that tells them apart counts.
    static int CompareRows(const std::vector<TcxSortKey>& keys, const std::vector<bool>& descending,
                           Integer left, Integer right);

    // A number that puts most keys of a column in their order by itself: where those of two keys
    // differ, the lower one stands first; where they are equal, Compare knows. Never not a number.
    Double Lead(bool descending) const {
        constexpr Double last = std::numeric_limits<Double>::infinity();
        if (FRank == TRank::Number) return descending ? -FNumber : FNumber;
        return FRank == TRank::Text && descending ? -last : last;
    }

    friend bool operator==(const TcxSortKey&, const TcxSortKey&) = default;

private:
    enum class TRank : Byte { Number, Text, Blank };

    Double FNumber = 0.0;
    String FText; // in upper case
    TRank FRank = TRank::Blank;
};

} // namespace quorin
