#include "embedded/OrderDesk.h"

#include "embedded/DataError.h"
#include "embedded/PositionValuation.h"
#include "platform/rtl/Numbers.h"
#include "tests/support/ServicesFixture.h"
#include "tests/support/TempFile.h"

#include <cmath>
#include <limits>

namespace quorin {
namespace {

constexpr Integer Buy = OrderSide::Buy;
constexpr Integer Sell = OrderSide::Sell;

// The universe of the fixture, with an exchange where long and short are apart: METAL, lots of 1
// and contracts of 5 in CNY, and a difference of two months. All quotes are unlimited.
class OrderDeskTest : public TServicesFixture {
protected:
    OrderDeskTest() {
        TEmbeddedMarketAdapter& market = Services().Market();
        EXPECT_TRUE(market.AddExchange({.Code = u"SHFE", .Currency = u"CNY", .IsSided = true}));
        EXPECT_TRUE(market.AddSeries({.Code = u"CU", .Exchange = u"SHFE", .CategoryID = 2}));
        for (const StringView code : {u"METAL", u"M1/M2"}) {
            EXPECT_NE(market.AddSymbol({.Symbol = code,
                                        .Exchange = u"SHFE",
                                        .Series = u"CU",
                                        .ProductType = ProductType::Futures,
                                        .TickSize = u"10",
                                        .LotSize = 1.0,
                                        .ContractSize = 5.0,
                                        .PreviousClose = 1000.0}),
                      nullptr);
        }
        Services().Accounts().FeedAccount(u"ACC");
        Services().Currencies().SetMultiCurrency(true);
        Services().Currencies().FeedRatio(u"CNY", 2.0);
        Quote(u"00700", 350.0, 350.2);
        Quote(u"METAL", 1000.0, 1010.0);
    }
    void Quote(StringView symbol, Double bid, Double ask) {
        SetField(symbol, Field::BestBid, bid);
        SetField(symbol, Field::BestAsk, ask);
        SetField(symbol, Field::LastPrice, bid);
    }
    TOrderDesk& Desk() { return Services().Desk(); }
    TOrderReason Limit(StringView symbol, Integer side, Double quantity, Double price) {
        return Desk().Take({.Account = u"ACC",
                            .Symbol = String(symbol),
                            .Quantity = quantity,
                            .Price = price,
                            .BuySell = side});
    }
    TOrderReason AtMarket(StringView symbol, Integer side, Double quantity) {
        return Desk().Take({.Account = u"ACC",
                            .Symbol = String(symbol),
                            .Quantity = quantity,
                            .BuySell = side,
                            .Flags = OrderFlag::Market});
    }
    const TDeskOrder& Last() { return Desk().Orders().back(); }
    void Hold(StringView symbol, TPositionSide side, Double quantity, Double price) {
        TPositionFigures figures;
        figures.FollowsPrice = true;
        figures.Side = side;
        figures.Quantity = figures.BODQuantity = quantity;
        figures.BODPrice = price;
        Services().Positions().FeedPosition(u"ACC", symbol, figures);
        Services().Deliver();
    }
    const TPositionFigures& Held(StringView symbol) {
        return *Services().Positions().FindFigures(u"ACC", symbol);
    }
    String Audit() {
        String text;
        const TOrderAudit& audit = Desk().Audit();
        for (Integer index = 0; index < audit.Count(); ++index) {
            const TOrderAuditEntry& entry = audit[index];
            text += FromUtf8(AuditCode(entry.Kind)) + u" " + FromUtf8(ReasonCode(entry.Reason)) +
                    u" #" + IntegerToText(entry.OrderNumber) + u" " + DoubleToText(entry.Quantity) +
                    u"@" + DoubleToText(entry.Price) + u"; ";
        }
        return text;
    }
};

TEST_F(OrderDeskTest, WhatIsRefusedAndWhy) {
    constexpr Double Infinite = std::numeric_limits<Double>::infinity();
    using enum TOrderReason;
    struct TCase {
        const char* Name;
        TOrderValues Order;
        TOrderReason Reason;
    };
    const TCase cases[] = {
        {"complete", {u"ACC", u"00700", 100.0, 350.2, Buy, 0, {}}, None},
        {"largest", {u"ACC", u"00700", MaxOrderQuantity, 350.2, Buy, 0, {}}, None},
        {"neither side first", {u"", u"", 0.0, 0.0, Sell + 1, 0, {}}, NoSide},
        {"no account", {u"", u"00700", 100.0, 350.2, Buy, 0, {}}, UnknownAccount},
        {"unknown account", {u"acc", u"NONE", 0.0, 350.2, Buy, 0, {}}, UnknownAccount},
        {"unknown symbol", {u"ACC", u"NONE", 0.0, 350.2, Buy, 0, {}}, UnknownSymbol},
        {"no quantity", {u"ACC", u"00700", 0.0, 1.23, Buy, 0, {}}, Quantity},
        {"below zero", {u"ACC", u"00700", -100.0, 350.2, Buy, 0, {}}, Quantity},
        {"above the largest",
         {u"ACC", u"00700", MaxOrderQuantity + 100.0, 350.2, Buy, 0, {}},
         Quantity},
        {"no number", {u"ACC", u"00700", std::nan(""), 350.2, Buy, 0, {}}, Quantity},
        {"half a lot", {u"ACC", u"00700", 50.0, 1.23, Buy, 0, {}}, Lot},
        {"part of a unit", {u"ACC", u"00700", 100.5, 350.2, Buy, 0, {}}, Lot},
        {"off the step", {u"ACC", u"00700", 100.0, 350.1, Buy, 0, {}}, Price},
        {"finer band", {u"ACC", u"00700", 100.0, 9.99, Buy, 0, {}}, None},
        {"between bands", {u"ACC", u"00700", 100.0, 200.1, Buy, 0, {}}, Price},
        {"border of bands", {u"ACC", u"00700", 100.0, 200.0, Buy, 0, {}}, None},
        {"above the table", {u"ACC", u"00700", 100.0, 600.4, Buy, 0, {}}, None},
        {"price 0", {u"ACC", u"00700", 100.0, 0.0, Buy, 0, {}}, Price},
        {"price below 0", {u"ACC", u"00700", 100.0, -1.0, Buy, 0, {}}, Price},
        {"price no number", {u"ACC", u"00700", 100.0, std::nan(""), Buy, 0, {}}, Price},
        {"price without end", {u"ACC", u"00700", 100.0, Infinite, Buy, 0, {}}, Price},
        {"by tick size", {u"ACC", u"METAL", 1.0, 1005.0, Buy, 0, {}}, Price},
        {"difference below 0", {u"ACC", u"M1/M2", 1.0, -20.0, Buy, 0, {}}, None},
        {"difference of 0", {u"ACC", u"M1/M2", 1.0, 0.0, Sell, 0, {}}, None},
        {"difference off the step", {u"ACC", u"M1/M2", 1.0, -5.0, Buy, 0, {}}, Price},
        {"at the market", {u"ACC", u"00700", 100.0, -7.77, Buy, OrderFlag::Market, {}}, None},
    };
    Int64 count = 0;
    for (const TCase& row : cases) {
        EXPECT_EQ(Desk().Take(row.Order), row.Reason) << row.Name;
        ++count;
        EXPECT_EQ(Last().Number, count);
        EXPECT_EQ(Last().State == TOrderState::Refused, row.Reason != None) << row.Name;
        const TOrderAuditEntry& line = Desk().Audit()[static_cast<Integer>(count) - 1];
        EXPECT_EQ(line.Kind,
                  row.Reason == None ? TOrderAuditKind::Order : TOrderAuditKind::Refusal);
        EXPECT_EQ(line.Reason, row.Reason) << row.Name;
        EXPECT_EQ(line.Sequence, count);
    }
}

TEST_F(OrderDeskTest, WhereSidesAreApartNoOrderCrossesZero) {
    struct TCase {
        const char* Name;
        TPositionSide Side;
        Double Held;
        Integer BuySell;
        Double Works; // an order of the same side that waits
        Double Quantity;
        bool IsTaken;
    };
    using enum TPositionSide;
    const TCase cases[] = {
        {"all of a long", Long, 5, Sell, 0, 5, true},
        {"more than a long", Long, 5, Sell, 0, 6, false},
        {"what others leave", Long, 5, Sell, 2, 3, true},
        {"more than others leave", Long, 5, Sell, 2, 4, false},
        {"adding to a long", Long, 5, Buy, 0, 50, true},
        {"all of a short", Short, 5, Buy, 0, 5, true},
        {"more than a short", Short, 5, Buy, 0, 6, false},
        {"adding to a short", Short, 5, Sell, 0, 50, true},
        {"opening", Long, 0, Sell, 0, 50, true},
        {"net record", Net, 5, Sell, 0, 50, true},
    };
    for (const TCase& row : cases) {
        Hold(u"METAL", row.Side, row.Held, 1000.0);
        const Double far = row.BuySell == Buy ? 500.0 : 2000.0;
        if (row.Works > 0.0) {
            ASSERT_EQ(Limit(u"METAL", row.BuySell, row.Works, far), TOrderReason::None);
        }
        EXPECT_EQ(Limit(u"METAL", row.BuySell, row.Quantity, far) == TOrderReason::None,
                  row.IsTaken)
            << row.Name;
        for (const TDeskOrder* order : Desk().WorkingOrders()) Desk().CancelOrder(order->Number);
    }
}

TEST_F(OrderDeskTest, AMarketOrderTradesAtOnceAndIsBookedWithTheDelivery) {
    ASSERT_EQ(AtMarket(u"00700", Buy, 200.0), TOrderReason::None);
    EXPECT_EQ(Last().State, TOrderState::Working);
    EXPECT_EQ(Last().Filled, 0.0);
    EXPECT_FALSE(Desk().CancelOrder(1)) << "it has traded";
    Quote(u"00700", 360.0, 360.2);
    Services().Deliver();
    EXPECT_EQ(Last().State, TOrderState::Filled);
    EXPECT_EQ(Last().AveragePrice(), 350.2) << "of the quote at which it came in";
    EXPECT_EQ(Held(u"00700").Quantity, 200.0);
    EXPECT_EQ(Held(u"00700").TodayBuyAmount, 70040.0);
    EXPECT_EQ(Audit(), u"order  #1 200@0; fill  #1 200@350.2; ");
    EXPECT_TRUE(Desk().WorkingOrders().IsEmpty());
}

TEST_F(OrderDeskTest, AMarketOrderGivesUpWhatNobodyOffers) {
    Services().Items().Item(u"00700").ClearField(Field::BestBid);
    ASSERT_EQ(AtMarket(u"00700", Sell, 100.0), TOrderReason::None);
    Services().Deliver();
    EXPECT_EQ(Last().State, TOrderState::Cancelled);
    EXPECT_EQ(Last().Reason, TOrderReason::NothingOffered);
    EXPECT_EQ(Audit(), u"order  #1 100@0; cancel nothing-offered #1 100@0; ");
    EXPECT_EQ(Held(u"00700").TodayPendSellQty, 0.0);
}

TEST_F(OrderDeskTest, ALimitOrderWaitsForItsPrice) {
    ASSERT_EQ(Limit(u"00700", Buy, 100.0, 350.0), TOrderReason::None);
    Services().Deliver();
    EXPECT_EQ(Last().State, TOrderState::Working);
    EXPECT_EQ(Held(u"00700").TodayPendBuyQty, 100.0);
    EXPECT_EQ(Services().Positions().GetPosition(u"ACC", u"00700"), nullptr) << "nothing held";
    Quote(u"00700", 349.0, 349.6);
    Services().Deliver();
    EXPECT_EQ(Last().State, TOrderState::Filled);
    EXPECT_EQ(Last().AveragePrice(), 349.6) << "better than its limit";
    EXPECT_EQ(Held(u"00700").TodayPendBuyQty, 0.0);
    EXPECT_EQ(Held(u"00700").Quantity, 100.0);
}

TEST_F(OrderDeskTest, WorkingOrdersAreListedAndCancelled) {
    for (const Double price : {300.0, 310.0, 320.0}) Limit(u"00700", Buy, 100.0, price);
    Limit(u"00700", Buy, 50.0, 330.0); // refused
    EXPECT_TRUE(Desk().CancelOrder(2));
    EXPECT_FALSE(Desk().CancelOrder(2)) << "once";
    for (const Int64 number : {-1, 0, 4, 5}) EXPECT_FALSE(Desk().CancelOrder(number)) << number;
    const TList<const TDeskOrder*> working = Desk().WorkingOrders();
    ASSERT_EQ(working.Count(), 2);
    EXPECT_EQ(working[0]->Number, 1);
    EXPECT_EQ(working[1]->Number, 3);
    EXPECT_EQ(Held(u"00700").TodayPendBuyQty, 200.0);
    EXPECT_EQ(Desk().FindOrder(2)->Reason, TOrderReason::ByUser);
    EXPECT_EQ(Desk().FindOrder(2)->Remaining(), 0.0);
    EXPECT_EQ(Desk().FindOrder(4)->State, TOrderState::Refused);
}

TEST_F(OrderDeskTest, ExactlyTheWholePositionMayBeClosedInAnySize) {
    Hold(u"00700", TPositionSide::Net, -150.0, 340.0);
    EXPECT_EQ(AtMarket(u"00700", Sell, 150.0), TOrderReason::Lot) << "the same way";
    EXPECT_EQ(AtMarket(u"00700", Buy, 149.0), TOrderReason::Lot);
    EXPECT_EQ(AtMarket(u"00700", Buy, 150.0), TOrderReason::None);
    EXPECT_EQ(AtMarket(u"00700", Buy, 150.0), TOrderReason::Lot) << "it is closed by then";
    Services().Deliver();
    EXPECT_EQ(Held(u"00700").Quantity, 0.0);
}

TEST_F(OrderDeskTest, EverySideKeepsItsProfit) {
    struct TTrade {
        Integer BuySell;
        Double Quantity, Price;
    };
    struct TCase {
        const char* Name;
        TPositionSide Side;
        Double Start; // at 1000
        std::vector<TTrade> Trades;
        TPositionSide EndSide;
        Double End;
        Double Profit; // of the day at 1100, by contracts of 5
    };
    using enum TPositionSide;
    const TCase cases[] = {
        {"net bought", Net, 0, {{Buy, 2, 1050}}, Net, 2, 500},
        {"net turned", Net, 2, {{Sell, 5, 1050}}, Net, -3, -250},
        {"long added", Long, 2, {{Buy, 1, 1080}}, Long, 3, 1100},
        {"long closed in part", Long, 3, {{Sell, 1, 1050}}, Long, 2, 1250},
        {"short added", Short, 2, {{Sell, 1, 1080}}, Short, 3, -1100},
        {"short closed in part", Short, 3, {{Buy, 1, 1050}}, Short, 2, -1250},
        {"long closed, opened short", Long, 2, {{Sell, 2, 1050}, {Sell, 1, 1060}}, Short, 1, 300},
        {"short closed, opened long", Short, 2, {{Buy, 2, 1050}, {Buy, 1, 1060}}, Long, 1, -300},
        {"there and back",
         Long,
         2,
         {{Sell, 2, 1050}, {Sell, 1, 1060}, {Buy, 1, 1040}, {Buy, 2, 1090}},
         Long,
         2,
         700},
        {"opened long", Long, 0, {{Buy, 1, 1050}}, Long, 1, 250},
        {"opened short", Long, 0, {{Sell, 1, 1050}}, Short, 1, -250},
    };
    for (const TCase& row : cases) {
        TPositionFigures figures;
        figures.Side = row.Side;
        figures.Quantity = figures.BODQuantity = row.Start;
        figures.BODPrice = 1000.0;
        for (const TTrade& trade : row.Trades) {
            BookTrade(figures, {trade.BuySell == Buy, trade.Quantity, trade.Price});
        }
        ValuePosition(figures, {1100.0, 990.0, 5.0});
        EXPECT_EQ(figures.Side, row.EndSide) << row.Name;
        EXPECT_EQ(figures.Quantity, row.End) << row.Name;
        EXPECT_EQ(QuantityFromDay(figures), row.End) << row.Name;
        EXPECT_DOUBLE_EQ(figures.InitPL + figures.ExePL, row.Profit) << row.Name;
    }
}

TEST_F(OrderDeskTest, AccountsFollowInTheCurrencyOfTheProduct) {
    Services().Accounts().FeedBalance(u"ACC", u"", {.Value991 = 5000.0, .Value9028 = 5000.0});
    ASSERT_EQ(AtMarket(u"METAL", Buy, 2.0), TOrderReason::None);
    ASSERT_EQ(Limit(u"METAL", Buy, 1.0, 500.0), TOrderReason::None);
    TCountingReceiver currencies;
    TCustomCurrencyAdapter::GetInstance()->AddMultiCurrencyInfoCallback(currencies.Event(),
                                                                        &currencies);
    Services().Deliver();
    EXPECT_EQ(currencies.Count(), 1) << "a new record";
    TCustomCurrencyAdapter::GetInstance()->RemoveMultiCurrencyInfoCallback(&currencies);
    TCustomAccount* account = TCustomAccountAdapter::GetInstance()->GetAccount(u"ACC", false);
    const TCustomAccountData* cny = account->GetAccountData(u"CNY");
    const TCustomAccountData* total = account->GetAccountData(u"");
    ASSERT_NE(cny, nullptr);
    EXPECT_EQ(cny->GetValue991(), -10100.0) << "2 contracts of 5 at 1010";
    EXPECT_EQ(cny->GetValue445(), 10000.0) << "at the last price";
    EXPECT_EQ(cny->GetValue607(), -100.0);
    EXPECT_EQ(cny->GetValue185(), 10100.0);
    EXPECT_EQ(cny->GetValue155(), 2500.0);
    EXPECT_EQ(cny->GetValue990(), 1250.0) << "half of what waits";
    EXPECT_EQ(cny->GetValue9018B(), 1250.0);
    EXPECT_EQ(total->GetValue991(), 5000.0 - 20200.0);
    EXPECT_EQ(total->GetValue9028(), 5000.0 - 200.0);
    SetField(u"METAL", Field::LastPrice, 1050.0);
    Services().Deliver();
    EXPECT_EQ(cny->GetValue607(), 400.0) << "prices move it";
    EXPECT_EQ(total->GetValue9028(), 5000.0 + 800.0);
    Services().Accounts().FeedBalance(u"ACC", u"CNY", {.Value991 = 7.0});
    Services().Deliver();
    EXPECT_EQ(cny->GetValue991(), 7.0) << "what the host says holds";
    EXPECT_EQ(cny->GetValue607(), 0.0);
    EXPECT_EQ(total->GetValue9028(), 5000.0 + 800.0);
}

TEST_F(OrderDeskTest, OneDeliveryTellsOfOrdersAndNoCallDoes) {
    TCountingReceiver orders, positions;
    Desk().AddChangeCallback(orders.Event(), &orders);
    TCustomPositionAdapter::GetInstance()->ChangePositionAccount(u"ACC", positions.Event(),
                                                                 &positions, u"");
    AtMarket(u"00700", Buy, 100.0);
    Limit(u"METAL", Buy, 1.0, 500.0);
    EXPECT_EQ(orders.Count() + positions.Count(), 0);
    Services().Deliver();
    EXPECT_EQ(orders.Count(), 1);
    EXPECT_EQ(positions.Count(), 1) << "METAL has nothing but a pending order";
    Services().Deliver();
    EXPECT_EQ(orders.Count(), 1);
    Desk().CancelOrder(2);
    Services().Deliver();
    EXPECT_EQ(orders.Count(), 2);
    EXPECT_EQ(Services().RegistrationCount(), 2);
    Desk().RemoveChangeCallback(&orders);
    TCustomPositionAdapter::GetInstance()->RemovePositionCallback(u"ACC", &positions);
}

TEST_F(OrderDeskTest, TheAuditListIsSavedWholeOrNotAtAll) {
    Limit(u"00700", Sell, 100.0, 350.4);
    Desk().NoteQuestion(u"Sell \"00700\", 100?\r\n確定");
    Desk().NoteAnswer(u"yes");
    const TTempFile file("old");
    Desk().Audit().Save(file.Path());
    EXPECT_EQ(file.Content(),
              "sequence,time,kind,reason,order,account,symbol,side,quantity,price,text\r\n"
              "1,00:00:00.000000000,order,,1,ACC,00700,sell,100,350.4,\r\n"
              "2,00:00:00.000000000,question,,,,,,,,\"Sell \"\"00700\"\", 100?\r\n確定\"\r\n"
              "3,00:00:00.000000000,answer,,,,,,,,yes\r\n");
    const std::filesystem::path nowhere = file.Path() / "audit.csv";
    EXPECT_THROW(Desk().Audit().Save(nowhere), EDataError);
}

} // namespace
} // namespace quorin
