#pragma once

#include "tests/support/RecordingHost.h"
#include "tests/viewdata/OrderLog.h"

#include <utility>

namespace quorin {

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
