#pragma once

#include "viewdata/market/MarketDataControl.h"

namespace quorin {

enum class TOptionsType : Byte { otAll, otCall, otPut };
using enum TOptionsType;

enum class TUnderlyerPriceDisplayMode : Byte {
    udmFutures, // outright and spread contracts alike
    udmOptions,
    udmSpreadFutures, // only contracts with "/" in their symbol
    udmSpreadOptions,
};
using enum TUnderlyerPriceDisplayMode;

// The futures or options of one underlyer: a market list of one series of an exchange, narrowed by
// month and by call or put. A view fills its choosers from the top down: exchange, series, month.
// Without an exchange and a series there are no rows, and none in an option mode without a month.
// Not supported: favourites, product categories, waiting for the universe.
//
// Every setter does nothing for the value that is set already. Otherwise it stores the value,
// clears what depended on the old one, reloads the rows and signals once.
class TCustomUnderlyerPriceDataControl : public TCustomMarketDataControl {
    QUORIN_CLASS(TCustomUnderlyerPriceDataControl, TCustomMarketDataControl)

    explicit TCustomUnderlyerPriceDataControl(TComponent* AOwner = nullptr);

    const String& Exchange() const { return FExchange; }
    const String& Series() const { return FSeries; }
    const String& Month() const { return FMonth; }
    TOptionsType CallPut() const { return FCallPut; }
    TUnderlyerPriceDisplayMode DisplayMode() const { return FDisplayMode; }

    // Reloads the rows without a signal.
    void InitData() override;
    // Clears series and month. The code of the favourites is an exchange like any other here.
    void SetExchange(StringView Exchange) override;

    // Operations, in order

    // Clears the month.
    virtual void SetSeries(StringView Series);
    // As the records write their expiry; empty for every month.
    virtual void SetMonth(StringView Month);
    virtual void SetCallPut(TOptionsType CallPut);
    // A futures mode clears the month and takes calls and puts alike; an option mode keeps both.
    virtual void SetDisplayMode(TUnderlyerPriceDisplayMode DisplayMode);

    // What there is to choose from. Each appends to the caller's list, which is empty to begin
    // with, and does nothing for nil: the exchanges; the series of the exchange, sorted; the months
    // of the series' options, as they come, so that a series of futures alone gives none.
    virtual void GetExchangeList(TList<String>* List);
    virtual void GetSeriesList(TList<String>* List);
    virtual void GetMonthList(TList<String>* List);

protected:
    String FSeries;
    String FMonth;
    TOptionsType FCallPut = otAll;
    TUnderlyerPriceDisplayMode FDisplayMode = udmFutures;

private:
    void Reload();
    Boolean IsShown(const TCustomMarketData& data) const;

    std::uint32_t FLoads = 0; // begun
    TLifeline FReloadLine;
};

} // namespace quorin
