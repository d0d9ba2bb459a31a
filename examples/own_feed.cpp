// A service of one's own in place of an embedded one: live items that come from standard input, a
// line "SYMBOL PRICE [VOLUME]" each, in a market watch. Everything else stays embedded.
#include "embedded/EmbeddedServices.h"
#include "embedded/Registrations.h"
#include "embedded/SilentHost.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "viewdata/frame/BoundGrid.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/FieldNumbers.h"

#include <iostream>
#include <map>
#include <sstream>

using namespace quorin;

namespace {

// What the feed knows of one symbol. A field that never came is not there, which is another thing
// than 0.0: the watch shows such a cell as empty.
class TLineItem : public TCustomSubItem {
    QUORIN_CLASS(TLineItem, TCustomSubItem)

    TLineItem(StringView key, const TDeliveryClock& clock) : FKey(key), FListeners(clock) {}

    const String& GetKey() const override { return FKey; }
    Double GetFieldDouble(Integer FieldNo) const override {
        const auto found = FFields.find(FieldNo);
        return found == FFields.end() ? 0.0 : found->second;
    }
    void GetFieldString(Integer FieldNo, String& Text) const override {
        Text = HasField(FieldNo) ? DoubleToText(GetFieldDouble(FieldNo)) : String();
    }
    Boolean HasField(Integer FieldNo) const override { return FFields.contains(FieldNo); }
    Integer GetStatus() const override {
        return FFields.empty() ? ItemStatus::Waiting : ItemStatus::Ready;
    }
    Integer GetItemIndex() const override { return 0; }
    void AddRealtimeListener(const TNotifyEvent& Event, TObject* Owner) override {
        FListeners.Add(Owner, Event);
    }
    void RemoveRealtimeListener(TObject* Owner) override { FListeners.Remove(Owner); }

    void SetField(Integer field, Double value) { FFields[field] = value; }
    void Tell(TDeliverySerial serial) { FListeners.Deliver(serial, static_cast<TObject*>(this)); }
    // Batched followers, by owner.
    std::map<TObject*, TDataCallbackEvent> Followers;

private:
    String FKey;
    std::map<Integer, Double> FFields;
    TRegistrations<TNotifyEvent> FListeners; // stands whatever a receiver does inside a call
};

// The contract asks: one object per key for ever, no call inside the call that asked for it, and
// one call per owner and delivery.
class TLineFeed : public TCustomSubscribeAdapter {
public:
    void Subscribe(TCustomSubItem* Item, const TDataCallbackEvent& Event, TObject* Owner) override {
        static_cast<TLineItem*>(Item)->Followers[Owner] = Event;
    }
    void Unsubscribe(TCustomSubItem* Item, TObject* Owner) override {
        static_cast<TLineItem*>(Item)->Followers.erase(Owner);
    }
    TCustomSubItem* GetSubItem(StringView Key, StringView, Boolean) override { return &Item(Key); }

    TLineItem& Item(StringView key) {
        return FItems.try_emplace(String(key), key, FClock).first->second;
    }

    // Takes in one line; nothing is told yet.
    void Take(const std::string& line) {
        std::istringstream words(line);
        std::string symbol, price, volume;
        words >> symbol >> price >> volume;
        TLineItem& item = Item(FromUtf8(symbol));
        SetNumber(item, Field::LastPrice, price);
        SetNumber(item, Field::Volume, volume);
        FChanged[item.GetKey()] = &item;
    }

    // Tells everybody who follows what has changed. Owners may leave inside a call, so each one is
    // looked up again before its turn.
    void Deliver() {
        const std::map<String, TLineItem*> changed = std::exchange(FChanged, {});
        TSubItemDictionary batch;
        std::map<TObject*, TLineItem*> owners;
        for (const auto& [key, item] : changed) {
            batch.AddOrSetValue(key, item);
            for (const auto& follower : item->Followers) owners[follower.first] = item;
        }
        for (const auto& [owner, item] : owners) {
            const auto found = item->Followers.find(owner);
            if (found != item->Followers.end()) found->second(&batch, nullptr);
        }
        const TDeliverySerial serial = FClock.Begin();
        for (const auto& [key, item] : changed) item->Tell(serial);
    }

private:
    static void SetNumber(TLineItem& item, Integer field, const std::string& text) {
        Double number = 0.0;
        if (TryParseDouble(FromUtf8(text), number)) item.SetField(field, number);
    }

    TDeliveryClock FClock;
    std::map<String, TLineItem> FItems;
    std::map<String, TLineItem*> FChanged;
};

constexpr TColumnEntry Columns[] = {
    {MarketAttribute::SymbolCode}, {MarketAttribute::LastPrice}, {MarketAttribute::Volume}};

class TWatch : public TCustomMarketDataControl {
    QUORIN_CLASS(TWatch, TCustomMarketDataControl)

    explicit TWatch(TComponent* AOwner = nullptr) : TCustomMarketDataControl(AOwner) {
        EmptyDisplayText = u"-";
    }
    const TColumnList* GetColList() override { return FColumns.List(); }

private:
    const TColumnSet FColumns{Columns};
};

// The static side: which symbols there are.
void ListSymbols(TEmbeddedMarketAdapter& market) {
    market.AddExchange({.Code = u"HOME", .Currency = u"USD", .MarketStatus = MarketOpen});
    market.AddSeries({.Code = u"MAIN", .Exchange = u"HOME"});
    for (const StringView symbol : {u"ACME", u"BOLT"}) {
        market.AddSymbol({.Symbol = symbol, .Exchange = u"HOME", .Series = u"MAIN"});
    }
}

} // namespace

int main() {
    TSilentHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = QUORIN_DATA_DIR});
    ListSymbols(services.Market());
    TLineFeed feed;
    // From here on the views get their items from the feed. Before the first control, always.
    ServiceRegistry::Install(&feed);
    {
        auto owned = CreateComponent<TWatch>();
        TWatch& watch = *owned;
        TBoundGrid grid(std::move(owned));
        watch.SetExchangeAndCategory(u"HOME", -1);
        grid.View().SetVisibleRowCapacity(10);
        watch.ViewRecordChanged(grid.VisibleRecords());

        std::string line;
        while (std::getline(std::cin, line)) {
            feed.Take(line);
            feed.Deliver();
            if (!grid.View().TakeRepaint()) continue; // nothing that is on screen has changed
            for (Integer row = 0; row < grid.View().VisibleRowCount(); ++row) {
                std::cout << ToUtf8(grid.RowLine(row, 8)) << '\n';
            }
            std::cout << '\n';
        }
    }
    ServiceRegistry::Remove<TCustomSubscribeAdapter>();
}
