#pragma once

#include "platform/export/Exporters.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quorin {

using TTextRow = std::vector<String>;

class TTextTable : public TExportTable {
public:
    TTextRow Captions;
    std::vector<TTextRow> Rows;
    std::vector<Integer> Depths; // 0 for rows beyond

    TTextTable() = default;
    TTextTable(TTextRow captions, std::vector<TTextRow> rows)
        : Captions(std::move(captions)), Rows(std::move(rows)) {}

    Integer ColumnCount() override { return static_cast<Integer>(Captions.size()); }
    Integer RowCount() override { return static_cast<Integer>(Rows.size()); }
    void GetCaption(Integer column, String& text) override { text = Captions.at(At(column)); }
    void GetCellText(Integer row, Integer column, String& text) override {
        text = Rows.at(At(row)).at(At(column));
    }
    Integer Depth(Integer row) override {
        return At(row) < Depths.size() ? Depths[At(row)] : TExportTable::Depth(row);
    }

private:
    static std::size_t At(Integer index) { return static_cast<std::size_t>(index); }
};

// Any size, each cell the same.
class TUniformTable : public TExportTable {
public:
    TUniformTable(Integer rows, Integer columns, String text)
        : FRows(rows), FColumns(columns), FText(std::move(text)) {}
    Integer ColumnCount() override { return FColumns; }
    Integer RowCount() override { return FRows; }
    void GetCaption(Integer, String& text) override { text = u"Caption"; }
    void GetCellText(Integer, Integer, String& text) override { text = FText; }

private:
    Integer FRows;
    Integer FColumns;
    String FText;
};

struct TFormatCase {
    const char* Extension;
    bool (*Export)(const std::filesystem::path&, TExportTable&, TExportProgressEvent);
    Integer MaxIndent;
};

inline bool WritePlainCsv(const std::filesystem::path& target, TExportTable& table,
                          TExportProgressEvent progress) {
    return WriteCsv(target, table, {}, progress);
}

inline constexpr TFormatCase AllFormats[] = {
    {"csv", WritePlainCsv, 0}, {"xls", WriteXls, 15}, {"xlsx", WriteXlsx, 250}};
inline constexpr TFormatCase Workbooks[] = {AllFormats[1], AllFormats[2]};

// A folder of its own for each test, gone with it.
class TExportTest : public testing::Test {
protected:
    TExportTest();
    ~TExportTest() override;

    std::filesystem::path File(const std::string& name) const { return FFolder / name; }
    static std::string Content(const std::filesystem::path& file);
    static void Put(const std::filesystem::path& file, std::string_view content);
    // Names in the folder, in order, with a blank behind each.
    std::string Names() const;

    // The lines of read_back.py; with a missing reader the test ends as skipped and `lines` stays.
    static void ReadBack(const std::filesystem::path& workbook, std::vector<std::string>& lines);
    // A line that read_back.py should print for such a cell.
    static std::string TextLine(std::size_t row, std::size_t column, StringView text,
                                Integer indent = 0);
    static std::string NumberLine(std::size_t row, std::size_t column, const std::string& value,
                                  StringView shown, Integer indent = 0);

private:
    std::filesystem::path FFolder;
};

} // namespace quorin
