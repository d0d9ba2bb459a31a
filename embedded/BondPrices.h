#pragma once

#include "viewdata/services/ConfigManager.h"

#include <vector>

namespace quorin {

// The categories whose symbols are bonds: whole numbers with "," between them. Read as text, "6"
// without a setting; a part that is no number counts for nothing.
inline constexpr StringView BondCategoriesKey = u"BondCategories";

// Prices of bonds in fractions, as their traders quote them. DenominatorModeValue is the form:
//
//   1   99-33/64
//   2   99 33/64
//
// and BondPriceDenominator the fraction: 2, 4, 8, 16, 32 or 64. Every other form or fraction leaves
// prices in decimals. A bond is a symbol whose record's series is of a bond category.
//
// All prices of a column read against one denominator, so a fraction is never reduced (99.5 in
// 64ths is 99-32/64) and its numerator not padded. A whole price has no fraction (100), one below 1
// only that (33/64, -33/64).
class TBondPrices {
public:
    void ReadSettings(const TCustomConfigManager& config);
    // Writes the price and answers True. False writes nothing: the price is to be shown in
    // decimals, by the settings, because the symbol is no bond, or because the price lies between
    // two fractions and none of them may stand for it.
    bool Append(String& target, Double price, StringView symbol) const;

private:
    bool IsBond(StringView symbol) const;

    Integer FDenominator = 0; // 0: no fractions
    Char FSeparator = u'-';
    std::vector<Integer> FCategories;
};

} // namespace quorin
