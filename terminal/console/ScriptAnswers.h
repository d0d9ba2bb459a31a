#pragma once

#include "terminal/console/ScriptCommands.h"
#include "terminal/console/ScriptScreen.h"

namespace quorin {

// What the commands of scripts have in common: their answers and their rows.

// The families of commands, in the order of the help.
std::span<const TScriptCommand> ListCommands();
std::span<const TScriptCommand> PositionViewCommands();
std::span<const TScriptCommand> AccountCommands();
std::span<const TScriptCommand> OrderCommands();
std::span<const TScriptCommand> TicketCommands();
std::span<const TScriptCommand> ServiceCommands();
std::span<const TScriptCommand> LayoutCommands();
std::span<const TScriptCommand> GeneralCommands();

inline constexpr StringView TakenText = u"taken";
inline constexpr StringView DoneText = u"done";

// Prints a line of an answer; a result, which is `done` or a refusal.
void PrintAnswer(std::ostream& out, StringView label, StringView text);
void PrintResult(std::ostream& out, bool isDone, StringView done);

// Raises EScriptError.
[[noreturn]] void Fail(StringView reason);
// Raises EScriptError for a row outside the list.
void CheckRow(TShownForm& form, Integer row);
// The same, and the record that the row still stands for; NoRow, which the lists refuse, when it
// is another now.
Integer RecordOf(TListForm& list, Integer row);

} // namespace quorin
