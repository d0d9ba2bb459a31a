#include "embedded/venue/VenueQuotes.h"

#include "embedded/TimeText.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer NewLevelsPerUpdate = 2; // of a side
constexpr Integer MaxTradesPerUpdate = 3;
constexpr Integer TakesAllChance = 30;    // of a trade, in percent
constexpr Integer MaxLotsShare = 2;       // otherwise a trade takes up to so much of a level
constexpr Integer OptionSpreadShare = 64; // half the spread of an option, of its ticks
constexpr Integer MaxHalfSpread = 5;
constexpr Integer StaleTicks = 2; // beyond the half spread: an option that is quoted anew first

} // namespace

// A locked market falls out of the limits: what would be asked above the highest price is not
// there, and what would be bid below the lowest one neither.
TVenueQuotes::TPlace TVenueQuotes::PlaceOf(const TVenueSymbol& symbol) const {
    const TPriceLadder& ladder = FBoard.LadderOf(symbol);
    const TTick worth =
        std::clamp(ladder.Floor(FBoard.Worth(symbol)),
                   std::max(ladder.Lowest(), symbol.LimitLow - 1), symbol.LimitHigh);
    if (symbol.Kind != TVenueKind::Option) return {worth, worth + 1};
    const Integer half = std::min(worth / OptionSpreadShare, MaxHalfSpread);
    const TTick floor = std::min(ladder.Floor(FBoard.Intrinsic(symbol)), worth);
    return {std::max({worth - half, floor, ladder.Lowest()}), worth + 1 + half};
}

bool TVenueQuotes::IsAllowed(const TVenueSymbol& symbol, TTick tick) const {
    return tick >= FBoard.LadderOf(symbol).Lowest() && tick >= symbol.LimitLow &&
           tick <= symbol.LimitHigh;
}

void TVenueQuotes::Build(TVenueSymbol& symbol) {
    symbol.Book.Clear();
    Quote(symbol, PlaceOf(symbol), TBookSide::Depth);
}

bool TVenueQuotes::IsInPlace(const TVenueSymbol& symbol) const {
    const TPlace place = PlaceOf(symbol);
    const TOrderBook& book = symbol.Book;
    const bool bidsAgree = book.Bids().IsEmpty() ? !IsAllowed(symbol, place.Bid)
                                                 : book.Bids().Best().Tick == place.Bid;
    const bool asksAgree = book.Asks().IsEmpty() ? !IsAllowed(symbol, place.Ask)
                                                 : book.Asks().Best().Tick == place.Ask;
    return bidsAgree && asksAgree;
}

void TVenueQuotes::Update(TVenueSymbol& symbol, bool mayTrade, Int64 time) {
    const TPlace place = PlaceOf(symbol);
    if (mayTrade && FRandom.Percent(symbol.TradeChance) && Trade(symbol, place, time)) return;
    Quote(symbol, place, NewLevelsPerUpdate);
}

Integer TVenueQuotes::Take(TVenueSymbol& symbol, TBookSideKind side, Integer lots, Int64 time) {
    TBookSide& levels = symbol.Book.Side(side);
    if (levels.IsEmpty()) return 0;
    const TTick tick = levels.Best().Tick;
    const Integer taken = levels.Take(lots);
    if (taken == 0) return 0;
    symbol.Tape.Print({tick, taken, static_cast<Integer>(time / NanosPerSecond)});
    return taken;
}

// Towards what the symbol is worth; on either side when it is quoted in its place.
bool TVenueQuotes::Trade(TVenueSymbol& symbol, const TPlace& place, Int64 time) {
    if (!MayPrice(symbol, place)) return false;
    const TOrderBook& book = symbol.Book;
    const auto isCheap = [&] {
        return !book.Asks().IsEmpty() && book.Asks().Best().Tick < place.Ask;
    };
    const auto isDear = [&] {
        return !book.Bids().IsEmpty() && book.Bids().Best().Tick > place.Bid;
    };
    const TBookSideKind side = isCheap()          ? TBookSideKind::Ask
                               : isDear()         ? TBookSideKind::Bid
                               : FRandom.OneIn(2) ? TBookSideKind::Ask
                                                  : TBookSideKind::Bid;
    const Integer most =
        symbol.Kind == TVenueKind::Root ? FRandom.Between(1, MaxTradesPerUpdate) : 1;
    bool hasTraded = false;
    for (Integer trade = 0; trade < most; ++trade) {
        const bool isPulled = side == TBookSideKind::Ask ? isCheap() : isDear();
        if (trade > 0 && !isPulled && !FRandom.OneIn(2)) break;
        if (!TakeSome(symbol, side, isPulled || FRandom.Percent(TakesAllChance), time)) break;
        hasTraded = true;
    }
    return hasTraded;
}

// Nobody trades an option on a quote that its underlyer has left behind.
bool TVenueQuotes::MayPrice(const TVenueSymbol& symbol, const TPlace& place) const {
    if (symbol.Kind == TVenueKind::Root) return true;
    const TOrderBook& book = symbol.Book;
    if (book.Bids().IsEmpty() || book.Asks().IsEmpty()) return false;
    const TTick bid = book.Bids().Best().Tick;
    const TTick ask = book.Asks().Best().Tick;
    if (std::abs(bid - place.Bid) > StaleTicks || std::abs(ask - place.Ask) > StaleTicks) {
        return false;
    }
    return symbol.Kind != TVenueKind::Option ||
           FBoard.LadderOf(symbol).Price(bid + 1) > FBoard.Intrinsic(symbol);
}

// The last level of a side is left something, unless the price can go no further.
bool TVenueQuotes::TakeSome(TVenueSymbol& symbol, TBookSideKind side, bool takesAll, Int64 time) {
    const TBookSide& levels = symbol.Book.Side(side);
    if (levels.IsEmpty()) return false;
    const TBookLevel best = levels.Best();
    const bool isLast = levels.Count() == 1 && IsAllowed(symbol, levels.Behind(best.Tick, 1));
    const Integer most = isLast ? best.Lots - 1 : best.Lots;
    if (most < 1) return false;
    const Integer lots = takesAll ? most : FRandom.Between(1, std::max(most / MaxLotsShare, 1));
    return Take(symbol, side, lots, time) > 0;
}

void TVenueQuotes::Quote(TVenueSymbol& symbol, const TPlace& place, Integer newLevels) {
    TOrderBook& book = symbol.Book;
    book.Bids().CancelBetterThan(place.Bid);
    book.Asks().CancelBetterThan(place.Ask);
    Fill(symbol, book.Bids(), place.Bid, newLevels);
    Fill(symbol, book.Asks(), place.Ask, newLevels);
    ChangeLots(symbol, book.Bids());
    ChangeLots(symbol, book.Asks());
}

// The levels nearest to the other side come first.
void TVenueQuotes::Fill(const TVenueSymbol& symbol, TBookSide& side, TTick best,
                        Integer newLevels) {
    for (Integer step = 0; step < TBookSide::Depth && newLevels > 0; ++step) {
        const TTick tick = side.Behind(best, step);
        if (!IsAllowed(symbol, tick)) return;
        if (side.Insert(tick, LevelLots(symbol))) --newLevels;
    }
}

void TVenueQuotes::ChangeLots(const TVenueSymbol& symbol, TBookSide& side) {
    if (side.IsEmpty()) return;
    // One after the other: which of two arguments comes first is the compiler's choice.
    const Integer level = FRandom.Below(side.Count());
    side.SetLots(level, LevelLots(symbol));
}

} // namespace quorin
