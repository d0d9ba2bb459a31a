#pragma once

#include "platform/rtl/Types.h"
#include "viewdata/services/SpreadTable.h"

#include <span>
#include <vector>

namespace quorin {

// Prices from `From` to `To` move by `Step`; ticks count from `From`.
struct TSpreadBand {
    Double From;
    Double To;
    Double Step;
};

// A tick table in memory. Prices are reckoned as whole multiples of a power of ten, so that what
// comes out has the clean digits of a price.
//
// A price on the border of two bands moves up by the upper band's step and down by the lower one's.
// A price off the ticks moves to the next tick in its direction. No move goes below the lower end
// of the first band. Above the last band its step goes on, as if the band had no end.
class TEmbeddedSpreadTable final : public TCustomSpreadTable {
    QUORIN_CLASS(TEmbeddedSpreadTable, TCustomSpreadTable)
public:
    Integer GetStatus() const override { return FBands.empty() ? 0 : SpreadTableLoaded; }
    // The price itself while the table is not loaded, for 0 steps, and for what is no price
    // (infinite, or beyond 15 digits).
    Double MovePrice(Double Price, Integer Steps) const override;
    // Prices below the first band belong to it, prices above the last band to that; the band then
    // has no bound on that side (the largest Double).
    Double GetSpreadUp(Double Price, Double& Upper, Double& Lower) const override;
    Double GetSpreadDown(Double Price, Double& Upper, Double& Lower) const override;

    // Whether a price lies on a step of its band; a border is one. Below the
    // first band its step goes on too. False for what is no price, true while nothing is loaded.
    bool IsOnStep(Double price) const;

    // Takes over the bands, lowest first, each beginning where the one before ends. False, and
    // nothing changes, for anything else: no band, a gap, a step that is not above 0, more than 9
    // decimals.
    bool Load(std::span<const TSpreadBand> bands);

private:
    struct TBand { // in units
        Int64 From;
        Int64 To;
        Int64 Step;
    };
    struct TPosition { // a price in units
        Int64 Below;
        bool IsBetween; // above `Below` and below the next unit
    };

    bool ToPosition(Double price, TPosition& position) const;
    std::size_t BandUp(const TPosition& position) const;
    std::size_t BandDown(const TPosition& position) const;
    Int64 MoveUp(TPosition position, Int64 steps) const;
    Int64 MoveDown(TPosition position, Int64 steps) const;
    Double Answer(std::size_t band, TPosition position, Double& upper, Double& lower) const;

    std::vector<TBand> FBands;
    Double FScale = 1.0; // units in 1
};

} // namespace quorin
