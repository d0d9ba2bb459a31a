#pragma once

#include "embedded/venue/VenueSymbol.h"

namespace quorin {

// The state of a stopped symbol, in the table of market states.
inline constexpr StringView StoppedState = u"HA";

// Units in a lot; one where it is not known.
Double LotSizeOf(const TVenueSymbol& symbol);

// Writes live items; keeps the texts that it makes on the way for their room.
class TVenueFieldWriter {
public:
    // The book, or no quote when `isShown` is false.
    static void WriteBook(const TVenueSymbol& symbol, const TPriceLadder& ladder, bool isShown);
    // What the trades of the day make, and the latest lines; nothing before the first trade.
    void WriteTrades(const TVenueSymbol& symbol, const TPriceLadder& ladder);
    // What the record does not say: a close that the venue made up, and that a symbol is stopped.
    static void WriteState(const TVenueSymbol& symbol, const TPriceLadder& ladder);

private:
    String FLine;
};

} // namespace quorin
