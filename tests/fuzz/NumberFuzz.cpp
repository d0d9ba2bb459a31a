// Reading and writing of numbers: what is written reads back, and grouping changes no digit.

#include "platform/rtl/Numbers.h"
#include "tests/fuzz/FuzzInput.h"

#include <cmath>

namespace quorin {
namespace {

constexpr Double LargestWritten = 1.7976931348623e308;
constexpr Double FewDigits = 1e14; // below, 15 significant digits hold two decimals

String WithoutGroups(String text) {
    std::erase(text, u',');
    return text;
}

void CheckDouble(Double value) {
    ExpectLaw(std::isfinite(value), "what is read is finite");
    Double back = -1.0;
    ExpectLaw(TryParseDouble(ShortestText(value), back) && back == value,
              "the shortest text reads back as the same number");
    const String text = DoubleToText(value);
    // The largest numbers round up to one that is none any more.
    if (std::fabs(value) > LargestWritten) return;
    ExpectLaw(TryParseDouble(text, back), "a written number reads back");
    ExpectLaw(std::fabs(back - value) <= std::fabs(value) * 1e-14, "with 15 digits");
    for (const int decimals : {-1, 0, 2, 8}) {
        const String plain = FormatDecimals(value, decimals, false);
        const String grouped = FormatDecimals(value, decimals, true);
        ExpectLaw(WithoutGroups(grouped) == plain, "grouping changes no digit");
        ExpectLaw(TryParseDouble(plain, back), "decimals read back");
        if (decimals == 2 && std::fabs(value) < FewDigits) {
            ExpectLaw(std::fabs(back - value) <= 0.00500001 + std::fabs(value) * 1e-14,
                      "two decimals are at most half a cent away");
        }
    }
    const Int64 whole = RoundToInt64(value);
    if (std::fabs(value) < 1e15) {
        ExpectLaw(std::fabs(static_cast<Double>(whole) - value) <= 0.5, "rounds to the nearest");
    }
    ExpectLaw(std::fabs(static_cast<Double>(RoundToInteger(value))) <= 2147483648.0,
              "rounding stays within its width");
}

} // namespace
} // namespace quorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    TFuzzInput input(data, size);
    const String text = input.TakeText();
    Double value = 7.0;
    if (TryParseDouble(text, value)) {
        CheckDouble(value);
        FormatPattern(value, input.TakeText());
    } else {
        ExpectLaw(value == 7.0, "what does not parse leaves its target alone");
    }
    Int64 whole = 7;
    if (TryParseInt64(text, whole)) {
        Int64 back = 0;
        ExpectLaw(TryParseInt64(IntegerToText(whole), back) && back == whole,
                  "a whole number reads back");
        ExpectLaw(TryParseDouble(text, value), "a whole number is a number");
    }
    Integer narrow = 7;
    if (TryParseInteger(text, narrow)) ExpectLaw(narrow == whole, "both widths read alike");
    return 0;
}
