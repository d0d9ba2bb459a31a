#pragma once

#include "platform/rtl/TEvent.h"
#include "viewdata/services/PositionData.h"
#include "viewdata/services/ServiceRegistry.h"

namespace quorin {

// The positions of all accounts. `Sender` of each of its callbacks is a TAccountPositionDictionary
// of what changed, with an entry for each account concerned, or nil.
class TCustomPositionAdapter : public TService<TCustomPositionAdapter> {
public:
    // Operations, in order

    // Positions of `Account` changed. Ends the owner's registration for `PreviousAccount`; with
    // an empty `PreviousAccount` the call only adds, with an empty `Account` it only ends.
    virtual void ChangePositionAccount(StringView Account, const TDataCallbackEvent& Callback,
                                       TObject* Owner, StringView PreviousAccount) = 0;
    virtual void RemovePositionCallback(StringView Account, TObject* Owner) = 0;
    // Prices moved that value positions; `Sender` holds these positions.
    virtual void AddPositionMarketDataCallback(const TDataCallbackEvent& Callback,
                                               TObject* Owner) = 0;
    virtual void RemovePositionMarketDataCallback(TObject* Owner) = 0;
    // Positions changed of a sub-account of the master `Account`; `Sender` names the sub-account.
    // `Reserved` is nil.
    virtual void AddAggregatePositionCallback(StringView Account,
                                              const TDataCallbackEvent& Callback, TObject* Owner,
                                              Pointer Reserved) = 0;
    virtual void RemoveAggregatePositionCallback(StringView Account, TObject* Owner) = 0;

    // Adds the account's positions to `List`, the caller's own, whose other entries stay.
    virtual void GetPositionList(StringView Account, TPositionDictionary& List) const = 0;
    // Nil when the account has none in this product.
    virtual TCustomPositionData* GetPosition(StringView Account, StringView Symbol) const = 0;
    // The market value of `NetQuantity` units, in the product's currency. False when none can be
    // given; `Value` then means nothing.
    virtual Boolean GetMarketValue(StringView Symbol, Double NetQuantity, Double& Value) const = 0;
};

} // namespace quorin
