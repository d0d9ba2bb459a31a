#include "benchmarks/QtTable.h"

#include <QSortFilterProxyModel>

// The same cells, changes and window over Qt's own table model, sorting and filtering.

namespace quorin {
namespace {

class TAboveMiddle : public QSortFilterProxyModel {
protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        return sourceModel()->index(row, 0, parent).data().toDouble() > MiddlePrice;
    }
};

double SumOfWindow(const QAbstractItemModel& model) {
    double sum = 0.0;
    for (int row = 0; row < WindowRows; ++row) {
        for (int column = 0; column < WindowColumns; ++column) {
            sum += model.index(row, column).data().toDouble();
        }
    }
    return sum;
}

void QtCells(benchmark::State& state) {
    const auto rows = static_cast<Integer>(state.range(0));
    TChanges changes(rows);
    const TVectorTable table(rows, changes);
    const QAbstractItemModel& model = table;
    for (auto _ : state) {
        double sum = 0.0;
        for (Integer row = 0; row < WindowRows; ++row) {
            for (int column = 0; column < WindowColumns; ++column) {
                sum += model.index(RowOfWindow(row, rows), column).data().toDouble();
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * WindowRows * WindowColumns);
}

void FollowModel(benchmark::State& state, TVectorTable& table, TChanges& changes,
                 const QAbstractItemModel& shown) {
    for (auto _ : state) {
        changes.MakeBatch([&table](Integer row, Double price) { table.Change(row, price); });
        benchmark::DoNotOptimize(SumOfWindow(shown));
    }
    state.SetItemsProcessed(state.iterations());
}

void QtWindow(benchmark::State& state) {
    const auto rows = static_cast<Integer>(state.range(0));
    TChanges changes(rows);
    TVectorTable table(rows, changes);
    FollowModel(state, table, changes, table);
}

template <class Proxy>
void FollowProxy(benchmark::State& state, bool isSorted) {
    const auto rows = static_cast<Integer>(state.range(0));
    TChanges changes(rows);
    TVectorTable table(rows, changes);
    Proxy proxy;
    proxy.setSourceModel(&table);
    if (isSorted) proxy.sort(0);
    FollowModel(state, table, changes, proxy);
}

void QtSortedWindow(benchmark::State& state) {
    FollowProxy<QSortFilterProxyModel>(state, /*isSorted=*/true);
}

void QtFilteredWindow(benchmark::State& state) {
    FollowProxy<TAboveMiddle>(state, /*isSorted=*/false);
}

QUORIN_GROWTH(QtCells);
QUORIN_GROWTH(QtWindow);
QUORIN_GROWTH(QtSortedWindow);
QUORIN_GROWTH(QtFilteredWindow);

} // namespace
} // namespace quorin
