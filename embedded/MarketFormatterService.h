#pragma once

#include "embedded/PriceDecimals.h"
#include "viewdata/services/MarketDataFormatter.h"

namespace quorin {

class TCustomSubItem;

// The texts of the market view, from the live items that the installed services hold. A price of 0
// is how a feed says that there is none: it shows nothing, a quantity of 0 shows as 0.
class TEmbeddedMarketDataFormatter : public TCustomMarketDataFormatter {
public:
    // Signed, "+0.35", with the decimals of the finer of the two prices' steps. Nothing without
    // both prices; "0.00" for a price that did not move.
    Boolean GetAttribute48Text(StringView Symbol, String& Text) const override;
    void GetAttribute48Value(StringView Symbol, Double& Value) const override;
    // Signed, "+1.25%". Of a previous close below 0 the size counts, so that the sign stays that
    // of the change.
    Boolean GetAttribute130Text(StringView Symbol, String& Text) const override;
    void GetAttribute130Value(StringView Symbol, Double& Value) const override;
    // Without a known price step as many decimals as the price has, from 2 to 8.
    Boolean FormatPrice(StringView Symbol, Integer Attribute, String& Text) const override;
    // By the quantity settings. False for a field that is not there or whose text is empty.
    Boolean FormatVolume(StringView Symbol, Integer Attribute, String& Text) const override;

private:
    struct TPriceChange {
        Double LastPrice = 0.0;
        Double PreviousClose = 0.0;
    };
    bool FindChange(StringView symbol, TPriceChange& change) const;

    TPriceDecimals FPriceDecimals;
};

class TEmbeddedDataTypeTable : public TCustomDataTypeTable {
public:
    TDisplayDataType FindDataType(StringView TypeName) const override;
};

} // namespace quorin
