#pragma once

#include "embedded/OrderService.h"
#include "tests/support/RecordingHost.h"

#include <functional>
#include <utility>

namespace quorin {

// Writes down every call that fills it.
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
    Boolean TakeOrderAction(TObject* owner, TCustomClientOrder* order, Integer action,
                            Boolean flag) override {
        EXPECT_EQ(owner, nullptr);
        EXPECT_NE(ObjectAs<TLoggedOrder>(order), nullptr);
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

// The order services of a test, installed for as long as it lives, and one log of what reaches them
// and the application: "clear|sell|price 9|...|take\n", "message 18011\n".
class TOrderTrace {
public:
    explicit TOrderTrace(TRecordingHost& host) {
        ServiceRegistry::Install(&Orders);
        ServiceRegistry::Install(&Actions);
        host.SetReceiver(MakeEvent<&TOrderTrace::Received>(this));
    }
    ~TOrderTrace() {
        ServiceRegistry::Install(RealOrders);
        ServiceRegistry::Install(RealActions);
    }
    TOrderTrace(const TOrderTrace&) = delete;
    TOrderTrace& operator=(const TOrderTrace&) = delete;

    String TakeLog() { return std::exchange(Log, {}); }
    Boolean Received(Integer number, Pointer data) {
        Log += u"message " + Variant(number).ToText() + u'\n';
        if (InMessage) InMessage(number, data);
        return IsHandled;
    }

    String Log;
    TLoggedOrders Orders{Log};
    TLoggedActions Actions{Log};
    std::function<void(Integer, Pointer)> InMessage;
    Boolean IsHandled = true; // somebody takes the messages in

private:
    TCustomOrderAdapter* const RealOrders = TCustomOrderAdapter::GetInstance();
    TCustomOrderActionManager* const RealActions = TCustomOrderActionManager::GetInstance();
};

} // namespace quorin
