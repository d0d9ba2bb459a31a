#pragma once

#include "viewdata/services/Formatter.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// The texts of the market view. A text operation that has nothing to show answers false and leaves
// `Text` alone; one with a text replaces what `Text` held.
class TCustomMarketDataFormatter : public TService<TCustomMarketDataFormatter> {
public:
    // Operations, in order

    // Attribute 48: the last price less the previous close, in units of price.
    virtual Boolean GetAttribute48Text(StringView Symbol, String& Text) const = 0;
    // Leaves `Value` alone while there is nothing to work out; so does the next Value operation.
    virtual void GetAttribute48Value(StringView Symbol, Double& Value) const = 0;
    // Attribute 130: that change in percent of the previous close, 2.5 for 2.5 %.
    virtual Boolean GetAttribute130Text(StringView Symbol, String& Text) const = 0;
    virtual void GetAttribute130Value(StringView Symbol, Double& Value) const = 0;
    // The symbol's field of that number as a price, by the price settings of the symbol.
    virtual Boolean FormatPrice(StringView Symbol, Integer Attribute, String& Text) const = 0;
    // The symbol's field of that number as a quantity.
    virtual Boolean FormatVolume(StringView Symbol, Integer Attribute, String& Text) const = 0;
};

// Knows the names of data types that resource tables use for custom columns.
class TCustomDataTypeTable : public TService<TCustomDataTypeTable> {
public:
    // Operations, in order

    // Of the names price, amount, qty, ratio, percent and integer, in any case, the data type of
    // that kind; DisplayDataType::Amount for every other.
    virtual TDisplayDataType FindDataType(StringView TypeName) const = 0;
};

// What FormatValue is to be given for a custom column whose resource entry has this "type".
// DisplayDataType::Amount while no table is installed.
inline TDisplayDataType GetDataType(StringView TypeName) {
    const TCustomDataTypeTable* table = TCustomDataTypeTable::GetInstance();
    return table != nullptr ? table->FindDataType(TypeName) : DisplayDataType::Amount;
}

} // namespace quorin
