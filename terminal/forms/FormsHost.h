#pragma once

#include "embedded/Host.h"
#include "terminal/forms/FieldLists.h"
#include "terminal/forms/MessageLog.h"
#include "terminal/forms/OrderDialog.h"

namespace quorin {

class TCloseAllForm;
class TOrderDesk;

// The program around the services as far as it needs no screen: every question and its answer goes
// into the audit list, orders and copies through the order dialog, lists of fields to their maker.
// A descendant asks and tells.
class TFormsHost : public THost {
public:
    // Notes questions and answers there from here on; nil: nowhere.
    void SetDesk(TOrderDesk* desk) { FDesk = desk; }
    TOrderDesk* Desk() const { return FDesk; }
    // Has the lists of fields made there from here on; nil: not at all.
    void SetFieldLists(TFieldLists* lists) { FFieldLists = lists; }
    TOrderDialog& Orders() { return FOrders; }
    // What was logged, shown and asked. Showing is noted by the descendant.
    TMessageLog& Messages() { return FMessages; }

    // Asks whether to close the positions that are ticked at the end.
    bool AskCloseAll(TCloseAllForm& list, StringView question);

    Integer Confirm(StringView text, Integer defaultAnswer) override;
    void WriteLog(StringView line, Byte level) override {
        FMessages.Add(TMessageKind::Log, line, level);
    }
    Boolean ChannelMessage(Integer number, Pointer data) override;

protected:
    // Puts a question of yes or no; modal.
    virtual bool Ask(StringView text, bool isYesFirst) = 0;
    // Shows the list with the question, lets rows be ticked off and answers whether to go on;
    // modal.
    virtual bool ShowCloseAll(TCloseAllForm& list, StringView question) = 0;

private:
    void NoteQuestion(StringView text);
    void NoteAnswer(bool isYes);

    TOrderDesk* FDesk = nullptr;
    TFieldLists* FFieldLists = nullptr;
    TMessageLog FMessages;
    TOrderDialog FOrders{*this};
};

} // namespace quorin
