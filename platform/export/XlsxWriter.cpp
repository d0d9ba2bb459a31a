#include "platform/export/ExportPass.h"
#include "platform/export/Exporters.h"
#include "platform/export/ReplacingFile.h"
#include "platform/export/SheetReader.h"
#include "platform/export/XlsxContainer.h"
#include "platform/rtl/Utf.h"

#include <xlsxwriter.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <locale.h>
#include <memory>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace quorin {

namespace {

constexpr Integer MaxIndent = 250;
constexpr Char FirstBeyondAscii = 0x80;
// A sheet from here on needs the container's wide sizes, which not every reader knows.
constexpr long LargeSheet = 3'000'000'000;

// The library writes numbers by the locale of the calling thread; here that has a point.
class TPlainNumbers {
public:
    TPlainNumbers() : FPlain(newlocale(LC_NUMERIC_MASK, "C", duplocale(uselocale(nullptr)))) {
        if (FPlain != nullptr) FBefore = uselocale(FPlain);
    }
    TPlainNumbers(const TPlainNumbers&) = delete;
    TPlainNumbers& operator=(const TPlainNumbers&) = delete;
    ~TPlainNumbers() {
        if (FPlain == nullptr) return;
        uselocale(FBefore);
        freelocale(FPlain);
    }

private:
    locale_t FPlain;
    locale_t FBefore = nullptr;
};

struct TFreeWorkbook {
    void operator()(lxw_workbook* workbook) const { lxw_workbook_free(workbook); }
};

// The one sheet. The library keeps one row in memory and the others in a temporary file.
class TXlsxSheet {
public:
    TXlsxSheet(TReplacingFile& file, TExportTable& table, const TTableSize& size)
        : FFile(file), FSize(size), FReader(table, size, MaxIndent) {
        std::error_code error;
        FFolder = std::filesystem::temp_directory_path(error).string();
        if (error) FFile.Fail("there is no folder for temporary files");
        lxw_workbook_options options = {};
        options.constant_memory = LXW_TRUE;
        options.tmpdir = FFolder.data();
        FWorkbook.reset(workbook_new_opt(file.WorkingPath().c_str(), &options));
        if (FWorkbook != nullptr) FSheet = workbook_add_worksheet(FWorkbook.get(), nullptr);
        if (FSheet == nullptr) FFile.Fail("there is no room for temporary files");
        worksheet_freeze_panes(FSheet, 1, 0);
        WriteRow(0, [this](Integer column) { return FReader.ReadCaption(column); });
    }

    void WriteTableRow(Integer row) {
        WriteRow(row + 1, [this, row](Integer column) { return FReader.Read(row, column); });
    }

    void Finish() {
        for (Integer column = 0; column < FSize.Columns; ++column) {
            const auto place = static_cast<lxw_col_t>(column);
            worksheet_set_column(FSheet, place, place, FReader.ColumnWidth(column), nullptr);
        }
        // The library does not look at whether its temporary file took everything.
        std::FILE* const rows = FSheet->optimize_tmpfile;
        if (std::fflush(rows) != 0 || std::ferror(rows) != 0) {
            FFile.Fail("the disk for temporary files is full");
        }
        const long size = std::ftell(rows);
        ReserveTemporaryRoom(size);
        FWorkbook->options.use_zip64 = size > LargeSheet;
        Check(workbook_close(FWorkbook.release()));
        if (size <= LargeSheet && !HoldsSheet(FFile.WorkingPath(), size)) {
            FFile.Fail("the disk is full");
        }
    }

private:
    // On their way into the container the rows go through a second temporary file, with what is
    // around them, and the library does not look at that one either. So its room is asked for
    // before, and given back.
    void ReserveTemporaryRoom(long rowBytes) const {
        constexpr off_t AroundThem = 4096, PerColumn = 96, PerStyle = 512; // all generous
        std::string name = FFolder + "/quorin-export-XXXXXX";
        const int file = mkstemp(name.data());
        if (file < 0) FFile.Fail(std::generic_category().message(errno));
        unlink(name.c_str());
        const off_t columns = FSize.Columns;
        const auto styles = static_cast<off_t>(FReader.Styles().size());
        // The last row is not in the first file either yet.
        const int error = posix_fallocate(file, 0,
                                          rowBytes + 2 * FLastRowBytes + AroundThem +
                                              columns * PerColumn + styles * PerStyle);
        close(file);
        if (error != 0) FFile.Fail(std::generic_category().message(error));
    }

    template <class ReadCellOf>
    void WriteRow(Integer row, ReadCellOf read) {
        constexpr off_t PerCell = 64,
                        PerTextByte = 7; // at most, with what the text needs around it
        const auto line = static_cast<lxw_row_t>(row);
        FLastRowBytes = PerCell;
        for (Integer column = 0; column < FSize.Columns; ++column) {
            const TSheetCell cell = read(column);
            if (cell.Kind == TCellKind::Blank) continue;
            const auto place = static_cast<lxw_col_t>(column);
            lxw_format* const format = FormatOf(cell.Style);
            FUtf8.clear();
            Check(cell.Kind == TCellKind::Number
                      ? worksheet_write_number(FSheet, line, place, cell.Number, format)
                      : worksheet_write_string(FSheet, line, place, Utf8Text(), format));
            FLastRowBytes += PerCell + PerTextByte * static_cast<off_t>(FUtf8.size());
        }
    }

    const char* Utf8Text() {
        const String& text = FReader.Text();
        FUtf8.resize(text.size());
        Char all = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            all |= text[i];
            FUtf8[i] = static_cast<char>(text[i]);
        }
        if (all >= FirstBeyondAscii) FUtf8 = ToUtf8(text);
        return FUtf8.c_str();
    }

    lxw_format* FormatOf(Integer style) {
        const auto place = static_cast<std::size_t>(style);
        if (place >= FFormats.size()) FFormats.resize(FReader.Styles().size());
        const TCellStyle& wanted = FReader.Styles()[place];
        if (FFormats[place] == nullptr && style != TSheetReader::TextStyle) {
            FFormats[place] = NewFormat(wanted);
        }
        return FFormats[place];
    }

    lxw_format* NewFormat(const TCellStyle& style) {
        lxw_format* const format = workbook_add_format(FWorkbook.get());
        if (format == nullptr) FFile.Fail("there is not enough memory");
        if (style.IsCaption) format_set_bold(format);
        if (style.Indent > 0) {
            format_set_align(format, LXW_ALIGN_LEFT);
            format_set_indent(format, static_cast<std::uint8_t>(style.Indent));
        }
        if (style.Kind == TCellKind::Number) {
            format_set_num_format(format, NumberFormat(style.Shape).c_str());
        }
        return format;
    }

    void Check(lxw_error error) const {
        if (error != LXW_NO_ERROR) FFile.Fail(lxw_strerror(error));
    }

    TReplacingFile& FFile;
    const TTableSize FSize;
    TSheetReader FReader;
    std::string FFolder;
    std::unique_ptr<lxw_workbook, TFreeWorkbook> FWorkbook;
    lxw_worksheet* FSheet = nullptr;
    std::vector<lxw_format*> FFormats; // by style; nil until used and for plain text
    std::string FUtf8;
    off_t FLastRowBytes = 0;
};

} // namespace

bool WriteXlsx(const std::filesystem::path& target, TExportTable& table,
               TExportProgressEvent progress) {
    const TTableSize size(table, XlsxLimits);
    const TPlainNumbers plainNumbers;
    TReplacingFile file(target);
    TXlsxSheet sheet(file, table, size);
    const bool isComplete =
        ForEachRow(size.Rows, progress, [&sheet](Integer row) { sheet.WriteTableRow(row); });
    if (!isComplete) return false;
    sheet.Finish();
    file.Commit();
    return true;
}

} // namespace quorin
