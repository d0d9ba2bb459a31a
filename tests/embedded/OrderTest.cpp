#include "embedded/OrderService.h"

#include "tests/support/ServicesFixture.h"

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
    const std::deque<TDeskOrder>& Orders() { return Services().Desk().Orders(); }

    std::unique_ptr<TCustomClientOrder> FOrder;
};

TEST_F(OrderTest, WhatIsTakenOutlivesTheOrder) {
    FOrder->SetOrderFlags(6);
    FOrder->SetOrderFlags(FOrder->GetOrderFlags() | OrderFlag::Market);
    FOrder->SetExtraValue(u"key", u"N");
    FOrder->SetExtraValue(u"key", u"Y");
    ASSERT_TRUE(Take(FOrder.get()));
    FOrder->Clear();

    ASSERT_EQ(Orders().size(), 1u);
    const TOrderValues& taken = Orders()[0].Values;
    EXPECT_EQ(taken.Account, u"ACC");
    EXPECT_EQ(taken.Symbol, u"00700");
    EXPECT_EQ(taken.Quantity, 100.0);
    EXPECT_EQ(taken.Price, 350.2);
    EXPECT_EQ(taken.BuySell, OrderSide::Sell);
    EXPECT_EQ(taken.Flags, 7);
    String extra;
    EXPECT_TRUE(taken.ExtraValues.TryGetValue(u"key", extra));
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

TEST_F(OrderTest, OtherActionsAndNoOrderAreRefused) {
    EXPECT_FALSE(Take(nullptr));
    EXPECT_FALSE(Take(FOrder.get(), OrderAction::Place + 1));
    EXPECT_TRUE(Orders().empty());
    const TOrderAudit& audit = Services().Desk().Audit();
    ASSERT_EQ(audit.Count(), 2);
    EXPECT_EQ(audit[1].Kind, TOrderAuditKind::Refusal);
    EXPECT_EQ(audit[1].Reason, TOrderReason::NotAnOrder);
}

} // namespace
} // namespace quorin
