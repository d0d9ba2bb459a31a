#pragma once

#include "viewdata/services/MarketRecords.h"
#include "viewdata/services/PositionData.h"

namespace quorin {

// What the host says of a position: quantities in units, amounts and prices in the product's
// currency.
struct TPositionFigures {
    TPositionSide Side = TPositionSide::Net;
    // The service keeps the live item, the previous close, the nominal, profit and loss and the
    // average prices itself, from the other figures and the item's prices.
    bool FollowsPrice = false;
    Double Quantity = 0.0; // 0.0 closes the position
    Double BODQuantity = 0.0;
    Double ShortQuantity = 0.0;
    Double BODShortQuantity = 0.0;
    Double TodayBuyQty = 0.0;
    Double TodayBuyAmount = 0.0;
    Double TodaySellQty = 0.0;
    Double TodaySellAmount = 0.0;
    Double TodayPendBuyQty = 0.0;
    Double TodayPendSellQty = 0.0;
    Double WithdrawQty = 0.0;
    Double DepositQty = 0.0;
    Double CoveredQty = 0.0;
    Double BODPrice = 0.0;
    Double CostPrice = 0.0;
    Integer ProdType = 0; // see ProductType
    Double Nominal = 0.0;
    Double PClose = 0.0;
    TCustomSubItem* Ticker = nullptr; // not owned
    Double InitPL = 0.0;
    Double RealPL = 0.0;
    Double ExePL = 0.0;
    Double AvgPriceFIFN = 0.0;
    Double AvgPriceMixed = 0.0;
    Double AvgPriceIn = 0.0;
    Double CustodianQty = 0.0;
    Double PendCustodianQty = 0.0;
};

class TEmbeddedPositionData : public TCustomPositionData {
    QUORIN_CLASS(TEmbeddedPositionData, TCustomPositionData)
public:
    TEmbeddedPositionData(StringView symbol, StringView account)
        : FSymbol(symbol), FAccount(account) {}

    void SetFigures(const TPositionFigures& figures) { FFigures = figures; }
    const TPositionFigures& Figures() const { return FFigures; }

    String GetDataString() const override { return FAccount + u' ' + FSymbol; }
    const String& GetAccount() const override { return FAccount; }
    const String& GetSymbol() const override { return FSymbol; }
    Double GetQuantity() const override { return FFigures.Quantity; }
    Double GetBODQuantity() const override { return FFigures.BODQuantity; }
    Double GetShortQuantity() const override { return FFigures.ShortQuantity; }
    Double GetBODShortQuantity() const override { return FFigures.BODShortQuantity; }
    Double GetTodayBuyQty() const override { return FFigures.TodayBuyQty; }
    Double GetTodayBuyAmount() const override { return FFigures.TodayBuyAmount; }
    Double GetTodaySellQty() const override { return FFigures.TodaySellQty; }
    Double GetTodaySellAmount() const override { return FFigures.TodaySellAmount; }
    Double GetTodayPendBuyQty() const override { return FFigures.TodayPendBuyQty; }
    Double GetTodayPendSellQty() const override { return FFigures.TodayPendSellQty; }
    Double GetWithdrawQty() const override { return FFigures.WithdrawQty; }
    Double GetDepositQty() const override { return FFigures.DepositQty; }
    Double GetCoveredQty() const override { return FFigures.CoveredQty; }
    Double GetBODPrice() const override { return FFigures.BODPrice; }
    Double GetCostPrice() const override { return FFigures.CostPrice; }
    Integer GetProdType() const override { return FFigures.ProdType; }
    Double GetNominal() const override { return FFigures.Nominal; }
    Double GetPClose() const override { return FFigures.PClose; }
    TCustomSubItem* GetTicker() const override { return FFigures.Ticker; }
    std::unique_ptr<TCustomPositionData> CreateBy(StringView Symbol,
                                                  StringView Account) const override {
        return std::make_unique<TEmbeddedPositionData>(Symbol, Account);
    }
    TPositionSide GetSide() const override { return FFigures.Side; }
    Double GetInitPL() const override { return FFigures.InitPL; }
    Double GetRealPL() const override { return FFigures.RealPL; }
    Double GetExePL() const override { return FFigures.ExePL; }
    Double GetAvgPriceFIFN() const override { return FFigures.AvgPriceFIFN; }
    Double GetAvgPriceMixed() const override { return FFigures.AvgPriceMixed; }
    Double GetAvgPriceIn() const override { return FFigures.AvgPriceIn; }
    Double GetCustodianQty() const override { return FFigures.CustodianQty; }
    Double GetPendCustodianQty() const override { return FFigures.PendCustodianQty; }

private:
    const String FSymbol;
    const String FAccount;
    TPositionFigures FFigures;
};

} // namespace quorin
