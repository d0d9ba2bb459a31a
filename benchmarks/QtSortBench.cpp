#include "benchmarks/SortBench.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

#include <vector>

// The same changes and the same window over Qt's own sorting and filtering of a table that is a
// vector of numbers.

namespace quorin {
namespace {

class TVectorTable : public QAbstractTableModel {
public:
    TVectorTable(int rows, TSortedChanges& changes)
        : FRows(rows), FNumbers(static_cast<std::size_t>(rows) * WindowColumns, 100.0) {
        for (int row = 0; row < rows; ++row) FNumbers[Cell(row, 0)] = changes.NextPrice();
    }
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : FRows; }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : WindowColumns;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid()) return {};
        return FNumbers[Cell(index.row(), index.column())];
    }
    void Change(int row, double price) {
        FNumbers[Cell(row, 0)] = price;
        emit dataChanged(index(row, 0), index(row, 0));
    }

private:
    static std::size_t Cell(int row, int column) {
        return static_cast<std::size_t>(row) * WindowColumns + static_cast<std::size_t>(column);
    }
    int FRows;
    std::vector<double> FNumbers;
};

class TAboveMiddle : public QSortFilterProxyModel {
protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        return sourceModel()->index(row, 0, parent).data().toDouble() > SortedPriceMiddle;
    }
};

void FollowProxy(benchmark::State& state, QSortFilterProxyModel& proxy, bool isSorted) {
    const auto rows = static_cast<Integer>(state.range(0));
    TSortedChanges changes(rows);
    TVectorTable table(rows, changes);
    proxy.setSourceModel(&table);
    if (isSorted) proxy.sort(0);
    for (auto _ : state) {
        for (Integer change = 0; change < SortedBatch; ++change) {
            const Integer row = changes.NextRow();
            table.Change(row, changes.NextPrice());
        }
        double sum = 0.0;
        for (int row = 0; row < WindowRows; ++row) {
            for (int column = 0; column < WindowColumns; ++column) {
                sum += proxy.index(row, column).data().toDouble();
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * SortedBatch);
}

void SortedByQt(benchmark::State& state) {
    QSortFilterProxyModel proxy;
    FollowProxy(state, proxy, /*isSorted=*/true);
}

void FilteredByQt(benchmark::State& state) {
    TAboveMiddle proxy;
    FollowProxy(state, proxy, /*isSorted=*/false);
}

BENCHMARK(SortedByQt)->Arg(SortedUniverse);
BENCHMARK(FilteredByQt)->Arg(SortedUniverse);

} // namespace
} // namespace quorin
