#pragma once

#include "viewdata/services/PositionData.h"

namespace quorin {

// A row of the aggregated position view: what a master account and its sub-accounts hold of one
// product together. Quantities and amounts are sums, taken as they are whatever the side of what is
// added; what can't be summed, prices and profit and loss, answers 0.0. The view makes it, fills it
// and throws it away; only what reads the ticker follows the market.
class TAggregatePositionData : public TCustomPositionData {
    QUORIN_CLASS(TAggregatePositionData, TCustomPositionData)
public:
    // Reads the product type once: 0 while the live item does not know it.
    TAggregatePositionData(StringView Symbol, StringView Account);

    const String& GetAccount() const override { return FAccount; }
    const String& GetSymbol() const override { return FSymbol; }
    Double GetQuantity() const override { return FQuantity; }
    Double GetBODQuantity() const override { return FBODQuantity; }
    Double GetShortQuantity() const override { return FShortQuantity; }
    Double GetBODShortQuantity() const override { return FBODShortQuantity; }
    Double GetTodayBuyQty() const override { return FTodayBuyQty; }
    Double GetTodayBuyAmount() const override { return FTodayBuyAmount; }
    Double GetTodaySellQty() const override { return FTodaySellQty; }
    Double GetTodaySellAmount() const override { return FTodaySellAmount; }
    Double GetTodayPendBuyQty() const override { return FTodayPendBuyQty; }
    Double GetTodayPendSellQty() const override { return FTodayPendSellQty; }
    Double GetWithdrawQty() const override { return FWithdrawQty; }
    Double GetDepositQty() const override { return FDepositQty; }
    Double GetCoveredQty() const override { return FCoveredQty; }
    Double GetBODPrice() const override { return 0.0; }
    Integer GetProdType() const override { return FProdType; }
    // The last price; without one the previous close, without that the middle of a two-sided quote.
    // 0.0 where there is none of these and while the live item is not ready.
    Double GetNominal() const override;
    Double GetPClose() const override;
    TCustomSubItem* GetTicker() const override { return FTicker; }
    std::unique_ptr<TCustomPositionData> CreateBy(StringView Symbol,
                                                  StringView Account) const override;
    TPositionSide GetSide() const override { return FSide; }
    Double GetInitPL() const override { return 0.0; }
    Double GetRealPL() const override { return 0.0; }
    Double GetExePL() const override { return 0.0; }
    Double GetAvgPriceFIFN() const override { return 0.0; }
    Double GetAvgPriceMixed() const override { return 0.0; }
    Double GetAvgPriceIn() const override { return 0.0; }
    Double GetCustodianQty() const override { return FCustodianQty; }
    Double GetPendCustodianQty() const override { return FPendCustodianQty; }

    // Operations, in order

    // Takes over, or adds, the fifteen quantities and amounts of a position; nothing else.
    virtual void AssignPositionData(const TCustomPositionData* Data);
    virtual void IncPositionData(const TCustomPositionData* Data);

    // The side of the first position that makes the row; the view writes it.
    void SetSide(TPositionSide Side) { FSide = Side; }

protected:
    String FAccount;
    String FSymbol;
    Double FQuantity = 0.0;
    Double FBODQuantity = 0.0;
    Double FShortQuantity = 0.0;
    Double FBODShortQuantity = 0.0;
    Double FTodayBuyQty = 0.0;
    Double FTodayBuyAmount = 0.0;
    Double FTodaySellQty = 0.0;
    Double FTodaySellAmount = 0.0;
    Double FTodayPendBuyQty = 0.0;
    Double FTodayPendSellQty = 0.0;
    Double FWithdrawQty = 0.0;
    Double FDepositQty = 0.0;
    Double FCoveredQty = 0.0;
    Double FCustodianQty = 0.0;
    Double FPendCustodianQty = 0.0;
    TPositionSide FSide = TPositionSide::Net;
    Integer FProdType = 0;
    TCustomSubItem* FTicker = nullptr; // the subscribe adapter's
};

} // namespace quorin
