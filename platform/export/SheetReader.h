#pragma once

#include "platform/export/CellValue.h"
#include "platform/export/ExportPass.h"
#include "platform/export/ExportTable.h"
#include "platform/rtl/TDictionary.h"

#include <vector>

namespace quorin {

// What a cell of a sheet looks like beyond its text.
struct TCellStyle {
    TCellKind Kind = TCellKind::Text;
    TNumberShape Shape; // of a number
    Integer Indent = 0;
    bool IsCaption = false;
};

struct TSheetCell {
    TCellKind Kind = TCellKind::Blank;
    Double Number = 0.0;
    Integer Style = 0;
};

// Reads a table as both kinds of workbook store it: kinds of cells, texts that fit, styles by
// number, widths of columns.
class TSheetReader {
public:
    static constexpr Integer CaptionStyle = 0;
    static constexpr Integer TextStyle = 1;

    TSheetReader(TExportTable& table, const TTableSize& size, Integer maxIndent);

    // Text() is that of the last cell read, if it is one of text.
    TSheetCell ReadCaption(Integer column);
    TSheetCell Read(Integer row, Integer column);
    const String& Text() const { return FText; }

    // All styles that the cells read so far name, by their numbers.
    const std::vector<TCellStyle>& Styles() const { return FStyles; }
    // In digits of the sheet's font, wide enough for what was read within reason.
    Integer ColumnWidth(Integer column) const;

private:
    // A workbook takes somewhat more; what comes later than these stays text.
    static constexpr Integer MaxNumberFormats = 200;

    Integer StyleOf(TCellKind kind, const TNumberShape& shape, Integer indent);
    bool TakeFormat(Int64 shapeKey);
    void StoreText(Integer deeper);
    void Measure(Integer column, Integer indent);

    TExportTable& FTable;
    Integer FMaxIndent;
    String FText;
    std::vector<TCellStyle> FStyles;
    TDictionary<Int64, Integer> FStyleNumbers;
    TDictionary<Int64, bool> FFormats;
    std::vector<Integer> FWidths;
};

} // namespace quorin
