#include "benchmarks/HandChain.h"
#include "benchmarks/WindowChanges.h"
#include "platform/widgets/GridTableView.h"
#include "viewdata/services/FieldNumbers.h"

#include <utility>

// A batch of updates, then a look at the first screen of rows, in a grid whose rows stand as they
// come, sorted or filtered by what changes. Costs by what changes, not by how many rows there are.
// Once over a plain table of numbers and once over a market watch with live items; a watch follows
// the rows on the screen, and all of them where their places depend on prices.

namespace quorin {
namespace {

// A grid on show, over `Source`.
template <class Source>
class TScreen {
public:
    template <class... Arguments>
    explicit TScreen(Arguments&&... arguments) : FSource(std::forward<Arguments>(arguments)...) {
        FView.SetCustomDataSource(&FSource);
    }
    ~TScreen() { FView.SetCustomDataSource(nullptr); }

    Source& Data() { return FSource; }
    TcxGridTableView& View() { return FView; }
    void AddColumns() {
        for (Integer column = 0; column < WindowColumns; ++column) {
            FView.AddColumn(TagOfColumn(column));
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
    TNumberTable(Integer rows, TChanges& changes)
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
    void Deliver(TChanges& changes) {
        FChanged.Clear();
        changes.MakeBatch([this](Integer row, Double price) {
            Cell(row, 0) = price;
            FChanged.Add(row);
        });
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

// A watch on the whole exchange, which follows so many rows.
template <bool FollowsAll>
class TWatchTable : public TCustomGridDataSource {
public:
    TWatchTable(Integer rows, TChanges& changes)
        : TWatchTable(TBenchUniverse::OfSize(rows), changes) {}
    void Deliver(TChanges& changes) {
        changes.MakeBatch([this](Integer row, Double price) {
            TEmbeddedSubItem& item = *FRowItems[static_cast<std::size_t>(row)];
            item.SetField(Field::LastPrice, price);
            FItems.Touch(item);
        });
        FItems.Deliver();
    }

private:
    TWatchTable(TBenchUniverse& universe, TChanges& changes) // made first
        : TCustomGridDataSource(TComponentClass::Of<TCustomMarketDataControl>()),
          FItems(universe.Services().Items()) {
        auto& control = *static_cast<TCustomMarketDataControl*>(DataControl());
        control.SetExchangeAndCategory(BenchExchange, 1);
        std::vector<Integer> followed;
        for (Integer row = 0; row < universe.Size(); ++row) {
            if (FollowsAll || row < WindowRows) followed.push_back(row);
            FRowItems.push_back(&FItems.Item(SymbolAt(row)));
            FRowItems.back()->SetField(Field::LastPrice, changes.NextPrice());
        }
        control.ViewRecordChanged(followed);
        // The first two updates of a row take memory for its moves.
        for (Integer update = 0; update < 2; ++update) {
            for (const Integer row : followed)
                FItems.Touch(*FRowItems[static_cast<std::size_t>(row)]);
            FItems.Deliver();
        }
    }

    TEmbeddedSubscribeAdapter& FItems;
    std::vector<TEmbeddedSubItem*> FRowItems;
};

void LeaveAsIs(TcxGridTableView&) {}

void SortByFirst(TcxGridTableView& view) {
    view.GetColumn(0)->SetSortOrder(soAscending);
}

void FilterByFirst(TcxGridTableView& view) {
    TcxDataFilterCriteria& filter = view.Filter();
    view.GetColumn(0)->DataBinding().AddToFilter(filter.Root(), foGreater, MiddlePrice, u"",
                                                 /*ReplaceExisting=*/false);
    filter.SetActive(true);
    filter.Refresh();
}

template <class Source, auto Arrange>
void FollowScreen(benchmark::State& state) {
    const auto rows = static_cast<Integer>(state.range(0));
    TChanges changes(rows);
    TScreen<Source> screen(rows, changes);
    screen.AddColumns();
    Arrange(screen.View());
    screen.ReadWindow();
    screen.Data().Deliver(changes);
    screen.ReadWindow();
    TAllocationMeter meter(state);
    for (auto _ : state) {
        screen.Data().Deliver(changes);
        benchmark::DoNotOptimize(screen.ReadWindow());
    }
    meter.Tell(state.iterations());
    state.SetItemsProcessed(state.iterations());
}

constexpr Int64 WatchRuns = 500; // making a large watch takes longer than these

constexpr auto TableWindow = FollowScreen<TNumberTable, LeaveAsIs>;
constexpr auto TableSortedWindow = FollowScreen<TNumberTable, SortByFirst>;
constexpr auto TableFilteredWindow = FollowScreen<TNumberTable, FilterByFirst>;
constexpr auto WatchWindow = FollowScreen<TWatchTable<false>, LeaveAsIs>;
constexpr auto WatchSortedWindow = FollowScreen<TWatchTable<true>, SortByFirst>;
constexpr auto WatchFilteredWindow = FollowScreen<TWatchTable<true>, FilterByFirst>;

QUORIN_GROWTH(WatchWindow, GrowthSizes[3], GrowthSizes[0], WatchRuns);
QUORIN_GROWTH(WatchSortedWindow, GrowthSizes[3], GrowthSizes[0], WatchRuns);
QUORIN_GROWTH(WatchFilteredWindow, GrowthSizes[3], GrowthSizes[0], WatchRuns);
QUORIN_GROWTH(TableWindow);
QUORIN_GROWTH(TableSortedWindow);
QUORIN_GROWTH(TableFilteredWindow);

} // namespace
} // namespace quorin
