#pragma once

#include "embedded/Host.h"
#include "terminal/console/OrderDialog.h"
#include "terminal/console/ViewDialogs.h"
#include "terminal/forms/FieldLists.h"

#include <istream>
#include <ostream>

namespace quorin {

// A line of what is printed beside the frames: indented, its label in a column of its own.
String LabelledLine(StringView label, StringView text);

// Who answers a question.
enum class TAnswerBy : Byte { No, Yes, User };

// The console as a host: prints messages and questions, each with a label, and has questions
// answered with no until told otherwise. Orders and favourites go through its order dialog.
class TConsoleHost : public THost {
public:
    explicit TConsoleHost(std::ostream& messages) : FMessages(&messages) {}

    // From here on prints there; a user's answers are lines of `input`: y or n, the end is a no.
    void TalkOn(std::ostream& messages, TAnswerBy answers, std::istream& input);
    // Notes questions and answers there from here on; nil: nowhere.
    void SetDesk(TOrderDesk* desk) { FDesk = desk; }
    // Has the lists of fields made there from here on; nil: not at all.
    void SetFieldLists(TFieldLists* lists) { FFieldLists = lists; }
    // Has dialogs about views answered there from here on; nil: nowhere.
    void SetViewDialogs(TViewDialogs* dialogs) { FViewDialogs = dialogs; }
    const TOrderDialog& Orders() const { return FOrders; }

    // A question of yes or no that has nothing to do with orders.
    bool Ask(StringView text);

    void ShowMessage(StringView text) override;
    Integer Confirm(StringView text, Integer defaultAnswer) override;
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer number, Pointer data) override;

private:
    bool Answer();
    bool AskUser();

    std::ostream* FMessages;
    TAnswerBy FAnswers = TAnswerBy::No;
    std::istream* FInput = nullptr;
    TOrderDesk* FDesk = nullptr;
    TFieldLists* FFieldLists = nullptr;
    TViewDialogs* FViewDialogs = nullptr;
    TOrderDialog FOrders{*this};
};

} // namespace quorin
