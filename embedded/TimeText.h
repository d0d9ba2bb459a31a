#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

inline constexpr Int64 NanosPerSecond = 1'000'000'000;

inline void AppendTwoDigits(String& text, Int64 number) {
    text.push_back(static_cast<Char>(u'0' + number / 10));
    text.push_back(static_cast<Char>(u'0' + number % 10));
}

// HH:MM:SS of so many seconds after midnight, below 100 hours.
inline void AppendTimeOfDay(String& text, Int64 seconds) {
    AppendTwoDigits(text, seconds / 3600);
    text.push_back(u':');
    AppendTwoDigits(text, seconds / 60 % 60);
    text.push_back(u':');
    AppendTwoDigits(text, seconds % 60);
}

} // namespace quorin
