#include "embedded/venue/VenueBoard.h"

namespace quorin {

TVenuePrice TVenueBoard::Worth(const TVenueSymbol& symbol) const {
    switch (symbol.Kind) {
    case TVenueKind::None: return 0;
    case TVenueKind::Root: return Processes[symbol.Process].Scale(symbol.Close);
    case TVenueKind::Option: {
        const TVenueOption& option = Options[symbol.Terms];
        return option.Model.Value(UnderlyerOf(option));
    }
    case TVenueKind::Spread: {
        const TVenueSpread& spread = Spreads[symbol.Terms];
        return Worth(Symbols[spread.Near]) - Worth(Symbols[spread.Far]);
    }
    }
    return 0;
}

TVenuePrice TVenueBoard::Intrinsic(const TVenueSymbol& symbol) const {
    if (symbol.Kind != TVenueKind::Option) return 0;
    const TVenueOption& option = Options[symbol.Terms];
    return option.Model.Intrinsic(UnderlyerOf(option));
}

} // namespace quorin
