#pragma once

#include "platform/export/ExportTable.h"
#include "platform/rtl/Types.h"
#include "platform/widgets/ExportLinks.h"

#include <filesystem>

namespace quorin {

// The writers of files, for programs that know the name; see ViewExports.h for those that ask the
// user. Captions come first, then every row of the table. The file is written beside its target,
// which it replaces at the end; until then, and after any failure, the target stays as it was. A
// link is followed; a device or pipe gets the finished bytes.
//
// They answer False when the progress event, told every ProgressRows rows and after the last one,
// cancelled: then there is no file either. They raise EExportError, before anything is written
// where the table is larger than the format. What the table and the event raise passes through.
inline constexpr Integer ProgressRows = 1000;

struct TCsvOptions {
    Char Separator = u',';
    bool ByteOrderMark = false;
    // An apostrophe before a text that a spreadsheet would take for a formula: one that begins with
    // "=", "+", "-" or "@" and is no number.
    bool GuardFormula = false;
};

// UTF-8 with quotes where RFC 4180 asks for them; two blanks per level of a tree's row.
bool WriteCsv(const std::filesystem::path& target, TExportTable& table,
              const TCsvOptions& options = {}, TExportProgressEvent progress = nullptr);

// The two workbooks have one sheet. An empty text is a blank cell. A number is stored with a format
// that shows its very text; what no format shows as it stands ("00700", more than 15 digits, "5.",
// group marks elsewhere than between thousands) is text, and so are captions. No text is ever a
// formula. A text is cut to what a cell holds, MaxCellText units, and then ends in an ellipsis.
// Units that are no characters become U+FFFD. The row of captions is bold and does not scroll away;
// levels of a tree are the cell's indentation, beyond the deepest of the format blanks before the
// text.
inline constexpr Integer MaxCellText = 32767;

// Excel 97 to 2003: at most 65,536 rows with the captions and 256 columns.
bool WriteXls(const std::filesystem::path& target, TExportTable& table,
              TExportProgressEvent progress = nullptr);

// Excel 2007: at most 1,048,576 rows with the captions and 16,384 columns.
bool WriteXlsx(const std::filesystem::path& target, TExportTable& table,
               TExportProgressEvent progress = nullptr);

} // namespace quorin
