#pragma once

#include "embedded/OrderService.h"

namespace quorin {

// Order entry without its pixels: the values that a list has copied into it last.
class TOrderEntry {
public:
    // A whole order of a position list.
    void TakeOrder(const TOrderValues& order);
    // A price, a quantity or neither, of the symbol; another symbol empties what was there before.
    void TakePrice(const TOrderValues& order);

    const TOrderValues& Values() const { return FValues; }
    // Account, side, quantity, symbol and price in the language in force, with a dash for what is
    // not there; empty while nothing was copied.
    String Text() const;

private:
    TOrderValues FValues;
    bool FHasSide = false;
};

} // namespace quorin
