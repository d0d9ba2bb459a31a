#pragma once

#include "platform/rtl/Types.h"

#include <span>

namespace quorin {

// What the tables tell of, and what is promised.

// Something that a workload is measured against in the same run.
struct TPeer {
    const char* Benchmark = nullptr;
    const char* Title = nullptr;
    Double AtMost = 0.0; // ours against it; 0: nothing is promised
    Int64 AtSize = 0;    // where that is promised; 0: at every size
};

inline constexpr std::size_t MostPeers = 2;

struct TWorkload {
    const char* Title;
    const char* Per; // what a figure is told for
    const char* Benchmark;
    TPeer Peers[MostPeers] = {};
    Double GrowthAtMost = 0.0; // from the smallest size to the largest; 0: nothing is promised
};

// A figure that is not a time: a counter of a benchmark.
struct TCount {
    const char* Title;
    const char* Benchmark;
    const char* Counter;
    Double AtMost = NoLimit;

    static constexpr Double NoLimit = -1.0;
};

std::span<const TWorkload> Workloads();
std::span<const TCount> Counts();

} // namespace quorin
