#include "platform/export/SharedStrings.h"

#include <algorithm>
#include <optional>

namespace quorin {

namespace {

constexpr unsigned NarrowFlag = 0;
constexpr unsigned WideFlag = 1;
constexpr std::size_t HeaderBytes = 3; // count of units, flag
constexpr Char FirstWideUnit = 0x100;
constexpr unsigned SurrogateMask = 0xFC00;
constexpr unsigned LowSurrogates = 0xDC00;

// Splits the table over records. A text's header stays whole and together with a first character;
// its units may go on in the next record, behind a flag of their own, but no pair is torn.
class TTableRecords {
public:
    TTableRecords(TBytes& bytes, std::uint32_t uses, std::uint32_t texts) : FBytes(bytes) {
        FRecord.emplace(FBytes, TBiff::Sst);
        FBytes.U32(uses).U32(texts);
    }

    void Write(StringView text) {
        const bool wide =
            std::any_of(text.begin(), text.end(), [](Char unit) { return unit >= FirstWideUnit; });
        const std::size_t unitBytes = wide ? 2 : 1;
        const unsigned flag = wide ? WideFlag : NarrowFlag;
        const std::size_t firstCharacter = 2 * unitBytes; // which may be a pair
        if (FRecord->Size() + HeaderBytes + firstCharacter > MaxBiffData) Continue();
        FBytes.U16(static_cast<unsigned>(text.size())).U8(flag);
        while (true) {
            const std::size_t room = (MaxBiffData - FRecord->Size()) / unitBytes;
            std::size_t count = std::min(room, text.size());
            if (count < text.size() && (text[count] & SurrogateMask) == LowSurrogates) --count;
            FBytes.Units(text.substr(0, count), wide);
            text.remove_prefix(count);
            if (text.empty()) return;
            Continue();
            FBytes.U8(flag);
        }
    }

private:
    void Continue() {
        FRecord.reset();
        FRecord.emplace(FBytes, TBiff::Continue);
    }

    TBytes& FBytes;
    std::optional<TRecord> FRecord;
};

} // namespace

std::uint32_t TSharedStrings::IndexOf(const String& text) {
    ++FUses;
    if (const Integer* known = FTexts.Find(text)) return static_cast<std::uint32_t>(*known);
    const Integer index = FTexts.Count();
    FTexts.Add(text, index);
    return static_cast<std::uint32_t>(index);
}

void TSharedStrings::WriteTo(TBytes& bytes) const {
    TTableRecords records(bytes, FUses, static_cast<std::uint32_t>(FTexts.Count()));
    for (const auto& text : FTexts) records.Write(text.Key);
}

} // namespace quorin
