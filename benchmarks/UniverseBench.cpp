#include "benchmarks/BenchMarket.h"

#include "embedded/UniverseFile.h"
#include "embedded/UniverseMaker.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <fstream>
#include <memory>
#include <unistd.h>

// A list of symbols from a file into the market service.

namespace quorin {
namespace {

constexpr Integer RealListSize = 31'000;
constexpr std::uint64_t Seed = 1;

Double HeapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<Double>(heap.uordblks + heap.hblkhd);
}

class TListFile {
public:
    explicit TListFile(Integer symbols)
        : FPath(std::filesystem::temp_directory_path() /
                ("quorin-bench-" + std::to_string(getpid()) + ".csv")) {
        std::ofstream file(FPath, std::ios::binary);
        WriteUniverseList(file, symbols, Seed);
    }
    TListFile(const TListFile&) = delete;
    TListFile& operator=(const TListFile&) = delete;
    ~TListFile() {
        std::error_code ignored;
        std::filesystem::remove(FPath, ignored);
    }
    const std::filesystem::path& Path() const { return FPath; }

private:
    std::filesystem::path FPath;
};

void LoadList(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    const TListFile file(size);
    Double bytes = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        const Double before = HeapBytes();
        auto items = std::make_unique<TEmbeddedSubscribeAdapter>();
        auto market = std::make_unique<TEmbeddedMarketAdapter>(*items);
        state.ResumeTiming();
        LoadUniverseList(file.Path(), *market);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        if (market->Universe().SymbolCount() != size) state.SkipWithError("symbols are missing");
        market.reset();
        items.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * size);
    state.counters["bytes/symbol"] = bytes / size;
}

// A live item for each symbol, without a quote yet.
void MakeItems(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    TEmbeddedSubscribeAdapter items;
    TEmbeddedMarketAdapter market(items);
    const TListFile file(size);
    LoadUniverseList(file.Path(), market);
    const auto& records = market.Universe().FindExchange(u"XHKG")->Records;
    const Double before = HeapBytes();
    for (auto _ : state) {
        for (const TEmbeddedMarketData* record : records) items.Item(record->GetSymbol());
    }
    state.SetItemsProcessed(state.iterations() * records.Count());
    state.counters["bytes/item"] = (HeapBytes() - before) / records.Count();
}

BENCHMARK(LoadList)->Arg(RealListSize)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(LoadList)->Arg(LargeUniverse)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(MakeItems)->Arg(LargeUniverse)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
} // namespace quorin
