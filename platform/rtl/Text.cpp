#include "platform/rtl/Text.h"

#include <algorithm>
#include <cstddef>

namespace quorin {

namespace {

constexpr Char LastBlank = u' ';

int Sign(int order) {
    return (order > 0) - (order < 0);
}

bool IsDigit(Char unit) {
    return unit >= u'0' && unit <= u'9';
}

// Takes the digits that text begins with, without leading zeros: a longer number is a larger one.
StringView TakeNumber(StringView& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    StringView number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of(u'0'), number.size()));
    return number;
}

int CompareNumbers(StringView left, StringView right) {
    if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
    return Sign(left.compare(right));
}

int CompareUnits(Char left, Char right) {
    return left == right ? 0 : Sign(UpperCase(left) - UpperCase(right));
}

template <typename TMapping>
String Mapped(StringView text, TMapping mapping) {
    String result(text);
    std::transform(result.begin(), result.end(), result.begin(), mapping);
    return result;
}

} // namespace

StringView TrimLeft(StringView text) {
    while (!text.empty() && text.front() <= LastBlank) text.remove_prefix(1);
    return text;
}

StringView TrimRight(StringView text) {
    while (!text.empty() && text.back() <= LastBlank) text.remove_suffix(1);
    return text;
}

StringView Trim(StringView text) {
    return TrimLeft(TrimRight(text));
}

String UpperCase(StringView text) {
    return Mapped(text, [](Char unit) { return UpperCase(unit); });
}

String LowerCase(StringView text) {
    return Mapped(text, [](Char unit) { return LowerCase(unit); });
}

bool SameText(StringView left, StringView right) {
    return left.size() == right.size() && CompareText(left, right) == 0;
}

int CompareText(StringView left, StringView right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (const int order = CompareUnits(left[i], right[i]); order != 0) return order;
    }
    if (left.size() == right.size()) return 0;
    return left.size() < right.size() ? -1 : 1;
}

int CompareNatural(StringView left, StringView right) {
    StringView leftRest = left;
    StringView rightRest = right;
    while (!leftRest.empty() && !rightRest.empty()) {
        int order = 0;
        if (IsDigit(leftRest.front()) && IsDigit(rightRest.front())) {
            const StringView leftNumber = TakeNumber(leftRest);
            const StringView rightNumber = TakeNumber(rightRest);
            order = CompareNumbers(leftNumber, rightNumber);
        } else {
            order = CompareUnits(leftRest.front(), rightRest.front());
            leftRest.remove_prefix(1);
            rightRest.remove_prefix(1);
        }
        if (order != 0) return order;
    }
    if (leftRest.empty() != rightRest.empty()) return leftRest.empty() ? -1 : 1;
    return Sign(left.compare(right));
}

std::vector<StringView> Split(StringView text, Char separator) {
    std::vector<StringView> pieces;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pieces;
}

String ReplaceAll(StringView text, StringView from, StringView to) {
    if (from.empty()) return String(text);
    String result;
    result.reserve(text.size());
    for (std::size_t found = text.find(from); found != StringView::npos; found = text.find(from)) {
        result.append(text.substr(0, found)).append(to);
        text.remove_prefix(found + from.size());
    }
    return result.append(text);
}

String FormatText(StringView pattern, std::initializer_list<StringView> arguments) {
    String result;
    result.reserve(pattern.size());
    auto argument = arguments.begin();
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const Char next = i + 1 < pattern.size() ? pattern[i + 1] : u'\0';
        if (pattern[i] != u'%' || (next != u's' && next != u'%')) {
            result.push_back(pattern[i]);
            continue;
        }
        ++i;
        if (next == u'%') {
            result.push_back(u'%');
        } else if (argument != arguments.end()) {
            result.append(*argument);
            ++argument;
        }
    }
    return result;
}

} // namespace quorin
