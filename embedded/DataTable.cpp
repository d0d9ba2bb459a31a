#include "embedded/DataTable.h"

#include "embedded/DataFile.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Byte FirstPrintable = 0x20;
constexpr Byte FirstBeyondAscii = 0x80;

bool IsControl(char byte) {
    return static_cast<Byte>(byte) < FirstPrintable && byte != '\t' && byte != '\n' && byte != '\r';
}

} // namespace

TDataTable::TDataTable(const std::filesystem::path& path,
                       std::initializer_list<std::string_view> required)
    : FFile(path.string()), FStream(OpenDataFile(path)), FReader(FStream) {
    ReadHeader(required);
}

Double TDataTable::PartRead() {
    std::error_code ignored;
    const auto size = static_cast<Double>(std::filesystem::file_size(FFile, ignored));
    const auto place = static_cast<Double>(FStream.tellg());
    return size > 0.0 && place >= 0.0 ? std::min(place / size, 1.0) : 1.0;
}

void TDataTable::ReadHeader(std::initializer_list<std::string_view> required) {
    if (!FReader.Next()) {
        CheckEnd(FReader, FFile);
        throw EDataError(FFile, 0, "the file is empty");
    }
    CheckRecord();
    String name;
    for (const std::string_view field : FReader.Fields()) {
        Take(field, name);
        if (!name.empty() && Column(field) != NoColumn) {
            Fail("the column \"" + std::string(field) + "\" is there twice");
        }
        FColumns.emplace_back(field);
    }
    for (const std::string_view column : required) {
        if (Column(column) == NoColumn) {
            Fail("the column \"" + std::string(column) + "\" is missing");
        }
    }
    FTexts.resize(FColumns.size());
}

TDataTable::TColumn TDataTable::Column(std::string_view name) const {
    const auto found = std::find(FColumns.begin(), FColumns.end(), name);
    return found == FColumns.end() ? NoColumn : static_cast<TColumn>(found - FColumns.begin());
}

bool TDataTable::Next() {
    while (FReader.Next()) {
        CheckRecord();
        const auto fields = FReader.Fields();
        if (fields.size() == 1 && fields[0].empty()) continue;
        if (fields.size() != FColumns.size()) {
            Fail(std::to_string(fields.size()) + " fields instead of " +
                 std::to_string(FColumns.size()));
        }
        for (std::size_t index = 0; index < fields.size(); ++index) {
            Take(fields[index], FTexts[index]);
        }
        return true;
    }
    CheckEnd(FReader, FFile);
    return false;
}

StringView TDataTable::Code(TColumn column) const {
    const StringView text = Text(column);
    if (text.empty()) Fail("\"" + FColumns[static_cast<std::size_t>(column)] + "\" is empty");
    return text;
}

Double TDataTable::Number(TColumn column, Double fallback) const {
    Double value = fallback;
    const StringView text = Text(column);
    if (!text.empty() && !TryParseDouble(text, value)) Fail(column, "is no number");
    return value;
}

Double TDataTable::NumberFromZero(TColumn column) const {
    const Double value = Number(column);
    if (value < 0.0) Fail(column, "is below 0");
    return value;
}

Double TDataTable::NumberAboveZero(TColumn column, Double fallback) const {
    const Double value = Number(column, fallback);
    if (!Text(column).empty() && value <= 0.0) Fail(column, "is not above 0");
    return value;
}

Integer TDataTable::Whole(TColumn column, Integer fallback) const {
    return Text(column).empty() ? fallback : Whole(column);
}

Integer TDataTable::Whole(TColumn column) const {
    Integer value = 0;
    if (!TryParseInteger(Text(column), value)) Fail(column, "is no whole number");
    return value;
}

void TDataTable::Fail(std::string_view what) const {
    throw EDataError(FFile, Line(), what);
}

void TDataTable::Fail(TColumn column, std::string_view what) const {
    Fail("\"" + ToUtf8(Text(column)) + "\" in column \"" +
         FColumns[static_cast<std::size_t>(column)] + "\" " + std::string(what));
}

void TDataTable::CheckRecord() const {
    if (!FReader.Problem().empty()) Fail(FReader.Problem());
}

void TDataTable::Take(std::string_view bytes, String& text) const {
    bool isAscii = true;
    for (const char byte : bytes) {
        if (IsControl(byte)) Fail("a control character: this is no text file");
        isAscii &= static_cast<Byte>(byte) < FirstBeyondAscii;
    }
    if (isAscii) {
        text.assign(bytes.begin(), bytes.end());
    } else if (IsValidUtf8(bytes)) {
        text = FromUtf8(bytes);
    } else {
        Fail("not valid as UTF-8");
    }
}

} // namespace quorin
