#include "benchmarks/BenchMarket.h"

#include "viewdata/positionview/PositionViewDataControl.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

// What one position update costs an aggregated view, which adds up all its accounts again, against
// a plain loop that adds the same figures of the same records into a hash map. And what a price
// costs it, which must not touch the list.

namespace quorin {
namespace {

constexpr Integer Accounts = 20; // the master and its sub-accounts
constexpr Int64 MostPositions = 100'000;

String AccountAt(Integer index) {
    return index == 0 ? String(u"MASTER") : u"SUB" + SymbolAt(index);
}

// A master with 19 sub-accounts that hold the same products, and its aggregated view.
class TAggregatedBook {
public:
    explicit TAggregatedBook(Integer positions)
        : FSymbols(std::max(positions / Accounts, 1)),
          FServices(TBenchUniverse::OfSize(FSymbols).Services()) {
        for (Integer account = 0; account < Accounts; ++account) {
            TAccountDetails details;
            details.IsAggregate = account == 0;
            if (account > 0) details.MasterAccount = AccountAt(0);
            FServices.Accounts().FeedAccount(AccountAt(account), details);
        }
        for (Integer position = 0; position < positions; ++position) {
            Records.push_back(&Feed(position / FSymbols, position % FSymbols, 100.0 + position));
        }
        FServices.Deliver();
        View = CreateComponent<TPositionViewDataControl>();
        View->SetAccount(AccountAt(0));
        View->SetAggregate();
        View->SetOnDataChanged(MakeEvent<&TAggregatedBook::Changed>(this));
    }

    // One position of the last sub-account has another quantity.
    void Update(Double quantity) {
        Feed(static_cast<Integer>(Records.size() - 1) / FSymbols, FSymbols - 1, quantity);
        FServices.Positions().Deliver();
    }
    Integer Symbols() const { return FSymbols; }

    std::vector<TCustomPositionData*> Records;
    std::unique_ptr<TPositionViewDataControl> View;
    Int64 Signals = 0;

private:
    TEmbeddedPositionData& Feed(Integer account, Integer index, Double quantity) {
        const String symbol = SymbolAt(index);
        return FServices.Positions().FeedPosition(AccountAt(account), symbol,
                                                  {.Quantity = quantity,
                                                   .TodayBuyQty = 10.0,
                                                   .TodayBuyAmount = 1000.0,
                                                   .Ticker = &FServices.Items().Item(symbol)});
    }
    void Changed(TObject*) { ++Signals; }

    const Integer FSymbols;
    TEmbeddedServices& FServices;
};

void CountPositions(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void AggregateView(benchmark::State& state) {
    TAggregatedBook book(static_cast<Integer>(state.range(0)));
    Double quantity = 1.0;
    for (auto _ : state) book.Update(quantity += 1.0);
    if (book.Signals != state.iterations() || book.View->GetCount() != book.Symbols()) {
        state.SkipWithError("the view has not followed");
    }
    CountPositions(state);
}

void AggregateByHand(benchmark::State& state) {
    const TAggregatedBook book(static_cast<Integer>(state.range(0)));
    for (auto _ : state) {
        std::unordered_map<String, std::array<Double, 15>> sums;
        for (const TCustomPositionData* record : book.Records) {
            std::array<Double, 15>& sum = sums[record->GetSymbol()];
            sum[0] += record->GetQuantity();
            sum[1] += record->GetBODQuantity();
            sum[2] += record->GetShortQuantity();
            sum[3] += record->GetBODShortQuantity();
            sum[4] += record->GetTodayBuyQty();
            sum[5] += record->GetTodayBuyAmount();
            sum[6] += record->GetTodaySellQty();
            sum[7] += record->GetTodaySellAmount();
            sum[8] += record->GetTodayPendBuyQty();
            sum[9] += record->GetTodayPendSellQty();
            sum[10] += record->GetWithdrawQty();
            sum[11] += record->GetDepositQty();
            sum[12] += record->GetCoveredQty();
            sum[13] += record->GetCustodianQty();
            sum[14] += record->GetPendCustodianQty();
        }
        benchmark::DoNotOptimize(sums);
    }
    CountPositions(state);
}

// A price of one position of the last account.
void AggregatedPrice(benchmark::State& state) {
    TAggregatedBook book(static_cast<Integer>(state.range(0)));
    TCustomPositionData* const record = book.Records.back();
    TPositionDictionary positions;
    positions.Add(record->GetSymbol(), record);
    TAccountPositionDictionary sender;
    sender.Add(AccountAt(Accounts - 1), &positions);
    for (auto _ : state) book.View->PositionMarketDataUpdate(&sender, nullptr);
    if (book.Signals != state.iterations()) state.SkipWithError("not one signal each");
    state.SetItemsProcessed(state.iterations());
}

QUORIN_GROWTH(AggregateView, MostPositions);
QUORIN_GROWTH(AggregateByHand, MostPositions);
QUORIN_GROWTH(AggregatedPrice, MostPositions);

} // namespace
} // namespace quorin
