#pragma once

#include "terminal/console/ScriptFile.h"
#include "terminal/console/ScriptScreen.h"

#include <ostream>

namespace quorin {

// Runs the lines one after the other. Each is printed with its number, what it answers and what it
// has changed on the screen behind it; a wrong one is a line "NAME:NUMBER: reason" on `errors`, and
// the next is run all the same. Answers how many were wrong.
Integer RunScript(TScriptScreen& screen, const std::vector<TScriptLine>& lines,
                  std::string_view name, std::ostream& out, std::ostream& errors);

} // namespace quorin
