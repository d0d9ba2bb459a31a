#include "viewdata/editors/TypedNumber.h"

#include "platform/rtl/Numbers.h"

namespace quorin {

namespace {

constexpr Char GroupMark = u',';
constexpr std::size_t GroupLength = 3;

Int64 WholeNumber(StringView digits, TTypedWidth width) {
    Integer narrow = 0;
    Int64 wide = 0;
    if (width == TTypedWidth::Bits32) return TryParseInteger(digits, narrow) ? narrow : 0;
    return TryParseInt64(digits, wide) ? wide : 0;
}

// The number that the digits spell, with group marks. Digit by digit: a Double would not hold every
// one of 64 bits.
void AppendGrouped(String& text, StringView typed, TTypedWidth width) {
    String digits;
    digits.reserve(typed.size());
    for (const Char unit : typed) {
        if (unit != GroupMark) digits += unit;
    }
    std::size_t first = text.size();
    AppendInteger(text, WholeNumber(digits, width));
    if (text[first] == u'-') ++first;
    for (std::size_t place = text.size(); place > first + GroupLength;) {
        place -= GroupLength;
        text.insert(place, 1, GroupMark);
    }
}

} // namespace

bool GroupTypedNumber(StringView typed, TTypedWidth width, String& text) {
    const bool isNegative = !typed.empty() && typed.front() == u'-';
    if (isNegative) typed.remove_prefix(1);
    if (typed.empty()) return false;
    const std::size_t point = typed.find(u'.');
    const StringView whole = typed.substr(0, point);
    text.clear();
    text.reserve(2 * typed.size() + 1); // marks are never more than digits
    if (isNegative) text += u'-';
    if (!whole.empty()) AppendGrouped(text, whole, width);
    if (point != StringView::npos) text += typed.substr(point);
    return true;
}

} // namespace quorin
