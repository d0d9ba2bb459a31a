#include "terminal/forms/FormsHost.h"

#include "platform/rtl/Text.h"
#include "terminal/forms/CloseAllForm.h"
#include "viewdata/services/MessageBoxCtrl.h"

namespace quorin {

namespace {

constexpr StringView YesText = u"yes"; // in the audit list
constexpr StringView NoText = u"no";
constexpr StringView LineGap = u"; "; // between the lines of a question in the audit list

constexpr Integer AnswerNo = 0;
static_assert(AnswerNo != ConfirmYes);

} // namespace

Integer TFormsHost::Confirm(StringView text, Integer defaultAnswer) {
    NoteQuestion(text);
    const bool isYes = Ask(text, defaultAnswer == ConfirmYes);
    NoteAnswer(isYes);
    return isYes ? ConfirmYes : AnswerNo;
}

// What is noted is what was ticked when it was answered.
bool TFormsHost::AskCloseAll(TCloseAllForm& list, StringView question) {
    const bool isYes = ShowCloseAll(list, question);
    NoteQuestion(String(question) + u"\n" + list.TickedText());
    NoteAnswer(isYes);
    return isYes;
}

void TFormsHost::NoteQuestion(StringView text) {
    FMessages.Add(TMessageKind::Question, text);
    if (FDesk != nullptr) FDesk->NoteQuestion(ReplaceAll(text, u"\n", LineGap));
}

void TFormsHost::NoteAnswer(bool isYes) {
    FMessages.Add(TMessageKind::Answer, isYes ? YesText : NoText);
    if (FDesk != nullptr) FDesk->NoteAnswer(isYes ? YesText : NoText);
}

Boolean TFormsHost::ChannelMessage(Integer number, Pointer data) {
    return FOrders.Answer(number, data) ||
           (FFieldLists != nullptr && FFieldLists->Answer(number, data));
}

} // namespace quorin
