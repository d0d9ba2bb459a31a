#include "benchmarks/Growth.h"

#include "tests/support/AllocationCount.h"

#include <string>
#include <vector>

namespace quorin {

namespace {

std::vector<TGrowthBench>& Benches() {
    static std::vector<TGrowthBench> benches;
    return benches;
}

} // namespace

bool AddGrowth(const TGrowthBench& bench) {
    Benches().push_back(bench);
    return true;
}

void RegisterGrowth(Int64 largest) {
    for (const Int64 size : GrowthSizes) {
        if (size > largest) break;
        for (const TGrowthBench& bench : Benches()) {
            if (size < bench.Smallest || size > bench.Largest) continue;
            auto* const registered = benchmark::RegisterBenchmark(bench.Name, bench.Function);
            registered->Arg(size);
            if (bench.Runs > 0) registered->Iterations(bench.Runs);
        }
    }
}

TAllocationMeter::TAllocationMeter(benchmark::State& state)
    : FState(state), FBefore(AllocationCount()) {}

void TAllocationMeter::Tell(Int64 items) {
    const auto count = static_cast<Double>(AllocationCount() - FBefore);
    FState.counters["allocations"] = count / static_cast<Double>(items);
}

} // namespace quorin
