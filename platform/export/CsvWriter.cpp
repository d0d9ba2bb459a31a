#include "platform/export/CellValue.h"
#include "platform/export/ExportPass.h"
#include "platform/export/Exporters.h"
#include "platform/export/ReplacingFile.h"
#include "platform/rtl/Utf.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace quorin {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t BlanksPerLevel = 2;
constexpr std::size_t MaxBytesPerUnit = 3;
constexpr Char FirstBeyondAscii = 0x80;

class TCsvWriter {
public:
    TCsvWriter(TReplacingFile& file, const TCsvOptions& options) : FFile(file), FOptions(options) {}

    // Replaced by the next one to write.
    String& Field() { return FField; }

    void WriteField(Integer depth) {
        const bool guarded = FOptions.GuardFormula && LooksLikeFormula();
        if (depth > 0 && !FField.empty()) {
            FField.insert(0, static_cast<std::size_t>(depth) * BlanksPerLevel, u' ');
        }
        if (guarded) FField.insert(0, 1, u'\'');
        // Every byte may be a quote, and there are two around them and the separator behind.
        char* at = FFile.Room(FField.size() * MaxBytesPerUnit * 2 + 2 + MaxBytesPerUnit);
        if (FFieldsInLine++ > 0) at = PutSeparator(at);
        FFile.Fill(PutPlain(at));
    }

    void EndLine() {
        // A line with nothing on it is no row to many readers.
        if (FFieldsInLine == 1 && FField.empty()) FFile.Write("\"\"");
        if (FFieldsInLine > 0) FFile.Write(LineEnd);
        FFieldsInLine = 0;
    }

private:
    bool LooksLikeFormula() const {
        if (FField.empty()) return false;
        const Char first = FField.front();
        const bool isStart = first == u'=' || first == u'+' || first == u'-' || first == u'@';
        return isStart && ReadCell(FField).Kind != TCellKind::Number;
    }

    char* PutSeparator(char* at) const {
        if (FOptions.Separator < FirstBeyondAscii) {
            *at = static_cast<char>(FOptions.Separator);
            return at + 1;
        }
        const std::string bytes = ToUtf8(StringView(&FOptions.Separator, 1));
        return std::copy(bytes.begin(), bytes.end(), at);
    }

    // The ordinary field in one pass; what turns out to be another one is written again.
    char* PutPlain(char* const start) {
        char* at = start;
        bool isPlain = true;
        for (const Char unit : FField) {
            isPlain = isPlain && unit < FirstBeyondAscii && unit != u'"' && unit != u'\n' &&
                      unit != u'\r' && unit != FOptions.Separator;
            *at++ = static_cast<char>(unit);
        }
        return isPlain ? at : PutAny(start);
    }

    char* PutAny(char* at) {
        const bool isQuoted = std::any_of(FField.begin(), FField.end(), [this](Char unit) {
            return unit == u'"' || unit == u'\n' || unit == u'\r' || unit == FOptions.Separator;
        });
        const std::string bytes = ToUtf8(FField);
        if (!isQuoted) return std::copy(bytes.begin(), bytes.end(), at);
        *at++ = '"';
        for (const char byte : bytes) {
            if (byte == '"') *at++ = '"';
            *at++ = byte;
        }
        *at++ = '"';
        return at;
    }

    TReplacingFile& FFile;
    const TCsvOptions FOptions;
    String FField;
    Integer FFieldsInLine = 0;
};

} // namespace

bool WriteCsv(const std::filesystem::path& target, TExportTable& table, const TCsvOptions& options,
              TExportProgressEvent progress) {
    const TTableSize size(table, CsvLimits);
    TReplacingFile file(target);
    TCsvWriter writer(file, options);
    if (options.ByteOrderMark) file.Write(ByteOrderMark);
    for (Integer column = 0; column < size.Columns; ++column) {
        table.GetCaption(column, writer.Field());
        writer.WriteField(0);
    }
    writer.EndLine();
    const bool isComplete = ForEachRow(size.Rows, progress, [&](Integer row) {
        for (Integer column = 0; column < size.Columns; ++column) {
            table.GetCellText(row, column, writer.Field());
            writer.WriteField(column == 0 ? table.Depth(row) : 0);
        }
        writer.EndLine();
    });
    if (isComplete) file.Commit();
    return isComplete;
}

} // namespace quorin
