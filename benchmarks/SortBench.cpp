#include "benchmarks/SortBench.h"

#include "platform/widgets/GridTableView.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/FieldNumbers.h"

#include <benchmark/benchmark.h>

#include <array>
#include <utility>
#include <vector>

// A grid whose rows are sorted, or filtered, by what changes: a batch moves some rows, then the
// first screen of them is read. Costs by what changes, not by how many rows there are. Once over a
// plain table of numbers and once over a market watch, where most of the time goes into the
// delivery of quotes from all over the memory.

namespace quorin {
namespace {

constexpr std::array<Integer, 11> NumericColumns{
    MarketAttribute::LastPrice,       MarketAttribute::BestBid,
    MarketAttribute::BestAsk,         MarketAttribute::Volume,
    MarketAttribute::BestBidQuantity, MarketAttribute::BestAskQuantity,
    MarketAttribute::StrikePrice,     MarketAttribute::PreviousClose,
    MarketAttribute::HighPrice,       MarketAttribute::LowPrice,
    MarketAttribute::OpenPrice};

// A grid on show, over `Source`.
template <class Source>
class TSortedScreen {
public:
    template <class... Arguments>
    explicit TSortedScreen(Arguments&&... arguments)
        : FSource(std::forward<Arguments>(arguments)...) {
        FView.SetCustomDataSource(&FSource);
    }
    ~TSortedScreen() { FView.SetCustomDataSource(nullptr); }

    Source& Data() { return FSource; }
    TcxGridTableView& View() { return FView; }
    void AddColumns() {
        for (Integer column = 0; column < WindowColumns; ++column) {
            const auto place = static_cast<std::size_t>(column) % NumericColumns.size();
            FView.AddColumn(NumericColumns[place]);
        }
    }
    Double ReadWindow() {
        Double sum = 0.0;
        for (Integer row = 0; row < WindowRows; ++row) {
            for (Integer column = 0; column < WindowColumns; ++column) {
                sum += FView.Value(row, *FView.GetColumn(column)).ToDouble();
            }
        }
        return sum;
    }

private:
    Source FSource;
    TcxGridTableView FView;
};

// Numbers, row by row, of which the first column changes.
class TNumberTable : public TcxCustomDataSource {
public:
    TNumberTable(Integer rows, TSortedChanges& changes)
        : FRows(rows), FNumbers(static_cast<std::size_t>(rows) * WindowColumns, 100.0) {
        for (Integer row = 0; row < rows; ++row) Cell(row, 0) = changes.NextPrice();
    }
    Integer GetRecordCount() override { return FRows; }
    Variant GetValue(TcxDataRecordHandle record, TcxDataItemHandle item) override {
        return Cell(IndexOfHandle(record), IndexOfHandle(item));
    }
    bool ChangedRecords(TList<Integer>& records) override {
        for (const Integer row : FChanged) records.Add(row);
        return true;
    }
    void Deliver(TSortedChanges& changes) {
        FChanged.Clear();
        for (Integer change = 0; change < SortedBatch; ++change) {
            const Integer row = changes.NextRow();
            Cell(row, 0) = changes.NextPrice();
            FChanged.Add(row);
        }
        DataChanged();
    }

private:
    Double& Cell(Integer row, Integer column) {
        return FNumbers[static_cast<std::size_t>(row) * WindowColumns +
                        static_cast<std::size_t>(column)];
    }
    Integer FRows;
    std::vector<Double> FNumbers;
    TList<Integer> FChanged;
};

// A watch on the whole exchange, which follows every row.
class TWatchTable : public TCustomGridDataSource {
public:
    TWatchTable(Integer rows, TSortedChanges& changes)
        : TWatchTable(TBenchUniverse::OfSize(rows, true), changes) {}
    void Deliver(TSortedChanges& changes) {
        for (Integer change = 0; change < SortedBatch; ++change) {
            TEmbeddedSubItem& item = *FRowItems[static_cast<std::size_t>(changes.NextRow())];
            item.SetField(Field::LastPrice, changes.NextPrice());
            FItems.Touch(item);
        }
        FItems.Deliver();
    }

private:
    TWatchTable(TBenchUniverse& universe, TSortedChanges& changes) // made first
        : TCustomGridDataSource(TComponentClass::Of<TCustomMarketDataControl>()),
          FItems(universe.Services().Items()) {
        auto& control = *static_cast<TCustomMarketDataControl*>(DataControl());
        control.SetExchangeAndCategory(BenchExchange, 1);
        std::vector<Integer> everyRow;
        for (Integer row = 0; row < universe.Size(); ++row) {
            everyRow.push_back(row);
            FRowItems.push_back(&FItems.Item(SymbolAt(row)));
            FRowItems.back()->SetField(Field::LastPrice, changes.NextPrice());
        }
        control.ViewRecordChanged(everyRow);
    }

    TEmbeddedSubscribeAdapter& FItems;
    std::vector<TEmbeddedSubItem*> FRowItems;
};

void SortByFirst(TcxGridTableView& view) {
    view.GetColumn(0)->SetSortOrder(soAscending);
}

void FilterByFirst(TcxGridTableView& view) {
    TcxDataFilterCriteria& filter = view.Filter();
    view.GetColumn(0)->DataBinding().AddToFilter(filter.Root(), foGreater, SortedPriceMiddle, u"",
                                                 /*ReplaceExisting=*/false);
    filter.SetActive(true);
    filter.Refresh();
}

template <class Source, auto Arrange>
void FollowScreen(benchmark::State& state) {
    const auto rows = static_cast<Integer>(state.range(0));
    TSortedChanges changes(rows);
    TSortedScreen<Source> screen(rows, changes);
    screen.AddColumns();
    Arrange(screen.View());
    screen.ReadWindow();
    const Integer reads = screen.View().DataController().Counters().Values;
    for (auto _ : state) {
        screen.Data().Deliver(changes);
        benchmark::DoNotOptimize(screen.ReadWindow());
    }
    const Int64 values = screen.View().DataController().Counters().Values - reads;
    state.counters["values"] =
        static_cast<Double>(values) / static_cast<Double>(state.iterations());
    state.SetItemsProcessed(state.iterations() * SortedBatch);
}

#define QUORIN_SORT_BENCH(NAME, SOURCE, ARRANGE)                                                   \
    void NAME(benchmark::State& state) {                                                           \
        FollowScreen<SOURCE, ARRANGE>(state);                                                      \
    }                                                                                              \
    BENCHMARK(NAME)->Arg(SmallUniverse)->Arg(SortedUniverse)

QUORIN_SORT_BENCH(SortedView, TNumberTable, SortByFirst);
QUORIN_SORT_BENCH(FilteredView, TNumberTable, FilterByFirst);
QUORIN_SORT_BENCH(SortedWatch, TWatchTable, SortByFirst);

#undef QUORIN_SORT_BENCH

} // namespace
} // namespace quorin
