#pragma once

#include "embedded/SubscribeService.h"
#include "embedded/venue/VenueBuilder.h"
#include "embedded/venue/VenueFields.h"
#include "embedded/venue/VenueQuotes.h"

#include <deque>

namespace quorin {

struct TVenueOptions {
    std::uint64_t Seed = 1;
    Int64 StepNanos = 250'000'000;                      // at least 1
    Int64 StartNanos = Int64{9} * 3600 * 1'000'000'000; // after midnight
    Integer UpdatesPerStep = 0; // 0: a twentieth of the universe, 16 to 10,000
    TVenueMonth Month = {};     // of the simulated day
};

// A simulated venue: every symbol of the universe has an order book and trades through the day, and
// symbols that belong together move together. There is one seed and one counter of steps, and no
// clock: the same seed, universe, options and number of steps give the same fields, whoever looks
// on. Only what somebody has asked for is written into live items.
//
// A trade takes from the best bid or the best ask of the book before it, at that price. A symbol
// trades or is quoted anew in one step, never both. It trades while its exchange is open; books
// move then and while orders come in before it.
//
//   TVenue venue(services.Items(), services.Market(), {.Seed = 7});
//   while (...) { venue.Step(); services.Deliver(); }
class TVenue final : public TItemFeed, public TOrderMarket {
public:
    // Becomes the feed of the items and the market that orders trade against until it dies, and
    // sets the market states of the start. The hours are the adapter's sessions, which must not
    // change after that; symbols that come into the universe later have no market. Items that were
    // asked for before get a quote of this venue's. Adapters must live longer.
    TVenue(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
           const TVenueOptions& options);
    TVenue(const TVenue&) = delete;
    TVenue& operator=(const TVenue&) = delete;
    ~TVenue() override;

    // Goes one step on and touches the items that have changed; the host delivers them. Makes at
    // most UpdatesPerStep updates, but for what an exchange that changes its state rewrites.
    void Step();
    // Nanoseconds after midnight, of the last step; the start before the first one.
    Int64 TimeNanos() const override { return FOptions.StartNanos + FStep * FOptions.StepNanos; }
    // How many steps there were.
    Int64 StepNumber() const { return FStep; }
    // How often a symbol has traded or was quoted anew.
    Int64 UpdateCount() const { return FUpdateCount; }

    // Takes whole lots level by level and prints each trade; what is left over below one lot trades
    // at the best price then, beside the book. Nothing trades while the exchange is closed or the
    // symbol is stopped. The symbol rests in the next step, so that what was taken is seen.
    void Take(const TOrderWish& wish, TList<TOrderTrade>& trades) override;

    // What the symbol is worth by the venue's own reckoning, around which it is quoted; 0.0 for
    // what has no market.
    Double Worth(StringView symbol) const;

    // Gets the requests for margin items ("SPAN_..."); nil: they have no data. Must live longer.
    void SetMarginFeed(TItemFeed* feed) { FMarginFeed = feed; }

    // The full state of a symbol; "no data" for a key that the universe does not have.
    void Requested(TEmbeddedSubItem& item) override;

private:
    TVenueSymbol* Find(StringView symbol);
    const TVenueSymbol* Find(StringView symbol) const;
    void EnterSessions();
    void TakeIncidents();
    void Stop(TVenueSymbol& symbol);
    void MoveFamilies(Integer budget);
    Integer MoveMembers(Integer budget);
    void MoveAny(Integer budget);
    void Update(TVenueSymbol& symbol);
    bool IsShown(const TVenueSymbol& symbol) const;
    bool CanMove(const TVenueSymbol& symbol) const;
    void WriteAll(const TVenueSymbol& symbol);
    void Show(TVenueSymbol& symbol, bool hasTraded);
    bool MayTake(const TVenueSymbol& symbol) const;

    TEmbeddedSubscribeAdapter& FItems;
    TEmbeddedMarketAdapter& FMarket;
    TVenueOptions FOptions;
    TVenueDay FDay;
    TVenueRandom FRandom;
    TVenueBoard FBoard;
    TVenueQuotes FQuotes;
    TVenueFieldWriter FWriter;
    TItemFeed* FMarginFeed = nullptr;
    std::vector<std::uint32_t> FAskedFor; // symbols with an item
    std::deque<std::uint32_t> FDue;       // families whose members have to follow
    std::vector<std::uint32_t> FReached;  // by family: the next member; the end when it is not due
    std::size_t FNextIncident = 0;
    Int64 FStep = 0;
    Int64 FRestingStep = 1; // in which a symbol stays as orders leave it now
    Int64 FUpdateCount = 0;
};

} // namespace quorin
