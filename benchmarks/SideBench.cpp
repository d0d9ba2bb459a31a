#include "benchmarks/BenchMarket.h"
#include "platform/rtl/Numbers.h"
#include "viewdata/market/MarketTradeSideDetector.h"

#include <array>
#include <deque>

// The side of the trade that an update tells of, while so many symbols are followed, against the
// least that has to be done: read the newest line, compare its price with the quote from before.

namespace quorin {
namespace {

constexpr Integer LineCount = 5;
constexpr Integer LineKinds = 50; // seconds of their times

String LineAt(Integer number) {
    String time = u"10:00:" + String(number % LineKinds < 10 ? u"0" : u"");
    return time + IntegerToText(number % LineKinds) + u" 400 " + (number % 2 ? u"100.1" : u"99.9");
}

// Updates of 50 symbols, each with one trade more, round and round.
class TTrades {
public:
    explicit TTrades(TBenchUniverse& universe) {
        for (Integer number = 0; number < LineKinds; ++number) FLines.push_back(LineAt(number));
        for (Integer row = 0; row < WindowRows; ++row) {
            FSymbols.push_back(SymbolAt(RowOfWindow(row, universe.Size())));
            FItems.push_back(&universe.Services().Items().Item(FSymbols.back()));
            FItems.back()->ClearField(Field::Exchange); // none counts as one that is watched
            FItems.back()->SetField(Field::BestBid, u"99.9");
            FItems.back()->SetField(Field::BestAsk, u"100.1");
            FItems.back()->SetStatus(ItemStatus::Ready);
        }
    }
    const std::vector<String>& Symbols() const { return FSymbols; }
    // Which of the symbols has had the update.
    std::size_t Next() {
        const std::size_t place = FNext++ % FItems.size();
        const std::size_t first = FNext / FItems.size();
        for (Integer line = 0; line < LineCount; ++line) {
            const std::size_t number = first + static_cast<std::size_t>(line);
            FItems[place]->SetField(Field::OldestTrade + line, FLines[number % FLines.size()]);
        }
        return place;
    }
    TEmbeddedSubItem& Item(std::size_t place) { return *FItems[place]; }

private:
    std::vector<String> FLines;
    std::vector<String> FSymbols;
    std::vector<TEmbeddedSubItem*> FItems;
    std::size_t FNext = 0;
};

void DetectSides(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::Of(state);
    TTrades trades(universe);
    const auto detector = CreateComponent<TMarketTradeSideDetector>();
    for (Integer row = 0; row < universe.Size(); ++row) detector->AddSymbol(SymbolAt(row));
    std::vector<TSymbolMarketTrade*> states;
    for (const String& symbol : trades.Symbols()) {
        states.push_back(detector->GetSymbolMarketTrade(symbol));
    }
    for (std::size_t place = 0; place < states.size(); ++place) {
        const std::size_t updated = trades.Next();
        states[updated]->ProcessTradeMessage(&trades.Item(updated));
    }
    const Int64 before = states[0]->TakenCount();
    TAllocationMeter meter(state);
    for (auto _ : state) {
        const std::size_t place = trades.Next();
        states[place]->ProcessTradeMessage(&trades.Item(place));
        benchmark::DoNotOptimize(states[place]->GetTrade(LineCount - 1)->Side().data());
    }
    meter.Tell(state.iterations());
    const Int64 taken = (states[0]->TakenCount() - before) * WindowRows;
    if (taken < state.iterations() || taken > state.iterations() + WindowRows) {
        state.SkipWithError("not one trade per update");
    }
    state.SetItemsProcessed(state.iterations());
}

struct THandState {
    Double Bid = 0.0;
    Double Ask = 0.0;
    String Newest;
    Char Side = u' ';
};

void SidesByHand(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::Of(state);
    TTrades trades(universe);
    std::vector<THandState> states(trades.Symbols().size());
    String text;
    for (auto _ : state) {
        const std::size_t place = trades.Next();
        TEmbeddedSubItem& item = trades.Item(place);
        THandState& known = states[place];
        item.GetFieldString(Field::OldestTrade + LineCount - 1, text);
        if (text != known.Newest) {
            const Double price = ToDoubleOr(StringView(text).substr(text.rfind(u' ') + 1), 0.0);
            known.Side = price >= known.Ask ? u'A' : price <= known.Bid ? u'B' : u' ';
            known.Newest = text;
        }
        known.Bid = item.GetFieldDouble(Field::BestBid);
        known.Ask = item.GetFieldDouble(Field::BestAsk);
        benchmark::DoNotOptimize(known.Side);
    }
    state.SetItemsProcessed(state.iterations());
}

// Following a million symbols takes longer than these updates.
constexpr Int64 SideRuns = 20'000;

QUORIN_GROWTH(DetectSides, GrowthSizes[3], GrowthSizes[0], SideRuns);
QUORIN_GROWTH(SidesByHand);

} // namespace
} // namespace quorin
