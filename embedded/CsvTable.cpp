#include "embedded/CsvTable.h"

#include "embedded/DataFile.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr std::size_t QuotedLength = 40; // of a field in a message
constexpr unsigned char FirstPlainByte = 0x20;

bool HasControlByte(std::string_view field) {
    return std::any_of(field.begin(), field.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < FirstPlainByte; });
}

std::string Quoted(StringView text) {
    return '"' + ToUtf8(text.substr(0, QuotedLength)) +
           (text.size() > QuotedLength ? "...\"" : "\"");
}

std::string InColumn(std::string_view column) {
    return " in column \"" + std::string(column) + "\" ";
}

} // namespace

TCsvTable::TCsvTable(const std::filesystem::path& path, std::span<const TCsvColumn> columns,
                     TIsColumn isFurtherColumn)
    : FName(path.string()), FStream(OpenDataFile(path)), FReader(FStream) {
    ReadHeader(columns, isFurtherColumn);
}

void TCsvTable::ReadHeader(std::span<const TCsvColumn> columns, TIsColumn isFurtherColumn) {
    if (!FReader.Next()) {
        CheckEnd(FReader, FName);
        throw EDataError(FName, 0, "the file is empty");
    }
    CheckRecord();
    for (const std::string_view name : FReader.Fields()) {
        const bool isListed = std::any_of(columns.begin(), columns.end(),
                                          [&](const auto& column) { return column.Name == name; });
        const std::string quoted = Quoted(FromUtf8(name));
        if (!isListed && (isFurtherColumn == nullptr || !isFurtherColumn(name))) {
            Fail("there is no column " + quoted);
        }
        if (std::find(FColumns.begin(), FColumns.end(), name) != FColumns.end()) {
            Fail("the column " + quoted + " is there twice");
        }
        FColumns.emplace_back(name);
    }
    for (const TCsvColumn& column : columns) {
        if (column.IsRequired &&
            std::find(FColumns.begin(), FColumns.end(), column.Name) == FColumns.end()) {
            Fail("the column \"" + std::string(column.Name) + "\" is missing");
        }
    }
}

bool TCsvTable::Next() {
    while (FReader.Next()) {
        CheckRecord();
        const auto fields = FReader.Fields();
        if (fields.size() == 1 && fields[0].empty()) continue;
        if (fields.size() != FColumns.size()) {
            Fail(std::to_string(fields.size()) + " fields where the header has " +
                 std::to_string(FColumns.size()));
        }
        FTexts.resize(fields.size());
        for (std::size_t index = 0; index < fields.size(); ++index) {
            FTexts[index] = FromUtf8(fields[index]);
        }
        return true;
    }
    CheckEnd(FReader, FName);
    return false;
}

void TCsvTable::CheckRecord() const {
    if (!FReader.Problem().empty()) Fail(FReader.Problem());
    for (const std::string_view field : FReader.Fields()) {
        if (HasControlByte(field)) Fail("a field has a control character");
        if (!IsValidUtf8(field)) Fail("a field is no UTF-8 text");
    }
}

StringView TCsvTable::Text(std::string_view column) const {
    const auto found = std::find(FColumns.begin(), FColumns.end(), column);
    if (found == FColumns.end()) return {};
    return FTexts[static_cast<std::size_t>(found - FColumns.begin())];
}

StringView TCsvTable::Code(std::string_view column) const {
    const StringView text = Text(column);
    if (text.empty()) Fail("the column \"" + std::string(column) + "\" is empty");
    return text;
}

Double TCsvTable::Number(std::string_view column) const {
    Double value = 0.0;
    const StringView text = Text(column);
    if (!text.empty() && !TryParseDouble(text, value)) FailAt(column, "is no number");
    return value;
}

Integer TCsvTable::Whole(std::string_view column) const {
    Integer value = 0;
    const StringView text = Text(column);
    if (!text.empty() && !TryParseInteger(text, value)) FailAt(column, "is no whole number");
    return value;
}

Double TCsvTable::Quantity(std::string_view column) const {
    const Double value = Number(column);
    if (value < 0.0) FailAt(column, "is below 0");
    return value;
}

void TCsvTable::Fail(std::string_view what) const {
    throw EDataError(FName, FReader.Line(), what);
}

void TCsvTable::FailAt(std::string_view column, std::string_view what) const {
    Fail(Quoted(Text(column)) + InColumn(column) + std::string(what));
}

} // namespace quorin
