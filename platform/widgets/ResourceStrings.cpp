#include "platform/widgets/ResourceStrings.h"

#include <array>
#include <cstddef>

namespace quorin {

namespace {

constexpr std::size_t Count = static_cast<std::size_t>(cxSDatePopupNow) + 1;

String& TextOf(TcxResourceString target) {
    static std::array<String, Count> texts = {
        u"Clear",
        u"Find",
        u"Enter text to search...",
        u"equals",
        u"does not equal",
        u"contains",
        u"does not contain",
        u"is greater than",
        u"is greater than or equal to",
        u"is less than",
        u"is less than or equal to",
        u"between",
        u"not between",
        u"AND",
        u"OR",
        u"Today",
        u"OK",
        u"Cancel",
        u"Clear",
        u"Now",
    };
    return texts[static_cast<std::size_t>(target)];
}

} // namespace

void cxSetResourceString(TcxResourceString Target, StringView Text) {
    TextOf(Target) = Text;
}

const String& cxGetResourceString(TcxResourceString Target) {
    return TextOf(Target);
}

} // namespace quorin
