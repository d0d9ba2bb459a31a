#include "benchmarks/BenchMarket.h"

#include "terminal/forms/MarketWatchForm.h"

#include <benchmark/benchmark.h>

#include <vector>

// One delivered batch of 100 items, of which a watch follows 50; flat in the size of the universe.

namespace quorin {
namespace {

constexpr Integer BatchItems = 100;

struct TSignalCount : TObject {
    QUORIN_CLASS(TSignalCount, TObject)
    void Count(TObject*) { ++Signals; }
    Int64 Signals = 0;
};

void DeliverBatch(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::OfSize(static_cast<Integer>(state.range(0)), true);
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
    for (auto _ : state) {
        price += 0.01;
        for (TEmbeddedSubItem* item : batch) {
            item->SetField(Field::LastPrice, price);
            items.Touch(*item);
        }
        items.Deliver();
    }
    if (signals.Signals != state.iterations()) state.SkipWithError("not one signal per batch");
    control->SetOnDataChanged(nullptr);
    state.SetItemsProcessed(state.iterations() * BatchItems);
}

// A delivery that reaches every row of a watch on screen, and the repaint that follows.
void DeliverAndRepaint(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::OfSize(static_cast<Integer>(state.range(0)), true);
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
    state.SetItemsProcessed(state.iterations() * WindowRows);
}

BENCHMARK(DeliverAndRepaint)->Arg(SmallUniverse)->Arg(LargeUniverse);
BENCHMARK(DeliverBatch)->Arg(SmallUniverse)->Arg(LargeUniverse);

} // namespace
} // namespace quorin
