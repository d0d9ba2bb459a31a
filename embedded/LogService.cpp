#include "embedded/LogService.h"

#include "embedded/DataError.h"
#include "platform/rtl/Utf.h"

#include <algorithm>

namespace quorin {

void TEmbeddedLogFile::OpenFile(const std::filesystem::path& path) {
    std::ofstream file(path, std::ios::binary | std::ios::app);
    if (!file) throw EDataError(path.string(), 0, "cannot be written");
    FFile = std::move(file);
}

void TEmbeddedLogFile::WriteLog(StringView Text, Byte Level) {
    FHost.WriteLog(Text, Level);
    if (!FFile.is_open()) return;
    std::string line = ToUtf8(Text);
    std::replace_if(
        line.begin(), line.end(), [](char byte) { return byte == '\n' || byte == '\r'; }, ' ');
    FFile << '[' << int{Level} << "] " << line << std::endl; // each line outlives a crash
}

} // namespace quorin
