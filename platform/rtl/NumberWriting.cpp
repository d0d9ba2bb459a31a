#include "platform/rtl/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>

namespace quorin {

namespace {

constexpr int SignificantDigits = 15;
constexpr int GroupSize = 3;

// Enough that what is cut off behind them decides no rounding to 15 digits.
constexpr int DigitsRead = 25;
constexpr std::size_t ScientificLength = 40;

// Where the writing of as many digits as needed changes to an exponent.
struct TFixedRange {
    int LowestExponent;
    int HighestExponent;
};
constexpr TFixedRange PlainRange{-5, 14};
constexpr TFixedRange ShortestRange{-7, 17};

constexpr int AllDecimals = std::numeric_limits<int>::max() / 2;

// A number as 0.ddd times ten to the power of Point. Without digits it is zero.
struct TDecimal {
    std::array<char, ScientificLength> Digits;
    int Count = 0;
    int Point = 0;
    bool Negative = false;

    // Zeros stand before and behind the digits.
    Char DigitAt(int index) const {
        return index < 0 || index >= Count
                   ? u'0'
                   : static_cast<Char>(Digits[static_cast<std::size_t>(index)]);
    }
};

void DropTrailingZeros(TDecimal& decimal) {
    while (decimal.DigitAt(decimal.Count - 1) == u'0' && decimal.Count > 0) --decimal.Count;
}

// From "-1.234e+56".
TDecimal ReadScientific(const char* first, const char* last) {
    TDecimal decimal;
    decimal.Negative = *first == '-';
    const char* const exponent = std::find(first, last, 'e');
    for (const char* next = first; next != exponent; ++next) {
        if (*next >= '0' && *next <= '9') {
            decimal.Digits[static_cast<std::size_t>(decimal.Count)] = *next;
            ++decimal.Count;
        }
    }
    const char* const exponentDigits = exponent + (exponent[1] == '+' ? 2 : 1);
    std::from_chars(exponentDigits, last, decimal.Point);
    ++decimal.Point;
    DropTrailingZeros(decimal);
    return decimal;
}

void RoundToDigits(TDecimal& decimal, int count) {
    if (count >= decimal.Count) return;
    const bool up = decimal.DigitAt(count) >= u'5';
    decimal.Count = std::max(count, 0);
    if (up) {
        int last = decimal.Count - 1;
        while (decimal.DigitAt(last) == u'9') --last;
        if (last < 0) {
            decimal.Digits[0] = '1';
            decimal.Count = 1;
            ++decimal.Point;
        } else {
            ++decimal.Digits[static_cast<std::size_t>(last)];
            decimal.Count = last + 1;
        }
    }
    DropTrailingZeros(decimal);
}

TDecimal SignificantDecimal(Double value) {
    std::array<char, ScientificLength> buffer;
    const std::to_chars_result end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                      std::chars_format::scientific, DigitsRead - 1);
    TDecimal decimal = ReadScientific(buffer.data(), end.ptr);
    RoundToDigits(decimal, SignificantDigits);
    return decimal;
}

TDecimal ShortestDecimal(Double value) {
    std::array<char, ScientificLength> buffer;
    const std::to_chars_result end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                   value, std::chars_format::scientific);
    return ReadScientific(buffer.data(), end.ptr);
}

// What a pattern says.
struct TLayout {
    int WholeDigits = 0;
    int LeastDecimals = 0;
    int MostDecimals = 0;
    bool Grouping = false;
};

TLayout ReadPattern(StringView pattern) {
    TLayout layout;
    bool behindPoint = false;
    for (const Char unit : pattern) {
        if (unit == u'.') {
            behindPoint = true;
        } else if (unit == u',') {
            layout.Grouping = layout.Grouping || !behindPoint;
        } else if (behindPoint && (unit == u'0' || unit == u'#')) {
            ++layout.MostDecimals;
            if (unit == u'0') layout.LeastDecimals = layout.MostDecimals;
        } else if (unit == u'0') {
            ++layout.WholeDigits;
        }
    }
    return layout;
}

void AppendFixed(String& target, TDecimal decimal, const TLayout& layout) {
    RoundToDigits(decimal, decimal.Point + layout.MostDecimals);
    if (decimal.Negative && decimal.Count > 0) target.push_back(u'-');

    const int wholeDigits = std::max(decimal.Count > 0 ? decimal.Point : 0, layout.WholeDigits);
    for (int left = wholeDigits; left > 0; --left) {
        target.push_back(decimal.DigitAt(decimal.Point - left));
        if (layout.Grouping && left > 1 && (left - 1) % GroupSize == 0) target.push_back(u',');
    }

    const int needed = decimal.Count > 0 ? decimal.Count - decimal.Point : 0;
    const int decimals = std::max(needed, layout.LeastDecimals);
    if (decimals > 0) target.push_back(u'.');
    for (int i = 0; i < decimals; ++i) target.push_back(decimal.DigitAt(decimal.Point + i));
}

void AppendScientific(String& target, const TDecimal& decimal) {
    if (decimal.Negative) target.push_back(u'-');
    target.push_back(decimal.DigitAt(0));
    if (decimal.Count > 1) target.push_back(u'.');
    for (int i = 1; i < decimal.Count; ++i) target.push_back(decimal.DigitAt(i));
    target.push_back(u'E');
    AppendInteger(target, decimal.Point - 1);
}

void AppendAsNeeded(String& target, const TDecimal& decimal, const TFixedRange& fixedRange) {
    const int exponent = decimal.Point - 1;
    const bool isFixed =
        exponent >= fixedRange.LowestExponent && exponent <= fixedRange.HighestExponent;
    if (decimal.Count == 0 || isFixed) {
        AppendFixed(target, decimal, {.WholeDigits = 1, .MostDecimals = AllDecimals});
    } else {
        AppendScientific(target, decimal);
    }
}

bool AppendNotFinite(String& target, Double value) {
    if (std::isfinite(value)) return false;
    if (std::isnan(value)) {
        target.append(u"NAN");
    } else {
        target.append(value < 0.0 ? u"-INF" : u"INF");
    }
    return true;
}

// Counted in units of its last decimal, a number below this is so exact, and so is its rounding to
// 15 digits, that away from the middle between two units by that margin nothing but the nearest
// unit can come out. These are nearly all numbers that people read.
constexpr Double MostUnits = 1e12;
constexpr Double MiddleMargin = 0.01;
constexpr Double UnitsOfOne[] = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};

constexpr unsigned PairCount = 100;
constexpr auto Pairs = [] {
    std::array<Char, 2 * PairCount> pairs{};
    for (unsigned pair = 0; pair < PairCount; ++pair) {
        pairs[2 * pair] = static_cast<Char>(u'0' + pair / 10);
        pairs[2 * pair + 1] = static_cast<Char>(u'0' + pair % 10);
    }
    return pairs;
}();

// Writes the last two digits of `units` before `first` and takes them off.
Char* PutPair(Char* first, std::uint64_t& units) {
    const Char* pair = Pairs.data() + 2 * (units % PairCount);
    units /= PairCount;
    *--first = pair[1];
    *--first = pair[0];
    return first;
}
Char* PutDigit(Char* first, std::uint64_t& units) {
    *--first = static_cast<Char>(u'0' + units % 10);
    units /= 10;
    return first;
}

// False, and nothing done, where the digits decide.
bool AppendNearestUnits(String& target, Double value, const TLayout& layout) {
    if (layout.MostDecimals >= static_cast<int>(std::size(UnitsOfOne))) return false;
    if (layout.WholeDigits > SignificantDigits) return false;
    const Double scaled = std::fabs(value) * UnitsOfOne[layout.MostDecimals];
    if (!(scaled < MostUnits)) return false;
    auto units = static_cast<std::uint64_t>(scaled);
    const Double rest = scaled - static_cast<Double>(units);
    if (std::fabs(rest - 0.5) <= MiddleMargin) return false;
    if (rest > 0.5) ++units;

    const bool isNegative = value < 0.0 && units > 0;
    std::array<Char, 2 * ScientificLength> text; // from the end
    Char* first = text.data() + text.size();
    int decimals = layout.MostDecimals;
    for (; decimals > layout.LeastDecimals && units % 10 == 0; --decimals) units /= 10;
    if (decimals > 0) {
        for (; decimals > 1; decimals -= 2) first = PutPair(first, units);
        if (decimals > 0) first = PutDigit(first, units);
        *--first = u'.';
    }
    int written = 0;
    for (; !layout.Grouping && units >= PairCount; written += 2) first = PutPair(first, units);
    for (; units > 0 || written < layout.WholeDigits; ++written) {
        if (layout.Grouping && written > 0 && written % GroupSize == 0) *--first = u',';
        first = PutDigit(first, units);
    }
    if (isNegative) *--first = u'-';
    target.append(first, static_cast<std::size_t>(text.data() + text.size() - first));
    return true;
}

void AppendByLayout(String& target, Double value, const TLayout& layout) {
    if (AppendNotFinite(target, value)) return;
    if (AppendNearestUnits(target, value, layout)) return;
    AppendFixed(target, SignificantDecimal(value), layout);
}

} // namespace

void AppendDecimals(String& target, Double value, int decimals, bool grouping) {
    const int shown = std::clamp(decimals, 0, AllDecimals);
    AppendByLayout(
        target, value,
        {.WholeDigits = 1, .LeastDecimals = shown, .MostDecimals = shown, .Grouping = grouping});
}

String FormatDecimals(Double value, int decimals, bool grouping) {
    String text;
    AppendDecimals(text, value, decimals, grouping);
    return text;
}

void AppendPattern(String& target, Double value, StringView pattern) {
    AppendByLayout(target, value, ReadPattern(pattern));
}

String FormatPattern(Double value, StringView pattern) {
    String text;
    AppendPattern(text, value, pattern);
    return text;
}

void AppendDouble(String& target, Double value) {
    if (AppendNotFinite(target, value)) return;
    AppendAsNeeded(target, SignificantDecimal(value), PlainRange);
}

String DoubleToText(Double value) {
    String text;
    AppendDouble(text, value);
    return text;
}

String ShortestText(Double value) {
    String text;
    if (!AppendNotFinite(text, value)) AppendAsNeeded(text, ShortestDecimal(value), ShortestRange);
    return text;
}

void AppendInteger(String& target, Int64 value) {
    std::array<char, std::numeric_limits<Int64>::digits10 + 2> buffer;
    const std::to_chars_result end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    for (const char* next = buffer.data(); next != end.ptr; ++next) {
        target.push_back(static_cast<Char>(*next));
    }
}

String IntegerToText(Int64 value) {
    String text;
    AppendInteger(text, value);
    return text;
}

} // namespace quorin
