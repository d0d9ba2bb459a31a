#include "benchmarks/BenchMarket.h"

#include "terminal/forms/MarketWatchForm.h"

#include <vector>

// 100 updates, of which a watch follows half, delivered as one batch and each for itself; flat in
// the size of the universe.

namespace quorin {
namespace {

constexpr Integer BatchItems = 100;

struct TSignalCount : TObject {
    QUORIN_CLASS(TSignalCount, TObject)
    void Count(TObject*) { ++Signals; }
    Int64 Signals = 0;
};

void DeliverUpdates(benchmark::State& state, bool inBatches) {
    TBenchUniverse& universe = TBenchUniverse::Of(state);
    const auto control = CreateComponent<TCustomMarketDataControl>();
    control->SetExchangeAndCategory(BenchExchange, 1);
    std::vector<Integer> rows;
    std::vector<TEmbeddedSubItem*> batch;
    for (Integer row = 0; row < WindowRows; ++row) {
        rows.push_back(RowOfWindow(row, universe.Size()));
        batch.push_back(&universe.Quote(rows.back(), 0));
        batch.push_back(&universe.Quote(rows.back() + 1, 0)); // its neighbour is not followed
    }
    control->ViewRecordChanged(rows);
    TSignalCount signals;
    control->SetOnDataChanged(MakeEvent<&TSignalCount::Count>(&signals));
    TEmbeddedSubscribeAdapter& items = universe.Services().Items();
    Double price = 100.0;
    const auto deliver = [&] {
        price += 0.01;
        for (TEmbeddedSubItem* item : batch) {
            item->SetField(Field::LastPrice, price);
            items.Touch(*item);
            if (!inBatches) items.Deliver();
        }
        if (inBatches) items.Deliver();
    };
    deliver();
    deliver(); // the first two take memory for the moves
    signals.Signals = 0;
    TAllocationMeter meter(state);
    for (auto _ : state) deliver();
    const Int64 updates = state.iterations() * BatchItems;
    meter.Tell(updates);
    state.SetItemsProcessed(updates);
    if (signals.Signals != (inBatches ? state.iterations() : updates / 2)) {
        state.SkipWithError("not the signals that were due");
    }
    control->SetOnDataChanged(nullptr);
}

void BatchedDelivery(benchmark::State& state) {
    DeliverUpdates(state, /*inBatches=*/true);
}

void RealtimeDelivery(benchmark::State& state) {
    DeliverUpdates(state, /*inBatches=*/false);
}

// What a cell asks that shows how its price has moved with the latest update.
void PriceMoves(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::Of(state);
    const auto control = CreateComponent<TCustomMarketDataControl>();
    control->SetExchangeAndCategory(BenchExchange, 1);
    std::vector<Integer> rows;
    std::vector<TEmbeddedSubItem*> shown;
    for (Integer row = 0; row < WindowRows; ++row) {
        rows.push_back(RowOfWindow(row, universe.Size()));
        shown.push_back(&universe.Quote(rows.back(), 0));
    }
    control->ViewRecordChanged(rows);
    Double price = 100.0;
    Int64 moves = 0;
    const auto look = [&] {
        price += 0.01;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            shown[row]->SetField(Field::BestAsk, price);
            TPriceChangeState move = pcsNone;
            control->GetPriceMoveTickChangeState(rows[row], Field::BestAsk, move);
            moves += move == pcsUp;
        }
    };
    look();
    moves = 0;
    TAllocationMeter meter(state);
    for (auto _ : state) look();
    const Int64 looks = state.iterations() * WindowRows;
    meter.Tell(looks);
    if (moves != looks) state.SkipWithError("not every price has moved");
    state.SetItemsProcessed(looks);
}

// A delivery that reaches every row of a watch on screen, and the repaint that follows.
void DeliverAndRepaint(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::Of(state);
    TMarketWatchForm form;
    form.View().SetVisibleRowCapacity(WindowRows);
    form.ShowMarket(BenchExchange);
    form.FollowVisibleRows();
    std::vector<TEmbeddedSubItem*> batch;
    for (Integer row = 0; row < WindowRows; ++row) batch.push_back(&universe.Quote(row, 0));
    TEmbeddedSubscribeAdapter& items = universe.Services().Items();
    String text;
    Double price = 100.0;
    for (auto _ : state) {
        price += 0.01;
        for (TEmbeddedSubItem* item : batch) {
            item->SetField(Field::LastPrice, price);
            items.Touch(*item);
        }
        items.Deliver();
        if (!form.View().TakeRepaint()) state.SkipWithError("nothing to paint");
        for (Integer row = 0; row < WindowRows; ++row) {
            for (Integer column = 0; column < form.View().GetColumnCount(); ++column) {
                form.View().GetCellText(row, *form.View().GetColumn(column), text);
                benchmark::DoNotOptimize(text.data());
            }
        }
    }
    state.SetItemsProcessed(state.iterations());
}

QUORIN_GROWTH(BatchedDelivery);
QUORIN_GROWTH(RealtimeDelivery);
QUORIN_GROWTH(PriceMoves);
QUORIN_GROWTH(DeliverAndRepaint);

} // namespace
} // namespace quorin
