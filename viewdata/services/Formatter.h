#pragma once

#include "platform/rtl/Types.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// The kind of a number, which decides its decimals and grouping. Open: a data type table may give
// further values.
using TDisplayDataType = Byte;

namespace DisplayDataType {
inline constexpr TDisplayDataType Text = 0;         // as it stands
inline constexpr TDisplayDataType Whole = 1;        // a whole number
inline constexpr TDisplayDataType AveragePrice = 2; // a price that was worked out
inline constexpr TDisplayDataType Amount = 3;       // money
inline constexpr TDisplayDataType Quantity = 4;
inline constexpr TDisplayDataType Ratio = 5;
inline constexpr TDisplayDataType CurrencyRatio = 6;
inline constexpr TDisplayDataType Percent = 7;     // already multiplied by 100
inline constexpr TDisplayDataType MarketPrice = 8; // a price of the market, strikes included
} // namespace DisplayDataType

// As `Decimals` of FormatFloat: as many as the number has, up to 8.
inline constexpr Integer AllDecimals = -1;

// Turns numbers into what the user reads, by the display settings of the current section. Always
// gives a text, with the sign of a negative number, also for 0 and for an unknown symbol.
class TCustomFormatter : public TService<TCustomFormatter> {
public:
    // Operations, in order

    // A whole number for the text of a message.
    virtual String FormatInteger(Integer Value) const = 0;
    // A plain number for the text of a filter: "." as point, no grouping, `Decimals` decimals or
    // AllDecimals. `Flag` True drops zeros at the end.
    virtual String FormatFloat(Double Value, Integer Decimals, Boolean Flag) const = 0;
    // The text of a cell. `Symbol` lets the product decide on decimals and on fractions of a bond
    // price; empty takes the general setting of the data type. `Flag` True honours the settings
    // that keep or drop decimals, False always shows the full precision. `Reserved` is nil.
    // An amount groups by "," at most and has "." as point: without its commas it parses.
    virtual String FormatValue(Double Value, TDisplayDataType DataType, StringView Symbol,
                               Boolean Flag, Pointer Reserved) const = 0;
};

} // namespace quorin
