#include "tests/endurance/EnduranceOptions.h"
#include "tests/endurance/LiveBytes.h"
#include "tests/endurance/TradingDay.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <numeric>

namespace quorin {
namespace {

using TClock = std::chrono::steady_clock;

constexpr const char* ProgramName = "quorin-endurance";
constexpr int Marks = 16;              // at which memory is looked at
constexpr int WarmUpMarks = 4;         // that do not count
constexpr std::int64_t LeastSteps = 8; // from mark to mark, however slow the machine is
constexpr double MostGrowth = 0.01;
constexpr std::int64_t StepsToSettle = 50'000; // before that lists still grow to their full size
constexpr int WarmUpSteps = 60;                // of the day before
constexpr std::size_t MostLeft = 64 * 1024;    // bytes: what is made once and kept for good
constexpr double Megabyte = 1024.0 * 1024.0;

double SecondsSince(TClock::time_point start) {
    return std::chrono::duration<double>(TClock::now() - start).count();
}

double Mean(const std::vector<std::size_t>& bytes, std::size_t from, std::size_t to) {
    const auto begin = bytes.begin();
    return std::accumulate(begin + static_cast<std::ptrdiff_t>(from),
                           begin + static_cast<std::ptrdiff_t>(to), 0.0) /
           static_cast<double>(to - from);
}

struct TRun {
    TDayFigures Figures;
    std::vector<std::size_t> Held; // bytes, at each mark
};

// From 0 to 1: how much of the run is over.
double Progress(const TEnduranceOptions& options, std::int64_t updates, double seconds) {
    const double ofUpdates = static_cast<double>(updates) / static_cast<double>(options.Updates);
    return options.Seconds > 0.0 ? std::max(ofUpdates, seconds / options.Seconds) : ofUpdates;
}

TRun RunDay(const TEnduranceOptions& options, TFindings& findings, TClock::time_point start) {
    TDayRandom random(options.Seed);
    TTradingDay day(random, findings, options.Seed);
    TRun run;
    for (int mark = 1; mark <= Marks; ++mark) {
        const double end = static_cast<double>(mark) / Marks;
        std::int64_t steps = 0;
        while (steps < LeastSteps ||
               Progress(options, day.Figures().Updates, SecondsSince(start)) < end) {
            day.Step();
            ++steps;
        }
        run.Held.push_back(day.CloseAndWeigh());
        run.Figures = day.Figures();
        std::printf("%3.0f %%  %lld steps, %lld updates, %lld forms, %zu orders, %.2f MB\n",
                    end * 100.0, static_cast<long long>(run.Figures.Steps),
                    static_cast<long long>(run.Figures.Updates),
                    static_cast<long long>(run.Figures.FormsOpened), run.Figures.Orders,
                    static_cast<double>(run.Held.back()) / Megabyte);
        std::fflush(stdout);
    }
    return run;
}

// So that what is made once and kept for good is there.
void RunDayBefore(TFindings& findings) {
    TDayRandom random(0);
    TTradingDay day(random, findings, 0);
    for (int step = 0; step < WarmUpSteps; ++step) day.Step();
    day.CloseAndWeigh();
}

int Run(const TEnduranceOptions& options) {
    const auto start = TClock::now();
    TFindings findings;
    RunDayBefore(findings);
    const std::size_t before = LiveBytes();
    const TRun run = RunDay(options, findings, start);
    const std::size_t left =
        LiveBytes() - std::min(LiveBytes(), before + run.Held.capacity() * sizeof(std::size_t));
    const double seconds = SecondsSince(start);

    const double first = Mean(run.Held, WarmUpMarks, Marks / 2);
    const double second = Mean(run.Held, Marks / 2, Marks);
    const double growth = second / first - 1.0;
    findings.SetPlace("the end");
    const bool isLong = run.Figures.Steps >= StepsToSettle;
    findings.Require(!isLong || growth < MostGrowth, "memory has grown from half to half");
    findings.Require(left < MostLeft, "memory is left behind");
    const TDayFigures& figures = run.Figures;
    std::printf(
        "%lld steps in %.1f s, %lld updates, %.0f updates/s, %lld forms opened, %zu at a "
        "time, %zu orders, %lld faults; peak %.2f MB, halves %.3f and %.3f MB (%+.2f %%), "
        "%zu bytes left; %d wrong\n",
        static_cast<long long>(figures.Steps), seconds, static_cast<long long>(figures.Updates),
        static_cast<double>(figures.Updates) / seconds, static_cast<long long>(figures.FormsOpened),
        figures.MostForms, figures.Orders, static_cast<long long>(figures.Faults),
        static_cast<double>(figures.PeakBytes) / Megabyte, first / Megabyte, second / Megabyte,
        growth * 100.0, left, findings.Count());
    return findings.Count() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace quorin

int main(int argc, char** argv) {
    using namespace quorin;
    const TEnduranceCommandLine line = ParseEnduranceCommandLine(argc, argv);
    std::cout << line.Output;
    if (!line.Error.empty()) std::cerr << ProgramName << ": " << line.Error << '\n';
    if (!line.Options.has_value()) return line.ExitStatus;
    return Run(*line.Options);
}
