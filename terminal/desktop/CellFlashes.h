#pragma once

#include "viewdata/market/MarketDataControl.h"

#include <QElapsedTimer>
#include <QHash>

namespace quorin {

// Which cells of a grid have moved a moment ago, by record and attribute, and fade since.
class TCellFlashes {
public:
    static constexpr Int64 Duration = 600; // milliseconds
    // A fade that is drawn in steps costs a few paints, not one for each frame.
    static constexpr Int64 StepLength = 100;

    struct TFlash {
        TPriceChangeState State = pcsNone;
        Int64 Start = 0;
    };

    TCellFlashes() { FClock.start(); }

    bool IsEmpty() const { return FFlashes.isEmpty(); }
    // No move leaves the flash that there is.
    void Flash(Integer record, Integer attribute, TPriceChangeState state);
    // Begins a frame: numbers that the one before did not compare count for nothing.
    void BeginFrame() { ++FFrame; }
    // Flashes the cell if its number differs from the one that the frame before had there under the
    // same identity.
    void Compare(Integer record, Integer attribute, std::size_t identity, Double number);
    // Nil for a cell without one; good until the next call of the others.
    const TFlash* Find(Integer record, Integer attribute) const;
    // From 1 at the move down to 0.
    Double Strength(const TFlash& flash) const;
    // Forgets those that are over. True when what is left looks other than at the last such call.
    bool Fade();

private:
    // A number that was drawn.
    struct TDrawn {
        std::size_t Identity = 0;
        Double Number = 0.0;
        Int64 Frame = 0;
    };

    QHash<quint64, TDrawn> FDrawn;
    Int64 FFrame = 1;
    QHash<quint64, TFlash> FFlashes;
    QElapsedTimer FClock;
    Int64 FStep = 0;
};

} // namespace quorin
