#include "benchmarks/BenchMarket.h"

#include <memory>
#include <unordered_map>
#include <vector>

// All rows of an exchange into the control, against filling a vector of texts and a hash map by
// hand from the same records. Both end with their memory given back, which is not timed.

namespace quorin {
namespace {

void LoadControl(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    TBenchUniverse::OfSize(size);
    Double bytes = 0.0;
    Integer loaded = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto control = CreateComponent<TCustomMarketDataControl>();
        const Double before = HeapBytes();
        state.ResumeTiming();
        control->SetExchangeAndCategory(BenchExchange, 1);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        loaded = control->GetCount();
        control.reset();
        state.ResumeTiming();
    }
    if (loaded != size) state.SkipWithError("rows are missing");
    state.SetItemsProcessed(state.iterations() * size);
    state.counters["bytes"] = bytes / size;
}

void LoadByHand(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    const TCustomMarketAdapter& market = TBenchUniverse::OfSize(size).Services().Market();
    struct TRows {
        std::vector<String> List;
        std::unordered_map<String, TCustomMarketData*> Map;
    };
    Double bytes = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        auto rows = std::make_unique<TRows>();
        const Double before = HeapBytes();
        state.ResumeTiming();
        const String& series = market.GetSeriesCode(BenchExchange, 0);
        for (Integer index = 0; index < size; ++index) {
            TCustomMarketData* data = market.GetMarketDataAt(BenchExchange, series, index);
            if (rows->Map.emplace(data->GetSymbol(), data).second) {
                rows->List.push_back(data->GetSymbol());
            }
        }
        state.PauseTiming();
        bytes = HeapBytes() - before;
        rows.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * size);
    state.counters["bytes"] = bytes / size;
}

// A subscription to every row of the watch, and what it keeps.
void FollowRows(benchmark::State& state) {
    TBenchUniverse& universe = TBenchUniverse::Of(state);
    std::vector<Integer> rows;
    for (Integer row = 0; row < universe.Size(); ++row) rows.push_back(row);
    Double bytes = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        auto control = CreateComponent<TCustomMarketDataControl>();
        control->SetExchangeAndCategory(BenchExchange, 1);
        const Double before = HeapBytes();
        state.ResumeTiming();
        control->ViewRecordChanged(rows);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        control.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * universe.Size());
    state.counters["bytes"] = bytes / universe.Size();
}

QUORIN_GROWTH(LoadControl);
QUORIN_GROWTH(LoadByHand);
QUORIN_GROWTH(FollowRows);

} // namespace
} // namespace quorin
