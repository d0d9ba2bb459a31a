#include "terminal/console/ConsoleHost.h"

#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ListText.h"
#include "terminal/console/TextWidth.h"
#include "terminal/forms/CloseAllForm.h"

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
constexpr StringView Prompt = u"yes or no? ";

void PrintLines(std::ostream& out, StringView label, StringView text) {
    for (const StringView line : Split(text, u'\n')) {
        out << ToUtf8(LabelledLine(label, line)) << '\n';
    }
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

bool TConsoleHost::Ask(StringView text, bool) {
    PrintLines(*FMessages, QuestionLabel, text);
    return Answer();
}

bool TConsoleHost::ShowCloseAll(TCloseAllForm& list, StringView question) {
    String rows;
    for (Integer row = HeaderRow; row < list.RowCount(); ++row) {
        rows += ListLine(list, row);
        rows += u'\n';
    }
    return Ask(rows + String(question));
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
    return TFormsHost::ChannelMessage(number, data) ||
           (FViewDialogs != nullptr && FViewDialogs->Answer(number, data));
}

} // namespace quorin
