#pragma once

#include <QHeaderView>
#include <QTableView>

namespace quorin {

// The room that a table asks for: all its columns, and so many rows below the captions.
inline QSize TableSize(const QTableView& table, int rows) {
    constexpr int edgeWidth = 24; // of the scroll bar and the frame
    return {table.horizontalHeader()->length() + edgeWidth,
            (rows + 1) * table.verticalHeader()->defaultSectionSize()};
}

} // namespace quorin
