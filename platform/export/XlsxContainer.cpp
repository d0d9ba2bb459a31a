#include "platform/export/XlsxContainer.h"

#include <fstream>
#include <string>
#include <string_view>

namespace quorin {

namespace {

constexpr std::string_view SheetEntry = "xl/worksheets/sheet1.xml";

// Both as the container's format places them.
struct TEndRecord {
    static constexpr std::size_t Size = 22;
    static constexpr std::string_view Signature{"PK\5\6", 4};
    static constexpr std::size_t DirectorySize = 12;
};
struct TDirectoryEntry {
    static constexpr std::size_t Size = 46;
    static constexpr std::size_t UnpackedSize = 24;
    static constexpr std::size_t NameLength = 28;
    static constexpr std::size_t ExtraLength = 30;
    static constexpr std::size_t CommentLength = 32;
};

std::uint32_t Number(std::string_view bytes, std::size_t position, std::size_t width) {
    std::uint32_t value = 0;
    for (std::size_t i = width; i-- > 0;) {
        value = value << 8 | static_cast<unsigned char>(bytes[position + i]);
    }
    return value;
}
std::uint32_t U16(std::string_view bytes, std::size_t position) {
    return Number(bytes, position, 2);
}
std::uint32_t U32(std::string_view bytes, std::size_t position) {
    return Number(bytes, position, 4);
}

// The directory, which stands right before the record at the end. Empty when that is not there.
std::string ReadDirectory(const std::filesystem::path& container) {
    std::ifstream file(container, std::ios::binary);
    std::string end(TEndRecord::Size, '\0');
    file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
    file.read(end.data(), static_cast<std::streamsize>(end.size()));
    if (!file || !end.starts_with(TEndRecord::Signature)) return {};
    std::string directory(U32(end, TEndRecord::DirectorySize), '\0');
    file.seekg(-static_cast<std::streamoff>(end.size() + directory.size()), std::ios::end);
    file.read(directory.data(), static_cast<std::streamsize>(directory.size()));
    return file ? directory : std::string();
}

} // namespace

bool HoldsSheet(const std::filesystem::path& container, std::int64_t size) {
    const std::string content = ReadDirectory(container);
    std::string_view rest = content;
    while (rest.size() >= TDirectoryEntry::Size) {
        const std::size_t nameLength = U16(rest, TDirectoryEntry::NameLength);
        const std::size_t length = TDirectoryEntry::Size + nameLength +
                                   U16(rest, TDirectoryEntry::ExtraLength) +
                                   U16(rest, TDirectoryEntry::CommentLength);
        if (length > rest.size()) return false;
        if (rest.substr(TDirectoryEntry::Size, nameLength) == SheetEntry) {
            return U32(rest, TDirectoryEntry::UnpackedSize) >= size;
        }
        rest.remove_prefix(length);
    }
    return false;
}

} // namespace quorin
