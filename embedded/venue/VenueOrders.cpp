// What the orders of others take from the venue's books.

#include "embedded/venue/Venue.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Double LotNoise = 1e-9; // of a number of lots

// Whether a price of the book is one that the order takes.
bool IsGoodEnough(const TOrderWish& wish, TVenuePrice price) {
    if (wish.AtAnyPrice) return true;
    TVenuePrice limit = 0;
    if (!TryToVenuePrice(wish.Price, limit)) return false;
    return wish.IsBuy ? price <= limit : price >= limit;
}

} // namespace

// An order that waits takes nothing in the step that may be the first to show a book.
bool TVenue::MayTake(const TVenueSymbol& symbol) const {
    const TVenueDay::TExchange& exchange = FDay.Exchanges()[symbol.Exchange];
    const bool isInStep = FRestingStep == FStep;
    return symbol.Kind != TVenueKind::None && !symbol.IsStopped && exchange.IsOpen &&
           !(isInStep && exchange.IsChanged);
}

void TVenue::Take(const TOrderWish& wish, TList<TOrderTrade>& trades) {
    TVenueSymbol* symbol = Find(wish.Symbol);
    if (symbol == nullptr || !MayTake(*symbol)) return;
    const TBookSideKind side = wish.IsBuy ? TBookSideKind::Ask : TBookSideKind::Bid;
    const TBookSide& levels = symbol->Book.Side(side);
    const TPriceLadder& ladder = FBoard.LadderOf(*symbol);
    const Double lot = LotSizeOf(*symbol);
    const auto isOffered = [&] {
        return !levels.IsEmpty() && IsGoodEnough(wish, ladder.Price(levels.Best().Tick));
    };
    const std::uint32_t printed = symbol->Tape.Count();
    Double lots = std::floor(wish.Quantity / lot + LotNoise);
    const Double odd = wish.Quantity - lots * lot;
    while (lots >= 1.0 && isOffered()) {
        const Double price = ladder.Value(levels.Best().Tick);
        const auto most = static_cast<Double>(levels.Best().Lots);
        const Integer taken =
            FQuotes.Take(*symbol, side, static_cast<Integer>(std::min(lots, most)), TimeNanos());
        trades.Add({price, taken * lot});
        lots -= taken;
    }
    if (lots < 1.0 && odd > LotNoise * lot && isOffered()) {
        trades.Add({ladder.Value(levels.Best().Tick), odd});
    }
    if (symbol->Tape.Count() == printed) return;
    symbol->RestingStep = static_cast<std::uint32_t>(FRestingStep);
    Show(*symbol, /*hasTraded=*/true);
}

} // namespace quorin
