#pragma once

#include "platform/widgets/Grid.h"
#include "platform/widgets/TreeListView.h"

namespace quorin {

// Saves a view as a file that the user names: every row of the view in view order, its visible
// columns in their order, as the view shows them. `defaultFileName` is proposed, in `defaultDir`
// or, where that is empty, in the user's documents folder. A user who cancels gets no file. The
// views must outlive the call. They raise EExportError, the old file then stays.
void ExportToCSV(TcxGrid& grid, StringView defaultFileName, StringView defaultDir);
void ExportToXLS(TcxGrid& grid, StringView defaultFileName, StringView defaultDir);
void ExportToXLSX(TcxGrid& grid, StringView defaultFileName, StringView defaultDir);
void ExportToCSV(TcxVirtualTreeList& tree, StringView defaultFileName, StringView defaultDir);
void ExportToXLS(TcxVirtualTreeList& tree, StringView defaultFileName, StringView defaultDir);
void ExportToXLSX(TcxVirtualTreeList& tree, StringView defaultFileName, StringView defaultDir);

} // namespace quorin
