#pragma once

#include "platform/widgets/GridTableView.h"
#include "platform/widgets/TreeListView.h"
#include "viewdata/frame/ColumnInfo.h"

namespace quorin {

// A view as text and back. Where the texts are kept is the form's business; grids and tree lists
// write the same format.
//
// A column layout has an entry "key,visible,width;" for each column, in the view's sequence: the
// key of the default column list, else the column's tag; 1 or 0; the width in pixels. A sort layout
// has an entry "tag,index,order;" for each column that sorts, in the sort sequence; order 1 is
// ascending, 2 descending.
//
// Reading puts up with anything: an entry that makes no sense is skipped, the others count.

String GetColumnLayout(TcxGridTableView& grid, const TColumnList* defaultColumns);
String GetColumnLayout(TcxVirtualTreeList& tree, const TColumnList* defaultColumns);

// Columns of the layout come first, in its order; all others stay behind them as they were. Widths
// above 300 are cut to 300. False, and nothing done, without default columns or entries.
Boolean SetColumnLayout(TcxGridTableView& grid, StringView layout,
                        const TColumnList* defaultColumns);
Boolean SetColumnLayout(TcxVirtualTreeList& tree, StringView layout,
                        const TColumnList* defaultColumns);

String GetSortLayout(TcxGridTableView& grid);
String GetSortLayout(TcxVirtualTreeList& tree);

// Clears the sort first, also for an empty layout.
void SetSortLayout(TcxGridTableView& grid, StringView layout);
void SetSortLayout(TcxVirtualTreeList& tree, StringView layout);

} // namespace quorin
