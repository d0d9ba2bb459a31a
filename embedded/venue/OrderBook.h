#pragma once

#include "embedded/venue/PriceLadder.h"

#include <array>

namespace quorin {

enum class TBookSideKind : Byte { Bid, Ask };

inline TBookSideKind Opposite(TBookSideKind side) {
    return side == TBookSideKind::Bid ? TBookSideKind::Ask : TBookSideKind::Bid;
}

struct TBookLevel {
    TTick Tick;
    Integer Lots; // at least 1
};

// One side of a book: up to five levels, the best one first.
class TBookSide {
public:
    static constexpr Integer Depth = 5;

    explicit TBookSide(TBookSideKind kind) : FSign(kind == TBookSideKind::Bid ? -1 : 1) {}

    Integer Count() const { return FCount; }
    bool IsEmpty() const { return FCount == 0; }
    const TBookLevel& operator[](Integer level) const { return FLevels[At(level)]; }
    const TBookLevel& Best() const { return FLevels[0]; }

    // Takes lots from the best level and answers how many it had to give; a level that is used up
    // goes, and the next one becomes the best. 0 for an empty side.
    Integer Take(Integer lots);
    // Drops the levels that are better than `tick`.
    void CancelBetterThan(TTick tick);
    // Adds a level in its place; the sixth goes. False for a price that has a level and for one
    // behind five others.
    bool Insert(TTick tick, Integer lots);
    // Writes the quantity of a level, at least 1.
    void SetLots(Integer level, Integer lots) { FLevels[At(level)].Lots = lots; }
    void Clear() { FCount = 0; }

    // Whether the first price is better for the other party than the second.
    bool IsBetter(TTick tick, TTick than) const { return tick * FSign < than * FSign; }
    // `steps` ticks away from the other side.
    TTick Behind(TTick tick, Integer steps) const { return tick + FSign * steps; }

private:
    static std::size_t At(Integer level) { return static_cast<std::size_t>(level); }
    void Remove(Integer level);

    std::array<TBookLevel, static_cast<std::size_t>(Depth)> FLevels{};
    signed char FSign;
    Byte FCount = 0;
};

// What is bid and asked for one symbol.
class TOrderBook {
public:
    TBookSide& Side(TBookSideKind side) { return side == TBookSideKind::Bid ? FBids : FAsks; }
    const TBookSide& Side(TBookSideKind side) const {
        return side == TBookSideKind::Bid ? FBids : FAsks;
    }
    TBookSide& Bids() { return FBids; }
    TBookSide& Asks() { return FAsks; }
    const TBookSide& Bids() const { return FBids; }
    const TBookSide& Asks() const { return FAsks; }
    void Clear() {
        FBids.Clear();
        FAsks.Clear();
    }

private:
    TBookSide FBids{TBookSideKind::Bid};
    TBookSide FAsks{TBookSideKind::Ask};
};

} // namespace quorin
