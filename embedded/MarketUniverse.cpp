#include "embedded/MarketUniverse.h"

#include "embedded/LiveItem.h"

namespace quorin {

namespace {

const String EmptyText;

void TakeNames(String (&target)[3], const TNameTexts& names) {
    target[0] = names.Name;
    target[1] = names.Language1.empty() ? names.Name : names.Language1;
    target[2] = names.Language2.empty() ? names.Name : names.Language2;
}

// The value under the key, by way of what the last look-up found.
template <class T, class CodeOf>
T* FindRemembered(const TDictionary<String, T*>& dictionary, StringView key, T*& last,
                  CodeOf codeOf) {
    if (last != nullptr && codeOf(*last) == key) return last;
    T* const* found = dictionary.Find(key);
    if (found == nullptr) return nullptr;
    last = *found;
    return last;
}

void SetKnown(TEmbeddedSubItem& item, Integer fieldNo, const String& text) {
    if (!text.empty()) item.SetField(fieldNo, StringView(text));
}

void SetKnown(TEmbeddedSubItem& item, Integer fieldNo, Double value) {
    if (value != 0.0) item.SetField(fieldNo, value); // exactly 0.0 stands for "not known"
}

} // namespace

TEmbeddedCategoryData::TEmbeddedCategoryData(const TCategoryRecord& record) {
    TakeNames(FNames, record.Names);
}

TEmbeddedSeriesData::TEmbeddedSeriesData(const TSeriesRecord& record,
                                         const TMarketExchange& exchange)
    : FCode(record.Code), FExchange(exchange), FCategoryID(record.CategoryID) {
    TakeNames(FNames, record.Names);
}

const String& TEmbeddedMarketData::Name(Integer language) const {
    const bool isKnown = language > 0 && language < 3 && !FNames[language]->empty();
    return *FNames[isKnown ? language : 0];
}

void TEmbeddedMarketData::Fill(TEmbeddedSubItem& item) const {
    SetKnown(item, Field::Exchange, FExchange->Code);
    item.SetField(Field::ProductType, static_cast<Double>(FProductType));
    SetKnown(item, Field::Currency, *FCurrency);
    SetKnown(item, Field::LotSize, FLotSize);
    SetKnown(item, Field::Underlyer, *FUnderlyer);
    SetKnown(item, Field::StrikePrice, *FStrikePrice);
    SetKnown(item, Field::CallPut, *FCallPut);
    SetKnown(item, Field::Expiry, *FExpiryMonth);
    SetKnown(item, Field::PreviousClose, FPreviousClose);
    SetKnown(item, Field::SpreadCode, *FSpreadCode);
    SetKnown(item, Field::LastTradingDay, *FLastTradingDay);
    SetKnown(item, Field::Series, FSeries->Code());
    SetKnown(item, Field::MarketState, FExchange->MarketState);
    SetKnown(item, Field::ContractSize, FContractSize);
    SetKnown(item, Field::TickSize, *FTickSize);
    SetKnown(item, Field::SettlementDay, *FSettlementDay);
    SetKnown(item, Field::DisplayRatio, *FDisplayRatio);
    SetKnown(item, Field::FractionalQuantity, *FFractionalQuantity);
}

bool TMarketUniverse::AddExchange(const TExchangeRecord& record) {
    if (record.Code.empty() || FByExchange.ContainsKey(record.Code)) return false;
    TMarketExchange& exchange = FExchangeStore.emplace_back();
    exchange.Code = record.Code;
    exchange.Currency = record.Currency;
    exchange.MarketState = record.MarketState;
    exchange.MarketStatus = record.MarketStatus;
    FExchanges.Add(&exchange);
    return FByExchange.Add(record.Code, &exchange);
}

bool TMarketUniverse::AddCategory(const TCategoryRecord& record) {
    if (FByCategory.ContainsKey(record.CategoryID)) return false;
    return FByCategory.Add(record.CategoryID, &FCategoryStore.emplace_back(record));
}

bool TMarketUniverse::AddSeries(const TSeriesRecord& record) {
    TMarketExchange* exchange = FindExchange(record.Exchange);
    if (exchange == nullptr || record.Code.empty() || FBySeries.ContainsKey(record.Code)) {
        return false;
    }
    TEmbeddedSeriesData& series = FSeriesStore.emplace_back(record, *exchange);
    exchange->Series.Add(&series);
    return FBySeries.Add(record.Code, &series);
}

const TEmbeddedMarketData* TMarketUniverse::AddSymbol(const TSymbolRecord& record) {
    TMarketExchange* exchange = FindExchange(record.Exchange);
    TEmbeddedSeriesData* series = FindSeries(record.Series);
    if (exchange == nullptr || series == nullptr || &series->Exchange() != exchange ||
        record.Symbol.empty() || FBySymbol.ContainsKey(record.Symbol)) {
        return nullptr;
    }
    TEmbeddedMarketData& symbol = FSymbolStore.emplace_back(record.Symbol);
    symbol.FExchange = exchange;
    symbol.FSeries = series;
    symbol.FNames[0] = KeepName(record.Names.Name);
    symbol.FNames[1] = KeepName(record.Names.Language1);
    symbol.FNames[2] = KeepName(record.Names.Language2);
    symbol.FCurrency = record.Currency.empty() ? &exchange->Currency : Share(record.Currency);
    symbol.FSpreadCode = Share(record.SpreadCode);
    symbol.FUnderlyer = Share(record.Underlyer);
    symbol.FExpiryMonth = Share(record.ExpiryMonth);
    symbol.FStrikePrice = Share(record.StrikePrice);
    symbol.FCallPut = Share(record.CallPut);
    symbol.FLastTradingDay = Share(record.LastTradingDay);
    symbol.FSettlementDay = Share(record.SettlementDay);
    symbol.FTickSize = Share(record.TickSize);
    symbol.FDisplayRatio = Share(record.DisplayRatio);
    symbol.FFractionalQuantity = Share(record.FractionalQuantity);
    symbol.FLotSize = record.LotSize;
    symbol.FContractSize = record.ContractSize;
    symbol.FPreviousClose = record.PreviousClose;
    symbol.FProductType = record.ProductType;
    exchange->Records.Add(&symbol);
    series->FRecords.Add(&symbol);
    FBySymbol.Add(record.Symbol, &symbol);
    return &symbol;
}

const TMarketExchange* TMarketUniverse::FindExchange(StringView code) const {
    return FindRemembered(FByExchange, code, FLastExchange, [](const TMarketExchange& exchange) {
        return StringView(exchange.Code);
    });
}

TMarketExchange* TMarketUniverse::FindExchange(StringView code) {
    return const_cast<TMarketExchange*>(std::as_const(*this).FindExchange(code));
}

TEmbeddedCategoryData* TMarketUniverse::FindCategory(Integer categoryID) const {
    TEmbeddedCategoryData* const* found = FByCategory.Find(categoryID);
    return found != nullptr ? *found : nullptr;
}

TEmbeddedSeriesData* TMarketUniverse::FindSeries(StringView code) const {
    return FindRemembered(FBySeries, code, FLastSeries, [](const TEmbeddedSeriesData& series) {
        return StringView(series.Code());
    });
}

TEmbeddedMarketData* TMarketUniverse::FindSymbol(StringView symbol) const {
    return FindRemembered(FBySymbol, symbol, FLastSymbol, [](const TEmbeddedMarketData& record) {
        return StringView(record.GetSymbol());
    });
}

const TList<TEmbeddedMarketData*>* TMarketUniverse::FindRecords(StringView exchange,
                                                                StringView series) const {
    const TMarketExchange* known = FindExchange(exchange);
    if (known == nullptr) return nullptr;
    if (series.empty()) return &known->Records;
    const TEmbeddedSeriesData* found = FindSeries(series);
    return found != nullptr && &found->Exchange() == known ? &found->Records() : nullptr;
}

const String* TMarketUniverse::Share(StringView text) {
    if (text.empty()) return &EmptyText;
    const String*& shared = FShared.Obtain(text);
    if (shared == nullptr) shared = &FTexts.emplace_back(text);
    return shared;
}

const String* TMarketUniverse::KeepName(StringView name) {
    return name.empty() ? &EmptyText : &FTexts.emplace_back(name);
}

} // namespace quorin
