#include "embedded/kit/Checker.h"

#include "platform/rtl/Numbers.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Double RelativeTolerance = 1e-9;

} // namespace

String ShowValue(StringView value) {
    return u'"' + String(value) + u'"';
}
String ShowValue(const char16_t* value) {
    return ShowValue(StringView(value));
}
String ShowValue(bool value) {
    return value ? u"true" : u"false";
}
String ShowValue(Integer value) {
    return IntegerToText(value);
}
String ShowValue(Double value) {
    return ShortestText(value);
}
String ShowValue(const void* value) {
    return value != nullptr ? u"an object" : u"nil";
}

bool TChecker::Near(StringView rule, Double expected, Double came, StringView where) {
    const Double tolerance = RelativeTolerance * std::max(1.0, std::fabs(expected));
    return Record(rule, std::fabs(expected - came) <= tolerance, ShowValue(expected),
                  ShowValue(came), where);
}

bool TChecker::Record(StringView rule, bool holds, StringView expected, StringView came,
                      StringView where) {
    if (holds) {
        FReport.Pass(FService, rule);
        return true;
    }
    const String place = where.empty() ? String() : u" for " + String(where);
    FReport.Fail(FService, rule, String(expected) + place, came);
    return false;
}

} // namespace quorin
