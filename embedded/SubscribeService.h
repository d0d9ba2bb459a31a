#pragma once

#include "embedded/LiveItem.h"
#include "platform/rtl/KeyIndex.h"
#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TList.h"

#include <array>
#include <cstdint>
#include <deque>
#include <memory>

namespace quorin {

// Where the data of items come from.
class TItemFeed {
public:
    virtual ~TItemFeed() = default;
    // Somebody asked for the item. The feed may fill it, set its status and touch it, now or at any
    // later time; a key without data gets ItemStatus::NoData and a touch. Called once per item, at
    // the start of a delivery and never inside the call that asked.
    virtual void Requested(TEmbeddedSubItem& item) = 0;
};

// Writes what is known of a key apart from its quote into an item that has just been made. Called
// inside look-ups: it sets fields and does nothing else.
class TItemFiller {
public:
    virtual ~TItemFiller() = default;
    virtual void Made(TEmbeddedSubItem& item) = 0;
};

// Live items in memory, and their deliveries. Changes wait until the host calls Deliver. Items
// exist for keys that were asked for or fed, and live as long as the adapter. The cost of a
// delivery depends on what changed and who follows it, on nothing else.
class TEmbeddedSubscribeAdapter final : public TCustomSubscribeAdapter {
public:
    TEmbeddedSubscribeAdapter();
    ~TEmbeddedSubscribeAdapter() override;

    // The same pair of item and owner again replaces its event; a new event waits for the next
    // delivery. An item of another adapter must not be given.
    void Subscribe(TCustomSubItem* Item, const TDataCallbackEvent& Event, TObject* Owner) override;
    void Unsubscribe(TCustomSubItem* Item, TObject* Owner) override;
    TCustomSubItem* GetSubItem(StringView Key, StringView DataType, Boolean Flag) override;

    // One feed and one filler, nil for none; not owned.
    void SetFeed(TItemFeed* feed) { FFeed = feed; }
    TItemFeed* Feed() const { return FFeed; }
    // Another feed for the keys that begin with `prefix` and are asked for from here on; one at a
    // time, nil for none; not owned.
    void SetPrefixFeed(StringView prefix, TItemFeed* feed);
    TItemFeed* PrefixFeed() const { return FPrefixFeed; }
    void SetFiller(TItemFiller* filler) { FFiller = filler; }

    // The item of the key, made when it is new. Asks the feed for nothing.
    TEmbeddedSubItem& Item(StringView key);
    // Nil for a key that nobody has asked for or fed.
    TEmbeddedSubItem* FindItem(StringView key) const;
    Integer ItemCount() const { return static_cast<Integer>(FItems.size()); }
    // Calls `call(item)` for each item in the order in which they were made.
    template <class Call>
    void EachItem(Call call) {
        for (std::size_t index = 0; index < FItems.size(); ++index) call(FItems[index]);
    }

    // The item belongs to the next delivery; touching it again changes nothing.
    void Touch(TEmbeddedSubItem& item);
    // Shows waiting requests to the feed, then tells of every touched item: one call per owner and
    // event that follows at least one of them, with the TSubItemDictionary of all that somebody
    // follows; then the realtime listeners, item by item in the order of the touches. An item that
    // still waits becomes ready with its first delivery. Without a touched item nobody is called.
    // What is touched inside waits for the next call, which may also be made inside.
    void Deliver();

    // Pairs of item and owner, and realtime listeners.
    Integer RegistrationCount() const { return FFollowerCount + FListenerCount; }

private:
    friend class TEmbeddedSubItem;

    struct TCall {
        TBatchReceiver* Receiver;
        Integer Losses; // of the receiver when the delivery began
    };
    struct TBatch { // of one delivery; borrowed, so that its memory serves the next one
        TList<TEmbeddedSubItem*> Items;
        TSubItemDictionary Changed;
        TList<TCall> Calls;
    };

    // A cell is read beside the cells of its row, so that most look-ups end here.
    bool IsLast(StringView key) const {
        return FLastItem != nullptr && SameUnits(FLastItem->FKey, key);
    }
    void AddListener(TEmbeddedSubItem& item, const TNotifyEvent& event, TObject* owner);
    void RemoveListener(TEmbeddedSubItem& item, TObject* owner);
    void Request(TEmbeddedSubItem& item);
    void ServeRequests();
    void ServeRequests(TList<TEmbeddedSubItem*>& requests, TItemFeed* feed);
    void FetchAhead(const TList<TEmbeddedSubItem*>& items) const;
    void BeginBatch(TBatch& batch, TDeliverySerial serial);
    void CallReceivers(TBatch& batch, TDeliverySerial serial);
    void CallListeners(TBatch& batch, TDeliverySerial serial);
    static bool StillFollows(const TBatchReceiver& receiver, const TBatch& batch,
                             TDeliverySerial serial);
    TBatchReceiver& Receiver(TObject* owner, const TDataCallbackEvent& event);
    void Leave(TBatchReceiver& receiver);
    void SweepReceivers();

    // Found for the text at an address, where the next look-up most likely has its key.
    struct TRecent {
        const Char* Key = nullptr;
        TEmbeddedSubItem* Item = nullptr;
    };
    static constexpr int RecentBits = 6;
    static std::size_t PlaceOf(const Char* key) {
        constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
        return reinterpret_cast<std::uintptr_t>(key) * spread >> (64 - RecentBits);
    }

    std::deque<TEmbeddedSubItem> FItems;
    TKeyIndex<TEmbeddedSubItem*, nullptr> FByKey;
    mutable TEmbeddedSubItem* FLastItem = nullptr; // of the last look-up
    mutable std::array<TRecent, std::size_t{1} << RecentBits> FRecent;
    TList<TEmbeddedSubItem*> FTouched;
    TList<TEmbeddedSubItem*> FRequests;
    TList<TEmbeddedSubItem*> FPrefixRequests;
    TList<TEmbeddedSubItem*> FServed;
    TDictionary<TObject*, std::vector<std::unique_ptr<TBatchReceiver>>> FReceivers; // by owner
    TList<TObject*> FIdleOwners; // owners that lost a receiver's last item during a delivery
    TBatch FBatch;
    TItemFeed* FFeed = nullptr;
    TItemFeed* FPrefixFeed = nullptr;
    String FPrefix; // of the keys of that feed
    TItemFiller* FFiller = nullptr;
    TDeliveryClock FDeliveries;
    Integer FDepth = 0;
    Integer FRequestCount = 0;
    Integer FFollowerCount = 0;
    Integer FListenerCount = 0;
};

} // namespace quorin
