#include "tests/support/ServicesFixture.h"

#include "embedded/OrderDesk.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"

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

constexpr Integer Buy = OrderSide::Buy;
constexpr Integer Sell = OrderSide::Sell;
struct TCloseCase {
    const char* Name;
    StringView Held; // "S1 short 200", parted by commas
    StringView Close;
    StringView Orders;
    bool IsTaken = true;
};
constexpr TCloseCase CloseCases[] = {
    {"a long one", u"A long 300", u"A sell 300", u"A sell 300"},
    {"a short record by a buy", u"A short 300", u"A sell 300", u"A buy 300"},
    {"a short net one", u"A net -300", u"A buy 300", u"A buy 300"},
    {"a part", u"A short 300", u"A sell 100", u"A buy 100"},
    {"more than is held", u"A long 300", u"A sell 400", u"A sell 300; A sell 100 refused"},
    {"nothing is held", u"", u"A sell 100", u"A sell 100 refused", false},
    {"a net one the wrong way", u"A net 300", u"A buy 300", u"A buy 300 refused", false},
    {"the master, then its members", u"M net 300,S1 net 200,S2 net 100", u"M sell 600",
     u"M sell 300; S1 sell 200; S2 sell 100"},
    {"each closes its own side", u"M long 300,S1 short 200", u"M sell 500",
     u"M sell 300; S1 buy 200"},
    {"members that stand against the sum keep", u"M net 500,S1 net -200,S2 net 100", u"M sell 400",
     u"M sell 400"},
    {"the sum of members alone", u"S1 net 200,S2 net 100", u"M sell 300",
     u"S1 sell 200; S2 sell 100"},
    {"the master's own row leaves the members", u"M net 300,S1 net 200", u"M sell 300",
     u"M sell 300"},
    {"a member's row is its own", u"M net 300,S1 net 200", u"S1 sell 200", u"S1 sell 200"},
    {"an unknown account", u"", u"X sell 100", u"X sell 100 refused", false},
};

TEST_F(OrderClosesTest, WhoClosesHowMuch) {
    for (const TCloseCase& test : CloseCases) {
        SCOPED_TRACE(test.Name);
        Integer before = static_cast<Integer>(Orders().size());
        for (const StringView account : {u"M", u"S1", u"S2", u"A"}) Hold(account, TSide::Net, 0.0);
        for (const StringView held : Split(test.Held, u',')) {
            const auto words = Split(held, u' ');
            const TSide side = words[1] == u"long"    ? TSide::Long
                               : words[1] == u"short" ? TSide::Short
                                                      : TSide::Net;
            Hold(words[0], side, ToDoubleOr(words[2], 0.0));
        }
        Services().Deliver();
        const auto words = Split(test.Close, u' ');
        const TOrderReason reason =
            Close(words[0], words[1] == u"buy" ? Buy : Sell, ToDoubleOr(words[2], 0.0));
        EXPECT_EQ(reason == TOrderReason::None, test.IsTaken);
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
