#pragma once

#include "embedded/venue/VenueBoard.h"
#include "embedded/venue/VenueDay.h"

namespace quorin {

struct TVenueMonth {
    Integer Year = 2026;
    Integer Month = 11;
};

// Makes the board from the universe, with books as they are before the first step. A symbol is
//
//   an option   by its product type, with a strike and a call or put marker. It is priced from its
//               underlyer, or from its series where the universe has no such symbol;
//   a spread    when it is called by two futures with a "/" between;
//   a root      otherwise. Futures on one underlyer, or of one series, move together.
//
// A close that the record does not have is made up. A symbol without a tick size gets a usual one;
// one with a price beyond all reason has no market.
class TVenueBuilder {
public:
    TVenueBuilder(const TEmbeddedMarketAdapter& market, const TVenueDay& day, std::uint64_t seed,
                  TVenueMonth month);

    TVenueBoard Build();

private:
    using TRecord = TEmbeddedMarketData;
    struct TBasis {            // of a process
        TVenuePrice Close = 0; // of its first root; 0 when no root has one
        TVenuePrice StrikeSum = 0;
        Integer StrikeCount = 0;
    };

    void AddSymbol(const TRecord& record, std::uint16_t exchange);
    std::uint16_t LadderOf(const TRecord& record, bool hasNegative);
    void AddRoot(TVenueSymbol& symbol);
    void AddOption(TVenueSymbol& symbol);
    bool TryAddSpread(TVenueSymbol& symbol);
    std::uint32_t ProcessOf(StringView name);
    std::uint32_t NewProcess();
    const TVenueSymbol* FindRoot(StringView code) const;
    void CloseRoots();
    void CloseOptions();
    void CloseSpreads();
    void SetLimits(TVenueSymbol& symbol) const;
    Integer MonthsTo(const String& expiry) const;

    const TEmbeddedMarketAdapter& FMarket;
    const TVenueDay& FDay;
    TVenueRandom FRandom;
    TVenueMonth FMonth;
    TVenueBoard FBoard;
    std::vector<TBasis> FBases;                  // by process
    TDictionary<String, std::uint32_t> FNamed;   // processes of what is no symbol
    TDictionary<String, std::uint16_t> FLadders; // by tick table or tick size
};

} // namespace quorin
