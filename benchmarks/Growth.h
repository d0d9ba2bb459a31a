#pragma once

#include "platform/rtl/Types.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace quorin {

// The sizes that workloads are measured at.
inline constexpr Int64 GrowthSizes[] = {1'000, 10'000, 100'000, 1'000'000};

using TBenchFunction = void (*)(benchmark::State&);

// A workload of many sizes, each given as the benchmark's first argument. Each must count, as items
// processed, what its figure is told per. `Runs` fixes the number of runs, where a single one is
// long or can't be repeated; 0 leaves it to the time that is wanted.
struct TGrowthBench {
    const char* Name;
    TBenchFunction Function;
    Int64 Largest = GrowthSizes[3];
    Int64 Smallest = GrowthSizes[0];
    Int64 Runs = 0;
};

// Notes the workload for RegisterGrowth; True, so that it can stand at a declaration.
bool AddGrowth(const TGrowthBench& bench);
// Hands all to Google Benchmark, size by size, so that what is made for one size is made once.
void RegisterGrowth(Int64 largest);

// QUORIN_GROWTH(Function) or QUORIN_GROWTH(Function, largest, smallest, runs)
#define QUORIN_GROWTH(FUNCTION, ...)                                                               \
    [[maybe_unused]] const bool FUNCTION##Added =                                                  \
        AddGrowth({#FUNCTION, FUNCTION __VA_OPT__(, ) __VA_ARGS__})

inline Double HeapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<Double>(heap.uordblks + heap.hblkhd);
}

// Counts the allocations of the runs behind it, told per item as the counter "allocations".
class TAllocationMeter {
public:
    explicit TAllocationMeter(benchmark::State& state);
    // Once the runs are over; `items` as for SetItemsProcessed.
    void Tell(Int64 items);

private:
    benchmark::State& FState;
    std::size_t FBefore;
};

} // namespace quorin
