#pragma once

#include "platform/rtl/TEvent.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// What linked fields share. A group is a set of them, named by a text; the empty text is none.
namespace Channel {
inline constexpr Integer CurrentSymbol = 0;
inline constexpr Integer CurrentAccount = 10;
} // namespace Channel

// Answer of TCustomGlobalChannelManager::GetRunState while unknown accounts are dropped silently.
inline constexpr Integer RunStateDropUnknownAccount = 100;

// A change within a group.
class TCustomGroupData : public TObject {
    QUORIN_CLASS(TCustomGroupData, TObject)
public:
    // Operations, in order

    virtual const String& GetGroupID() const = 0;
    // The group's value of any channel; empty when there is none.
    virtual String GetChannelValue(Integer Channel) const = 0;
    // The channel that changed.
    virtual Integer GetChannel() const = 0;
};

// A value offered to a channel as such, out of no group.
class TCustomListObject : public TObject {
    QUORIN_CLASS(TCustomListObject, TObject)
public:
    // Operations, in order

    virtual const String& GetText() const = 0;
    // The notification carries no value.
    virtual Boolean IsEmpty() const = 0;
};

// Links the fields of the screen and asks the application for what the view layer cannot do. One
// value is kept per channel and group, and one per channel outside any group. `Sender` of every
// callback is, as a TObject, a TCustomGroupData or a TCustomListObject that holds for the length
// of the call; a receiver ignores any other class.
class TCustomGlobalChannelManager : public TService<TCustomGlobalChannelManager> {
public:
    // Operations, in order

    // Every change of the channel, in whatever group.
    virtual void RegisterChannelCallback(Integer Channel, const TDataCallbackEvent& Callback,
                                         TObject* Owner) = 0;
    virtual void RemoveChannelCallback(Integer Channel, TObject* Owner) = 0;
    // Every change within the group, of whatever channel.
    virtual void RegisterGroupCallback(StringView GroupID, const TDataCallbackEvent& Callback,
                                       TObject* Owner) = 0;
    virtual void RemoveGroupCallback(StringView GroupID, TObject* Owner) = 0;
    // Stores the value and has notified when it returns: with a group the subscribers of the group
    // and of the channel, by a TCustomGroupData; without one those of the channel, by a
    // TCustomListObject. The publisher hears its own value when it is a subscriber.
    virtual void PublishValue(Integer Channel, StringView NewValue, StringView OldValue,
                              StringView GroupID) = 0;
    // Asks the application. The receiver has finished when the call returns, and its answer stands
    // in the record at `Data`. Numbers and records are in ChannelMessages.h.
    virtual void SendChannelMessage(Integer MessageNumber, Pointer Data) = 0;
    // The latest value outside any group; empty when there is none.
    virtual String GetChannelValue(Integer Channel) const = 0;
    // The latest value in the group; empty when there is none.
    virtual String GetGroupValue(StringView GroupID, Integer Channel) const = 0;
    // Stores a value and notifies nobody.
    virtual void SetGroupValue(StringView GroupID, Integer Channel, StringView Value) = 0;
    // RunStateDropUnknownAccount, or any other state of the application's run.
    virtual Integer GetRunState() const = 0;
};

} // namespace quorin
