// Files from cells of any text: the first byte gives the columns, each line is a cell. What the CSV
// holds reads back; the workbooks are written.

#include "embedded/CsvReader.h"
#include "platform/export/Exporters.h"
#include "tests/fuzz/FuzzInput.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace quorin {
namespace {

constexpr Integer MostColumns = 5;

struct TCells : TExportTable {
    Integer ColumnCount() override { return Columns; }
    Integer RowCount() override { return static_cast<Integer>(Texts.size()) / Columns; }
    void GetCaption(Integer column, String& text) override { text.assign(1, Char(u'A' + column)); }
    void GetCellText(Integer row, Integer column, String& text) override {
        text = Texts[static_cast<std::size_t>(row * Columns + column)];
    }

    Integer Columns = 1;
    std::vector<String> Texts;
};

void CheckCsv(const std::filesystem::path& path, TCells& cells) {
    std::ifstream file(path, std::ios::binary);
    TCsvReader reader(file);
    ExpectLaw(reader.Next(), "captions");
    for (Integer row = 0; row < cells.RowCount(); ++row) {
        ExpectLaw(reader.Next() && reader.Problem().empty(), "a record for each row");
        const auto fields = reader.Fields();
        ExpectLaw(static_cast<Integer>(fields.size()) == cells.Columns, "a field for each cell");
        for (Integer column = 0; column < cells.Columns; ++column) {
            String text;
            cells.GetCellText(row, column, text);
            ExpectLaw(fields[static_cast<std::size_t>(column)] == ToUtf8(text), "the cell's text");
        }
    }
    ExpectLaw(!reader.Next(), "and nothing behind");
}

} // namespace
} // namespace quorin

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorin;
    static const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("quorin-fuzz-export-" + std::to_string(getpid()));
    TFuzzInput input(data, size);
    TCells cells;
    cells.Columns = 1 + input.TakeByte() % MostColumns;
    // A cell may hold line breaks, which stand as "|" in the input.
    while (!input.IsEmpty()) {
        String text = input.TakeText();
        for (Char& unit : text) {
            if (unit == u'|') unit = u'\n';
        }
        cells.Texts.push_back(text);
    }
    WriteCsv(path, cells);
    CheckCsv(path, cells);
    WriteXls(path, cells);
    WriteXlsx(path, cells);
    std::filesystem::remove(path);
    return 0;
}
