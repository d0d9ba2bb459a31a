#include "embedded/kit/Checker.h"
#include "embedded/kit/ContractKit.h"

namespace quorin {

namespace {

class TOrderChecks {
public:
    TOrderChecks(TOrderDriver& driver, TContractReport& report)
        : FDriver(driver), FCheck(report, u"Orders") {}

    void CheckAll() {
        const auto order = FDriver.Orders().CreateClientOrder();
        const auto other = FDriver.Orders().CreateClientOrder();
        if (!FCheck.IsThere(u"CreateClientOrder makes a new order", order.get())) return;
        FCheck.True(u"CreateClientOrder makes a new order", order.get() != other.get());
        FCheck.Equal(u"a new order is empty", 0.0, order->GetQuantity());
        FCheck.Equal(u"a new order is empty", 0, order->GetOrderFlags());
        Values(*order);
        if (other != nullptr) {
            FCheck.Equal(u"two orders are apart", 0.0, other->GetQuantity());
        }
        Refusals(*order);
        Taken(*order);
        Login();
    }

private:
    void Values(TCustomClientOrder& order) {
        for (const Double quantity : {100.0, 0.5, 2000000000.0, 0.0}) {
            order.SetQuantity(quantity);
            FCheck.Equal(u"GetQuantity gives what was set", quantity, order.GetQuantity());
        }
        for (const Integer flags : {0, 6, 6 | OrderFlag::Market, 0x40000000}) {
            order.SetOrderFlags(flags);
            FCheck.Equal(u"every bit of the order flags is kept", flags, order.GetOrderFlags());
        }
        order.SetQuantity(100.0);
        order.SetOrderFlags(6);
        order.SetAccount(FDriver.Account());
        order.SetSymbol(FDriver.Symbol());
        order.SetPrice(FDriver.Price());
        order.SetBuySell(OrderSide::Sell);
        order.SetExtraValue(ClosePositionFlagKey, ClosePositionFlagValue);
        FCheck.Equal(u"the other setters leave quantity and flags", 100.0, order.GetQuantity());
        FCheck.Equal(u"the other setters leave quantity and flags", 6, order.GetOrderFlags());
        order.Clear();
        FCheck.Equal(u"Clear brings the quantity to 0.0", 0.0, order.GetQuantity());
        FCheck.Equal(u"Clear brings the flags to 0", 0, order.GetOrderFlags());
        order.Clear();
        FCheck.Equal(u"Clear may be called twice", 0.0, order.GetQuantity());
    }

    void Prepare(TCustomClientOrder& order) {
        order.Clear();
        order.SetAccount(FDriver.Account());
        order.SetSymbol(FDriver.Symbol());
        order.SetQuantity(FDriver.Quantity());
        order.SetPrice(FDriver.Price());
        order.SetBuySell(OrderSide::Buy);
    }
    bool Take(TCustomClientOrder* order) {
        return FDriver.Actions().TakeOrderAction(nullptr, order, OrderAction::Place, /*Flag=*/true);
    }

    void Refusals(TCustomClientOrder& order) {
        struct TCase {
            StringView Name;
            void (*Spoil)(TCustomClientOrder&);
        };
        const TCase cases[] = {
            {u"an empty order", [](TCustomClientOrder& spoilt) { spoilt.Clear(); }},
            {u"no quantity", [](TCustomClientOrder& spoilt) { spoilt.SetQuantity(0.0); }},
            {u"a quantity below zero",
             [](TCustomClientOrder& spoilt) { spoilt.SetQuantity(-1.0); }},
            {u"no account", [](TCustomClientOrder& spoilt) { spoilt.SetAccount({}); }},
            {u"an unknown account",
             [](TCustomClientOrder& spoilt) { spoilt.SetAccount(u"no such account"); }},
            {u"no symbol", [](TCustomClientOrder& spoilt) { spoilt.SetSymbol({}); }},
            {u"an unknown symbol",
             [](TCustomClientOrder& spoilt) { spoilt.SetSymbol(u"no such symbol"); }},
        };
        FCheck.False(u"no order is refused", Take(nullptr));
        for (const TCase& row : cases) {
            Prepare(order);
            row.Spoil(order);
            FCheck.False(u"an order that lacks something is refused", Take(&order), row.Name);
        }
    }

    void Taken(TCustomClientOrder& order) {
        Prepare(order);
        FCheck.True(u"a complete order is taken", Take(&order));
        FCheck.Equal(u"a taken order stays as it was", FDriver.Quantity(), order.GetQuantity());
        order.Clear();
        FCheck.False(u"Clear empties an order that was taken", Take(&order));
        Prepare(order);
        FCheck.True(u"one object serves one order after the other", Take(&order));
    }

    void Login() {
        for (const bool isLoggedIn : {false, true}) {
            FDriver.SetLogin(isLoggedIn);
            FCheck.Equal(u"IsLogin tells whether the user is logged in", isLoggedIn,
                         FDriver.Login().IsLogin());
        }
    }

    TOrderDriver& FDriver;
    TChecker FCheck;
};

} // namespace

void CheckOrders(TOrderDriver& driver, TContractReport& report) {
    TOrderChecks(driver, report).CheckAll();
}

} // namespace quorin
