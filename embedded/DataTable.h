#pragma once

#include "embedded/CsvReader.h"
#include "platform/rtl/Types.h"

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {

// A data file of named columns, read row by row: comma separated, UTF-8, the names in the first
// record, in any order. Every fault, also one that a caller finds, is an EDataError with file and
// line. Texts of a row live until the next one.
class TDataTable {
public:
    // A place in a row; of no row where the file does not have the column.
    using TColumn = Integer;
    static constexpr TColumn NoColumn = -1;

    // Columns that are not required may be left out; others than those a reader asks for are
    // ignored.
    TDataTable(const std::filesystem::path& path, std::initializer_list<std::string_view> required);

    TColumn Column(std::string_view name) const;
    // Goes to the next row; empty lines do not count.
    bool Next();

    // Empty without the column.
    StringView Text(TColumn column) const {
        return column == NoColumn ? StringView() : FTexts[static_cast<std::size_t>(column)];
    }
    // The same, but never empty.
    StringView Code(TColumn column) const;
    // The fallback for an empty text.
    Double Number(TColumn column, Double fallback = 0.0) const;
    Double NumberFromZero(TColumn column) const;
    Double NumberAboveZero(TColumn column, Double fallback = 0.0) const;
    Integer Whole(TColumn column, Integer fallback) const;
    Integer Whole(TColumn column) const;

    // How much of the file has been taken in, from 0 to 1.
    Double PartRead();
    // Of the row.
    Int64 Line() const { return FReader.Line(); }
    const std::string& File() const { return FFile; }
    // "what" may name the text of the column before it.
    [[noreturn]] void Fail(std::string_view what) const;
    [[noreturn]] void Fail(TColumn column, std::string_view what) const;

private:
    void ReadHeader(std::initializer_list<std::string_view> required);
    void CheckRecord() const;
    void Take(std::string_view bytes, String& text) const;

    std::string FFile;
    std::ifstream FStream;
    TCsvReader FReader;
    std::vector<std::string> FColumns;
    std::vector<String> FTexts;
};

} // namespace quorin
