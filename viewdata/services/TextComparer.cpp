#include "viewdata/services/TextComparer.h"

#include "platform/rtl/Text.h"

namespace quorin {

Integer TCustomComparer::Compare(StringView A, StringView B) const {
    return CompareNatural(A, B);
}

} // namespace quorin
