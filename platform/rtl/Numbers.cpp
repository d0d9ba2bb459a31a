#include "platform/rtl/Numbers.h"

#include "platform/rtl/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <system_error>

namespace quorin {

namespace {

bool IsDigit(Char unit) {
    return unit >= u'0' && unit <= u'9';
}

// True for a minus sign.
bool TakeSign(StringView& text) {
    if (text.empty() || (text.front() != u'-' && text.front() != u'+')) return false;
    const bool negative = text.front() == u'-';
    text.remove_prefix(1);
    return negative;
}

StringView TakeDigits(StringView& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const StringView digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

// The exponent of a text that has one, saturated far beyond what a Double holds and far below what
// could be compensated by a text of digits.
constexpr Int64 ExponentLimit = std::numeric_limits<Int64>::max() / 100;

// Takes "E-3"; without a letter the exponent is 0.
bool TakeExponent(StringView& text, Int64& exponent) {
    exponent = 0;
    if (text.empty()) return true;
    if (text.front() != u'e' && text.front() != u'E') return false;
    text.remove_prefix(1);
    const bool negative = TakeSign(text);
    const StringView digits = TakeDigits(text);
    if (digits.empty()) return false;
    for (const Char digit : digits) {
        exponent = std::min<Int64>(exponent * 10 + (digit - u'0'), ExponentLimit);
    }
    if (negative) exponent = -exponent;
    return text.empty();
}

// A number without its sign, checked against the grammar.
struct TUnsignedText {
    StringView Text;
    bool IsZero = false;
    // Of the first digit that is not zero: 0 for "1" to "9.99".
    Int64 Magnitude = 0;
};

bool ReadUnsigned(StringView text, TUnsignedText& number) {
    number.Text = text;
    const StringView whole = TakeDigits(text);
    StringView fraction;
    if (!text.empty() && text.front() == u'.') {
        text.remove_prefix(1);
        fraction = TakeDigits(text);
    }
    Int64 exponent = 0;
    if (whole.empty() && fraction.empty()) return false;
    if (!TakeExponent(text, exponent)) return false;

    const std::size_t wholeZeros = whole.find_first_not_of(u'0');
    const std::size_t fractionZeros = fraction.find_first_not_of(u'0');
    number.IsZero = wholeZeros == StringView::npos && fractionZeros == StringView::npos;
    if (wholeZeros != StringView::npos) {
        number.Magnitude = exponent + static_cast<Int64>(whole.size() - wholeZeros) - 1;
    } else if (!number.IsZero) {
        number.Magnitude = exponent - static_cast<Int64>(fractionZeros) - 1;
    }
    return true;
}

// The text is all ASCII here.
bool ConvertNarrow(const char* first, const char* last, Double& value) {
    const std::from_chars_result result = std::from_chars(first, last, value);
    return result.ec == std::errc() && std::isfinite(value) && value != 0.0;
}

bool Convert(StringView text, Double& value) {
    constexpr std::size_t OrdinaryLength = 128;
    if (text.size() <= OrdinaryLength) {
        std::array<char, OrdinaryLength> narrow;
        const auto end = std::transform(text.begin(), text.end(), narrow.begin(),
                                        [](Char unit) { return static_cast<char>(unit); });
        return ConvertNarrow(narrow.data(), narrow.data() + (end - narrow.begin()), value);
    }
    const std::string narrow(text.begin(), text.end());
    return ConvertNarrow(narrow.data(), narrow.data() + narrow.size(), value);
}

template <typename T>
bool TryParseWhole(StringView text, T& target) {
    text = Trim(text);
    const bool negative = TakeSign(text);
    if (text.empty()) return false;

    // Gathered below zero, where there is one number more.
    constexpr T Lowest = std::numeric_limits<T>::min();
    T value = 0;
    for (const Char unit : text) {
        if (!IsDigit(unit)) return false;
        const T digit = static_cast<T>(unit - u'0');
        if (value < Lowest / 10 || value * 10 < Lowest + digit) return false;
        value = value * 10 - digit;
    }
    if (!negative && value == Lowest) return false;
    target = negative ? value : -value;
    return true;
}

template <typename T>
T RoundToWhole(Double value) {
    if (std::isnan(value)) return 0;
    // Exact in a Double, unlike the largest number itself.
    constexpr Double Lowest = static_cast<Double>(std::numeric_limits<T>::min());
    const Double rounded = std::nearbyint(value);
    if (rounded < Lowest) return std::numeric_limits<T>::min();
    if (rounded >= -Lowest) return std::numeric_limits<T>::max();
    return static_cast<T>(rounded);
}

} // namespace

bool TryParseDouble(StringView text, Double& target) {
    text = Trim(text);
    const bool negative = TakeSign(text);
    TUnsignedText number;
    if (!ReadUnsigned(text, number)) return false;

    Double value = 0.0;
    if (!number.IsZero && !Convert(number.Text, value)) {
        // Out of range one way or the other: the library does not tell which.
        if (number.Magnitude > 0) return false;
        value = 0.0;
    }
    target = negative && value != 0.0 ? -value : value;
    return true;
}

bool TryParseInteger(StringView text, Integer& target) {
    return TryParseWhole(text, target);
}

bool TryParseInt64(StringView text, Int64& target) {
    return TryParseWhole(text, target);
}

Double ToDoubleOr(StringView text, Double fallback) {
    Double value = fallback;
    TryParseDouble(text, value);
    return value;
}

Integer ToIntegerOr(StringView text, Integer fallback) {
    Integer value = fallback;
    TryParseInteger(text, value);
    return value;
}

Integer RoundToInteger(Double value) {
    return RoundToWhole<Integer>(value);
}

Int64 RoundToInt64(Double value) {
    return RoundToWhole<Int64>(value);
}

} // namespace quorin
