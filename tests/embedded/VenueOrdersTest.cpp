#include "tests/embedded/VenueChecker.h"
#include "tests/embedded/VenueMarket.h"

using namespace quorin;

namespace {

constexpr Int64 Morning = (10 * 60) * VenueMinute;

class VenueOrdersTest : public testing::Test {
protected:
    VenueOrdersTest() { FMarket.Services().Accounts().FeedAccount(u"ACC"); }

    void Open(Int64 start = Morning) {
        FVenue = FMarket.Open({.Seed = 4, .StepNanos = NanosPerSecond, .StartNanos = start});
        FMarket.AskForAll();
        for (const String& symbol : FMarket.Symbols()) FChecker.Follow(symbol, -1e9, 1e9);
    }
    void Step() {
        FVenue->Step();
        Look();
    }
    void Look() {
        FMarket.Services().Deliver();
        for (const String& symbol : FMarket.Symbols()) FChecker.Check(symbol);
        for (const std::string& fault : FChecker.Faults()) FAIL() << fault;
    }
    TOrderDesk& Desk() { return FMarket.Services().Desk(); }
    const TDeskOrder& Last() { return Desk().Orders().back(); }
    // 0.0 for a market order.
    void Send(StringView symbol, Integer side, Double quantity, Double price = 0.0) {
        ASSERT_EQ(Desk().Take({.Account = u"ACC",
                               .Symbol = String(symbol),
                               .Quantity = quantity,
                               .Price = price,
                               .BuySell = side,
                               .Flags = price == 0.0 ? OrderFlag::Market : 0}),
                  TOrderReason::None);
    }
    const TVenueChecker::TView& View(const String& symbol) { return FChecker.View(symbol); }

    TVenueMarket FMarket;
    TVenueChecker FChecker{FMarket.Items(), FMarket.Market()};
    std::unique_ptr<TVenue> FVenue;
};

TEST_F(VenueOrdersTest, AMarketOrderWalksTheBookLevelByLevel) {
    const String symbol = u"00700";
    Open();
    Step();
    const TVenueChecker::TView before = View(symbol);
    ASSERT_EQ(before.Asks.size(), 5u);
    const Double rest = 100.0;
    const Double quantity = before.Asks[0].Quantity + before.Asks[1].Quantity + rest;
    Send(symbol, OrderSide::Buy, quantity);
    FMarket.Services().Deliver();
    FChecker.Check(symbol);
    EXPECT_EQ(FChecker.Faults(), std::vector<std::string>());
    const TVenueChecker::TView& after = View(symbol);
    EXPECT_EQ(after.Volume - before.Volume, quantity);
    EXPECT_EQ(after.Last, before.Asks[2].Price);
    EXPECT_EQ(Last().State, TOrderState::Filled);
    EXPECT_DOUBLE_EQ(Last().FilledAmount, before.Asks[0].Price * before.Asks[0].Quantity +
                                              before.Asks[1].Price * before.Asks[1].Quantity +
                                              before.Asks[2].Price * rest);
    const TVenueChecker::TView left = after;
    FVenue->Step();
    FMarket.Services().Deliver();
    FChecker.Check(symbol);
    EXPECT_EQ(View(symbol).Asks, left.Asks) << "it rests for a step";
}

TEST_F(VenueOrdersTest, WhatTheBookLacksIsGivenUpOrWaits) {
    const String symbol = u"00700";
    Open();
    Step();
    const Double best = View(symbol).Bids[0].Quantity;
    const Double price = View(symbol).Bids[0].Price;
    Send(symbol, OrderSide::Sell, best + 500.0, price);
    FMarket.Services().Deliver();
    EXPECT_EQ(Last().Filled, best);
    EXPECT_EQ(Last().Remaining(), 500.0);
    EXPECT_EQ(Last().State, TOrderState::Working);
    const TPositionFigures* held = FMarket.Services().Positions().FindFigures(u"ACC", symbol);
    EXPECT_EQ(held->Quantity, -best);
    EXPECT_EQ(held->TodayPendSellQty, 500.0);
    ASSERT_TRUE(Desk().CancelOrder(1));
    FChecker.Check(symbol);
    Double offered = 0.0;
    for (const auto& level : View(symbol).Bids) offered += level.Quantity;
    Send(symbol, OrderSide::Sell, offered + 300.0);
    FMarket.Services().Deliver();
    EXPECT_EQ(Last().State, TOrderState::Cancelled);
    EXPECT_EQ(Last().Filled, offered);
    EXPECT_EQ(held->TodayPendSellQty, 0.0);
}

TEST_F(VenueOrdersTest, LessThanALotTradesBesideTheBook) {
    const String symbol = u"00005"; // lots of 400
    Open();
    Step();
    TPositionFigures figures;
    figures.FollowsPrice = true;
    figures.Quantity = figures.BODQuantity = 500.0;
    FMarket.Services().Positions().FeedPosition(u"ACC", symbol, figures);
    const Double before = View(symbol).Volume;
    Send(symbol, OrderSide::Sell, 500.0);
    FMarket.Services().Deliver();
    FChecker.Check(symbol);
    EXPECT_EQ(Last().Filled, 500.0);
    EXPECT_EQ(View(symbol).Volume - before, 400.0) << "the book trades lots";
    EXPECT_EQ(FMarket.Services().Positions().FindFigures(u"ACC", symbol)->Quantity, 0.0);
}

TEST_F(VenueOrdersTest, NothingTradesOutOfHours) {
    Open(TimeOf(11, 59));
    while (FVenue->TimeNanos() < TimeOf(12, 0)) Step();
    const Double bid = View(u"00700").Bids[0].Price;
    Send(u"00700", OrderSide::Sell, 100.0);
    FMarket.Services().Deliver();
    EXPECT_EQ(Last().Reason, TOrderReason::NothingOffered);
    Send(u"00700", OrderSide::Sell, 100.0, bid);
    while (FVenue->TimeNanos() < TimeOf(12, 59)) Step();
    EXPECT_EQ(Last().State, TOrderState::Working);
    while (FVenue->TimeNanos() < TimeOf(14, 0) && Last().State == TOrderState::Working) Step();
    EXPECT_EQ(Last().State, TOrderState::Filled);
    EXPECT_GE(Last().AveragePrice(), bid);
    const TOrderAudit& audit = Desk().Audit();
    EXPECT_GE(audit[audit.Count() - 1].TimeNanos, TimeOf(13, 0));
    EXPECT_EQ(audit[0].TimeNanos, TimeOf(12, 0));
}

// The book, the prints and the day agree with each other whatever is ordered.
TEST_F(VenueOrdersTest, OrdersLeaveTheMarketWhole) {
    Open();
    std::uint64_t state = 99;
    const auto below = [&](std::uint64_t end) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return (state >> 33) % end;
    };
    for (Integer step = 0; step < 1200 && FChecker.Faults().empty(); ++step) {
        Step();
        const String& symbol = FMarket.Symbols()[below(FMarket.Symbols().size())];
        const auto& sides = View(symbol);
        const bool isBuy = below(2) == 0;
        const auto& levels = isBuy ? sides.Asks : sides.Bids;
        if (levels.empty()) continue;
        const Double lot = FMarket.Items().Item(symbol).GetFieldDouble(Field::LotSize);
        const Double price = levels[below(levels.size())].Price;
        Desk().Take({.Account = u"ACC",
                     .Symbol = symbol,
                     .Quantity = lot * static_cast<Double>(1 + below(4)),
                     .Price = price,
                     .BuySell = isBuy ? OrderSide::Buy : OrderSide::Sell,
                     .Flags = below(2) == 0 ? OrderFlag::Market : 0});
    }
    EXPECT_GT(Desk().Orders().size(), 1000u);
}

TEST_F(VenueOrdersTest, WithoutTheVenueTheQuoteOfTheItemServes) {
    Open();
    Step();
    Send(u"00700", OrderSide::Buy, 100.0, 1.0);
    EXPECT_EQ(Desk().TimeNanos(), FVenue->TimeNanos());
    FVenue.reset();
    EXPECT_EQ(FMarket.Market().OrderMarket(), nullptr);
    EXPECT_EQ(Desk().TimeNanos(), 0);
    FMarket.Items().Item(u"00700").SetField(Field::BestAsk, 0.99);
    FMarket.Services().Deliver();
    EXPECT_EQ(Last().AveragePrice(), 0.99);
}

} // namespace
