#include "terminal/console/ConsoleHost.h"

#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/TextWidth.h"
#include "viewdata/services/MessageBoxCtrl.h"

#include <string>

namespace quorin {

namespace {

constexpr Integer LabelWidth = 9;
constexpr StringView Indent = u"  ";
constexpr StringView MessageLabel = u"message";
constexpr StringView QuestionLabel = u"question";
constexpr StringView AnswerLabel = u"answer";
constexpr StringView YesText = u"yes";
constexpr StringView NoText = u"no";
constexpr StringView LineGap = u"; "; // between the lines of a question in the audit list
constexpr StringView Prompt = u"yes or no? ";

constexpr Integer AnswerNo = 0;
static_assert(AnswerNo != ConfirmYes);

void PrintLines(std::ostream& out, StringView label, StringView text) {
    for (const StringView line : Split(text, u'\n')) {
        out << ToUtf8(LabelledLine(label, line)) << '\n';
    }
}

// For the audit list: the lines one behind the other, without the blanks that make columns.
String OneLine(StringView text) {
    String line;
    for (const Char unit : ReplaceAll(text, u"\n", LineGap)) {
        if (unit != u' ' || (!line.empty() && line.back() != u' ')) line += unit;
    }
    return line;
}

} // namespace

String LabelledLine(StringView label, StringView text) {
    const String line =
        String(Indent) + FitText(label, LabelWidth) + FitText(text, TextWidth(text));
    return String(TrimRight(line));
}

void TConsoleHost::TalkOn(std::ostream& messages, TAnswerBy answers, std::istream& input) {
    FMessages = &messages;
    FAnswers = answers;
    FInput = &input;
}

void TConsoleHost::ShowMessage(StringView text) {
    PrintLines(*FMessages, MessageLabel, text);
}

bool TConsoleHost::Ask(StringView text) {
    PrintLines(*FMessages, QuestionLabel, text);
    return Answer();
}

Integer TConsoleHost::Confirm(StringView text, Integer) {
    if (FDesk != nullptr) FDesk->NoteQuestion(OneLine(text));
    const bool isYes = Ask(text);
    if (FDesk != nullptr) FDesk->NoteAnswer(isYes ? YesText : NoText);
    return isYes ? ConfirmYes : AnswerNo;
}

bool TConsoleHost::Answer() {
    if (FAnswers == TAnswerBy::User) return AskUser();
    const bool isYes = FAnswers == TAnswerBy::Yes;
    PrintLines(*FMessages, AnswerLabel, isYes ? YesText : NoText);
    return isYes;
}

bool TConsoleHost::AskUser() {
    std::string answer;
    for (;;) {
        *FMessages << ToUtf8(LabelledLine(AnswerLabel, Prompt)) << ' ' << std::flush;
        if (!std::getline(*FInput, answer)) return false;
        const Char first = answer.empty() ? u' ' : UpperCase(FromUtf8(answer)).front();
        if (first == u'Y') return true;
        if (first == u'N') return false;
    }
}

Boolean TConsoleHost::ChannelMessage(Integer number, Pointer data) {
    return FOrders.Answer(number, data) ||
           (FFieldLists != nullptr && FFieldLists->Answer(number, data)) ||
           (FViewDialogs != nullptr && FViewDialogs->Answer(number, data));
}

} // namespace quorin
