#include "benchmarks/BenchMarket.h"

#include "embedded/UniverseFile.h"
#include "embedded/UniverseMaker.h"
#include "terminal/forms/MarketWatchForm.h"

#include <fstream>
#include <memory>
#include <unistd.h>
#include <unordered_map>

// A list of symbols from a file into the market service, and on to the first screen of a watch.

namespace quorin {
namespace {

constexpr std::uint64_t Seed = 1;

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
    Integer loaded = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const Double before = HeapBytes();
        auto items = std::make_unique<TEmbeddedSubscribeAdapter>();
        auto market = std::make_unique<TEmbeddedMarketAdapter>(*items);
        state.ResumeTiming();
        LoadUniverseList(file.Path(), *market);
        state.PauseTiming();
        bytes = HeapBytes() - before;
        loaded = market->Universe().SymbolCount();
        market.reset();
        items.reset();
        state.ResumeTiming();
    }
    if (loaded != size) state.SkipWithError("symbols are missing");
    state.SetItemsProcessed(state.iterations() * size);
    state.counters["bytes"] = bytes / size;
}

constexpr StringView ListedExchange = u"XHKG";

// From nothing to the first screen of a watch: services with their texts, the symbols from the
// file, the form and what its first rows show.
void StartWatch(benchmark::State& state) {
    const TListFile file(static_cast<Integer>(state.range(0)));
    TBenchUniverse::Release();
    Integer rows = 0;
    String text;
    for (auto _ : state) {
        auto services = std::make_unique<TBenchServices>(QUORIN_DATA_DIR);
        LoadUniverseList(file.Path(), services->Market());
        services->Deliver();
        auto form = std::make_unique<TMarketWatchForm>();
        form->View().SetVisibleRowCapacity(WindowRows);
        form->ShowMarket(ListedExchange);
        form->FollowVisibleRows();
        services->Deliver();
        for (Integer row = 0; row < WindowRows; ++row) {
            for (Integer column = 0; column < form->View().GetColumnCount(); ++column) {
                form->View().GetCellText(row, *form->View().GetColumn(column), text);
            }
        }
        state.PauseTiming();
        rows = form->View().RowCount();
        form.reset();
        services.reset();
        state.ResumeTiming();
    }
    if (rows == 0) state.SkipWithError("no rows");
    state.SetItemsProcessed(state.iterations());
}

// The fields of a line, of which one in quotes may have commas.
void SplitLine(const std::string& line, std::vector<std::string>& fields) {
    fields.assign(1, {});
    bool isQuoted = false;
    for (const char unit : line) {
        if (unit == '"') {
            isQuoted = !isQuoted;
        } else if (unit == ',' && !isQuoted) {
            fields.emplace_back();
        } else {
            fields.back() += unit;
        }
    }
}

// The same file into a hash map of rows of texts, unchecked, and the first rows of one exchange.
void StartByHand(benchmark::State& state) {
    constexpr std::size_t symbolColumn = 0;
    constexpr std::size_t exchangeColumn = 2;
    const TListFile file(static_cast<Integer>(state.range(0)));
    for (auto _ : state) {
        auto records =
            std::make_unique<std::unordered_map<std::string, std::vector<std::string>>>();
        std::vector<const std::vector<std::string>*> rows;
        std::ifstream source(file.Path());
        std::string line;
        std::vector<std::string> fields;
        while (std::getline(source, line)) {
            SplitLine(line, fields);
            const auto added = records->emplace(fields[symbolColumn], fields).first;
            if (fields[exchangeColumn] == "XHKG") rows.push_back(&added->second);
        }
        std::size_t length = 0;
        for (std::size_t row = 0; row < static_cast<std::size_t>(WindowRows) && row < rows.size();
             ++row) {
            for (const std::string& field : *rows[row]) length += field.size();
        }
        benchmark::DoNotOptimize(length);
        state.PauseTiming();
        records.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
}

// A live item for each symbol, without a quote yet.
void MakeItems(benchmark::State& state) {
    const auto size = static_cast<Integer>(state.range(0));
    Double bytes = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        auto items = std::make_unique<TEmbeddedSubscribeAdapter>();
        const Double before = HeapBytes();
        state.ResumeTiming();
        for (Integer index = 0; index < size; ++index) items->Item(SymbolAt(index));
        state.PauseTiming();
        bytes = HeapBytes() - before;
        items.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * size);
    state.counters["bytes"] = bytes / size;
}

QUORIN_GROWTH(LoadList);
QUORIN_GROWTH(MakeItems);
QUORIN_GROWTH(StartWatch, GrowthSizes[3], GrowthSizes[0], /*Runs=*/1);
QUORIN_GROWTH(StartByHand, GrowthSizes[3], GrowthSizes[0], /*Runs=*/1);

} // namespace
} // namespace quorin
