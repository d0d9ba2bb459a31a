#include "embedded/SubscribeService.h"

#include "platform/rtl/Prefetch.h"
#include "platform/rtl/ScopedValue.h"

#include <algorithm>

namespace quorin {

// An owner with one event: what a delivery calls once, however many items it follows.
struct TBatchReceiver {
    TBatchReceiver(TObject* owner, const TDataCallbackEvent& event) : Owner(owner), Event(event) {}

    TObject* Owner;
    TDataCallbackEvent Event;
    Integer ItemCount = 0;
    Integer Losses = 0;         // items that it has left; tells a delivery to look again
    TDeliverySerial Called = 0; // the last delivery that has it among its calls
};

TEmbeddedSubscribeAdapter::TEmbeddedSubscribeAdapter() = default;
TEmbeddedSubscribeAdapter::~TEmbeddedSubscribeAdapter() = default;

TEmbeddedSubItem& TEmbeddedSubscribeAdapter::Item(StringView key) {
    if (TEmbeddedSubItem* known = FindItem(key)) return *known;
    TEmbeddedSubItem& item = FItems.emplace_back(*this, key);
    FByKey.Add(HashText(key), &item);
    FLastItem = &item;
    if (FFiller != nullptr) FFiller->Made(item);
    return item;
}

TEmbeddedSubItem* TEmbeddedSubscribeAdapter::FindItem(StringView key) const {
    const auto isIt = [key](const TEmbeddedSubItem* item) { return SameUnits(item->FKey, key); };
    if (IsLast(key)) return FLastItem;
    TRecent& recent = FRecent[PlaceOf(key.data())];
    const bool isRecent = recent.Item != nullptr && recent.Key == key.data();
    if (isRecent && isIt(recent.Item)) return FLastItem = recent.Item;
    TEmbeddedSubItem* found = FByKey.Find(HashText(key), isIt);
    if (found == nullptr) return nullptr;
    recent = {key.data(), found};
    return FLastItem = found;
}

TCustomSubItem* TEmbeddedSubscribeAdapter::GetSubItem(StringView Key, StringView, Boolean Flag) {
    TEmbeddedSubItem& item = IsLast(Key) ? *FLastItem : Item(Key);
    if (Flag) Request(item);
    return &item;
}

void TEmbeddedSubscribeAdapter::Subscribe(TCustomSubItem* Item, const TDataCallbackEvent& Event,
                                          TObject* Owner) {
    auto* item = ObjectAs<TEmbeddedSubItem>(Item);
    if (item == nullptr) return;
    Request(*item);
    TBatchReceiver& receiver = Receiver(Owner, Event);
    for (TEmbeddedSubItem::TFollower& follower : item->FFollowers) {
        if (follower.Receiver == &receiver) return;
        if (follower.Receiver->Owner == Owner) {
            ++receiver.ItemCount;
            TBatchReceiver& previous = *follower.Receiver;
            follower = {&receiver, FDeliveries.Last()};
            Leave(previous);
            return;
        }
    }
    item->FFollowers.push_back({&receiver, FDeliveries.Last()});
    ++receiver.ItemCount;
    ++FFollowerCount;
}

void TEmbeddedSubscribeAdapter::Unsubscribe(TCustomSubItem* Item, TObject* Owner) {
    auto* item = ObjectAs<TEmbeddedSubItem>(Item);
    if (item == nullptr) return;
    auto& followers = item->FFollowers;
    const auto found = std::find_if(followers.begin(), followers.end(), [&](const auto& follower) {
        return follower.Receiver->Owner == Owner;
    });
    if (found == followers.end()) return;
    TBatchReceiver& receiver = *found->Receiver;
    followers.erase(found);
    --FFollowerCount;
    Leave(receiver);
}

TBatchReceiver& TEmbeddedSubscribeAdapter::Receiver(TObject* owner,
                                                    const TDataCallbackEvent& event) {
    auto& receivers = FReceivers.Obtain(owner);
    for (const auto& receiver : receivers) {
        if (receiver->Event == event) return *receiver;
    }
    return *receivers.emplace_back(std::make_unique<TBatchReceiver>(owner, event));
}

// A running delivery may still hold the receiver, so that it goes when the outermost one is over.
void TEmbeddedSubscribeAdapter::Leave(TBatchReceiver& receiver) {
    ++receiver.Losses;
    if (--receiver.ItemCount > 0) return;
    FIdleOwners.Add(receiver.Owner);
    if (FDepth == 0) SweepReceivers();
}

void TEmbeddedSubscribeAdapter::SweepReceivers() {
    for (TObject* owner : FIdleOwners) {
        auto* receivers = FReceivers.Find(owner);
        if (receivers == nullptr) continue;
        std::erase_if(*receivers, [](const auto& receiver) { return receiver->ItemCount == 0; });
        if (receivers->empty()) FReceivers.Remove(owner);
    }
    FIdleOwners.Clear();
}

void TEmbeddedSubscribeAdapter::AddListener(TEmbeddedSubItem& item, const TNotifyEvent& event,
                                            TObject* owner) {
    Request(item);
    if (item.FListeners == nullptr) {
        item.FListeners = std::make_unique<TRegistrations<TNotifyEvent>>(FDeliveries);
    }
    if (item.FListeners->Add(owner, event)) ++FListenerCount;
}

void TEmbeddedSubscribeAdapter::RemoveListener(TEmbeddedSubItem& item, TObject* owner) {
    if (item.FListeners != nullptr && item.FListeners->Remove(owner)) --FListenerCount;
}

void TEmbeddedSubscribeAdapter::Request(TEmbeddedSubItem& item) {
    if (item.FItemIndex != NoItemIndex) return;
    item.FItemIndex = FRequestCount++;
    const bool isOther = FPrefixFeed != nullptr && item.FKey.starts_with(FPrefix);
    (isOther ? FPrefixRequests : FRequests).Add(&item);
}

void TEmbeddedSubscribeAdapter::SetPrefixFeed(StringView prefix, TItemFeed* feed) {
    FPrefix = prefix;
    FPrefixFeed = feed;
}

void TEmbeddedSubscribeAdapter::ServeRequests() {
    ServeRequests(FRequests, FFeed);
    ServeRequests(FPrefixRequests, FPrefixFeed);
}

// What the feed asks for itself waits for the next delivery.
void TEmbeddedSubscribeAdapter::ServeRequests(TList<TEmbeddedSubItem*>& requests, TItemFeed* feed) {
    if (feed == nullptr || requests.IsEmpty()) return;
    TBorrowed<TList<TEmbeddedSubItem*>> served(FServed);
    std::swap(*served, requests);
    for (TEmbeddedSubItem* item : *served) feed->Requested(*item);
    (*served).Clear();
}

void TEmbeddedSubscribeAdapter::Touch(TEmbeddedSubItem& item) {
    if (item.FTouched) return;
    item.FTouched = true;
    FTouched.Add(&item);
    FetchSoon(item.FKey.data()); // the delivery wants it
}

void TEmbeddedSubscribeAdapter::Deliver() {
    ServeRequests();
    if (FTouched.IsEmpty()) return;
    const TDeliverySerial serial = FDeliveries.Begin();
    {
        TScopedValue depth(FDepth, FDepth + 1);
        TBorrowed<TBatch> borrowed(FBatch);
        TBatch& batch = *borrowed;
        BeginBatch(batch, serial);
        CallReceivers(batch, serial);
        CallListeners(batch, serial);
        batch.Items.Clear();
        batch.Calls.Clear();
        batch.Changed.Recycle();
    }
    if (FDepth == 0) SweepReceivers();
}

// Who hears of an item will ask for it by its key, and for what is known of its symbol.
void TEmbeddedSubscribeAdapter::FetchAhead(const TList<TEmbeddedSubItem*>& items) const {
    for (const TEmbeddedSubItem* item : items) {
        if (item->FFollowers.empty()) continue;
        FByKey.FetchCell(HashText(item->FKey));
        FetchSoon(item->FFollowers.data());
        FetchSoon(item->FRecord);
    }
}

void TEmbeddedSubscribeAdapter::BeginBatch(TBatch& batch, TDeliverySerial serial) {
    std::swap(batch.Items, FTouched);
    FetchAhead(batch.Items);
    for (TEmbeddedSubItem* item : batch.Items) {
        item->FTouched = false;
        if (!item->FDelivered && item->FStatus == ItemStatus::Waiting) {
            item->FStatus = ItemStatus::Ready;
        }
        item->FDelivered = true;
        if (item->FFollowers.empty()) continue;
        batch.Changed.Add(item->FKey, item);
        for (const TEmbeddedSubItem::TFollower& follower : item->FFollowers) {
            if (follower.Receiver->Called == serial) continue;
            follower.Receiver->Called = serial;
            batch.Calls.Add({follower.Receiver, follower.Receiver->Losses});
        }
    }
}

void TEmbeddedSubscribeAdapter::CallReceivers(TBatch& batch, TDeliverySerial serial) {
    for (const TCall& call : batch.Calls) {
        TBatchReceiver& receiver = *call.Receiver;
        if (receiver.Losses != call.Losses && !StillFollows(receiver, batch, serial)) continue;
        receiver.Event(&batch.Changed, nullptr);
    }
}

bool TEmbeddedSubscribeAdapter::StillFollows(const TBatchReceiver& receiver, const TBatch& batch,
                                             TDeliverySerial serial) {
    for (const TEmbeddedSubItem* item : batch.Items) {
        for (const TEmbeddedSubItem::TFollower& follower : item->FFollowers) {
            if (follower.Receiver == &receiver && follower.Since < serial) return true;
        }
    }
    return false;
}

void TEmbeddedSubscribeAdapter::CallListeners(TBatch& batch, TDeliverySerial serial) {
    for (TEmbeddedSubItem* item : batch.Items) {
        if (item->FListeners == nullptr || item->FListeners->IsEmpty()) continue;
        item->FListeners->Deliver(serial, item);
    }
}

} // namespace quorin
