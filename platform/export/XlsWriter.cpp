#include "platform/export/CompoundFile.h"
#include "platform/export/ExportPass.h"
#include "platform/export/Exporters.h"
#include "platform/export/ReplacingFile.h"
#include "platform/export/SharedStrings.h"
#include "platform/export/SheetReader.h"
#include "platform/export/XlsGlobals.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace quorin {

namespace {

constexpr Integer MaxIndent = 15;
constexpr Integer RowsPerBlock = 32; // records of rows stand before those of their cells
constexpr std::size_t PieceSize = 1 << 20;

// The one sheet. Its cells are kept as finished records until the texts and styles that stand
// before them in the file are known.
class TXlsSheet {
public:
    TXlsSheet(TExportTable& table, const TTableSize& size)
        : FSize(size), FReader(table, size, MaxIndent) {
        WriteRow(0, [this](Integer column) { return FReader.ReadCaption(column); });
    }

    void WriteTableRow(Integer row) {
        WriteRow(row + 1, [this, row](Integer column) { return FReader.Read(row, column); });
    }

    // The workbook's stream; the sheet is done with then.
    std::vector<std::string> TakeStream() {
        EndBlock();
        EndPiece();
        std::vector<std::string> pieces;
        pieces.push_back(XlsGlobals(FReader.Styles(), FTexts).TakeContent());
        pieces.push_back(Head().TakeContent());
        std::move(FPieces.begin(), FPieces.end(), std::back_inserter(pieces));
        pieces.push_back(Tail().TakeContent());
        return pieces;
    }

private:
    template <class ReadCellOf>
    void WriteRow(Integer row, ReadCellOf read) {
        AppendRow(row);
        for (Integer column = 0; column < FSize.Columns; ++column) {
            AppendCell(row, column, read(column));
        }
        if (row % RowsPerBlock == RowsPerBlock - 1) EndBlock();
    }

    void AppendRow(Integer row) {
        constexpr unsigned DefaultHeight = 0x00FF, AlwaysSet = 0x0100;
        const TRecord record(FBlock, TBiff::Row);
        FBlock.U16(U(row)).U16(0).U16(U(FSize.Columns)).U16(DefaultHeight).U32(0);
        FBlock.U16(AlwaysSet).U16(DefaultXf);
    }

    void AppendCell(Integer row, Integer column, const TSheetCell& cell) {
        const TRecord record(FCells, cell.Kind == TCellKind::Number ? TBiff::Number
                                     : cell.Kind == TCellKind::Text ? TBiff::LabelSst
                                                                    : TBiff::Blank);
        FCells.U16(U(row)).U16(U(column)).U16(XfOfStyle(cell.Style));
        if (cell.Kind == TCellKind::Number) FCells.Float64(cell.Number);
        if (cell.Kind == TCellKind::Text) FCells.U32(FTexts.IndexOf(FReader.Text()));
    }

    void EndBlock() {
        FBlock.Append(FCells.TakeContent());
        if (FBlock.Size() >= PieceSize) EndPiece();
    }

    void EndPiece() { FPieces.push_back(FBlock.TakeContent()); }

    TBytes Head() const {
        TBytes bytes;
        AppendBof(bytes, TSubstream::Sheet);
        for (Integer column = 0; column < FSize.Columns; ++column) {
            constexpr unsigned WidthUnits = 256; // of a digit
            const TRecord record(bytes, TBiff::ColInfo);
            bytes.U16(U(column)).U16(U(column)).U16(U(FReader.ColumnWidth(column)) * WidthUnits);
            bytes.U16(DefaultXf).U16(0).U16(0);
        }
        {
            const TRecord record(bytes, TBiff::Dimensions);
            bytes.U32(0).U32(U(FSize.Rows) + 1).U16(0).U16(U(FSize.Columns)).U16(0);
        }
        return bytes;
    }

    // The row of captions stays where it is while the rest scrolls.
    static TBytes Tail() {
        constexpr unsigned LowerPane = 2;
        TBytes bytes;
        {
            constexpr unsigned UsualAndFrozen = 0x07BE, HeaderColour = 64;
            const TRecord record(bytes, TBiff::Window2);
            bytes.U16(UsualAndFrozen).U16(0).U16(0).U32(HeaderColour).U16(0).U16(0).U32(0);
        }
        {
            const TRecord record(bytes, TBiff::Pane);
            bytes.U16(0).U16(1).U16(1).U16(0).U16(LowerPane);
        }
        {
            const TRecord record(bytes, TBiff::Selection);
            bytes.U8(LowerPane).U16(1).U16(0).U16(0).U16(1); // the first cell below the captions
            bytes.U16(1).U16(1).U8(0).U8(0);
        }
        AppendEof(bytes);
        return bytes;
    }

    static unsigned U(Integer value) { return static_cast<unsigned>(value); }

    const TTableSize FSize;
    TSheetReader FReader;
    TSharedStrings FTexts;
    TBytes FBlock; // rows of finished blocks and of the one being written
    TBytes FCells; // of the block being written
    std::vector<std::string> FPieces;
};

} // namespace

bool WriteXls(const std::filesystem::path& target, TExportTable& table,
              TExportProgressEvent progress) {
    const TTableSize size(table, XlsLimits);
    TReplacingFile file(target);
    TXlsSheet sheet(table, size);
    const bool isComplete =
        ForEachRow(size.Rows, progress, [&sheet](Integer row) { sheet.WriteTableRow(row); });
    if (!isComplete) return false;
    WriteCompoundFile(file, sheet.TakeStream());
    file.Commit();
    return true;
}

} // namespace quorin
