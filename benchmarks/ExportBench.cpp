#include "benchmarks/Growth.h"
#include "platform/export/Exporters.h"
#include "platform/rtl/Utf.h"

#include <xlsxwriter.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

// A long market list as files, against the same bytes written plainly and against the same cells
// handed to the library that makes workbooks.

namespace quorin {
namespace {

namespace fs = std::filesystem;

constexpr Int64 MostXlsxRows = 100'000; // takes a second or two
constexpr Int64 MostXlsRows = 10'000;   // the format holds 65,535
constexpr Integer Columns = 20;
constexpr std::size_t Variants = 997; // of a column's texts

// How a cell looks to either side.
struct TBenchCell {
    String Text;
    std::string Utf8;
    std::string CsvField;
    Double Number = 0.0;
    const char* Format = nullptr; // nil for text
};

TBenchCell NumberCell(int millions, int thousandths, bool grouped) {
    char text[32], plain[32];
    std::snprintf(plain, sizeof plain, "%d%03d.%03d", millions, thousandths, thousandths);
    std::snprintf(text, sizeof text, grouped ? "%d,%03d.%03d" : "%d%03d.%03d", millions,
                  thousandths, thousandths);
    TBenchCell cell;
    cell.Utf8 = text;
    cell.CsvField = grouped ? "\"" + cell.Utf8 + "\"" : cell.Utf8;
    cell.Number = std::stod(plain);
    cell.Format = grouped ? "#,##0.000" : "0.000";
    return cell;
}

TBenchCell TextCell(std::string text) {
    TBenchCell cell;
    cell.Utf8 = cell.CsvField = std::move(text);
    return cell;
}

// Codes, names in two scripts, a state, prices and quantities.
class TBenchTable : public TExportTable {
public:
    explicit TBenchTable(Integer rows) : FRows(rows) {
        for (Integer column = 0; column < Columns; ++column) {
            for (std::size_t variant = 0; variant < Variants; ++variant) {
                TBenchCell cell = Make(column, static_cast<int>(variant));
                cell.Text = FromUtf8(cell.Utf8);
                FCells[static_cast<std::size_t>(column)].push_back(std::move(cell));
            }
        }
    }
    const TBenchCell& Cell(Integer row, Integer column) const {
        return FCells[static_cast<std::size_t>(column)][static_cast<std::size_t>(row) % Variants];
    }

    Integer ColumnCount() override { return Columns; }
    Integer RowCount() override { return FRows; }
    void GetCaption(Integer, String& text) override { text = u"Caption"; }
    void GetCellText(Integer row, Integer column, String& text) override {
        text = Cell(row, column).Text;
    }

private:
    static TBenchCell Make(Integer column, int variant) {
        switch (column) {
        case 0: return TextCell("0" + std::to_string(1000 + variant));
        case 1: return TextCell("Holdings Limited " + std::to_string(variant));
        case 2: return TextCell("\xE9\xA8\xB0\xE8\xA8\x8A" + std::to_string(variant));
        case 3: return TextCell(variant % 2 == 0 ? "Trading" : "Halted");
        default: return NumberCell(column * 7 + 1, variant, column % 3 == 0);
        }
    }
    Integer FRows;
    std::array<std::vector<TBenchCell>, Columns> FCells;
};

TBenchTable TableOf(const benchmark::State& state) {
    return TBenchTable(static_cast<Integer>(state.range(0)));
}

fs::path Target(const char* extension) {
    return fs::temp_directory_path() / ("quorin-bench." + std::string(extension));
}

void SetFigures(benchmark::State& state, const fs::path& file) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    fs::remove(file);
}

void CsvExport(benchmark::State& state) {
    TBenchTable table = TableOf(state);
    for (auto _ : state) WriteCsv(Target("csv"), table);
    SetFigures(state, Target("csv"));
}

void CsvPlain(benchmark::State& state) {
    TBenchTable table = TableOf(state);
    for (auto _ : state) {
        std::FILE* const file = std::fopen(Target("csv").c_str(), "wb");
        for (Integer column = 0; column < Columns; ++column) {
            std::fputs(column == 0 ? "Caption" : ",Caption", file);
        }
        std::fputs("\r\n", file);
        for (Integer row = 0; row < table.RowCount(); ++row) {
            for (Integer column = 0; column < Columns; ++column) {
                if (column > 0) std::putc(',', file);
                const std::string& field = table.Cell(row, column).CsvField;
                std::fwrite(field.data(), 1, field.size(), file);
            }
            std::fputs("\r\n", file);
        }
        if (std::fclose(file) != 0) state.SkipWithError("not written");
    }
    SetFigures(state, Target("csv"));
}

void XlsExport(benchmark::State& state) {
    TBenchTable table = TableOf(state);
    for (auto _ : state) WriteXls(Target("xls"), table);
    SetFigures(state, Target("xls"));
}

void XlsxExport(benchmark::State& state) {
    TBenchTable table = TableOf(state);
    for (auto _ : state) WriteXlsx(Target("xlsx"), table);
    SetFigures(state, Target("xlsx"));
}

void XlsxByLibrary(benchmark::State& state) {
    TBenchTable table = TableOf(state);
    for (auto _ : state) {
        lxw_workbook_options options = {};
        options.constant_memory = LXW_TRUE;
        lxw_workbook* const book = workbook_new_opt(Target("xlsx").c_str(), &options);
        lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
        lxw_format* const plain = workbook_add_format(book);
        lxw_format* const grouped = workbook_add_format(book);
        format_set_num_format(plain, "0.000");
        format_set_num_format(grouped, "#,##0.000");
        for (lxw_col_t column = 0; column < Columns; ++column) {
            worksheet_write_string(sheet, 0, column, "Caption", nullptr);
        }
        for (Integer row = 0; row < table.RowCount(); ++row) {
            const auto line = static_cast<lxw_row_t>(row + 1);
            for (Integer column = 0; column < Columns; ++column) {
                const TBenchCell& cell = table.Cell(row, column);
                const auto place = static_cast<lxw_col_t>(column);
                if (cell.Format == nullptr) {
                    worksheet_write_string(sheet, line, place, cell.Utf8.c_str(), nullptr);
                } else {
                    worksheet_write_number(sheet, line, place, cell.Number,
                                           cell.Format[0] == '#' ? grouped : plain);
                }
            }
        }
        if (workbook_close(book) != LXW_NO_ERROR) state.SkipWithError("not written");
    }
    SetFigures(state, Target("xlsx"));
}

QUORIN_GROWTH(CsvExport);
QUORIN_GROWTH(CsvPlain);
QUORIN_GROWTH(XlsExport, MostXlsRows);
QUORIN_GROWTH(XlsxExport, MostXlsxRows, GrowthSizes[0], /*Runs=*/1);
QUORIN_GROWTH(XlsxByLibrary, MostXlsxRows, GrowthSizes[0], /*Runs=*/1);

} // namespace
} // namespace quorin
