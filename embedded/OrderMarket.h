#pragma once

#include "platform/rtl/TList.h"
#include "platform/rtl/Types.h"

namespace quorin {

class TEmbeddedSubscribeAdapter;

// What an order wants of the quote now.
struct TOrderWish {
    StringView Symbol;
    bool IsBuy;
    Double Quantity;
    bool AtAnyPrice; // a market order; `Price` is not read then
    Double Price;    // or better
};

struct TOrderTrade {
    Double Price;
    Double Quantity;
};

// Whoever has the quotes that orders trade against.
class TOrderMarket {
public:
    virtual ~TOrderMarket() = default;
    // Takes from the quote what it has at the wished price or better, the best price first, and
    // adds each trade to the list; none where nothing trades. Calls nobody back.
    virtual void Take(const TOrderWish& wish, TList<TOrderTrade>& trades) = 0;
    // Nanoseconds after midnight; 0 where there is no clock.
    virtual Int64 TimeNanos() const = 0;
};

// The quote of the live items: all that is wanted at the best bid or ask, for feeds that do not
// match orders themselves.
class TQuoteOrderMarket final : public TOrderMarket {
public:
    // `items` must live longer.
    explicit TQuoteOrderMarket(const TEmbeddedSubscribeAdapter& items) : FItems(items) {}
    void Take(const TOrderWish& wish, TList<TOrderTrade>& trades) override;
    Int64 TimeNanos() const override { return 0; }

private:
    const TEmbeddedSubscribeAdapter& FItems;
};

// Differences of two prices are the only prices that may be 0 or below.
inline bool MayBeNegative(StringView symbol) {
    return symbol.find(u'/') != StringView::npos;
}

} // namespace quorin
