#include "terminal/forms/MessageLog.h"

#include "terminal/forms/TerminalKeys.h"

namespace quorin {

StringView MessageKindKey(TMessageKind kind) {
    switch (kind) {
    case TMessageKind::Log: return TerminalKey::Res_Message_Log;
    case TMessageKind::Message: return TerminalKey::Res_Message_Message;
    case TMessageKind::Question: return TerminalKey::Res_Message_Question;
    case TMessageKind::Answer: return TerminalKey::Res_Message_Answer;
    }
    return {};
}

void TMessageLog::Add(TMessageKind kind, StringView text, Byte level) {
    if (Count() == MostEntries) FEntries.pop_front();
    FEntries.push_back({++FAdded, FTimeNanos, kind, level, String(text)});
}

} // namespace quorin
