#include "embedded/venue/OptionModel.h"
#include "embedded/venue/OrderBook.h"
#include "embedded/venue/VenueSymbol.h"

#include <gtest/gtest.h>

#include <string>

using namespace quorin;

namespace {

std::string Text(const TBookSide& side) {
    std::string text;
    for (Integer level = 0; level < side.Count(); ++level) {
        text += std::to_string(side[level].Tick) + "x" + std::to_string(side[level].Lots) + " ";
    }
    return text;
}

TEST(VenueBookTest, LevelsStayInOrder) {
    TOrderBook book;
    for (const TTick tick : {10, 12, 11, 8, 9}) {
        EXPECT_TRUE(book.Bids().Insert(tick, tick));
        EXPECT_TRUE(book.Asks().Insert(20 + tick, tick));
    }
    EXPECT_EQ(Text(book.Bids()), "12x12 11x11 10x10 9x9 8x8 ");
    EXPECT_EQ(Text(book.Asks()), "28x8 29x9 30x10 31x11 32x12 ");
    EXPECT_FALSE(book.Bids().Insert(11, 1)) << "there already";
    EXPECT_FALSE(book.Bids().Insert(7, 1)) << "behind five others";
    EXPECT_TRUE(book.Asks().Insert(27, 3)) << "the sixth goes";
    EXPECT_EQ(Text(book.Asks()), "27x3 28x8 29x9 30x10 31x11 ");
    book.Asks().CancelBetterThan(29);
    book.Bids().CancelBetterThan(12);
    EXPECT_EQ(Text(book.Asks()), "29x9 30x10 31x11 ");
    EXPECT_EQ(book.Bids().Count(), 5);
}

TEST(VenueBookTest, TakingUsesUpTheBestLevel) {
    TBookSide side(TBookSideKind::Ask);
    EXPECT_EQ(side.Take(5), 0);
    side.Insert(10, 4);
    side.Insert(12, 2);
    EXPECT_EQ(side.Take(3), 3);
    EXPECT_EQ(Text(side), "10x1 12x2 ");
    EXPECT_EQ(side.Take(3), 1) << "never from the next level";
    EXPECT_EQ(Text(side), "12x2 ");
    EXPECT_EQ(side.Take(2), 2);
    EXPECT_TRUE(side.IsEmpty());
}

TEST(VenueBookTest, TicksCountThroughTheBands) {
    constexpr TSpreadBand bands[] = {{0.0, 0.25, 0.001}, {0.25, 0.5, 0.005}, {0.5, 20.0, 0.01}};
    TPriceLadder ladder;
    ASSERT_TRUE(ladder.Load(bands, /*hasNegative=*/false));
    TEmbeddedSpreadTable table;
    ASSERT_TRUE(table.Load(bands));
    EXPECT_EQ(ladder.Lowest(), 1);
    Double price = 0.0;
    for (TTick tick = 1; tick < 2500; ++tick) { // beyond the last band, whose step goes on
        price = table.MovePrice(price, 1);
        ASSERT_EQ(ladder.Value(tick), price);
        ASSERT_EQ(ladder.Floor(ladder.Price(tick)), tick);
        ASSERT_EQ(ladder.Floor(ladder.Price(tick) - 1), tick - 1);
        ASSERT_EQ(ladder.Ceil(ladder.Price(tick) - 1), tick);
    }
    constexpr TSpreadBand differences[] = {{0.0, 100.0, 0.5}};
    ASSERT_TRUE(ladder.Load(differences, /*hasNegative=*/true));
    EXPECT_EQ(ladder.Value(ladder.Floor(-PriceUnit * 3 / 4)), -1.0);
    for (const TSpreadBand& bad : {TSpreadBand{0, 1, 0}, {0, 1, -1}, {1, 1, 1}, {0, 1, 1e-12}}) {
        EXPECT_FALSE(ladder.Load({&bad, 1}, false));
    }
}

TEST(VenueBookTest, TheTapeKnowsTheDay) {
    TTradeTape tape;
    for (const TTick tick : {50, 52, 49, 51, 50, 51}) tape.Print({tick, 2, 36000});
    EXPECT_EQ(tape.Count(), 6u);
    EXPECT_EQ(tape.VolumeLots(), 12);
    EXPECT_EQ(tape.Open(), 50);
    EXPECT_EQ(tape.High(), 52);
    EXPECT_EQ(tape.Low(), 49);
    EXPECT_EQ(tape.Recent(0).Tick, 51);
    EXPECT_EQ(tape.Recent(4).Tick, 52);
}

TEST(VenueBookTest, OptionsRiseAndFallWithTheirUnderlyer) {
    const struct {
        const char* name;
        bool isCall;
        Integer strike;
        Integer close; // 0: by the model
    } rows[] = {
        {"call at the money", true, 26000, 223},
        {"put at the money", false, 26000, 211},
        {"call far in the money", true, 20000, 6004},
        {"put far out of the money", false, 20000, 1},
        {"call with no close", true, 27000, 0},
        {"call below its intrinsic value", true, 25000, 1},
        {"put worth a lot", false, 26000, 9000},
    };
    constexpr TVenuePrice underlyerClose = 26000 * PriceUnit;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const TOptionModel model(row.isCall, row.strike * PriceUnit, 1, underlyerClose,
                                 row.close * PriceUnit);
        const Integer sign = row.isCall ? 1 : -1;
        TVenuePrice last = model.Value(10000 * PriceUnit);
        for (Integer underlyer = 10010; underlyer < 50000; underlyer += 10) {
            const TVenuePrice value = model.Value(underlyer * PriceUnit);
            const TVenuePrice intrinsic = std::max((underlyer - row.strike) * sign, 0) * PriceUnit;
            ASSERT_GE((value - last) * sign, 0) << underlyer;
            ASSERT_GE(value, intrinsic) << underlyer;
            last = value;
        }
        const TVenuePrice atClose = model.Value(underlyerClose);
        const Integer intrinsicAtClose = std::max((26000 - row.strike) * sign, 0);
        const bool isPossible = row.close >= intrinsicAtClose && row.close > 0;
        if (!isPossible) continue;
        EXPECT_NEAR(static_cast<Double>(atClose), row.close * 1e9, 1e9);
    }
}

} // namespace
