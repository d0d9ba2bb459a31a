#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// What a file is written from: the visible columns of a view in their order and its rows in view
// order. It holds still while an export runs; the counts are asked once, at the beginning, and each
// cell at most once, row by row.
class TExportTable {
public:
    virtual ~TExportTable() = default;

    virtual Integer ColumnCount() = 0;
    virtual Integer RowCount() = 0;
    // Both replace the text by what the view shows.
    virtual void GetCaption(Integer column, String& text) = 0;
    virtual void GetCellText(Integer row, Integer column, String& text) = 0;
    // Level of a tree's row, from 0; its first column is indented by it.
    virtual Integer Depth(Integer row);
    // False: a workbook stores every cell as text, also one that spells a number.
    virtual bool HasNumbers() const { return true; }
};

inline Integer TExportTable::Depth(Integer) {
    return 0;
}

} // namespace quorin
