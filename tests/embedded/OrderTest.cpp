#include "embedded/OrderService.h"

#include "tests/support/ServicesFixture.h"

#include <cmath>

namespace quorin {
namespace {

class OrderTest : public TServicesFixture {
protected:
    OrderTest() {
        Services().Accounts().FeedAccount(u"ACC");
        FOrder = TCustomOrderAdapter::GetInstance()->CreateClientOrder();
        Prepare(u"ACC", u"00700", 100.0);
    }
    void Prepare(StringView account, StringView symbol, Double quantity) {
        FOrder->Clear();
        FOrder->SetAccount(account);
        FOrder->SetSymbol(symbol);
        FOrder->SetQuantity(quantity);
        FOrder->SetPrice(350.2);
        FOrder->SetBuySell(OrderSide::Sell);
    }
    bool Take(TCustomClientOrder* order, Integer action = OrderAction::Place) {
        return TCustomOrderActionManager::GetInstance()->TakeOrderAction(nullptr, order, action,
                                                                         /*Flag=*/true);
    }
    const TList<TOrderValues>& Taken() { return Services().Orders().TakenOrders(); }

    std::unique_ptr<TCustomClientOrder> FOrder;
};

TEST_F(OrderTest, WhatIsTakenOutlivesTheOrder) {
    FOrder->SetOrderFlags(6);
    FOrder->SetOrderFlags(FOrder->GetOrderFlags() | OrderFlag::Market);
    FOrder->SetExtraValue(ClosePositionFlagKey, u"N");
    FOrder->SetExtraValue(ClosePositionFlagKey, ClosePositionFlagValue);
    ASSERT_TRUE(Take(FOrder.get()));
    FOrder->Clear();

    ASSERT_EQ(Taken().Count(), 1);
    const TOrderValues& taken = Taken()[0];
    EXPECT_EQ(taken.Account, u"ACC");
    EXPECT_EQ(taken.Symbol, u"00700");
    EXPECT_EQ(taken.Quantity, 100.0);
    EXPECT_EQ(taken.Price, 350.2);
    EXPECT_EQ(taken.BuySell, OrderSide::Sell);
    EXPECT_EQ(taken.Flags, 7);
    String extra;
    EXPECT_TRUE(taken.ExtraValues.TryGetValue(ClosePositionFlagKey, extra));
    EXPECT_EQ(extra, u"Y");
}

TEST_F(OrderTest, ClearLeavesNothing) {
    FOrder->SetOrderFlags(OrderFlag::Market);
    FOrder->SetExtraValue(u"k", u"v");
    FOrder->Clear();
    const auto* order = ObjectAs<TEmbeddedClientOrder>(FOrder.get());
    ASSERT_NE(order, nullptr);
    EXPECT_EQ(FOrder->GetQuantity(), 0.0);
    EXPECT_EQ(FOrder->GetOrderFlags(), 0);
    EXPECT_EQ(order->Values().Account, u"");
    EXPECT_EQ(order->Values().Symbol, u"");
    EXPECT_EQ(order->Values().Price, 0.0);
    EXPECT_EQ(order->Values().BuySell, OrderSide::Buy);
    EXPECT_TRUE(order->Values().ExtraValues.IsEmpty());
}

TEST_F(OrderTest, WhatIsTakenAndWhatRefused) {
    struct TCase {
        const char* Name;
        StringView Account;
        StringView Symbol;
        Double Quantity;
        bool IsTaken;
    };
    const TCase cases[] = {
        {"complete", u"ACC", u"00700", 100.0, true},
        {"part of a unit", u"ACC", u"00700", 0.5, true},
        {"the largest", u"ACC", u"00700", MaxOrderQuantity, true},
        {"above the largest", u"ACC", u"00700", MaxOrderQuantity + 1.0, false},
        {"no quantity", u"ACC", u"00700", 0.0, false},
        {"quantity below zero", u"ACC", u"00700", -1.0, false},
        {"quantity that is no number", u"ACC", u"00700", std::nan(""), false},
        {"no account", u"", u"00700", 100.0, false},
        {"unknown account", u"OTHER", u"00700", 100.0, false},
        {"no symbol", u"ACC", u"", 100.0, false},
        {"unknown symbol", u"ACC", u"NONE", 100.0, false},
    };
    Integer taken = 0;
    for (const TCase& row : cases) {
        Prepare(row.Account, row.Symbol, row.Quantity);
        EXPECT_EQ(Take(FOrder.get()), row.IsTaken) << row.Name;
        taken += row.IsTaken ? 1 : 0;
        EXPECT_EQ(Taken().Count(), taken) << row.Name;
    }
}

TEST_F(OrderTest, OtherActionsAndNoOrderAreRefused) {
    EXPECT_FALSE(Take(nullptr));
    EXPECT_FALSE(Take(FOrder.get(), OrderAction::Place + 1));
    FOrder->SetBuySell(OrderSide::Sell + 1);
    EXPECT_FALSE(Take(FOrder.get())) << "neither side";
    EXPECT_TRUE(Taken().IsEmpty());
}

TEST_F(OrderTest, LoginIsASwitch) {
    EXPECT_TRUE(TCustomLoginCtrl::GetInstance()->IsLogin());
    Services().Login().SetLogin(false);
    EXPECT_FALSE(TCustomLoginCtrl::GetInstance()->IsLogin());
}

} // namespace
} // namespace quorin
