#pragma once

#include "platform/rtl/Types.h"

#include <string>

namespace quorin {

// How the text of a number is written, as far as a spreadsheet's number format tells it.
struct TNumberShape {
    enum TSign : Byte { Plain, Plus, MinusZero };

    TSign Sign = Plain;
    Byte Decimals = 0;
    Byte ExponentDigits = 0;   // 0: no exponent
    bool ExponentPlus = false; // positive exponents show their sign
    bool Grouped = false;
    bool HasWhole = true; // a digit before the point

    friend bool operator==(const TNumberShape&, const TNumberShape&) = default;
};

enum class TCellKind : Byte { Blank, Number, Text };

struct TCellValue {
    TCellKind Kind = TCellKind::Blank;
    Double Number = 0.0;
    TNumberShape Shape;
};

// What a spreadsheet stores for a text: a number only where value and shape give back the very
// text in 15 significant digits.
TCellValue ReadCell(StringView text);

// The spreadsheet's format: "#,##0.00", "+0.0;-0.0;+0.0", "0.00E-0".
std::string NumberFormat(const TNumberShape& shape);

} // namespace quorin
