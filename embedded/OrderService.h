#pragma once

#include "platform/rtl/TDictionary.h"
#include "viewdata/services/LoginCtrl.h"
#include "viewdata/services/OrderActionManager.h"
#include "viewdata/services/OrderAdapter.h"

namespace quorin {

// Everything an order says.
struct TOrderValues {
    String Account;
    String Symbol;
    Double Quantity = 0.0;
    Double Price = 0.0;
    Integer BuySell = OrderSide::Buy;
    Integer Flags = 0; // bits of OrderFlag
    TDictionary<String, String> ExtraValues;
};

class TEmbeddedClientOrder : public TCustomClientOrder {
    QUORIN_CLASS(TEmbeddedClientOrder, TCustomClientOrder)
public:
    const TOrderValues& Values() const { return FValues; }

    Double GetQuantity() const override { return FValues.Quantity; }
    void SetAccount(StringView Account) override { FValues.Account = Account; }
    void SetSymbol(StringView Symbol) override { FValues.Symbol = Symbol; }
    void SetQuantity(Double Quantity) override { FValues.Quantity = Quantity; }
    void SetPrice(Double Price) override { FValues.Price = Price; }
    void SetBuySell(Integer Side) override { FValues.BuySell = Side; }
    Integer GetOrderFlags() const override { return FValues.Flags; }
    void SetOrderFlags(Integer Flags) override { FValues.Flags = Flags; }
    void SetExtraValue(StringView Key, StringView Value) override {
        FValues.ExtraValues.AddOrSetValue(Key, String(Value));
    }
    void Clear() override { FValues = TOrderValues(); }

private:
    TOrderValues FValues;
};

class TEmbeddedOrderAdapter : public TCustomOrderAdapter {
public:
    std::unique_ptr<TCustomClientOrder> CreateClientOrder() override;
};

// Takes orders and keeps a copy of each; nothing matches them.
class TEmbeddedOrderActionManager : public TCustomOrderActionManager {
public:
    // Takes an order of this family that is complete: a known account, a known symbol, a quantity
    // above 0 and within MaxOrderQuantity, one of the two sides.
    Boolean TakeOrderAction(TObject* Owner, TCustomClientOrder* Order, Integer Action,
                            Boolean Flag) override;

    // What was taken, in order.
    const TList<TOrderValues>& TakenOrders() const { return FTakenOrders; }

private:
    TList<TOrderValues> FTakenOrders;
};

class TEmbeddedLoginCtrl : public TCustomLoginCtrl {
public:
    Boolean IsLogin() const override { return FLogin; }

    // Logged in to begin with.
    void SetLogin(bool login) { FLogin = login; }

private:
    bool FLogin = true;
};

} // namespace quorin
