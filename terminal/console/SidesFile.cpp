#include "terminal/console/SidesFile.h"

#include "embedded/DataError.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

namespace quorin {

namespace {

constexpr const char* Header = "poll_time,symbol,time,qty,price,side\n";

// Quoted where the text would break the record.
std::string CsvField(StringView text) {
    const std::string bytes = ToUtf8(text);
    if (bytes.find_first_of(",\"\r\n") == std::string::npos) return bytes;
    std::string quoted = "\"";
    for (const char character : bytes) {
        if (character == '"') quoted += '"';
        quoted += character;
    }
    return quoted + '"';
}

} // namespace

TSidesFile::TSidesFile(const std::filesystem::path& path) : FFile(path, std::ios::binary) {
    if (!FFile) throw EDataError(path.string(), 0, "the file cannot be written");
    FFile << Header;
}

void TSidesFile::Write(Double pollTime, StringView symbol, const TMarketDataTrade& trade) {
    FFile << ToUtf8(ShortestText(pollTime)) << ',' << CsvField(symbol) << ','
          << CsvField(trade.Time()) << ',' << CsvField(trade.Qty()) << ','
          << ToUtf8(ShortestText(trade.Price())) << ',' << CsvField(trade.Side()) << '\n';
}

bool TSidesFile::Close() {
    FFile.close();
    return !FFile.fail();
}

} // namespace quorin
