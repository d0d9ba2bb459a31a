#include "benchmarks/BenchMarket.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <memory>
#include <unordered_map>
#include <vector>

// A million rows into the control, against filling a vector of texts and a hash map by hand from
// the same records. Both end with their memory given back, which is not timed.

namespace quorin {
namespace {

Double HeapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<Double>(heap.uordblks + heap.hblkhd);
}

void LoadControl(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    TBenchUniverse::OfSize(size, false);
    Double bytes = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        auto control = CreateComponent<TCustomMarketDataControl>();
        const Double before = HeapBytes();
        state.ResumeTiming();
        control->SetExchangeAndCategory(BenchExchange, 1);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        if (control->GetCount() != size) state.SkipWithError("rows are missing");
        control.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * size);
    state.counters["bytes/row"] = bytes / size;
}

void LoadByHand(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    const TCustomMarketAdapter& market = TBenchUniverse::OfSize(size, false).Services().Market();
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
    state.counters["bytes/row"] = bytes / size;
}

BENCHMARK(LoadControl)->Arg(LargeUniverse)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(LoadByHand)->Arg(LargeUniverse)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace quorin
