#include "platform/export/ExportPass.h"

#include <string>

namespace quorin {

namespace {

void CheckCount(Integer count, Integer limit, const char* what, const char* format) {
    if (count <= limit) return;
    throw EExportError(TExportFault::TooLarge, std::to_string(count) + " " + what + ": an " +
                                                   format + " holds " + std::to_string(limit) +
                                                   ".");
}

} // namespace

TTableSize::TTableSize(TExportTable& table, const TFormatLimits& limits)
    : Rows(table.RowCount()), Columns(table.ColumnCount()) {
    CheckCount(Columns, limits.Columns, "columns", limits.Name);
    CheckCount(Rows, limits.Rows - 1, "rows below the captions", limits.Name);
}

} // namespace quorin
