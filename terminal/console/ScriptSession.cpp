#include "terminal/console/ScriptSession.h"

#include "embedded/DataError.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/ScriptCommands.h"
#include "terminal/console/TextWidth.h"

namespace quorin {

Integer RunScript(TScriptScreen& screen, const std::vector<TScriptLine>& lines,
                  std::string_view name, std::ostream& out, std::ostream& errors) {
    Integer wrong = 0;
    for (const TScriptLine& line : lines) {
        out << "> " << line.Number << ' ' << ToUtf8(FitText(line.Text, TextWidth(line.Text)))
            << '\n';
        try {
            if (*line.Fault != '\0') throw EScriptError(line.Fault);
            RunScriptCommand(screen, line.Words, out);
        } catch (const EScriptError& error) {
            ++wrong;
            out.flush(); // the two streams may be one terminal
            errors << EDataError(name, line.Number, error.what()).what() << '\n';
            continue;
        }
        screen.PrintChanges(out);
        out.flush();
    }
    return wrong;
}

} // namespace quorin
