#include "viewdata/editors/TypedNumber.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"

namespace quorin {

namespace {

Int64 WholeNumber(StringView digits, TTypedWidth width) {
    Integer narrow = 0;
    Int64 wide = 0;
    if (width == TTypedWidth::Bits32) return TryParseInteger(digits, narrow) ? narrow : 0;
    return TryParseInt64(digits, wide) ? wide : 0;
}

// Digit by digit: a Double would not hold every one of 64 bits.
String Grouped(StringView digits, TTypedWidth width) {
    const String plain = ReplaceAll(digits, u",", u"");
    const String text = IntegerToText(WholeNumber(plain, width));
    const bool isNegative = text.front() == u'-';
    String grouped;
    for (std::size_t place = isNegative ? 1 : 0; place < text.size(); ++place) {
        const std::size_t left = text.size() - place;
        if (!grouped.empty() && left % 3 == 0) grouped += u',';
        grouped += text[place];
    }
    return isNegative ? u'-' + grouped : grouped;
}

} // namespace

bool GroupTypedNumber(StringView typed, TTypedWidth width, String& text) {
    const bool isNegative = !typed.empty() && typed.front() == u'-';
    if (isNegative) typed.remove_prefix(1);
    if (typed.empty()) return false;
    const std::size_t point = typed.find(u'.');
    const StringView whole = typed.substr(0, point);
    text = isNegative ? u"-" : u"";
    if (!whole.empty()) text += Grouped(whole, width);
    if (point != StringView::npos) text += typed.substr(point);
    return true;
}

} // namespace quorin
