#include "platform/export/CellValue.h"

#include "platform/rtl/Numbers.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace quorin {

namespace {

constexpr std::size_t SignificantDigits = 15;
// Beyond these, programs show other digits than they were given.
constexpr std::size_t MaxWholeDigits = 15;
constexpr std::size_t MaxDecimals = 20;
constexpr std::size_t MaxExponentDigits = 3;
constexpr std::size_t GroupDigits = 3;
// Sign, digits with their group marks, point, exponent.
constexpr std::size_t MaxNumberText = 2 + MaxWholeDigits * 4 / 3 + MaxDecimals + 5;
// What spreadsheets calculate with; nearer to zero and further away they keep no digits.
constexpr Double SmallestNumber = 2.2250738585072014e-308;
constexpr Double LargestNumber = 9.99999999999999e307;

bool IsDigit(Char unit) {
    return unit >= u'0' && unit <= u'9';
}

// Takes a text apart by the only grammar that number formats can show; what it takes goes into
// Plain, without group marks.
class TNumberReader {
public:
    explicit TNumberReader(StringView text) : FRest(text) {}

    bool Read(TCellValue& cell) {
        TNumberShape& shape = cell.Shape;
        const Char sign = FRest.front();
        if (sign == u'-' || sign == u'+') Keep();
        if (!ReadWhole(shape) || !ReadDecimals(shape)) return false;
        if (!FRest.empty() && !ReadExponent(shape)) return false;
        if (!FRest.empty() || FSignificant > SignificantDigits) return false;

        if (!TryParseDouble(StringView(FPlain.data(), FLength), cell.Number)) return false;
        const Double size = std::abs(cell.Number);
        // A zero by its digits, not one that was too small for a Double.
        if (size < SmallestNumber ? FSignificant > 0 : size > LargestNumber) return false;
        if (sign == u'+') shape.Sign = TNumberShape::Plus;
        if (sign == u'-' && FSignificant == 0) shape.Sign = TNumberShape::MinusZero;
        return true;
    }

private:
    void Keep() {
        FPlain[FLength++] = FRest.front();
        FRest.remove_prefix(1);
    }

    // Zeros count once a digit other than zero stands behind them.
    void KeepDigit() {
        const bool isZero = FRest.front() == u'0';
        if (FSignificant > 0 || !isZero) ++FDigits;
        if (!isZero) FSignificant = FDigits;
        Keep();
    }

    std::size_t KeepDigits() {
        std::size_t count = 0;
        for (; !FRest.empty() && IsDigit(FRest.front()); ++count) KeepDigit();
        return count;
    }

    bool ReadWhole(TNumberShape& shape) {
        const bool startsWithZero = !FRest.empty() && FRest.front() == u'0';
        std::size_t count = KeepDigits();
        shape.HasWhole = count > 0;
        if (!FRest.empty() && FRest.front() == u',') {
            if (count == 0 || count > GroupDigits) return false;
            shape.Grouped = true;
            while (!FRest.empty() && FRest.front() == u',') {
                FRest.remove_prefix(1);
                if (KeepDigits() != GroupDigits) return false;
                count += GroupDigits;
            }
        }
        return count <= MaxWholeDigits && !(startsWithZero && count > 1);
    }

    bool ReadDecimals(TNumberShape& shape) {
        if (FRest.empty() || FRest.front() != u'.') return shape.HasWhole;
        Keep();
        const std::size_t count = KeepDigits();
        shape.Decimals = static_cast<Byte>(count);
        return count > 0 && count <= MaxDecimals;
    }

    // One digit, which is not zero, stands before the point: no format shows it otherwise.
    bool ReadExponent(TNumberShape& shape) {
        const std::size_t mantissa = shape.Decimals + (shape.Decimals > 0 ? 2U : 1U);
        const std::size_t signs = IsDigit(FPlain[0]) || FPlain[0] == u'.' ? 0 : 1;
        if (FRest.front() != u'E' || FLength != signs + mantissa) return false;
        if (!shape.HasWhole || FPlain[signs] == u'0') return false;
        Keep();
        const bool isNegative = !FRest.empty() && FRest.front() == u'-';
        shape.ExponentPlus = !FRest.empty() && FRest.front() == u'+';
        if (isNegative || shape.ExponentPlus) Keep();
        bool isZero = true;
        std::size_t count = 0;
        for (; !FRest.empty() && IsDigit(FRest.front()); ++count) {
            isZero = isZero && FRest.front() == u'0';
            Keep();
        }
        shape.ExponentDigits = static_cast<Byte>(count);
        return count > 0 && count <= MaxExponentDigits && !(isZero && isNegative);
    }

    StringView FRest;
    std::array<Char, MaxNumberText> FPlain;
    std::size_t FLength = 0;
    std::size_t FDigits = 0;      // from the first one that is not zero
    std::size_t FSignificant = 0; // of these, up to the last one that is not zero
};

} // namespace

TCellValue ReadCell(StringView text) {
    TCellValue cell;
    if (text.empty()) return cell;
    cell.Kind = TCellKind::Text;
    const Char first = text.front();
    const bool mayBeNumber = IsDigit(first) || first == u'-' || first == u'+' || first == u'.';
    if (!mayBeNumber || text.size() > MaxNumberText) return cell;
    TCellValue number;
    if (!TNumberReader(text).Read(number)) return cell;
    number.Kind = TCellKind::Number;
    return number;
}

std::string NumberFormat(const TNumberShape& shape) {
    std::string digits = shape.Grouped ? "#,##0" : shape.HasWhole ? "0" : "#";
    if (shape.Decimals > 0) digits += '.';
    digits.append(shape.Decimals, '0');
    if (shape.ExponentDigits > 0) {
        digits += shape.ExponentPlus ? "E+" : "E-";
        digits.append(shape.ExponentDigits, '0');
    }
    // The sections for positive numbers, negative ones and zero.
    switch (shape.Sign) {
    case TNumberShape::Plus: return "+" + digits + ";-" + digits + ";+" + digits;
    case TNumberShape::MinusZero: return digits + ";-" + digits + ";-" + digits;
    case TNumberShape::Plain: break;
    }
    return digits;
}

} // namespace quorin
