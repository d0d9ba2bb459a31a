#include "platform/export/CompoundFile.h"

#include "platform/export/BiffRecords.h"
#include "platform/widgets/ExportLinks.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr std::uint32_t SectorSize = 512;
constexpr unsigned SectorShift = 9;
constexpr unsigned MiniSectorShift = 6;
constexpr std::uint32_t MiniStreamLimit = 4096;
constexpr std::uint32_t PlacesPerSector = SectorSize / sizeof(std::uint32_t);
constexpr std::uint32_t PlacesInHeader = 109;

// Sector numbers with a meaning.
constexpr std::uint32_t DifatSector = 0xFFFFFFFC;
constexpr std::uint32_t FatSector = 0xFFFFFFFD;
constexpr std::uint32_t EndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t Free = 0xFFFFFFFF;

constexpr std::uint32_t NoEntry = 0xFFFFFFFF;
constexpr std::size_t NameBytes = 64;
constexpr std::size_t EntriesPerSector = 4;
enum TEntryType : unsigned { UnusedEntry = 0, StreamEntry = 2, RootEntry = 5 };
constexpr unsigned BlackEntry = 1;

constexpr std::uint32_t DivideUp(std::uint32_t value, std::uint32_t by) {
    return (value + by - 1) / by;
}

// Where everything is. The sectors follow each other: list of the table's sectors beyond the
// header, allocation table, directory, stream.
struct TLayout {
    explicit TLayout(std::uint32_t size)
        : StreamSize(std::max(size, MiniStreamLimit)), Stream(DivideUp(StreamSize, SectorSize)) {
        // The table lists its own sectors as well, so it may have to grow once more.
        for (std::uint32_t needed = 1; needed > Fat;) {
            Fat = needed;
            Difat = Fat > PlacesInHeader ? DivideUp(Fat - PlacesInHeader, PlacesPerSector - 1) : 0;
            needed = DivideUp(Difat + Fat + 1 + Stream, PlacesPerSector);
        }
    }
    std::uint32_t FirstFat() const { return Difat; }
    std::uint32_t Directory() const { return Difat + Fat; }
    std::uint32_t FirstOfStream() const { return Directory() + 1; }

    std::uint32_t StreamSize;
    std::uint32_t Stream; // in sectors, as the next two
    std::uint32_t Fat = 0;
    std::uint32_t Difat = 0;
};

void AppendHeader(TBytes& bytes, const TLayout& layout) {
    for (const unsigned byte : {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1}) bytes.U8(byte);
    bytes.Fill(16, 0);                    // no class
    bytes.U16(0x003E).U16(3).U16(0xFFFE); // version 3.62, little-endian
    bytes.U16(SectorShift).U16(MiniSectorShift).Fill(6, 0);
    bytes.U32(0).U32(layout.Fat).U32(layout.Directory()).U32(0);
    bytes.U32(MiniStreamLimit).U32(EndOfChain).U32(0); // no mini stream
    bytes.U32(layout.Difat > 0 ? 0 : EndOfChain).U32(layout.Difat);
    for (std::uint32_t place = 0; place < PlacesInHeader; ++place) {
        bytes.U32(place < layout.Fat ? layout.FirstFat() + place : Free);
    }
}

void AppendDifat(TBytes& bytes, const TLayout& layout) {
    std::uint32_t fat = PlacesInHeader;
    for (std::uint32_t sector = 0; sector < layout.Difat; ++sector) {
        for (std::uint32_t place = 0; place + 1 < PlacesPerSector; ++place, ++fat) {
            bytes.U32(fat < layout.Fat ? layout.FirstFat() + fat : Free);
        }
        bytes.U32(sector + 1 < layout.Difat ? sector + 1 : EndOfChain);
    }
}

void AppendFat(TBytes& bytes, const TLayout& layout) {
    for (std::uint32_t sector = 0; sector < layout.Difat; ++sector) bytes.U32(DifatSector);
    for (std::uint32_t sector = 0; sector < layout.Fat; ++sector) bytes.U32(FatSector);
    bytes.U32(EndOfChain); // the directory
    const std::uint32_t behind = layout.FirstOfStream() + layout.Stream;
    for (std::uint32_t next = layout.FirstOfStream() + 1; next < behind; ++next) bytes.U32(next);
    bytes.U32(EndOfChain);
    for (std::uint32_t place = behind; place < layout.Fat * PlacesPerSector; ++place) {
        bytes.U32(Free);
    }
}

void AppendEntry(TBytes& bytes, StringView name, TEntryType type, std::uint32_t child,
                 std::uint32_t firstSector, std::uint32_t size) {
    const std::size_t nameBytes = type == UnusedEntry ? 0 : (name.size() + 1) * sizeof(Char);
    bytes.Units(name, /*wide=*/true).Fill(NameBytes - name.size() * sizeof(Char), 0);
    bytes.U16(static_cast<unsigned>(nameBytes)).U8(type);
    bytes.U8(type == UnusedEntry ? 0 : BlackEntry);
    bytes.U32(NoEntry).U32(NoEntry).U32(child);
    bytes.Fill(16 + 4 + 8 + 8, 0); // no class, no flags, no times
    bytes.U32(firstSector).U32(size).U32(0);
}

void AppendDirectory(TBytes& bytes, const TLayout& layout) {
    constexpr std::uint32_t Workbook = 1;
    AppendEntry(bytes, u"Root Entry", RootEntry, Workbook, EndOfChain, 0);
    AppendEntry(bytes, u"Workbook", StreamEntry, NoEntry, layout.FirstOfStream(),
                layout.StreamSize);
    for (std::size_t entry = 2; entry < EntriesPerSector; ++entry) {
        AppendEntry(bytes, u"", UnusedEntry, NoEntry, 0, 0);
    }
}

} // namespace

void WriteCompoundFile(TReplacingFile& file, const std::vector<std::string>& pieces) {
    std::uint64_t size = 0;
    for (const std::string& piece : pieces) size += piece.size();
    if (size > MaxCompoundStream) {
        throw EExportError(TExportFault::TooLarge,
                           "The texts are more than an XLS workbook holds.");
    }

    const TLayout layout(static_cast<std::uint32_t>(size));
    TBytes bytes;
    AppendHeader(bytes, layout);
    AppendDifat(bytes, layout);
    AppendFat(bytes, layout);
    AppendDirectory(bytes, layout);
    file.Write(bytes.Content());
    for (const std::string& piece : pieces) file.Write(piece);
    file.Write(std::string(layout.Stream * SectorSize - size, '\0'));
}

} // namespace quorin
