#include "terminal/console/ScriptCommands.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ScriptAnswers.h"

namespace quorin {

namespace {

constexpr StringView ResultLabel = u"result";
constexpr StringView RefusedText = u"refused";

} // namespace

void PrintAnswer(std::ostream& out, StringView label, StringView text) {
    out << ToUtf8(LabelledLine(label, text)) << '\n';
}

void PrintResult(std::ostream& out, bool isDone, StringView done) {
    PrintAnswer(out, ResultLabel, isDone ? done : RefusedText);
}

void Fail(StringView reason) {
    throw EScriptError(ToUtf8(reason));
}

void CheckRow(TShownForm& form, Integer row) {
    const Integer count = form.RowCount();
    if (row < count) return;
    Fail(u"there is no row " + IntegerToText(row) + u", the list has " + IntegerToText(count));
}

Integer RecordOf(TListForm& list, Integer row) {
    CheckRow(list, row);
    return list.ActionRecord(row);
}

std::vector<TScriptCommand> ScriptCommands() {
    std::vector<TScriptCommand> commands;
    for (const auto family :
         {ListCommands(), PositionViewCommands(), AccountCommands(), OrderCommands(),
          TicketCommands(), ServiceCommands(), LayoutCommands(), GeneralCommands()}) {
        commands.insert(commands.end(), family.begin(), family.end());
    }
    return commands;
}

void RunScriptCommand(TScriptScreen& screen, const std::vector<String>& words, std::ostream& out) {
    String usage;
    for (const TScriptCommand& command : ScriptCommands()) {
        if (const auto arguments = MatchPattern(command.Pattern, words)) {
            command.Run(screen, *arguments, out);
            return;
        }
        if (!MatchesFirstWord(command.Pattern, words.front())) continue;
        usage += (usage.empty() ? u"usage: " : u", or ") + FromUtf8(command.Pattern);
    }
    if (usage.empty()) usage = u"there is no command " + words.front() + u"; see help";
    Fail(usage);
}

std::string ScriptHelp() {
    std::string text =
        "Commands of a script, one a line, # begins a comment, \"...\" holds blanks. ROW counts\n"
        "from 0; for buy, sell, copyprice and move it is a row of the market list, for close and\n"
        "copyorder of the positions shown last, for cell and row of the list or tree that was\n"
        "shown last, where ATTRIBUTE is a column of the tree:\n";
    for (const TScriptCommand& command : ScriptCommands()) {
        text += std::string("  ") + command.Pattern + "\n      " + command.Help + "\n";
    }
    return text;
}

} // namespace quorin
