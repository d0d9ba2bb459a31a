#pragma once

#include "terminal/console/ScriptGrammar.h"

#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorin {

class TScriptScreen;

// A line that asks for what is not there. The message is the reason alone.
class EScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// One command of a script: what its line looks like, see MatchPattern, and what it does.
struct TScriptCommand {
    const char* Pattern;
    const char* Help;
    // Prints what the command answers; what changes on the screen is not its business. Raises
    // EScriptError before it has changed anything.
    void (*Run)(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out);
};

std::vector<TScriptCommand> ScriptCommands();

// Finds the command that the words give and runs it. Raises EScriptError where there is none.
void RunScriptCommand(TScriptScreen& screen, const std::vector<String>& words, std::ostream& out);

// The commands and the rules of scripts, for a person.
std::string ScriptHelp();

} // namespace quorin
