#include "platform/rtl/CaseMapping.h"

#include "platform/rtl/CaseTable.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace quorin {

namespace {

constexpr Char AsciiEnd = 0x80;
constexpr Char AsciiCaseDistance = u'a' - u'A';

Char MapCase(std::span<const TCaseRange> ranges, Char unit) {
    const auto after =
        std::upper_bound(ranges.begin(), ranges.end(), unit,
                         [](Char wanted, const TCaseRange& range) { return wanted < range.First; });
    if (after == ranges.begin()) return unit;
    const TCaseRange& range = *std::prev(after);
    const int offset = unit - range.First;
    if (unit > range.Last || offset % range.Step != 0) return unit;
    return static_cast<Char>(range.Target + offset);
}

} // namespace

Char UpperCase(Char unit) {
    if (unit >= AsciiEnd) return MapCase(UpperCaseRanges, unit);
    return unit >= u'a' && unit <= u'z' ? static_cast<Char>(unit - AsciiCaseDistance) : unit;
}

Char LowerCase(Char unit) {
    if (unit >= AsciiEnd) return MapCase(LowerCaseRanges, unit);
    return unit >= u'A' && unit <= u'Z' ? static_cast<Char>(unit + AsciiCaseDistance) : unit;
}

} // namespace quorin
