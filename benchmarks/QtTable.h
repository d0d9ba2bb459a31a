#pragma once

#include "benchmarks/WindowChanges.h"

#include <QAbstractTableModel>

#include <vector>

namespace quorin {

// What a program on Qt alone would have: a table that is a vector of numbers.
class TVectorTable : public QAbstractTableModel {
public:
    TVectorTable(int rows, TChanges& changes)
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

} // namespace quorin
