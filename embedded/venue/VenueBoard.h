#pragma once

#include "embedded/venue/PriceProcess.h"
#include "embedded/venue/VenueSymbol.h"
#include "platform/rtl/TDictionary.h"
#include "viewdata/services/MarketRecords.h"

#include <vector>

namespace quorin {

// Symbols that stand for the same thing, when they are more than one.
struct TVenueFamily {
    std::uint32_t Leader; // the symbol whose updates move the process
    std::uint32_t First;  // of the other members, in the list of all members
    std::uint32_t End;
};

// A symbol that leaves its usual day: its process runs to the price limit, or it is stopped.
struct TVenueIncident {
    enum class TKind : Byte { RunUp, RunDown, Stop };
    Int64 Time; // nanoseconds after midnight
    std::uint32_t Symbol;
    TKind Kind;
};

// Everything that is quoted at the venue.
struct TVenueBoard {
    std::vector<TVenueSymbol> Symbols; // exchange by exchange, as in the universe
    std::vector<TPriceLadder> Ladders;
    std::vector<TPriceProcess> Processes;
    std::vector<TVenueOption> Options;
    std::vector<TVenueSpread> Spreads;
    std::vector<TVenueFamily> Families;
    std::vector<std::uint32_t> Members;
    std::vector<std::uint32_t> FamilyOf; // by process; NoFamily for a symbol alone
    std::vector<TVenueIncident> Incidents;
    TDictionary<const TCustomMarketData*, std::uint32_t> Indexes;

    static constexpr std::uint32_t NoFamily = 0xFFFFFFFF;

    const TPriceLadder& LadderOf(const TVenueSymbol& symbol) const {
        return Ladders[symbol.Ladder];
    }
    // What the symbol is worth now.
    TVenuePrice Worth(const TVenueSymbol& symbol) const;
    // What an option would bring now; nothing for any other symbol.
    TVenuePrice Intrinsic(const TVenueSymbol& symbol) const;

private:
    TVenuePrice UnderlyerOf(const TVenueOption& option) const {
        return Processes[option.Process].Scale(option.UnderlyerClose);
    }
};

} // namespace quorin
