#include "benchmarks/Growth.h"
#include "benchmarks/Report.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

// Measures ours and the peers in one run, so that ratios hold on a machine that is not alone.

namespace {

using namespace quorin;

constexpr const char* Help =
    R"(./bench [options]: builds Release, measures every workload and its peers in one run, at 1,000
to 1,000,000 rows, and prints three tables: workloads with their ratios, growth, and what is
counted (allocations, memory). Times are medians; what misses its mark says so. About five minutes.

  --json FILE     writes the raw figures, each repetition, and what the tables are made of
  --docs          measures and renews the figures and plots of docs/benchmarks.md
  --quick         one repetition of little time, up to 100,000 rows: half a minute, to look at only
  --filter REGEX  only benchmarks whose name matches, such as 'Cells|Window'
  --list          the names of all benchmarks
  --verbose       also each repetition as it is measured
  --strict        ends with 1 when a mark is missed
  --help          this
)";

constexpr const char* GoogleOption = "--benchmark_"; // handed on as it is

constexpr Integer Repetitions = 5;
constexpr Int64 QuickSize = 100'000;

struct TBenchOptions {
    std::string JsonFile;
    std::vector<std::string> Passed; // to Google Benchmark
    bool IsQuick = false;
    bool IsVerbose = false;
    bool IsStrict = false;
    bool WantsHelp = false;
    std::string Fault;
};

TBenchOptions ReadOptions(int argc, char** argv) {
    TBenchOptions options;
    for (int index = 1; index < argc; ++index) {
        const std::string_view option = argv[index];
        const auto value = [&]() -> std::string {
            if (index + 1 < argc) return argv[++index];
            options.Fault = std::string(option) + " needs a value";
            return {};
        };
        if (option == "--help" || option == "-h") {
            options.WantsHelp = true;
        } else if (option == "--json") {
            options.JsonFile = value();
        } else if (option == "--filter") {
            options.Passed.push_back("--benchmark_filter=^(" + value() + ")");
        } else if (option == "--list") {
            options.Passed.push_back("--benchmark_list_tests=true");
        } else if (option == "--quick") {
            options.IsQuick = true;
        } else if (option == "--verbose") {
            options.IsVerbose = true;
        } else if (option == "--strict") {
            options.IsStrict = true;
        } else if (option.substr(0, std::strlen(GoogleOption)) == GoogleOption) {
            options.Passed.emplace_back(option);
        } else {
            options.Fault = "no option is called " + std::string(option) + "; see --help";
        }
    }
    return options;
}

class TCollector : public benchmark::ConsoleReporter {
public:
    explicit TCollector(bool isVerbose)
        : ConsoleReporter(OO_Defaults), FIsVerbose(isVerbose),
          FShowsProgress(!isVerbose && isatty(STDERR_FILENO) != 0) {}

    bool ReportContext(const Context& context) override {
        return !FIsVerbose || ConsoleReporter::ReportContext(context);
    }
    void ReportRuns(const std::vector<Run>& runs) override {
        if (FIsVerbose) ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.error_occurred) {
                ++FFailures;
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                continue;
            }
            FFigures.Take(run);
            if (FShowsProgress) {
                std::fprintf(stderr, "\r\033[K%s", run.benchmark_name().c_str());
            }
        }
    }
    void Finalize() override {
        if (FShowsProgress) std::fprintf(stderr, "\r\033[K");
    }
    const TFigures& Figures() const { return FFigures; }
    Integer Failures() const { return FFailures; }

private:
    TFigures FFigures;
    Integer FFailures = 0;
    bool FIsVerbose;
    bool FShowsProgress;
};

void StartGoogleBenchmark(const char* program, const TBenchOptions& options) {
    const std::string repetitions = std::to_string(options.IsQuick ? 1 : Repetitions);
    std::vector<std::string> all{program, "--benchmark_repetitions=" + repetitions,
                                 options.IsQuick ? "--benchmark_min_time=0.01"
                                                 : "--benchmark_min_time=0.03"};
    all.insert(all.end(), options.Passed.begin(), options.Passed.end());
    std::vector<char*> arguments;
    for (std::string& argument : all) arguments.push_back(argument.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
}

bool WriteFile(const std::string& path, const TFigures& figures, const TMachine& machine) {
    std::FILE* const file = std::fopen(path.c_str(), "w");
    if (file == nullptr) return false;
    WriteJson(file, figures, machine);
    return std::fclose(file) == 0;
}

} // namespace

int main(int argc, char** argv) {
    TBenchOptions options = ReadOptions(argc, argv);
    if (!options.Fault.empty()) {
        std::fprintf(stderr, "bench: %s\n", options.Fault.c_str());
        return 2;
    }
    if (options.WantsHelp) {
        std::fputs(Help, stdout);
        return 0;
    }
    StartGoogleBenchmark(argv[0], options);
    RegisterGrowth(options.IsQuick ? QuickSize : *std::rbegin(GrowthSizes));
    TMachine machine = ThisMachine();
    TCollector collector(options.IsVerbose);
    benchmark::RunSpecifiedBenchmarks(&collector);
    benchmark::Shutdown();
    if (collector.Figures().All().empty()) return collector.Failures() > 0;

    machine.LoadAfter = LoadOfOneMinute();
    const TFigure& anyFigure = collector.Figures().All().begin()->second.begin()->second;
    machine.Repetitions = static_cast<Integer>(anyFigure.Nanos.size());
    std::printf("%s, %d cores, %s; %s, load %.2f before and %.2f after; medians of %d\n\n",
                machine.Processor.c_str(), machine.Cores, machine.Compiler.c_str(),
                machine.Date.c_str(), machine.LoadBefore, machine.LoadAfter, machine.Repetitions);
    const Integer missed = PrintTables(collector.Figures());
    if (missed > 0) std::printf("\n%d missed\n", missed);
    if (!options.JsonFile.empty() && !WriteFile(options.JsonFile, collector.Figures(), machine)) {
        std::fprintf(stderr, "bench: cannot write %s\n", options.JsonFile.c_str());
        return 1;
    }
    return collector.Failures() > 0 || (options.IsStrict && missed > 0);
}
