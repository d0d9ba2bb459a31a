#include "embedded/kit/ContractKit.h"
#include "embedded/kit/RegistrationRules.h"
#include "viewdata/services/FieldNumbers.h"

namespace quorin {

namespace {

class TSubscribeChecks {
public:
    TSubscribeChecks(TSubscribeDriver& driver, TContractReport& report)
        : FDriver(driver), FService(driver.Service()), FCheck(report, u"SubscribeAdapter") {}

    void CheckAll() {
        if (!UnknownKeys()) return; // nothing else can be asked without an item
        StatusInOrder();
        ItemIndex();
        Fields();
        Batches();
        UnknownPairs();
        LookUpInside();
        BatchedRegistrations();
        RealtimeRegistrations();
    }

private:
    TCustomSubItem* Item(StringView key, bool flag = false) {
        return FService.GetSubItem(key, LiveDataType, flag);
    }

    bool UnknownKeys() {
        const String made = FDriver.NewKey();
        for (const String& key : {made, String(), String(u"SPAN_") + made}) {
            const String where = ShowValue(key);
            TCustomSubItem* item = Item(key);
            if (!FCheck.IsThere(u"GetSubItem always gives an item", item, where)) return false;
            FCheck.IsSame(u"the same key gives the same object", item, Item(key), where);
            FCheck.IsSame(u"the same key gives the same object", item, Item(key, true), where);
            FCheck.Reads(u"an item tells the key it was asked for under", key, item->GetKey());
            FCheck.Equal(u"an unknown key waits", ItemStatus::Waiting, item->GetStatus(), where);
            for (const Integer field : {Field::LastPrice, Field::Exchange, 999999, -1}) {
                const String fieldNo = u"field " + ShowValue(field);
                FCheck.False(u"a missing field is not there", item->HasField(field), fieldNo);
                FCheck.Equal(u"a missing field reads 0.0", 0.0, item->GetFieldDouble(field),
                             fieldNo);
                String text = u"left over";
                item->GetFieldString(field, text);
                FCheck.Reads(u"a missing field reads as empty text, whatever the text held", {},
                             text, fieldNo);
            }
        }
        const bool areApart = Item(FDriver.NewKey()) != Item(FDriver.NewKey());
        FCheck.True(u"two keys give two objects", areApart);
        return true;
    }

    void StatusInOrder() {
        const String key = FDriver.NewKey();
        const String dead = u"SPAN_" + FDriver.NewKey();
        TCallRecorder& recorder = FCheck.NewRecorder();
        for (const String& asked : {key, dead}) {
            TCustomSubItem* item = Item(asked, /*flag=*/true);
            if (item == nullptr) return;
            FService.Subscribe(item, recorder.Event(), recorder.Owner());
            FCheck.Equal(u"a status never changes inside the call that asks", ItemStatus::Waiting,
                         item->GetStatus(), ShowValue(asked));
        }
        FDriver.FeedNumber(key, Field::LastPrice, 1.5);
        FDriver.FeedNoData(dead);
        FDriver.Deliver();
        FCheck.Equal(u"data that arrived make an item ready", ItemStatus::Ready,
                     Item(key)->GetStatus());
        FCheck.Equal(u"a key without data is answered so", ItemStatus::NoData,
                     Item(dead)->GetStatus());
        FCheck.True(u"the answer that there is no data is delivered", recorder.Count() > 0);
        for (const String& asked : {key, dead}) FService.Unsubscribe(Item(asked), recorder.Owner());
        FCheck.Equal(u"an item stays ready when nobody follows it", ItemStatus::Ready,
                     Item(key)->GetStatus());
    }

    void ItemIndex() {
        TCallRecorder& recorder = FCheck.NewRecorder();
        TCustomSubItem* read = Item(FDriver.NewKey());
        TCustomSubItem* followed = Item(FDriver.NewKey());
        TCustomSubItem* heard = Item(FDriver.NewKey());
        if (read == nullptr || followed == nullptr || heard == nullptr) return;
        const StringView before = u"an item that was only read has no index";
        FCheck.Equal(before, NoItemIndex, read->GetItemIndex());
        FCheck.Equal(before, NoItemIndex, followed->GetItemIndex());
        FService.Subscribe(followed, recorder.Event(), recorder.Owner());
        heard->AddRealtimeListener(recorder.NotifyEvent(), recorder.Owner());
        FDriver.Deliver();
        const StringView after = u"an item that is followed has an index";
        FCheck.True(after, followed->GetItemIndex() >= 0, u"Subscribe");
        FCheck.True(after, heard->GetItemIndex() >= 0, u"AddRealtimeListener");
        FService.Unsubscribe(followed, recorder.Owner());
        heard->RemoveRealtimeListener(recorder.Owner());
        FCheck.Equal(before, NoItemIndex, read->GetItemIndex(), u"an item beside a followed one");
    }

    void Fields() {
        struct TCase {
            StringView Fed;
            Double Number;
        };
        const TCase cases[] = {{u"100", 100.0}, {u"-2.5", -2.5}, {u"HKD", 0.0}, {u"", 0.0}};
        const String key = FDriver.NewKey();
        TCustomSubItem* item = Item(key, /*flag=*/true);
        if (item == nullptr) return;
        for (const TCase& row : cases) {
            FDriver.FeedText(key, Field::Remark, row.Fed);
            FDriver.Deliver();
            FCheck.Reads(u"a text reads as it was fed", row.Fed, item->FieldText(Field::Remark));
            FCheck.Equal(u"a text reads as a number, as 0.0 where it is none", row.Number,
                         item->GetFieldDouble(Field::Remark), ShowValue(row.Fed));
        }
        for (const Double number : {350.2, 0.0, -1.0, 1e9}) {
            FDriver.FeedNumber(key, Field::LastPrice, number);
            FDriver.Deliver();
            FCheck.Equal(u"a number reads as it was fed", number,
                         item->GetFieldDouble(Field::LastPrice));
            FCheck.True(u"a number that was fed is there", item->HasField(Field::LastPrice));
            FCheck.False(u"a number reads as text", item->FieldText(Field::LastPrice).empty());
        }
        FCheck.Equal(u"a missing field beside others reads 0.0", 0.0,
                     item->GetFieldDouble(Field::LowPrice));
    }

    // One owner that follows two items.
    void Batches() {
        const String keys[] = {FDriver.NewKey(), FDriver.NewKey()};
        TCallRecorder& recorder = FCheck.NewRecorder();
        for (const String& key : keys) {
            FService.Subscribe(Item(key, true), recorder.Event(), recorder.Owner());
        }
        String problem;
        recorder.OnCall([&](Pointer sender) {
            for (const String& key : keys) {
                if (problem.empty()) problem = InspectItems(sender, key);
            }
        });
        FeedPrice(keys[0]);
        FeedPrice(keys[1]);
        FeedPrice(keys[0]);
        FDriver.Deliver();
        FCheck.Equal(u"one event for many items is called once per batch", 1, recorder.Count());
        FCheck.NoProblem(u"one batch names all items that changed", problem);
        recorder.OnCall(nullptr);

        recorder.Reset();
        FService.Subscribe(Item(keys[1]), recorder.OtherEvent(), recorder.Owner());
        FeedPrice(keys[0]);
        FeedPrice(keys[1]);
        FDriver.Deliver();
        const StringView events = u"two events of one owner are called once each";
        FCheck.Equal(events, 1, recorder.Count(), u"the first");
        FCheck.Equal(events, 1, recorder.OtherCount(), u"the second");

        recorder.Reset();
        FService.Unsubscribe(Item(keys[0]), recorder.Owner());
        FeedPrice(keys[0]);
        FeedPrice(keys[1]);
        FDriver.Deliver();
        const StringView apart = u"the end of one subscription leaves the owner's others";
        FCheck.Equal(apart, 0, recorder.Count(), u"the ended one");
        FCheck.Equal(apart, 1, recorder.OtherCount(), u"the other one");
        FService.Unsubscribe(Item(keys[1]), recorder.Owner());
    }

    void UnknownPairs() {
        const String key = FDriver.NewKey();
        const String other = FDriver.NewKey();
        TCallRecorder& recorder = FCheck.NewRecorder();
        FService.Subscribe(Item(key), recorder.Event(), recorder.Owner());
        TObject stranger;
        FService.Unsubscribe(Item(key), &stranger);
        FService.Unsubscribe(Item(other), recorder.Owner());
        Item(key)->RemoveRealtimeListener(recorder.Owner());
        FeedPrice(key);
        FDriver.Deliver();
        FCheck.Equal(u"ending unknown pairs of item and owner does no harm", 1, recorder.Count());
        FService.Unsubscribe(Item(key), recorder.Owner());
    }

    void LookUpInside() {
        const String key = FDriver.NewKey();
        const String made = FDriver.NewKey();
        TCustomSubItem* item = Item(key, true);
        TCallRecorder& recorder = FCheck.NewRecorder();
        FService.Subscribe(item, recorder.Event(), recorder.Owner());
        TCustomSubItem* inside = nullptr;
        TCustomSubItem* madeInside = nullptr;
        recorder.OnCall([&](Pointer) {
            inside = Item(key, true);
            madeInside = Item(made, true);
        });
        FeedPrice(key);
        FDriver.Deliver();
        FCheck.IsSame(u"a look-up inside a callback gives the same object", item, inside);
        FCheck.IsSame(u"an item made inside a callback stays", Item(made), madeInside);
        recorder.OnCall(nullptr);
        FService.Unsubscribe(item, recorder.Owner());
    }

    void BatchedRegistrations() {
        const String key = FDriver.NewKey();
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"Subscribe",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     FService.Subscribe(Item(key, true), receiver.Event(), owner);
                 },
             .Remove = [&](TObject* owner) { FService.Unsubscribe(Item(key), owner); },
             .Change = [&] { FeedPrice(key); },
             .Inspect = [&](Pointer sender) { return InspectItems(sender, key); }});
    }

    void RealtimeRegistrations() {
        const String key = FDriver.NewKey();
        TCustomSubItem* item = Item(key, true);
        if (item == nullptr) return;
        CheckRegistrationRules(
            FCheck, FDriver,
            {.Name = u"AddRealtimeListener",
             .Register =
                 [&](TCallRecorder& receiver, TObject* owner) {
                     item->AddRealtimeListener(receiver.NotifyEvent(), owner);
                 },
             .Remove = [&](TObject* owner) { item->RemoveRealtimeListener(owner); },
             .Change = [&] { FeedPrice(key); },
             .Inspect =
                 [&](Pointer sender) {
                     const bool isItem = ObjectAs<TCustomSubItem>(sender) == item;
                     return isItem ? String() : String(u"another sender than the item");
                 }});
    }

    void FeedPrice(StringView key) {
        FPrice += 1.0;
        FDriver.FeedNumber(key, Field::LastPrice, FPrice);
    }
    String InspectItems(Pointer sender, StringView key) {
        const auto keyOf = [](const TCustomSubItem& item) { return item.GetKey(); };
        const String problem = InspectRecords<TSubItemDictionary>(sender, key, keyOf);
        if (!problem.empty() || sender == nullptr) return problem;
        const bool isSame = *static_cast<TSubItemDictionary*>(sender)->Find(key) == Item(key);
        return isSame ? String() : String(u"another object than GetSubItem gives");
    }

    TSubscribeDriver& FDriver;
    TCustomSubscribeAdapter& FService;
    TChecker FCheck;
    Double FPrice = 100.0;
};

} // namespace

void CheckSubscribeAdapter(TSubscribeDriver& driver, TContractReport& report) {
    TSubscribeChecks(driver, report).CheckAll();
}

} // namespace quorin
