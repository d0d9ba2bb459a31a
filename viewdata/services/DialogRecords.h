#pragma once

#include "platform/rtl/TEvent.h"

#include <vector>

namespace quorin {

// Data of ChannelMessage::CustomColumn: what a column chooser shows, and what it answers with.
// Columns are named by their captions.
struct TCustomColumnRecord {
    std::vector<String> AllColumns;      // in the view's sequence; in the answer in the user's
    std::vector<String> VisibleColumns;  // in sequence
    std::vector<String> ReservedColumns; // that the form reserves; may end with empty texts
    // What the dialog calls with the user's choice, a TCustomColumnRecord as `Data`, inside the
    // message or later.
    TDataCallbackEvent Callback;
};

// Kinds of a column that a filter dialog tells apart.
namespace FilterDataKind {
inline constexpr Byte Text = 0;
inline constexpr Byte Number = 1;
inline constexpr Byte DateTime = 2;
inline constexpr Byte Date = 3;
inline constexpr Byte Time = 4;
} // namespace FilterDataKind

// Operators of a filter dialog, each captioned by the resource key beside it.
namespace FilterOperator {
inline constexpr Byte Contains = 0;       // Res_Filter_Contains
inline constexpr Byte NotContains = 1;    // Res_Filter_NotContain
inline constexpr Byte Equal = 2;          // Res_Filter_Equals
inline constexpr Byte NotEqual = 3;       // Res_Filter_NotEqual
inline constexpr Byte Greater = 4;        // Res_Filter_Greater
inline constexpr Byte Less = 5;           // Res_Filter_Less
inline constexpr Byte LessOrEqual = 6;    // Res_Filter_LessOrEqual
inline constexpr Byte GreaterOrEqual = 7; // Res_Filter_GreaterOrEqual
inline constexpr Byte Between = 8;        // Res_Filter_Between
inline constexpr Byte NotBetween = 9;     // Res_Filter_NotBetween
} // namespace FilterOperator

// Data of ChannelMessage::CustomFilter: the filter of one column. The dialog writes its answer into
// `Value` and `Operator`; left as they are they change nothing.
struct TCustomFilterRecord {
    Byte DataKind = FilterDataKind::Text;
    String Value; // several values are separated by ","; empty for no filter
    Byte Operator = FilterOperator::Equal;
};

} // namespace quorin
