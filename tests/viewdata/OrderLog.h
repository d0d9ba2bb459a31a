#pragma once

#include "embedded/OrderService.h"
#include "platform/rtl/Variant.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace quorin {

// An order that writes down every call that fills it, "clear|sell|price 10|".
class TLoggedOrder : public TEmbeddedClientOrder {
    QUORIN_CLASS(TLoggedOrder, TEmbeddedClientOrder)
public:
    explicit TLoggedOrder(String& log) : FLog(log) {}

    void SetAccount(StringView account) override {
        Log(u"account ", account);
        Inherited::SetAccount(account);
    }
    void SetSymbol(StringView symbol) override {
        Log(u"symbol ", symbol);
        Inherited::SetSymbol(symbol);
    }
    void SetQuantity(Double quantity) override {
        Log(u"quantity ", Variant(quantity).ToText());
        Inherited::SetQuantity(quantity);
    }
    void SetPrice(Double price) override {
        Log(u"price ", Variant(price).ToText());
        Inherited::SetPrice(price);
    }
    void SetBuySell(Integer side) override {
        Log(side == OrderSide::Sell ? u"sell" : u"buy", {});
        Inherited::SetBuySell(side);
    }
    void SetOrderFlags(Integer flags) override {
        Log(u"flags ", Variant(flags).ToText());
        Inherited::SetOrderFlags(flags);
    }
    void SetExtraValue(StringView key, StringView value) override {
        Log(key, u"=" + String(value));
        Inherited::SetExtraValue(key, value);
    }
    void Clear() override {
        Log(u"clear", {});
        Inherited::Clear();
        Inherited::SetOrderFlags(4); // an option of the order that no close may drop
    }

private:
    void Log(StringView what, StringView value) { FLog += String(what) + String(value) + u'|'; }
    String& FLog;
};

class TLoggedOrders : public TCustomOrderAdapter {
public:
    explicit TLoggedOrders(String& log) : FLog(log) {}
    std::unique_ptr<TCustomClientOrder> CreateClientOrder() override {
        return std::make_unique<TLoggedOrder>(FLog);
    }

private:
    String& FLog;
};

class TLoggedActions : public TCustomOrderActionManager {
public:
    explicit TLoggedActions(String& log) : FLog(log) {}
    Boolean TakeOrderAction(TObject* owner, TCustomClientOrder*, Integer action,
                            Boolean flag) override {
        EXPECT_EQ(owner, nullptr);
        EXPECT_EQ(action, OrderAction::Place);
        EXPECT_TRUE(flag);
        FLog += u"take\n";
        if (InTake) InTake();
        return Answer;
    }
    Boolean Answer = true;
    std::function<void()> InTake;

private:
    String& FLog;
};

} // namespace quorin
