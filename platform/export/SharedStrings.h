#pragma once

#include "platform/export/BiffRecords.h"
#include "platform/rtl/TDictionary.h"

#include <cstdint>

namespace quorin {

// The texts of a binary workbook, each stored once, in the order of their first use.
class TSharedStrings {
public:
    // The number by which cells name the text.
    std::uint32_t IndexOf(const String& text);
    // The table and its continuations.
    void WriteTo(TBytes& bytes) const;

private:
    TDictionary<String, Integer> FTexts;
    std::uint32_t FUses = 0;
};

} // namespace quorin
