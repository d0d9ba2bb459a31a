#include "benchmarks/SortBench.h"

#include "platform/widgets/GridTableView.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/services/FieldNumbers.h"

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

// A market watch whose rows are sorted, or filtered, by what the market changes: a delivered batch
// moves some rows, then the first screen of them is read. Costs by what changes, not by how many
// rows there are.

namespace quorin {
namespace {

constexpr std::array<Integer, 11> NumericColumns{
    MarketAttribute::LastPrice,       MarketAttribute::BestBid,
    MarketAttribute::BestAsk,         MarketAttribute::Volume,
    MarketAttribute::BestBidQuantity, MarketAttribute::BestAskQuantity,
    MarketAttribute::StrikePrice,     MarketAttribute::PreviousClose,
    MarketAttribute::HighPrice,       MarketAttribute::LowPrice,
    MarketAttribute::OpenPrice};

// A watch on the whole exchange, which follows every row.
class TWatchScreen {
public:
    explicit TWatchScreen(Integer rows)
        : FItems(TBenchUniverse::OfSize(rows, true).Services().Items()),
          FSource(TComponentClass::Of<TCustomMarketDataControl>()) {
        for (Integer column = 0; column < WindowColumns; ++column) {
            const auto place = static_cast<std::size_t>(column) % NumericColumns.size();
            FView.AddColumn(NumericColumns[place]);
        }
        FView.SetCustomDataSource(&FSource);
        auto& control = *static_cast<TCustomMarketDataControl*>(FSource.DataControl());
        control.SetExchangeAndCategory(BenchExchange, 1);
        std::vector<Integer> everyRow;
        for (Integer row = 0; row < rows; ++row) {
            everyRow.push_back(row);
            FRowItems.push_back(&FItems.Item(SymbolAt(row)));
        }
        control.ViewRecordChanged(everyRow);
    }
    ~TWatchScreen() { FView.SetCustomDataSource(nullptr); }

    TcxGridTableView& View() { return FView; }

    void SetEveryPrice(TSortedChanges& changes) {
        for (TEmbeddedSubItem* item : FRowItems) {
            item->SetField(Field::LastPrice, changes.NextPrice());
        }
    }
    void Deliver(TSortedChanges& changes) {
        for (Integer change = 0; change < SortedBatch; ++change) {
            TEmbeddedSubItem& item = *FRowItems[static_cast<std::size_t>(changes.NextRow())];
            item.SetField(Field::LastPrice, changes.NextPrice());
            FItems.Touch(item);
        }
        FItems.Deliver();
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
    TEmbeddedSubscribeAdapter& FItems;
    TCustomGridDataSource FSource;
    TcxGridTableView FView;
    std::vector<TEmbeddedSubItem*> FRowItems;
};

void FollowScreen(benchmark::State& state, TWatchScreen& screen) {
    const auto rows = static_cast<Integer>(state.range(0));
    TSortedChanges changes(rows);
    screen.SetEveryPrice(changes);
    screen.ReadWindow();
    const Integer reads = screen.View().DataController().Counters().Values;
    for (auto _ : state) {
        screen.Deliver(changes);
        benchmark::DoNotOptimize(screen.ReadWindow());
    }
    const Int64 values = screen.View().DataController().Counters().Values - reads;
    state.counters["values"] =
        static_cast<Double>(values) / static_cast<Double>(state.iterations());
    state.SetItemsProcessed(state.iterations() * SortedBatch);
}

void SortedView(benchmark::State& state) {
    TWatchScreen screen(static_cast<Integer>(state.range(0)));
    screen.View().GetColumn(0)->SetSortOrder(soAscending);
    FollowScreen(state, screen);
}

void FilteredView(benchmark::State& state) {
    TWatchScreen screen(static_cast<Integer>(state.range(0)));
    TcxDataFilterCriteria& filter = screen.View().Filter();
    screen.View().GetColumn(0)->DataBinding().AddToFilter(filter.Root(), foGreater,
                                                          SortedPriceMiddle, u"",
                                                          /*ReplaceExisting=*/false);
    filter.SetActive(true);
    filter.Refresh();
    FollowScreen(state, screen);
}

BENCHMARK(SortedView)->Arg(SmallUniverse)->Arg(SortedUniverse);
BENCHMARK(FilteredView)->Arg(SmallUniverse)->Arg(SortedUniverse);

} // namespace
} // namespace quorin
