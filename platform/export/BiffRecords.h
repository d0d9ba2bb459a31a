#pragma once

#include "platform/rtl/Types.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace quorin {

// Record numbers of the binary workbook, version 8.
enum class TBiff : std::uint16_t {
    Eof = 0x000A,
    Selection = 0x001D,
    DateMode = 0x0022,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    Pane = 0x0041,
    CodePage = 0x0042,
    ColInfo = 0x007D,
    BoundSheet = 0x0085,
    Xf = 0x00E0,
    Sst = 0x00FC,
    LabelSst = 0x00FD,
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Row = 0x0208,
    Window2 = 0x023E,
    Style = 0x0293,
    Format = 0x041E,
    Bof = 0x0809,
};

// Most bytes in one record; more goes into records Continue.
inline constexpr std::size_t MaxBiffData = 8224;

// Little-endian numbers and texts, one behind the other.
class TBytes {
public:
    TBytes& U8(unsigned value) {
        FBytes.push_back(static_cast<char>(value & 0xFF));
        return *this;
    }
    TBytes& U16(unsigned value) { return U8(value).U8(value >> 8); }
    TBytes& U32(std::uint32_t value) { return U16(value & 0xFFFF).U16(value >> 16); }
    TBytes& Float64(Double value) {
        const auto bits = std::bit_cast<std::uint64_t>(value);
        return U32(static_cast<std::uint32_t>(bits)).U32(static_cast<std::uint32_t>(bits >> 32));
    }
    TBytes& Fill(std::size_t count, unsigned value) {
        FBytes.append(count, static_cast<char>(value & 0xFF));
        return *this;
    }
    // One or two bytes per unit.
    TBytes& Units(StringView text, bool wide) {
        for (const Char unit : text) wide ? U16(unit) : U8(unit);
        return *this;
    }
    void Append(const std::string& bytes) { FBytes += bytes; }
    void PatchU16(std::size_t position, unsigned value) {
        FBytes[position] = static_cast<char>(value & 0xFF);
        FBytes[position + 1] = static_cast<char>(value >> 8 & 0xFF);
    }
    void PatchU32(std::size_t position, std::uint32_t value) {
        PatchU16(position, value & 0xFFFF);
        PatchU16(position + sizeof(std::uint16_t), value >> 16);
    }

    std::size_t Size() const { return FBytes.size(); }
    const std::string& Content() const { return FBytes; }
    std::string TakeContent() { return std::exchange(FBytes, {}); }

private:
    std::string FBytes;
};

// A record from its construction to its end, when its length is known.
class TRecord {
public:
    TRecord(TBytes& bytes, TBiff number) : FBytes(bytes) {
        FBytes.U16(static_cast<unsigned>(number)).U16(0);
        FStart = FBytes.Size();
    }
    TRecord(const TRecord&) = delete;
    TRecord& operator=(const TRecord&) = delete;
    ~TRecord() { FBytes.PatchU16(FStart - sizeof(std::uint16_t), static_cast<unsigned>(Size())); }

    std::size_t Size() const { return FBytes.Size() - FStart; }

private:
    TBytes& FBytes;
    std::size_t FStart;
};

} // namespace quorin
