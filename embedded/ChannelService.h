#pragma once

#include "embedded/Host.h"
#include "embedded/KeyedRegistrations.h"
#include "viewdata/services/GlobalChannelManager.h"

namespace quorin {

// Keeps the shared values and tells of their changes at once; messages go to the host.
class TEmbeddedGlobalChannelManager : public TCustomGlobalChannelManager {
public:
    explicit TEmbeddedGlobalChannelManager(THost& host) : FHost(host) {}

    // Operations of the contract
    void RegisterChannelCallback(Integer Channel, const TDataCallbackEvent& Callback,
                                 TObject* Owner) override;
    void RemoveChannelCallback(Integer Channel, TObject* Owner) override;
    void RegisterGroupCallback(StringView GroupID, const TDataCallbackEvent& Callback,
                               TObject* Owner) override;
    void RemoveGroupCallback(StringView GroupID, TObject* Owner) override;
    // Notifies also when the value is the old one. The group's subscribers hear before those of
    // the channel; an owner that is both hears twice.
    void PublishValue(Integer Channel, StringView NewValue, StringView OldValue,
                      StringView GroupID) override;
    void SendChannelMessage(Integer MessageNumber, Pointer Data) override;
    String GetChannelValue(Integer Channel) const override;
    String GetGroupValue(StringView GroupID, Integer Channel) const override;
    // Without a group there is nothing to store.
    void SetGroupValue(StringView GroupID, Integer Channel, StringView Value) override;
    Integer GetRunState() const override { return FRunState; }

    // For the host
    void SetRunState(Integer state) { FRunState = state; }
    Integer RegistrationCount() const;

private:
    using TValues = TDictionary<Integer, String>;

    THost& FHost;
    TDeliveryClock FDeliveries;
    TKeyedRegistrations<Integer, TDataCallbackEvent> FChannelCallbacks{FDeliveries};
    TKeyedRegistrations<String, TDataCallbackEvent> FGroupCallbacks{FDeliveries};
    TValues FChannelValues;
    TDictionary<String, TValues> FGroupValues;
    Integer FRunState = 0;
};

} // namespace quorin
