#pragma once

#include "platform/rtl/TDictionary.h"
#include "platform/rtl/TObject.h"

#include <memory>

namespace quorin {

class TCustomSubItem;

// How a position record counts.
enum class TPositionSide : Byte {
    Net = 0,   // the quantity is signed: above 0 long, below 0 short
    Long = 1,  // the quantity is the long quantity
    Short = 2, // the quantity is the short quantity; profit and loss runs with the sign reversed
};

// Root of the records that can describe themselves.
class TBaseData : public TObject {
    QUORIN_CLASS(TBaseData, TObject)
public:
    // A text for logs; the views do not use it.
    virtual String GetDataString() const { return {}; }
};

// One position: of one account in one product. Quantities are in units of the product, amounts and
// prices in its currency.
class TCustomPositionData : public TBaseData {
    QUORIN_CLASS(TCustomPositionData, TBaseData)
public:
    // Operations, in order, after GetDataString

    virtual const String& GetAccount() const = 0;
    // The key of the position in every list.
    virtual const String& GetSymbol() const = 0;
    // Exactly 0.0 once the position is closed. The sign depends on GetSide.
    virtual Double GetQuantity() const = 0;
    // BOD: at the beginning of the day.
    virtual Double GetBODQuantity() const = 0;
    // Held short beside GetQuantity; the net quantity is GetQuantity less this.
    virtual Double GetShortQuantity() const = 0;
    virtual Double GetBODShortQuantity() const = 0;
    virtual Double GetTodayBuyQty() const = 0;
    virtual Double GetTodayBuyAmount() const = 0;
    virtual Double GetTodaySellQty() const = 0;
    virtual Double GetTodaySellAmount() const = 0;
    // In orders that still wait.
    virtual Double GetTodayPendBuyQty() const = 0;
    virtual Double GetTodayPendSellQty() const = 0;
    virtual Double GetWithdrawQty() const = 0;
    virtual Double GetDepositQty() const = 0;
    virtual Double GetCoveredQty() const = 0;
    // 0.0 when there is none.
    virtual Double GetBODPrice() const = 0;
    // Price at which the position stands in the books. No view reads it.
    virtual Double GetCostPrice() const { return 0.0; }
    // See ProductType in MarketRecords.h.
    virtual Integer GetProdType() const = 0;
    virtual Double GetNominal() const = 0;
    // The product's previous close.
    virtual Double GetPClose() const = 0;
    // The live item of the product; nil is legal.
    virtual TCustomSubItem* GetTicker() const = 0;
    // A new record of this record's class, for that product and account and with nothing in it.
    virtual std::unique_ptr<TCustomPositionData> CreateBy(StringView Symbol,
                                                          StringView Account) const = 0;
    virtual TPositionSide GetSide() const = 0;
    // Profit and loss in three parts: brought forward, realised, of today's executions.
    virtual Double GetInitPL() const = 0;
    virtual Double GetRealPL() const = 0;
    virtual Double GetExePL() const = 0;
    // Average prices: first in, first netted; mixed; of what came in.
    virtual Double GetAvgPriceFIFN() const = 0;
    virtual Double GetAvgPriceMixed() const = 0;
    virtual Double GetAvgPriceIn() const = 0;
    virtual Double GetCustodianQty() const = 0;
    virtual Double GetPendCustodianQty() const = 0;
};

// Symbol to position, of one account.
using TPositionDictionary = TDictionary<String, TCustomPositionData*>;

// Account code to that account's positions: `Sender` of the position callbacks.
using TAccountPositionDictionary = TDictionary<String, TPositionDictionary*>;

} // namespace quorin
