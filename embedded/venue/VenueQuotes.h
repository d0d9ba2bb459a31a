#pragma once

#include "embedded/venue/VenueBoard.h"

namespace quorin {

// How quotes follow what a symbol is worth, and how it trades. An update of a symbol is either of
// the two, so that what a trade takes is seen missing from the book before new orders come.
class TVenueQuotes {
public:
    TVenueQuotes(TVenueBoard& board, TVenueRandom& random) : FBoard(board), FRandom(random) {}

    // Fills the book around what the symbol is worth.
    void Build(TVenueSymbol& symbol);
    // Trades when it may and has a reason to, otherwise quotes anew.
    void Update(TVenueSymbol& symbol, bool mayTrade, Int64 time);
    // The best prices are where they should be.
    bool IsInPlace(const TVenueSymbol& symbol) const;
    // Trades up to so many lots at the best price of that side, which may use the level up, and
    // prints the trade. Answers how many lots there were.
    Integer Take(TVenueSymbol& symbol, TBookSideKind side, Integer lots, Int64 time);

private:
    struct TPlace { // of the best prices
        TTick Bid;
        TTick Ask;
    };
    TPlace PlaceOf(const TVenueSymbol& symbol) const;
    bool Trade(TVenueSymbol& symbol, const TPlace& place, Int64 time);
    bool MayPrice(const TVenueSymbol& symbol, const TPlace& place) const;
    bool TakeSome(TVenueSymbol& symbol, TBookSideKind side, bool takesAll, Int64 time);
    void Quote(TVenueSymbol& symbol, const TPlace& place, Integer newLevels);
    void Fill(const TVenueSymbol& symbol, TBookSide& side, TTick best, Integer newLevels);
    void ChangeLots(const TVenueSymbol& symbol, TBookSide& side);
    Integer LevelLots(const TVenueSymbol& symbol) { return FRandom.Between(1, symbol.MaxLots); }
    bool IsAllowed(const TVenueSymbol& symbol, TTick tick) const;

    TVenueBoard& FBoard;
    TVenueRandom& FRandom;
};

} // namespace quorin
