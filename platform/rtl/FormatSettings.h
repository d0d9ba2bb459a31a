#pragma once

#include "platform/rtl/Types.h"

#include <array>
#include <cstddef>

namespace quorin {

// How dates and numbers are shown to a person, for the whole process. English to begin with; a
// change of the language writes its own names here.
struct TFormatSettings {
    static constexpr std::size_t DayCount = 7;
    static constexpr std::size_t MonthCount = 12;

    Char DecimalSeparator = u'.';
    Char ThousandSeparator = u',';

    // By day and month number: 1 is Sunday, 1 is January. The place 0 stays empty.
    std::array<String, DayCount + 1> ShortDayNames = {u"",    u"Sun", u"Mon", u"Tue",
                                                      u"Wed", u"Thu", u"Fri", u"Sat"};
    std::array<String, MonthCount + 1> ShortMonthNames = {u"",    u"Jan", u"Feb", u"Mar", u"Apr",
                                                          u"May", u"Jun", u"Jul", u"Aug", u"Sep",
                                                          u"Oct", u"Nov", u"Dec"};
};

TFormatSettings& FormatSettings();

} // namespace quorin
