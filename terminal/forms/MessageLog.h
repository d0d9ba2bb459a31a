#pragma once

#include "platform/rtl/Types.h"

#include <deque>

namespace quorin {

enum class TMessageKind : Byte { Log, Message, Question, Answer };

// The key of the text for people, among the resource strings.
StringView MessageKindKey(TMessageKind kind);

// One line of what the program said.
struct TMessageEntry {
    Int64 Number = 0;    // from 1, given by the log
    Int64 TimeNanos = 0; // after midnight, as the host last said
    TMessageKind Kind = TMessageKind::Log;
    Byte Level = 0; // of a log line
    String Text = {};
};

// What the program wrote to its log, showed and asked, oldest first, for a list on the screen. A
// host fills it. Keeps the latest MostEntries.
class TMessageLog {
public:
    static constexpr Integer MostEntries = 2000;

    // The time of entries from here on, in nanoseconds after midnight.
    void SetTime(Int64 nanos) { FTimeNanos = nanos; }
    void Add(TMessageKind kind, StringView text, Byte level = 0);

    Integer Count() const { return static_cast<Integer>(FEntries.size()); }
    // From 0, the oldest that is kept. Good until the next Add.
    const TMessageEntry& operator[](Integer index) const {
        return FEntries[static_cast<std::size_t>(index)];
    }
    // Entries since the start, dropped ones too.
    Int64 AddedCount() const { return FAdded; }

private:
    std::deque<TMessageEntry> FEntries;
    Int64 FAdded = 0;
    Int64 FTimeNanos = 0;
};

} // namespace quorin
