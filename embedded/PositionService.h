#pragma once

#include "embedded/KeyedRegistrations.h"
#include "embedded/PositionBooking.h"
#include "embedded/PositionRecord.h"
#include "embedded/SubscribeService.h"
#include "viewdata/services/PositionAdapter.h"

#include <utility>

namespace quorin {

// The positions that the host names, none to begin with. What is fed counts at once; Deliver tells
// of it. A closed position is listed while it traded today and no more after that, but its record
// stays and serves again when the position is opened anew.
//
// The service follows the live items of the products in its records: when one was delivered, the
// next Deliver tells of the positions in it. That costs what is held, whatever moved in the market.
class TEmbeddedPositionAdapter : public TCustomPositionAdapter {
public:
    // `items` must live longer.
    explicit TEmbeddedPositionAdapter(TEmbeddedSubscribeAdapter& items) : FItems(items) {}
    ~TEmbeddedPositionAdapter() override;

    // Operations of the contract
    void ChangePositionAccount(StringView Account, const TDataCallbackEvent& Callback,
                               TObject* Owner, StringView PreviousAccount) override;
    void RemovePositionCallback(StringView Account, TObject* Owner) override;
    void AddPositionMarketDataCallback(const TDataCallbackEvent& Callback, TObject* Owner) override;
    void RemovePositionMarketDataCallback(TObject* Owner) override;
    void AddAggregatePositionCallback(StringView Account, const TDataCallbackEvent& Callback,
                                      TObject* Owner, Pointer Reserved) override;
    void RemoveAggregatePositionCallback(StringView Account, TObject* Owner) override;
    void GetPositionList(StringView Account, TPositionDictionary& List) const override;
    TCustomPositionData* GetPosition(StringView Account, StringView Symbol) const override;
    // At the last price, before the first one of the day at the previous close, times the contract
    // size where the product has one. False while no price is there.
    Boolean GetMarketValue(StringView Symbol, Double NetQuantity, Double& Value) const override;

    // Opens, changes or closes a position. Its record stays the service's.
    TEmbeddedPositionData& FeedPosition(StringView account, StringView symbol,
                                        const TPositionFigures& figures);
    // What is known of a position, listed or not; nil where there is no record.
    const TPositionFigures* FindFigures(StringView account, StringView symbol) const;
    // Whether a position is long or short and must be closed before it is turned round. A record
    // says so itself; what was never held goes by the exchange.
    bool IsSided(StringView account, StringView symbol) const;
    // Books a trade; the service values the position from here on. Opens what is not held: on the
    // side of the trade where positions are sided, net elsewhere.
    void BookTrade(StringView account, StringView symbol, const TPositionTrade& trade);
    // Has the service value a position that its host valued until now; see FollowPrice of the
    // figures.
    void FollowPrice(StringView account, StringView symbol);
    // Adds to what pending orders buy or sell, or takes away from it. A position that has nothing
    // else stays unlisted.
    void Pend(StringView account, StringView symbol, bool isBuy, Double quantity);
    // For the account figures that follow from positions. Calls `call(record)` for each record of
    // an account, listed or not.
    template <class Call>
    void EachPosition(StringView account, Call call) const {
        const TRecords* records = FAccounts.Find(account);
        if (records == nullptr) return;
        for (const auto& item : *records) call(*item.Value);
    }
    // Calls `call(account)` for each account with something that the next Deliver tells of or that
    // a pending order changed; an account may come up more than once.
    template <class Call>
    void EachTouchedAccount(Call call) const {
        for (const TChanges* changes : {&FChanges, &FMoved, &FPended}) {
            for (const auto& item : *changes) call(StringView(item.Key));
        }
    }
    // The positions that were fed since the last call.
    TList<const TEmbeddedPositionData*> TakeFedPositions() { return std::exchange(FFed, {}); }

    // A price moved that values the open positions in this product.
    void FeedPriceMove(StringView symbol);
    // Every callback gets the accounts that concern it: its own, the master's sub-accounts, or all
    // that hold a product whose price moved.
    void Deliver();
    Integer RegistrationCount() const;
    // How many items the service follows itself.
    Integer FollowedItemCount() const { return FHoldings.Count(); }

private:
    struct THolding { // of one product in all accounts
        TEmbeddedSubItem* Item = nullptr;
        TList<TEmbeddedPositionData*> Records;
    };
    using TRecords = TDictionary<String, std::unique_ptr<TEmbeddedPositionData>>;
    using TChanges = TDictionary<String, TPositionDictionary>; // by account

    THolding& Hold(StringView symbol);
    TEmbeddedPositionData* FindRecord(StringView account, StringView symbol) const;
    TEmbeddedPositionData& Store(StringView account, StringView symbol,
                                 const TPositionFigures& figures);
    TPositionFigures FiguresOf(StringView account, StringView symbol) const;
    void ItemsUpdate(Pointer Sender, Pointer Data);
    void Move(const THolding& holding);
    static TPositionFigures Valued(TPositionFigures figures, TEmbeddedSubItem& item);
    void DeliverChanges(TDeliverySerial serial, TChanges& changes);
    void DeliverToMasters(TDeliverySerial serial, TChanges& changes);

    TEmbeddedSubscribeAdapter& FItems;
    TObject FFollower; // owner of the subscriptions
    TDictionary<String, TRecords> FAccounts;
    TDictionary<String, THolding> FHoldings; // by symbol
    TChanges FChanges;
    TChanges FMoved;
    TChanges FPended;
    TList<const TEmbeddedPositionData*> FFed;
    TDeliveryClock FDeliveries;
    TKeyedRegistrations<String, TDataCallbackEvent> FPositionCallbacks{FDeliveries};
    TKeyedRegistrations<String, TDataCallbackEvent> FAggregateCallbacks{FDeliveries}; // by master
    TRegistrations<TDataCallbackEvent> FMarketDataCallbacks{FDeliveries};
};

} // namespace quorin
