#pragma once

#include "embedded/Host.h"
#include "viewdata/services/MessageBoxCtrl.h"

namespace quorin {

// Hands every box to the host. A message code shows the text that the language has for it, or the
// code itself where there is none.
class TEmbeddedMessageBoxCtrl : public TCustomMessageBoxCtrl {
public:
    explicit TEmbeddedMessageBoxCtrl(THost& host) : FHost(host) {}

    void ShowMessageText(TObject* Owner, StringView Text, StringView Caption, Pointer Reserved1,
                         Pointer Reserved2) override;
    void ShowMessageCode(TObject* Owner, const Variant& Code, StringView Caption, Pointer Reserved1,
                         Pointer Reserved2) override;
    Integer ShowConfirmText(TObject* Owner, StringView Text, StringView Caption, Pointer Reserved1,
                            Pointer Reserved2, Integer Default) override;

private:
    THost& FHost;
};

} // namespace quorin
