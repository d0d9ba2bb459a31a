#pragma once

#include "embedded/BondPrices.h"
#include "embedded/PriceDecimals.h"
#include "platform/rtl/TEvent.h"
#include "viewdata/services/ConfigManager.h"
#include "viewdata/services/Formatter.h"

namespace quorin {

// The texts of numbers by the display settings, which it reads again on each change of them. A
// setting of decimals counts from 0 to 8; without one
//
//   worked-out price   3 decimals, or those of the symbol's price step where it has more
//   amount             2 decimals, in groups
//   quantity           as many decimals as it has, up to 8, in groups unless QtyThousandPeriod
//                      is set and false
//   exchange ratio     6 decimals
//
// Of these four, `Flag` True drops the zeros at the end unless the kind's own setting keeps them.
// Beside them a market price shows the decimals of the symbol's price step, up to 8 where it has
// more (without a step 2 to 8), a ratio 4, a percentage 2 and "%", a whole number none and groups;
// other kinds are plain numbers.
//
// Of a bond, a worked-out price and a market price are shown in fractions where the settings want
// that and the price is one; see TBondPrices.
class TEmbeddedFormatter : public TCustomFormatter {
public:
    // Registers with `config`, which must outlive it, so that it knows of a change before views do
    // that register later.
    explicit TEmbeddedFormatter(TCustomConfigManager& config);
    ~TEmbeddedFormatter() override;

    String FormatInteger(Integer Value) const override;
    // More than 15 decimals count as 15, a negative number as AllDecimals.
    String FormatFloat(Double Value, Integer Decimals, Boolean Flag) const override;
    String FormatValue(Double Value, TDisplayDataType DataType, StringView Symbol, Boolean Flag,
                       Pointer Reserved) const override;

private:
    struct TPrecision {
        Integer Decimals = 0;
        bool IsSet = false; // otherwise Decimals is the kind's own
        bool KeepZeros = false;
    };

    void ReadSettings(Pointer Sender, Pointer Data);
    TPrecision ReadPrecision(StringView precisionKey, StringView keepKey, Integer fallback) const;
    void AppendAveragePrice(String& target, Double value, StringView symbol, bool fullLength) const;
    void AppendMarketPrice(String& target, Double value, StringView symbol) const;
    void AppendQuantity(String& target, Double value, bool fullLength) const;

    TCustomConfigManager& FConfig;
    TObject FOwner; // of the registration
    TPriceDecimals FPriceDecimals;
    TBondPrices FBondPrices;
    TPrecision FAmount;
    TPrecision FQuantity;
    TPrecision FAveragePrice;
    TPrecision FCurrencyRatio;
    bool FGroupQuantity = true;
};

} // namespace quorin
