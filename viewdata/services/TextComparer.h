#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// The order of symbols and codes in lists: as a person reads them, so that "A9" stands before
// "A10". No two different texts compare equal.
class TCustomComparer {
public:
    TCustomComparer() = default;
    TCustomComparer(const TCustomComparer&) = delete;
    TCustomComparer& operator=(const TCustomComparer&) = delete;
    virtual ~TCustomComparer() = default;

    // Below 0, 0 or above 0 as `A` stands before, at or after `B`. Runs of the digits 0 to 9
    // compare by value, of any length; everything else compares without case. Texts that tie so
    // are ordered by their exact characters.
    virtual Integer Compare(StringView A, StringView B) const;
};

} // namespace quorin
