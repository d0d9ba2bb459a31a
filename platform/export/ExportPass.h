#pragma once

#include "platform/export/Exporters.h"

#include <limits>

namespace quorin {

struct TFormatLimits {
    const char* Name;
    Integer Rows; // the captions' row counts
    Integer Columns;
};

inline constexpr TFormatLimits CsvLimits = {"CSV file", std::numeric_limits<Integer>::max(),
                                            std::numeric_limits<Integer>::max()};
inline constexpr TFormatLimits XlsLimits = {"XLS workbook", 65536, 256};
inline constexpr TFormatLimits XlsxLimits = {"XLSX workbook", 1048576, 16384};

// The table's size, asked once. Raises EExportError where the format holds less.
struct TTableSize {
    TTableSize(TExportTable& table, const TFormatLimits& limits);
    Integer Rows; // without the captions
    Integer Columns;
};

// Calls write(row) for each row, and the event in between. False when it cancelled.
template <class WriteRow>
bool ForEachRow(Integer rows, TExportProgressEvent progress, WriteRow write) {
    for (Integer row = 0; row < rows; ++row) {
        if (progress && row > 0 && row % ProgressRows == 0 && !progress(row, rows)) return false;
        write(row);
    }
    return !progress || progress(rows, rows);
}

} // namespace quorin
