#pragma once

#include "benchmarks/Workloads.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace quorin {

// What one benchmark gave at one size.
struct TFigure {
    std::vector<Double> Nanos; // per item, one for each repetition
    std::map<std::string, Double> Counters;

    Double Median() const;
};

// All figures of a run, by benchmark and size.
class TFigures {
public:
    void Take(const benchmark::BenchmarkReporter::Run& run);
    // Nil for what was not measured.
    const TFigure* Find(const std::string& benchmark, Int64 size) const;
    // The sizes that the benchmark was measured at, with their figures, in order.
    const std::map<Int64, TFigure>& Of(const std::string& benchmark) const;
    const std::map<std::string, std::map<Int64, TFigure>>& All() const { return FFigures; }

private:
    std::map<std::string, std::map<Int64, TFigure>> FFigures;
};

// Prints the tables of workloads, growth and counts; a figure beyond what is promised is marked.
// Answers how many are.
Integer PrintTables(const TFigures& figures);

// What the figures were made with.
struct TMachine {
    std::string Processor;
    Integer Cores = 0;
    std::string Compiler;
    std::string Date; // year-month-day
    Double LoadBefore = 0.0;
    Double LoadAfter = 0.0; // of one minute
    Integer Repetitions = 0;
};
TMachine ThisMachine();
Double LoadOfOneMinute();

// Everything as JSON: figures with all their repetitions, and the tables' contents.
void WriteJson(std::FILE* target, const TFigures& figures, const TMachine& machine);

} // namespace quorin
