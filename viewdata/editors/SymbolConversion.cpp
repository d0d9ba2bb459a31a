#include "viewdata/editors/SymbolConversion.h"

#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/ConfigManager.h"
#include "viewdata/services/LibraryLoader.h"
#include "viewdata/services/LogFile.h"

#include <array>
#include <cstring>
#include <exception>
#include <functional>
#include <string>

namespace quorin {

namespace {

constexpr std::size_t BufferSize = 256;
constexpr Char HighestByte = 0xFF;
constexpr const char* ExportName = "ConvertSymbol";
constexpr Byte LogLevel = 5;

void Log(StringView text) {
    if (TCustomLogFile* log = TCustomLogFile::GetInstance()) log->WriteLog(text, LogLevel);
}

TConvertSymbol FindConversion(TCustomLibraryLoader& loader, const String& path) {
    Pointer library = loader.LoadLibrary(path);
    if (library == nullptr) return nullptr;
    Pointer address = loader.FindExport(library, ExportName);
    if (address == nullptr) {
        Log(u"Can not find mapping function in symbol map DLL:" + path);
        return nullptr;
    }
    TConvertSymbol convert = nullptr;
    static_assert(sizeof(convert) == sizeof(address));
    std::memcpy(&convert, &address, sizeof(convert));
    return convert;
}

// One byte per character; empty when one has none.
std::string BytesOf(StringView symbol) {
    std::string bytes;
    for (const Char unit : symbol) {
        if (unit > HighestByte) return {};
        bytes.push_back(static_cast<char>(unit));
    }
    return bytes;
}

String TextOf(const char* bytes, std::size_t length) {
    String text;
    text.reserve(length);
    for (std::size_t index = 0; index < length; ++index) {
        text.push_back(static_cast<unsigned char>(bytes[index]));
    }
    return text;
}

} // namespace

TConvertSymbol LoadSymbolConversion() {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    const String path = config.ReadString(config.GetCurrentSection(), ConfigKey::SymbolmapDLL);
    TCustomLibraryLoader* loader = TCustomLibraryLoader::GetInstance();
    if (path.empty() || loader == nullptr) return nullptr;
    try {
        return FindConversion(*loader, path);
    } catch (const std::exception& error) {
        Log(FormatText(u"Load symbol map DLL %s failed: %s", {path, FromUtf8(error.what())}));
        return nullptr;
    }
}

String ConvertedSymbol(TConvertSymbol convert, StringView symbol) {
    const std::string bytes = BytesOf(symbol);
    if (bytes.empty() || convert == nullptr) return String(symbol);
    std::array<char, BufferSize> buffer{};
    char* answer = buffer.data();
    convert(bytes.c_str(), &answer);
    if (answer == nullptr) return String(symbol);
    // A text of the library's own ends where it ends; the buffer is never left, wherever in it the
    // answer begins.
    const std::less<const char*> isBefore;
    const char* const end = buffer.data() + BufferSize;
    const Boolean isOwn = isBefore(answer, buffer.data()) || !isBefore(answer, end);
    const std::size_t length =
        isOwn ? std::strlen(answer) : strnlen(answer, static_cast<std::size_t>(end - answer));
    return length == 0 ? String(symbol) : TextOf(answer, length);
}

} // namespace quorin
