#include "tests/support/ServicesFixture.h"

#include "embedded/OrderDesk.h"
#include "platform/rtl/Numbers.h"

namespace quorin {
namespace {

using TSide = TPositionSide;

// The master M with the sub-accounts S1 and S2, and the plain account A; every order finds a price.
struct OrderClosesTest : TServicesFixture {
    OrderClosesTest() {
        Services().Accounts().FeedAccount(u"M", {.Type = 9, .IsAggregate = true});
        Services().Accounts().FeedAccount(u"S1", {.MasterAccount = u"M"});
        Services().Accounts().FeedAccount(u"S2", {.MasterAccount = u"M"});
        Services().Accounts().FeedAccount(u"A");
        SetField(u"00700", Field::BestBid, 350.0);
        SetField(u"00700", Field::BestAsk, 350.2);
        Services().Deliver();
    }
    void Hold(StringView account, TSide side, Double quantity) {
        TPositionFigures figures;
        figures.FollowsPrice = true;
        figures.Side = side;
        figures.Quantity = figures.BODQuantity = quantity;
        figures.BODPrice = 300.0;
        Services().Positions().FeedPosition(account, u"00700", figures);
    }
    TOrderReason Close(StringView account, Integer side, Double quantity) {
        TOrderValues values{.Account = String(account),
                            .Symbol = u"00700",
                            .Quantity = quantity,
                            .BuySell = side,
                            .Flags = OrderFlag::Market};
        values.ExtraValues.AddOrSetValue(ClosePositionFlagKey, String(ClosePositionFlagValue));
        return Services().Desk().Take(values);
    }
    // "M sell 300; S1 buy 100 refused".
    String Orders() {
        String text;
        for (const TDeskOrder& order : Services().Desk().Orders()) {
            text += (text.empty() ? u"" : u"; ") + order.Values.Account +
                    (order.Values.IsBuy() ? u" buy " : u" sell ") +
                    DoubleToText(order.Values.Quantity) +
                    (order.State == TOrderState::Refused ? u" refused" : u"");
        }
        return text;
    }
};

struct TCloseCase {
    const char* Name;
    struct THeld {
        const char16_t* Account;
        TSide Side;
        Double Quantity;
    } Held[3];
    const char16_t* Account;
    Integer Side;
    Double Quantity;
    const char16_t* Orders;
    bool IsTaken;
};
constexpr Integer Buy = OrderSide::Buy;
constexpr Integer Sell = OrderSide::Sell;
const TCloseCase CloseCases[] = {
    {"a long one", {{u"A", TSide::Long, 300}}, u"A", Sell, 300, u"A sell 300", true},
    {"a short record by a buy", {{u"A", TSide::Short, 300}}, u"A", Sell, 300, u"A buy 300", true},
    {"a short net one", {{u"A", TSide::Net, -300}}, u"A", Buy, 300, u"A buy 300", true},
    {"a part", {{u"A", TSide::Short, 300}}, u"A", Sell, 100, u"A buy 100", true},
    {"more than is held",
     {{u"A", TSide::Long, 300}},
     u"A",
     Sell,
     400,
     u"A sell 300; A sell 100 refused",
     true},
    {"nothing is held", {}, u"A", Sell, 100, u"A sell 100 refused", false},
    {"a net one the wrong way",
     {{u"A", TSide::Net, 300}},
     u"A",
     Buy,
     300,
     u"A buy 300 refused",
     false},
    {"the master, then its members",
     {{u"M", TSide::Net, 300}, {u"S1", TSide::Net, 200}, {u"S2", TSide::Net, 100}},
     u"M",
     Sell,
     600,
     u"M sell 300; S1 sell 200; S2 sell 100",
     true},
    {"each closes its own side",
     {{u"M", TSide::Long, 300}, {u"S1", TSide::Short, 200}},
     u"M",
     Sell,
     500,
     u"M sell 300; S1 buy 200",
     true},
    {"members that stand against the sum keep",
     {{u"M", TSide::Net, 500}, {u"S1", TSide::Net, -200}, {u"S2", TSide::Net, 100}},
     u"M",
     Sell,
     400,
     u"M sell 400",
     true},
    {"the sum of members alone",
     {{u"S1", TSide::Net, 200}, {u"S2", TSide::Net, 100}},
     u"M",
     Sell,
     300,
     u"S1 sell 200; S2 sell 100",
     true},
    {"the master's own row leaves the members",
     {{u"M", TSide::Net, 300}, {u"S1", TSide::Net, 200}},
     u"M",
     Sell,
     300,
     u"M sell 300",
     true},
    {"a member's row is its own",
     {{u"M", TSide::Net, 300}, {u"S1", TSide::Net, 200}},
     u"S1",
     Sell,
     200,
     u"S1 sell 200",
     true},
    {"an unknown account", {}, u"X", Sell, 100, u"X sell 100 refused", false},
};

TEST_F(OrderClosesTest, WhoClosesHowMuch) {
    for (const TCloseCase& test : CloseCases) {
        SCOPED_TRACE(test.Name);
        Integer before = static_cast<Integer>(Orders().size());
        for (const StringView account : {u"M", u"S1", u"S2", u"A"}) Hold(account, TSide::Net, 0.0);
        for (const auto& held : test.Held) {
            if (held.Account != nullptr) Hold(held.Account, held.Side, held.Quantity);
        }
        Services().Deliver();
        EXPECT_EQ(Close(test.Account, test.Side, test.Quantity) == TOrderReason::None,
                  test.IsTaken);
        if (before > 0) before += 2; // the separator
        EXPECT_EQ(Orders().substr(static_cast<std::size_t>(before)), test.Orders);
        Services().Deliver();
    }
}

TEST_F(OrderClosesTest, WhatAnotherOrderClosesIsNotClosedTwice) {
    Hold(u"A", TSide::Net, 300.0);
    Services().Deliver();
    Services().Desk().Take(
        {.Account = u"A", .Symbol = u"00700", .Quantity = 200.0, .Price = 400.0, .BuySell = Sell});
    EXPECT_EQ(Close(u"A", Sell, 300.0), TOrderReason::None);
    EXPECT_EQ(Orders(), u"A sell 200; A sell 100; A sell 200 refused");
}

} // namespace
} // namespace quorin
