#include "benchmarks/Report.h"

#include <cinttypes>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <thread>

namespace quorin {

namespace {

// Texts here have neither quotes nor control characters in them.
std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

// Writes the parts of a list or an object with commas between them.
class TParts {
public:
    explicit TParts(std::FILE* target) : FTarget(target) {}
    void Next() {
        if (!FIsFirst) std::fputs(",\n", FTarget);
        FIsFirst = false;
    }

private:
    std::FILE* FTarget;
    bool FIsFirst = true;
};

void WriteFigure(std::FILE* target, const TFigure& figure) {
    std::fprintf(target, "{\"median_ns\": %.6g, \"runs_ns\": [", figure.Median());
    for (std::size_t run = 0; run < figure.Nanos.size(); ++run) {
        std::fprintf(target, "%s%.6g", run > 0 ? ", " : "", figure.Nanos[run]);
    }
    std::fputs("]", target);
    for (const auto& [name, value] : figure.Counters) {
        std::fprintf(target, ", %s: %.6g", Quoted(name).c_str(), value);
    }
    std::fputs("}", target);
}

void WriteWorkload(std::FILE* target, const TWorkload& workload) {
    std::fprintf(target,
                 "    {\"title\": \"%s\", \"per\": \"%s\", \"benchmark\": \"%s\", "
                 "\"growth_at_most\": %g, \"peers\": [",
                 workload.Title, workload.Per, workload.Benchmark, workload.GrowthAtMost);
    TParts peers(target);
    for (const TPeer& peer : workload.Peers) {
        if (peer.Benchmark == nullptr) continue;
        peers.Next();
        std::fprintf(target,
                     "{\"benchmark\": \"%s\", \"title\": \"%s\", \"at_most\": %g, "
                     "\"at_size\": %" PRId64 "}",
                     peer.Benchmark, peer.Title, peer.AtMost, peer.AtSize);
    }
    std::fputs("]}", target);
}

} // namespace

Double LoadOfOneMinute() {
    double load = 0.0;
    return getloadavg(&load, 1) == 1 ? load : 0.0;
}

TMachine ThisMachine() {
    TMachine machine;
    std::ifstream processors("/proc/cpuinfo");
    for (std::string line; std::getline(processors, line);) {
        if (line.rfind("model name", 0) != 0) continue;
        machine.Processor = line.substr(line.find(':') + 2);
        break;
    }
    machine.Cores = static_cast<Integer>(std::thread::hardware_concurrency());
#if defined(__clang__)
    machine.Compiler = "Clang " __clang_version__;
#else
    machine.Compiler = "GCC " __VERSION__;
#endif
    const std::time_t now = std::time(nullptr);
    char date[sizeof "year-month-day"];
    std::strftime(date, sizeof date, "%Y-%m-%d", std::localtime(&now));
    machine.Date = date;
    machine.LoadBefore = LoadOfOneMinute();
    return machine;
}

void WriteJson(std::FILE* target, const TFigures& figures, const TMachine& machine) {
    std::fprintf(target,
                 "{\"machine\": {\"processor\": \"%s\", \"cores\": %d, \"compiler\": \"%s\", "
                 "\"date\": \"%s\", \"load_before\": %.2f, \"load_after\": %.2f, "
                 "\"repetitions\": %d},\n\"workloads\": [\n",
                 machine.Processor.c_str(), machine.Cores, machine.Compiler.c_str(),
                 machine.Date.c_str(), machine.LoadBefore, machine.LoadAfter, machine.Repetitions);
    TParts workloads(target);
    for (const TWorkload& workload : Workloads()) {
        workloads.Next();
        WriteWorkload(target, workload);
    }
    std::fputs("\n],\n\"counts\": [\n", target);
    TParts counts(target);
    for (const TCount& count : Counts()) {
        counts.Next();
        std::fprintf(target,
                     "    {\"title\": \"%s\", \"benchmark\": \"%s\", \"counter\": \"%s\", "
                     "\"at_most\": %g}",
                     count.Title, count.Benchmark, count.Counter, count.AtMost);
    }
    std::fputs("\n],\n\"figures\": {\n", target);
    TParts benchmarks(target);
    for (const auto& [benchmark, sizes] : figures.All()) {
        benchmarks.Next();
        std::fprintf(target, "    %s: {\n", Quoted(benchmark).c_str());
        TParts all(target);
        for (const auto& [size, figure] : sizes) {
            all.Next();
            std::fprintf(target, "        \"%" PRId64 "\": ", size);
            WriteFigure(target, figure);
        }
        std::fputs("\n    }", target);
    }
    std::fputs("\n}}\n", target);
}

} // namespace quorin
