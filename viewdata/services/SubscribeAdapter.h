#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TEvent.h"
#include "platform/rtl/TObject.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// Answers of TCustomSubItem::GetStatus.
namespace ItemStatus {
inline constexpr Integer Waiting = 0; // nothing has arrived yet
inline constexpr Integer Ready = 1;   // the fields are valid
inline constexpr Integer NoData = 2;  // the feed has said that there is nothing under this key
} // namespace ItemStatus

// Answer of TCustomSubItem::GetItemIndex while nobody has asked the feed for the item.
inline constexpr Integer NoItemIndex = -1;

// The live data of one key: the quote and static fields of a symbol, or margin figures. One object
// per key, shared by all callers. Field numbers are in FieldNumbers.h.
class TCustomSubItem : public TObject {
    QUORIN_CLASS(TCustomSubItem, TObject)
public:
    // Operations, in order

    virtual const String& GetKey() const = 0;
    // Fields can be read whatever the status is. A missing one reads as 0.0 and as empty text; so
    // does, as Double, a text that is no number.
    virtual Double GetFieldDouble(Integer FieldNo) const = 0;
    // Replaces what `Text` holds.
    virtual void GetFieldString(Integer FieldNo, String& Text) const = 0;
    virtual Boolean HasField(Integer FieldNo) const = 0;
    // One of ItemStatus.
    virtual Integer GetStatus() const = 0;
    // The slot that the feed keeps for the item once somebody has followed it; NoItemIndex before.
    virtual Integer GetItemIndex() const = 0;
    // `Event` is called with this item on each of its changes, and the feed is asked to deliver
    // the key. Other than Subscribe this is not batched.
    virtual void AddRealtimeListener(const TNotifyEvent& Event, TObject* Owner) = 0;
    // May be called from inside the event.
    virtual void RemoveRealtimeListener(TObject* Owner) = 0;

    // GetFieldString where a text of one's own is wanted.
    String FieldText(Integer FieldNo) const {
        String text;
        GetFieldString(FieldNo, text);
        return text;
    }
};

// Item key to item: `Sender` of every batched update.
using TSubItemDictionary = TDictionary<String, TCustomSubItem*>;

// Hands out live items and tells of their changes.
class TCustomSubscribeAdapter : public TService<TCustomSubscribeAdapter> {
public:
    // Operations, in order

    // `Event` is called with the batched updates of the item. `Sender`: TSubItemDictionary of what
    // changed, which may also name items that this owner does not follow, or nil. Asks the feed to
    // deliver the key. The same event for many items is called once per batch.
    virtual void Subscribe(TCustomSubItem* Item, const TDataCallbackEvent& Event,
                           TObject* Owner) = 0;
    virtual void Unsubscribe(TCustomSubItem* Item, TObject* Owner) = 0;
    // The item of `Key`, never nil: a key without data gives an item that waits. `DataType` is
    // LiveDataType of FieldNumbers.h. With `Flag` the feed is asked to deliver the key, without it
    // the call only reads what is there.
    virtual TCustomSubItem* GetSubItem(StringView Key, StringView DataType, Boolean Flag) = 0;
};

} // namespace quorin
