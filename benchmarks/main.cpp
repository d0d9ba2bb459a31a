#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

// Prints the table of Google Benchmark and under it the ratios that the library promises. Both
// sides of a ratio come from one run, so that they hold on a machine that is not alone.

namespace {

struct TRatio {
    const char* Promise;
    const char* Measured;
    const char* Against;
    double Limit;
    double Work = 1.0; // how much more the measured side has to do
};

constexpr TRatio Ratios[] = {
    {"numeric cell against a chain by hand, 1,000 symbols", "LibraryCells/1000",
     "HandWrittenCells/1000", 1.5},
    {"numeric cell against a chain by hand, 1,000,000 symbols", "LibraryCells/1000000",
     "HandWrittenCells/1000000", 1.5},
    {"numeric cell, 1,000,000 symbols against 1,000", "LibraryCells/1000000", "LibraryCells/1000",
     1.5},
    {"delivered batch, 1,000,000 symbols against 1,000", "DeliverBatch/1000000",
     "DeliverBatch/1000", 1.5},
    {"delivery and repaint of 50 rows, 1,000,000 against 1,000", "DeliverAndRepaint/1000000",
     "DeliverAndRepaint/1000", 1.5},
    {"loading 1,000,000 rows against a vector and a map by hand", "LoadControl/1000000",
     "LoadByHand/1000000", 1.5},
    {"aggregating 40,000 positions against a hash map by hand", "AggregateView/40000",
     "AggregateByHand/40000", 3.0},
    // The loop by hand grows by 1.4 here: so many records leave the cache.
    {"aggregating 40,000 positions against 10,000, per position", "AggregateView/40000",
     "AggregateView/10000", 2.0, 4.0},
    {"price on an aggregated view, 40,000 positions against 10", "AggregatedPrice/40000",
     "AggregatedPrice/10", 1.5},
    {"price change reaching a grid, 10,000 positions against 10", "PositionPriceChange/10000",
     "PositionPriceChange/10", 1.5},
    {"ratio change reaching a grid, 10,000 positions against 10", "PositionRatioChange/10000",
     "PositionRatioChange/10", 1.5},
    {"position update of one symbol, 10,000 rows against 10", "PositionUpdateOfOne/10000",
     "PositionUpdateOfOne/10", 1.5},
    {"removing the first of 10,000 rows against a vector", "RemoveRows/First/10000",
     "EraseByHand/First/10000", 3.0},
    {"removing the middle of 10,000 rows against a vector", "RemoveRows/Middle/10000",
     "EraseByHand/Middle/10000", 3.0},
    {"removing the last of 10,000 rows against an update of one", "RemoveRows/Last/10000",
     "PositionUpdateOfOne/10000", 3.0, 50.0}, // which goes fifty times per round
    {"100,000 x 20 cells as CSV against plain buffered output", "CsvExport/100000",
     "CsvPlain/100000", 2.0},
    {"100,000 x 20 cells as XLSX against the library alone", "XlsxExport/100000",
     "XlsxByLibrary/100000", 1.3},
    {"50 times a sorted view of 100,000 rows against Qt's proxy", "SortedView/100000",
     "SortedByQt/100000", 1.0, 1.0 / 50.0},
    {"sorted view, 100,000 rows against 1,000", "SortedView/100000", "SortedView/1000", 3.0},
    {"10 times a sorted watch of 100,000 rows against Qt's proxy", "SortedWatch/100000",
     "SortedByQt/100000", 1.0, 1.0 / 10.0},
    {"filtered view of 100,000 rows against Qt's proxy", "FilteredView/100000",
     "FilteredByQt/100000", 1.0},
    {"filtered view, 100,000 rows against 1,000", "FilteredView/100000", "FilteredView/1000", 3.0},
    {"480 cells summed over 200 sub-accounts against plain loops", "AggregatedCells/200",
     "PlainSums/200", 2.0},
    {"key in a price field against to_chars and group marks", "PriceKeyPress/", "ToCharsGrouped/",
     10.0},
    {"1,000 linked symbol fields against 100, per field", "LinkedSymbolFields/1000",
     "LinkedSymbolFields/100", 1.5, 10.0},
};

class TRatioReporter : public benchmark::ConsoleReporter {
public:
    using ConsoleReporter::ConsoleReporter;

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.error_occurred) continue;
            // Repetitions give a median of their own, which comes last and is the one that counts.
            const bool counts = run.run_type == Run::RT_Iteration || run.aggregate_name == "median";
            if (counts)
                FSeconds[run.run_name.function_name + "/" + run.run_name.args] =
                    run.GetAdjustedCPUTime();
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-60s %8s %8s\n", "Ratio", "measured", "at most");
        for (const TRatio& ratio : Ratios) {
            const auto measured = FSeconds.find(ratio.Measured);
            const auto against = FSeconds.find(ratio.Against);
            if (measured == FSeconds.end() || against == FSeconds.end()) continue;
            const double value = measured->second / against->second / ratio.Work;
            std::printf("%-60s %8.2f %8.2f%s\n", ratio.Promise, value, ratio.Limit,
                        value > ratio.Limit ? "  ABOVE" : "");
        }
    }

private:
    std::map<std::string, double> FSeconds;
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    TRatioReporter reporter(benchmark::ConsoleReporter::OO_Defaults);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
