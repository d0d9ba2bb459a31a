#include "benchmarks/Report.h"

#include "benchmarks/Growth.h"

#include <algorithm>
#include <cstdlib>

namespace quorin {

namespace {

constexpr Double NanosPerSecond = 1e9;
constexpr const char* Missed = "MISSED";
constexpr Double CountTolerance = 0.0005; // of what is told with three decimals
constexpr int TitleWidth = 37;

// Three digits and a unit.
std::string TimeText(Double nanos) {
    static constexpr const char* units[] = {"ns", "us", "ms", "s"};
    std::size_t unit = 0;
    while (nanos >= 999.5 && unit + 1 < std::size(units)) {
        nanos /= 1e3;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.*f %s",
                  nanos < 10    ? 2
                  : nanos < 100 ? 1
                                : 0,
                  nanos, units[unit]);
    return text;
}

std::string NumberText(Double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", value < 0.095 ? 4 : 2, value);
    return text;
}

// The size that the first table tells of: what is promised for one, else the usual one.
constexpr Int64 UsualSize = 100'000;

const TFigure* FigureToTell(const TFigures& figures, const char* benchmark) {
    const TFigure* found = nullptr;
    for (const auto& [size, figure] : figures.Of(benchmark)) {
        if (found == nullptr || size <= UsualSize) found = &figure;
    }
    return found;
}

Int64 SizeToTell(const TFigures& figures, const TWorkload& workload) {
    Int64 told = 0;
    for (const auto& [size, figure] : figures.Of(workload.Benchmark)) {
        if (told == 0 || size <= UsualSize) told = size;
    }
    return told;
}

// 0 where it was measured at one size only.
Double GrowthOf(const TFigures& figures, const char* benchmark) {
    const auto& sizes = figures.Of(benchmark);
    if (sizes.size() < 2) return 0.0;
    return sizes.rbegin()->second.Median() / sizes.begin()->second.Median();
}

std::string GrowthText(Double growth) {
    return growth > 0.0 ? NumberText(growth) : "-";
}

bool IsAbove(const TPeer& peer, Int64 size, Double ratio) {
    return peer.AtMost > 0.0 && (peer.AtSize == 0 || peer.AtSize == size) && ratio > peer.AtMost;
}

// The largest ratio among the sizes where something is promised.
bool IsMissed(const TFigures& figures, const TWorkload& workload, const TPeer& peer) {
    for (const auto& [size, figure] : figures.Of(workload.Benchmark)) {
        const TFigure* against = figures.Find(peer.Benchmark, size);
        if (against != nullptr && IsAbove(peer, size, figure.Median() / against->Median())) {
            return true;
        }
    }
    return false;
}

Integer PrintWorkload(const TFigures& figures, const TWorkload& workload) {
    const Int64 size = SizeToTell(figures, workload);
    if (size == 0) return 0;
    const Double ours = figures.Find(workload.Benchmark, size)->Median();
    const Double growth = GrowthOf(figures, workload.Benchmark);
    const bool grows = workload.GrowthAtMost > 0.0 && growth > workload.GrowthAtMost;
    Integer missed = grows;
    const auto line = [&](const TPeer* peer, bool isFirst) {
        std::printf("%-*s %9lld %-9s %9s", TitleWidth, isFirst ? workload.Title : "",
                    static_cast<long long>(size), workload.Per, TimeText(ours).c_str());
        const TFigure* against = peer != nullptr ? figures.Find(peer->Benchmark, size) : nullptr;
        if (against != nullptr) {
            const Double ratio = ours / against->Median();
            const bool isMissed = IsMissed(figures, workload, *peer);
            missed += isMissed;
            std::printf(" %9s %8s %7s %6s %8s %8s  %s", TimeText(against->Median()).c_str(),
                        NumberText(ratio).c_str(),
                        peer->AtMost > 0.0 ? NumberText(peer->AtMost).c_str() : "",
                        isMissed ? Missed : "", GrowthText(growth).c_str(),
                        GrowthText(GrowthOf(figures, peer->Benchmark)).c_str(), peer->Title);
        } else {
            std::printf(" %9s %8s %7s %6s %8s", "", "", "", "", GrowthText(growth).c_str());
        }
        std::printf("\n");
    };
    bool isFirst = true;
    for (const TPeer& peer : workload.Peers) {
        if (peer.Benchmark == nullptr || figures.Find(peer.Benchmark, size) == nullptr) continue;
        line(&peer, isFirst);
        isFirst = false;
    }
    if (isFirst) line(nullptr, isFirst);
    return missed;
}

void PrintSizes(const char* title, const std::map<Int64, TFigure>& sizes, Double growthAtMost) {
    std::printf("%-*s", TitleWidth + 10, title);
    for (const Int64 size : GrowthSizes) {
        const auto found = sizes.find(size);
        std::printf(" %10s", found != sizes.end() ? TimeText(found->second.Median()).c_str() : "");
    }
    const Double growth =
        sizes.size() < 2 ? 0.0 : sizes.rbegin()->second.Median() / sizes.begin()->second.Median();
    std::printf(" %8s", GrowthText(growth).c_str());
    if (growthAtMost > 0.0) {
        std::printf(" %7s%s", NumberText(growthAtMost).c_str(),
                    growth > growthAtMost ? "  MISSED" : "");
    }
    std::printf("\n");
}

void PrintGrowth(const TFigures& figures, const TWorkload& workload) {
    const auto& sizes = figures.Of(workload.Benchmark);
    if (sizes.empty()) return;
    PrintSizes((std::string(workload.Title) + ", " + workload.Per).c_str(), sizes,
               workload.GrowthAtMost);
    for (const TPeer& peer : workload.Peers) {
        if (peer.Benchmark == nullptr || figures.Of(peer.Benchmark).empty()) continue;
        PrintSizes((std::string("    ") + peer.Title).c_str(), figures.Of(peer.Benchmark), 0.0);
        std::printf("%-*s", TitleWidth + 10, "      ratio");
        for (const Int64 size : GrowthSizes) {
            const TFigure* ours = figures.Find(workload.Benchmark, size);
            const TFigure* against = figures.Find(peer.Benchmark, size);
            std::string text;
            if (ours != nullptr && against != nullptr) {
                const Double ratio = ours->Median() / against->Median();
                text = NumberText(ratio) + (IsAbove(peer, size, ratio) ? "!" : "");
            }
            std::printf(" %10s", text.c_str());
        }
        std::printf("\n");
    }
}

Integer PrintCount(const TFigures& figures, const TCount& count) {
    const TFigure* figure = FigureToTell(figures, count.Benchmark);
    if (figure == nullptr) return 0;
    const auto counter = figure->Counters.find(count.Counter);
    if (counter == figure->Counters.end()) return 0;
    const bool isPromised = count.AtMost != TCount::NoLimit;
    const bool isMissed = isPromised && counter->second > count.AtMost + CountTolerance;
    std::printf("%-*s %10.*f", TitleWidth + 10, count.Title, counter->second < 10.0 ? 3 : 0,
                counter->second);
    if (isPromised) std::printf(" %8.0f %s", count.AtMost, isMissed ? Missed : "");
    std::printf("\n");
    return isMissed;
}

} // namespace

Double TFigure::Median() const {
    std::vector<Double> sorted = Nanos;
    std::sort(sorted.begin(), sorted.end());
    const std::size_t middle = sorted.size() / 2;
    return sorted.size() % 2 == 1 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2.0;
}

void TFigures::Take(const benchmark::BenchmarkReporter::Run& run) {
    if (run.run_type != benchmark::BenchmarkReporter::Run::RT_Iteration) return;
    const auto perSecond = run.counters.find("items_per_second");
    if (perSecond == run.counters.end()) return;
    TFigure& figure =
        FFigures[run.run_name.function_name][std::strtoll(run.run_name.args.c_str(), nullptr, 10)];
    figure.Nanos.push_back(NanosPerSecond / perSecond->second);
    for (const auto& [name, counter] : run.counters) {
        if (name != "items_per_second") figure.Counters[name] = counter;
    }
}

const TFigure* TFigures::Find(const std::string& benchmark, Int64 size) const {
    const auto& sizes = Of(benchmark);
    const auto found = sizes.find(size);
    return found != sizes.end() ? &found->second : nullptr;
}

const std::map<Int64, TFigure>& TFigures::Of(const std::string& benchmark) const {
    static const std::map<Int64, TFigure> none;
    const auto found = FFigures.find(benchmark);
    return found != FFigures.end() ? found->second : none;
}

Integer PrintTables(const TFigures& figures) {
    Integer missed = 0;
    std::printf("%-*s %9s %-9s %9s %9s %8s %7s %6s %8s %8s  %s\n", TitleWidth, "Workload", "size",
                "per", "ours", "peer", "ratio", "at most", "", "growth", "peer's", "peer");
    for (const TWorkload& workload : Workloads()) missed += PrintWorkload(figures, workload);

    std::printf("\n%-*s", TitleWidth + 10, "Growth");
    for (const Int64 size : GrowthSizes) std::printf(" %10lld", static_cast<long long>(size));
    std::printf(" %8s %7s\n", "factor", "at most");
    for (const TWorkload& workload : Workloads()) PrintGrowth(figures, workload);

    std::printf("\n%-*s %10s %8s\n", TitleWidth + 10, "Counted", "", "at most");
    for (const TCount& count : Counts()) missed += PrintCount(figures, count);
    return missed;
}

} // namespace quorin
