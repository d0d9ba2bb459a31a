#pragma once

#include "embedded/Host.h"
#include "terminal/forms/FieldLists.h"

class QWidget;

namespace quorin {

// The window as a host: shows messages and questions, has orders confirmed and makes the lists of
// fields. Not supported yet: the question about all positions, copies from lists.
class TDesktopHost : public THost {
public:
    // The window that messages stand before; nil to begin with.
    void SetWindow(QWidget* window) { FWindow = window; }
    // Has the lists of fields made there from here on; nil: not at all.
    void SetFieldLists(TFieldLists* lists) { FFieldLists = lists; }

    void ShowMessage(StringView text) override;
    Integer Confirm(StringView text, Integer defaultAnswer) override;
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer number, Pointer data) override;

private:
    void TakeOrder(Pointer data);

    QWidget* FWindow = nullptr;
    TFieldLists* FFieldLists = nullptr;
};

} // namespace quorin
