#pragma once

#include "terminal/console/ViewDialogs.h"
#include "terminal/forms/FormsHost.h"

#include <istream>
#include <ostream>

namespace quorin {

// A line of what is printed beside the frames: indented, its label in a column of its own.
String LabelledLine(StringView label, StringView text);

// Who answers a question.
enum class TAnswerBy : Byte { No, Yes, User };

// The console as a host: prints messages and questions, each with a label, and has questions
// answered with no until told otherwise.
class TConsoleHost : public TFormsHost {
public:
    explicit TConsoleHost(std::ostream& messages) : FMessages(&messages) {}

    // From here on prints there; a user's answers are lines of `input`: y or n, the end is a no.
    void TalkOn(std::ostream& messages, TAnswerBy answers, std::istream& input);
    // Has dialogs about views answered there from here on; nil: nowhere.
    void SetViewDialogs(TViewDialogs* dialogs) { FViewDialogs = dialogs; }
    // A question of yes or no that has nothing to do with orders.
    bool Ask(StringView text) { return Ask(text, /*isYesFirst=*/true); }

    void ShowMessage(StringView text) override;
    Boolean ChannelMessage(Integer number, Pointer data) override;

protected:
    bool Ask(StringView text, bool isYesFirst) override;
    // The whole list; rows cannot be ticked off.
    bool ShowCloseAll(TCloseAllForm& list, StringView question) override;

private:
    bool Answer();
    bool AskUser();

    std::ostream* FMessages;
    TAnswerBy FAnswers = TAnswerBy::No;
    std::istream* FInput = nullptr;
    TViewDialogs* FViewDialogs = nullptr;
};

} // namespace quorin
