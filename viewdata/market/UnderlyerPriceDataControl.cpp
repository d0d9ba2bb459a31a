#include "viewdata/market/UnderlyerPriceDataControl.h"

#include "viewdata/market/MarketTexts.h"
#include "viewdata/services/SeriesComparer.h"

namespace quorin {

namespace {

constexpr Char SpreadMark = u'/';

Boolean IsFuturesMode(TUnderlyerPriceDisplayMode mode) {
    return mode == udmFutures || mode == udmSpreadFutures;
}

Boolean IsSpread(const TCustomMarketData& data) {
    return data.GetSymbol().find(SpreadMark) != String::npos;
}

Boolean PassesMode(const TCustomMarketData& data, TUnderlyerPriceDisplayMode mode) {
    const Integer type = data.GetProductType();
    switch (mode) {
    case udmFutures: return type == ProductType::Futures;
    case udmOptions: return type == ProductType::Options;
    case udmSpreadFutures: return type == ProductType::Futures && IsSpread(data);
    case udmSpreadOptions: return type == ProductType::Options && IsSpread(data);
    }
    return true;
}

Boolean PassesCallPut(const TCustomMarketData& data, TOptionsType type) {
    switch (type) {
    case otAll: return true;
    case otCall: return OptionKindOf(data.GetCallPut()) == TOptionKind::Call;
    case otPut: return OptionKindOf(data.GetCallPut()) == TOptionKind::Put;
    }
    return true;
}

} // namespace

TCustomUnderlyerPriceDataControl::TCustomUnderlyerPriceDataControl(TComponent* AOwner)
    : TCustomMarketDataControl(AOwner) {}

void TCustomUnderlyerPriceDataControl::Reload() {
    const TLifeline::TWatch watch(FReloadLine);
    InitData();
    if (watch.IsAlive()) FireDataChanged();
}

void TCustomUnderlyerPriceDataControl::SetExchange(StringView Exchange) {
    if (FExchange == Exchange) return;
    FExchange = Exchange;
    FSeries.clear();
    FMonth.clear();
    Reload();
}

void TCustomUnderlyerPriceDataControl::SetSeries(StringView Series) {
    if (FSeries == Series) return;
    FSeries = Series;
    FMonth.clear();
    Reload();
}

void TCustomUnderlyerPriceDataControl::SetMonth(StringView Month) {
    if (FMonth == Month) return;
    FMonth = Month;
    Reload();
}

void TCustomUnderlyerPriceDataControl::SetCallPut(TOptionsType CallPut) {
    if (FCallPut == CallPut) return;
    FCallPut = CallPut;
    Reload();
}

void TCustomUnderlyerPriceDataControl::SetDisplayMode(TUnderlyerPriceDisplayMode DisplayMode) {
    if (FDisplayMode == DisplayMode) return;
    FDisplayMode = DisplayMode;
    if (IsFuturesMode(DisplayMode)) {
        FMonth.clear();
        FCallPut = otAll;
    }
    Reload();
}

// A load from inside this one has read later: its rows stand, and this one ends.
void TCustomUnderlyerPriceDataControl::InitData() {
    ClearAll();
    ++FLoads;
    if (FExchange.empty() || FSeries.empty()) return;
    if (!IsFuturesMode(FDisplayMode) && FMonth.empty()) return;
    const TCustomMarketAdapter& market = Market();
    const std::uint32_t load = FLoads;
    const Integer count = market.GetMarketDataCount(FExchange, FSeries);
    for (Integer index = 0; index < count && load == FLoads; ++index) {
        TCustomMarketData* data = market.GetMarketDataAt(FExchange, FSeries, index);
        if (data != nullptr && IsShown(*data)) AddMarketData(data);
    }
}

Boolean TCustomUnderlyerPriceDataControl::IsShown(const TCustomMarketData& data) const {
    return PassesMode(data, FDisplayMode) && (FMonth.empty() || data.GetExpiryMonth() == FMonth) &&
           PassesCallPut(data, FCallPut);
}

void TCustomUnderlyerPriceDataControl::GetExchangeList(TList<String>* List) {
    if (List == nullptr) return;
    const TCustomMarketAdapter& market = Market();
    for (Integer index = 0; index < market.GetExchangeCount(); ++index) {
        const String& code = market.GetExchangeCode(index);
        if (!code.empty()) List->Add(code);
    }
}

void TCustomUnderlyerPriceDataControl::GetSeriesList(TList<String>* List) {
    if (List == nullptr || FExchange.empty()) return;
    const TCustomMarketAdapter& market = Market();
    for (Integer index = 0; index < market.GetSeriesCount(FExchange); ++index) {
        const String& code = market.GetSeriesCode(FExchange, index);
        if (!code.empty()) List->Add(code);
    }
    TCustomSeriesComparer::GetInstance()->SortSeries(FExchange, *List);
}

void TCustomUnderlyerPriceDataControl::GetMonthList(TList<String>* List) {
    if (List == nullptr || FSeries.empty()) return;
    const TCustomMarketAdapter& market = Market();
    const Integer count = market.GetMarketDataCount(FExchange, FSeries);
    for (Integer index = 0; index < count; ++index) {
        const TCustomMarketData* data = market.GetMarketDataAt(FExchange, FSeries, index);
        if (data == nullptr || data->GetProductType() != ProductType::Options) continue;
        const String& month = data->GetExpiryMonth();
        if (!month.empty() && !List->Contains(month)) List->Add(month);
    }
}

} // namespace quorin
