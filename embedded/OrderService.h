#pragma once

#include "embedded/OrderDesk.h"
#include "viewdata/services/LoginCtrl.h"
#include "viewdata/services/OrderActionManager.h"
#include "viewdata/services/OrderAdapter.h"

namespace quorin {

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

// Hands orders to the desk.
class TEmbeddedOrderActionManager : public TCustomOrderActionManager {
public:
    // `desk` must live longer.
    explicit TEmbeddedOrderActionManager(TOrderDesk& desk) : FDesk(desk) {}

    // Takes an order of this family that the desk takes, see there. Calls nobody back.
    Boolean TakeOrderAction(TObject* Owner, TCustomClientOrder* Order, Integer Action,
                            Boolean Flag) override;

private:
    TOrderDesk& FDesk;
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
