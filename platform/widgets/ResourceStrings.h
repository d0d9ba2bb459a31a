#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Texts that widgets bring along: the find panel of a grid, the filter operators, the date popup.
enum class TcxResourceString : Byte {
    scxGridFindPanelClearButtonCaption,
    scxGridFindPanelFindButtonCaption,
    scxGridFindPanelInfoText,
    cxSFilterOperatorEqual,
    cxSFilterOperatorNotEqual,
    cxSFilterOperatorContains,
    cxSFilterOperatorDoesNotContain,
    cxSFilterOperatorGreater,
    cxSFilterOperatorGreaterEqual,
    cxSFilterOperatorLess,
    cxSFilterOperatorLessEqual,
    cxSFilterOperatorBetween,
    cxSFilterOperatorNotBetween,
    cxSFilterAndCaption,
    cxSFilterOrCaption,
    cxSDatePopupToday,
    cxSDatePopupOK,
    cxSDatePopupCancel,
    cxSDatePopupClear,
    cxSDatePopupNow,
};
using enum TcxResourceString;

// Replaces the text for the whole process, also by an empty one. No view is told.
void cxSetResourceString(TcxResourceString Target, StringView Text);
// English until it is replaced.
const String& cxGetResourceString(TcxResourceString Target);

} // namespace quorin
