#include "embedded/ChannelService.h"

#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/OrderRecords.h"

#include <utility>

namespace quorin {

namespace {

class TEmbeddedGroupData : public TCustomGroupData {
    QUORIN_CLASS(TEmbeddedGroupData, TCustomGroupData)
public:
    TEmbeddedGroupData(const TCustomGlobalChannelManager& values, StringView groupID,
                       Integer channel)
        : FValues(values), FGroupID(groupID), FChannel(channel) {}

    const String& GetGroupID() const override { return FGroupID; }
    String GetChannelValue(Integer Channel) const override {
        return FValues.GetGroupValue(FGroupID, Channel);
    }
    Integer GetChannel() const override { return FChannel; }

private:
    const TCustomGlobalChannelManager& FValues;
    const String FGroupID;
    const Integer FChannel;
};

class TEmbeddedListObject : public TCustomListObject {
    QUORIN_CLASS(TEmbeddedListObject, TCustomListObject)
public:
    explicit TEmbeddedListObject(StringView text) : FText(text) {}

    const String& GetText() const override { return FText; }
    Boolean IsEmpty() const override { return FText.empty(); }

private:
    const String FText;
};

} // namespace

void TEmbeddedGlobalChannelManager::RegisterChannelCallback(Integer Channel,
                                                            const TDataCallbackEvent& Callback,
                                                            TObject* Owner) {
    FChannelCallbacks.Add(Channel, Owner, Callback);
}

void TEmbeddedGlobalChannelManager::RemoveChannelCallback(Integer Channel, TObject* Owner) {
    FChannelCallbacks.Remove(Channel, Owner);
}

void TEmbeddedGlobalChannelManager::RegisterGroupCallback(StringView GroupID,
                                                          const TDataCallbackEvent& Callback,
                                                          TObject* Owner) {
    FGroupCallbacks.Add(GroupID, Owner, Callback);
}

void TEmbeddedGlobalChannelManager::RemoveGroupCallback(StringView GroupID, TObject* Owner) {
    FGroupCallbacks.Remove(GroupID, Owner);
}

void TEmbeddedGlobalChannelManager::PublishValue(Integer Channel, StringView NewValue, StringView,
                                                 StringView GroupID) {
    const TDeliverySerial serial = FDeliveries.Begin();
    if (GroupID.empty()) {
        TEmbeddedListObject change(NewValue);
        FChannelValues.AddOrSetValue(Channel, String(NewValue));
        FChannelCallbacks.Deliver(serial, Channel, AsPointer(&change), Pointer());
        return;
    }
    // The views may look into texts of a receiver that dies in its callback: only the copies in
    // `change` serve from here on.
    TEmbeddedGroupData change(*this, GroupID, Channel);
    SetGroupValue(GroupID, Channel, NewValue);
    FGroupCallbacks.Deliver(serial, change.GetGroupID(), AsPointer(&change), Pointer());
    FChannelCallbacks.Deliver(serial, Channel, AsPointer(&change), Pointer());
}

void TEmbeddedGlobalChannelManager::SendChannelMessage(Integer MessageNumber, Pointer Data) {
    if (FHost.ChannelMessage(MessageNumber, Data)) return;
    // The list that comes with it has no other owner.
    if (MessageNumber == ChannelMessage::CloseAllPositions && Data != nullptr) {
        delete std::exchange(static_cast<TOrderTakeActionRecord*>(Data)->Order, nullptr);
    }
}

String TEmbeddedGlobalChannelManager::GetChannelValue(Integer Channel) const {
    const String* value = FChannelValues.Find(Channel);
    return value != nullptr ? *value : String();
}

String TEmbeddedGlobalChannelManager::GetGroupValue(StringView GroupID, Integer Channel) const {
    const TValues* group = FGroupValues.Find(GroupID);
    const String* value = group != nullptr ? group->Find(Channel) : nullptr;
    return value != nullptr ? *value : String();
}

void TEmbeddedGlobalChannelManager::SetGroupValue(StringView GroupID, Integer Channel,
                                                  StringView Value) {
    if (GroupID.empty()) return;
    FGroupValues.Obtain(GroupID).AddOrSetValue(Channel, String(Value));
}

Integer TEmbeddedGlobalChannelManager::RegistrationCount() const {
    return FChannelCallbacks.Count() + FGroupCallbacks.Count();
}

} // namespace quorin
