#pragma once

#include "viewdata/frame/ColumnInfo.h"

namespace quorin {

// The columns that every TCustomCloseAllPositionDataControl shows. Once made they live as long as
// the program.
void MakeCloseAllColumns();
// Nil before they were made.
const TColumnList* CloseAllColumns();

} // namespace quorin
