#pragma once

#include "embedded/PositionRecord.h"

namespace quorin {

// A trade as a position books it: the quantity in units, the price in the product's currency.
struct TPositionTrade {
    bool IsBuy;
    Double Quantity;
    Double Price;
};

// The quantity with its sign: what a short record holds is below 0.
Double SignedQuantity(const TPositionFigures& figures);

// What was added and taken away again leaves exactly 0.0, whatever binary fractions it went by.
Double WithoutDust(Double quantity);

// Adds the trade to the day and to the quantity. A net record changes its sign when it is turned
// round. A sided one whose quantity came back to 0.0 takes the side of the next trade; what it had
// at the beginning of the day then counts below 0, since it stood on the other side.
void BookTrade(TPositionFigures& figures, const TPositionTrade& trade);

// Has the service value a position that its host valued until now: what today's trades do not
// explain of its quantity counts as there at the beginning of the day.
void FollowPrice(TPositionFigures& figures);

} // namespace quorin
