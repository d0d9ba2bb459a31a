#include "platform/widgets/SortKey.h"

#include "platform/rtl/Text.h"

#include <utility>

namespace quorin {

bool TcxSortKey::Assign(const Variant& value) {
    TcxSortKey key;
    if (value.IsNumber()) {
        key.FRank = TRank::Number;
        key.FNumber = value.ToDouble();
        if (key.FNumber != key.FNumber) key.FRank = TRank::Blank; // what is no number
    } else if (value.IsText()) {
        key.FText = UpperCase(value.ToText());
        if (!key.FText.empty()) key.FRank = TRank::Text;
    }
    if (key.FRank == TRank::Blank) key.FNumber = 0.0;
    if (key == *this) return false;
    *this = std::move(key);
    return true;
}

int TcxSortKey::Compare(const TcxSortKey& other, bool descending) const {
    if ((FRank == TRank::Blank) != (other.FRank == TRank::Blank)) {
        return FRank == TRank::Blank ? 1 : -1;
    }
    if (descending) return other.Compare(*this, /*descending=*/false);
    if (FRank != other.FRank) return FRank < other.FRank ? -1 : 1;
    if (FRank == TRank::Text) return FText.compare(other.FText);
    if (FNumber == other.FNumber) return 0;
    return FNumber < other.FNumber ? -1 : 1;
}

int TcxSortKey::CompareRows(const std::vector<TcxSortKey>& keys,
                            const std::vector<bool>& descending, Integer left, Integer right) {
    const std::size_t columns = descending.size();
    const TcxSortKey* leftKey = keys.data() + static_cast<std::size_t>(left) * columns;
    const TcxSortKey* rightKey = keys.data() + static_cast<std::size_t>(right) * columns;
    for (std::size_t column = 0; column < columns; ++column) {
        const int order = leftKey[column].Compare(rightKey[column], descending[column]);
        if (order != 0) return order;
    }
    return 0;
}

} // namespace quorin
