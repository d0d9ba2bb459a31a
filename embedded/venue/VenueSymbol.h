#pragma once

#include "embedded/venue/OptionModel.h"
#include "embedded/venue/OrderBook.h"

#include <array>
#include <cstdint>

namespace quorin {

class TEmbeddedMarketData;
class TEmbeddedSubItem;

struct TVenueTrade {
    TTick Tick;
    Integer Lots;
    Integer Second; // after midnight
};

// The trades of one symbol: the five latest ones, and what the day makes of all of them.
class TTradeTape {
public:
    static constexpr std::uint32_t Shown = 5;

    void Print(const TVenueTrade& trade);

    // All of the day.
    std::uint32_t Count() const { return FCount; }
    // 0 for the newest one; `age` is below the count and below Shown.
    const TVenueTrade& Recent(std::uint32_t age) const { return FRing[(FCount - 1 - age) % Shown]; }
    Int64 VolumeLots() const { return FVolumeLots; }
    // Of any use only when there was a trade.
    TTick Open() const { return FOpen; }
    TTick High() const { return FHigh; }
    TTick Low() const { return FLow; }

private:
    std::array<TVenueTrade, Shown> FRing{};
    std::uint32_t FCount = 0;
    TTick FOpen = 0;
    TTick FHigh = 0;
    TTick FLow = 0;
    Int64 FVolumeLots = 0;
};

enum class TVenueKind : Byte {
    None,   // has no market
    Root,   // a share or a future: its close times the ratio of its process
    Option, // priced from what it is an option on
    Spread, // the difference of two roots
};

// What an option is priced from: what its underlyer closed at, and the process of that.
struct TVenueOption {
    TOptionModel Model;
    TVenuePrice UnderlyerClose;
    std::uint32_t Process;
};

struct TVenueSpread {
    std::uint32_t Near; // indexes of symbols
    std::uint32_t Far;
};

// All that the venue knows of one symbol. There may be very many.
struct TVenueSymbol {
    TOrderBook Book;
    TTradeTape Tape;
    const TEmbeddedMarketData* Record = nullptr;
    TEmbeddedSubItem* Item = nullptr; // from the first request on
    TVenuePrice Close = 0;
    TTick LimitHigh = TPriceLadder::MaxTick;
    TTick LimitLow = -TPriceLadder::MaxTick;
    std::uint32_t Process = 0;     // of a root, and of what follows one
    std::uint32_t Terms = 0;       // of an option or a spread, in their lists
    std::uint32_t LastStep = 0;    // of the last update
    std::uint32_t RestingStep = 0; // in which it stays as orders have left it
    Integer MaxLots = 1;           // of a level as it comes
    std::uint16_t Ladder = 0;
    std::uint16_t Exchange = 0;
    TVenueKind Kind = TVenueKind::None;
    Byte TradeChance = 0; // of an update, in percent
    bool IsStopped = false;
};

} // namespace quorin
