#pragma once

#include "platform/widgets/Grid.h"
#include "platform/widgets/TreeListView.h"
#include "viewdata/frame/ColumnInfo.h"

#include <vector>

namespace quorin {

// What of a form can be laid out, searched and saved: its grid or its tree list, exactly one of
// them. Good as long as the form.
struct TFormView {
    TcxGrid* Grid = nullptr;
    TcxVirtualTreeList* Tree = nullptr;
    const TColumnList* DefaultColumns = nullptr; // name the columns in layouts
    std::vector<Integer> ReservedColumns;        // that are always shown
};

} // namespace quorin
