#pragma once

#include "embedded/CsvReader.h"

#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <vector>

namespace quorin {

struct TCsvColumn {
    std::string_view Name;
    bool IsRequired = false; // by the header; a field may be empty all the same
};

// A data file whose first record names its columns, in any order, read row by row. Every fault
// raises EDataError with its line: a file that cannot be read or is no UTF-8 text, a header with a
// column that is unknown, missing or there twice, a row of another length, a field that is no
// number where one is read. Empty lines do not count.
class TCsvTable {
public:
    // Tells whether a column counts that the list does not have.
    using TIsColumn = bool (*)(std::string_view name);

    TCsvTable(const std::filesystem::path& path, std::span<const TCsvColumn> columns,
              TIsColumn isFurtherColumn = nullptr);

    // Goes to the next row; False at the end.
    bool Next();
    // The columns of the header, in its order.
    const std::vector<std::string>& Columns() const { return FColumns; }

    // A field of the row, good until the next one. Empty for a column that the header leaves out.
    StringView Text(std::string_view column) const;
    // A field that must not be empty.
    StringView Code(std::string_view column) const;
    bool Has(std::string_view column) const { return !Text(column).empty(); }
    // An empty field is 0.
    Double Number(std::string_view column) const;
    Integer Whole(std::string_view column) const;
    // Fails for what is below 0.
    Double Quantity(std::string_view column) const;

    // Raises the fault of the row.
    [[noreturn]] void Fail(std::string_view what) const;
    // The same with the field in front: "abc" in column "lot" `what`.
    [[noreturn]] void FailAt(std::string_view column, std::string_view what) const;

private:
    void ReadHeader(std::span<const TCsvColumn> columns, TIsColumn isFurtherColumn);
    void CheckRecord() const;

    std::string FName;
    std::ifstream FStream;
    TCsvReader FReader;
    std::vector<std::string> FColumns;
    std::vector<String> FTexts;
};

} // namespace quorin
