#pragma once

#include "platform/rtl/TObject.h"
#include "platform/rtl/Variant.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// Answer of ShowConfirmText for yes; as `Default` it makes yes the button that has the focus.
inline constexpr Integer ConfirmYes = 1;

// The message for an account that nobody knows.
inline constexpr StringView UnknownAccountCode = u"ZT10013002";

// Messages and questions to the user. Each call is modal and returns when the user has answered;
// callbacks may arrive meanwhile. `Owner`, `Caption` and the two pointers are nil or empty.
class TCustomMessageBoxCtrl : public TService<TCustomMessageBoxCtrl> {
public:
    // Operations, in order

    virtual void ShowMessageText(TObject* Owner, StringView Text, StringView Caption,
                                 Pointer Reserved1, Pointer Reserved2) = 0;
    // Shows the text that belongs to a message code, which comes as text.
    virtual void ShowMessageCode(TObject* Owner, const Variant& Code, StringView Caption,
                                 Pointer Reserved1, Pointer Reserved2) = 0;
    // ConfirmYes, or anything else for a refusal.
    virtual Integer ShowConfirmText(TObject* Owner, StringView Text, StringView Caption,
                                    Pointer Reserved1, Pointer Reserved2, Integer Default) = 0;
};

} // namespace quorin
