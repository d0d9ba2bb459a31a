#include "embedded/MarketUniverse.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/FieldNumbers.h"

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

} // namespace

TEmbeddedCategoryData::TEmbeddedCategoryData(const TCategoryRecord& record)
    : FCategoryID(record.CategoryID) {
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

bool TEmbeddedMarketData::TryFieldFigure(Integer fieldNo, Double& figure) const {
    switch (fieldNo) {
    case Field::ProductType: figure = FProductType; return true;
    case Field::LotSize: figure = FLotSize; return true;
    case Field::PreviousClose: figure = FPreviousClose; return true;
    case Field::ContractSize: figure = FContractSize; return true;
    default: return false;
    }
}

const String* TEmbeddedMarketData::FieldText(Integer fieldNo) const {
    switch (fieldNo) {
    case Field::Exchange: return &FExchange->Code;
    case Field::Currency: return FCurrency;
    case Field::Underlyer: return FUnderlyer;
    case Field::StrikePrice: return FStrikePrice;
    case Field::CallPut: return FCallPut;
    case Field::Expiry: return FExpiryMonth;
    case Field::SpreadCode: return FSpreadCode;
    case Field::LastTradingDay: return FLastTradingDay;
    case Field::Series: return &FSeries->Code();
    case Field::MarketState: return &FExchange->MarketState;
    case Field::TickSize: return FTickSize;
    case Field::SettlementDay: return FSettlementDay;
    case Field::DisplayRatio: return FDisplayRatio;
    case Field::FractionalQuantity: return FFractionalQuantity;
    default: return nullptr;
    }
}

Double TEmbeddedMarketData::FieldNumber(Integer fieldNo) const {
    if (fieldNo == Field::StrikePrice) return FStrike; // sorted and shown by the row
    Double figure = 0.0;
    if (TryFieldFigure(fieldNo, figure)) return figure;
    const String* text = FieldText(fieldNo);
    return text != nullptr ? ToDoubleOr(*text, 0.0) : 0.0;
}

void TEmbeddedMarketData::ReadField(Integer fieldNo, String& text) const {
    text.clear();
    Double figure = 0.0;
    if (const String* known = FieldText(fieldNo)) {
        text = *known;
    } else if (HasField(fieldNo) && TryFieldFigure(fieldNo, figure)) {
        AppendDouble(text, figure);
    }
}

bool TEmbeddedMarketData::HasField(Integer fieldNo) const {
    Double figure = 0.0;
    if (TryFieldFigure(fieldNo, figure)) {
        return figure != 0.0 || fieldNo == Field::ProductType; // exactly 0.0 is "not known"
    }
    const String* text = FieldText(fieldNo);
    return text != nullptr && !text->empty();
}

bool TMarketUniverse::AddExchange(const TExchangeRecord& record) {
    if (record.Code.empty() || FByExchange.ContainsKey(record.Code)) return false;
    TMarketExchange& exchange = FExchangeStore.emplace_back();
    exchange.Code = record.Code;
    exchange.Currency = record.Currency;
    exchange.MarketState = record.MarketState;
    exchange.MarketStatus = record.MarketStatus;
    exchange.IsSided = record.IsSided;
    FExchanges.Add(&exchange);
    return FByExchange.Add(record.Code, &exchange);
}

bool TMarketUniverse::AddCategory(const TCategoryRecord& record) {
    if (FByCategory.ContainsKey(record.CategoryID)) return false;
    return FByCategory.Add(record.CategoryID, &FCategoryStore.emplace_back(record));
}

bool TMarketUniverse::AddSeries(const TSeriesRecord& record) {
    TMarketExchange* exchange = FindExchange(record.Exchange);
    if (exchange == nullptr || record.Code.empty()) return false;
    TEmbeddedSeriesData* last = FindSeries(record.Code);
    if (last != nullptr &&
        (last->FCategoryID != record.CategoryID || FindSeries(*exchange, record.Code) != nullptr)) {
        return false;
    }
    while (last != nullptr && last->FNextOfCode != nullptr) last = last->FNextOfCode;
    TEmbeddedSeriesData& series = FSeriesStore.emplace_back(record, *exchange);
    exchange->Series.Add(&series);
    if (last == nullptr) return FBySeries.Add(record.Code, &series);
    last->FNextOfCode = &series;
    return true;
}

const TEmbeddedMarketData* TMarketUniverse::AddSymbol(const TSymbolRecord& record) {
    TMarketExchange* exchange = FindExchange(record.Exchange);
    TEmbeddedSeriesData* series =
        exchange != nullptr ? FindSeries(*exchange, record.Series) : nullptr;
    if (series == nullptr || record.Symbol.empty() || FBySymbol.ContainsKey(record.Symbol)) {
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
    symbol.FStrike = ToDoubleOr(record.StrikePrice, 0.0);
    symbol.FProductType = record.ProductType;
    exchange->Records.Add(&symbol);
    series->FRecords.Add(&symbol);
    FBySymbol.Add(record.Symbol, &symbol);
    return &symbol;
}

TMarketUniverse::TMark TMarketUniverse::Mark() const {
    return {FExchangeStore.size(), FCategoryStore.size(), FSeriesStore.size(), FSymbolStore.size()};
}

// Texts stay: the next symbols may share them.
void TMarketUniverse::BackTo(const TMark& mark) {
    ForgetLookUps();
    while (FSymbolStore.size() > mark.Symbols) DropLastSymbol();
    while (FSeriesStore.size() > mark.Series) DropLastSeries();
    while (FCategoryStore.size() > mark.Categories) {
        FByCategory.Remove(FCategoryStore.back().CategoryID());
        FCategoryStore.pop_back();
    }
    while (FExchangeStore.size() > mark.Exchanges) {
        FByExchange.Remove(FExchangeStore.back().Code);
        FExchanges.Delete(FExchanges.Count() - 1);
        FExchangeStore.pop_back();
    }
    ForgetLookUps();
}

void TMarketUniverse::DropLastSymbol() {
    const TEmbeddedMarketData& symbol = FSymbolStore.back();
    auto& ofExchange = FindExchange(symbol.GetExchange())->Records;
    ofExchange.Delete(ofExchange.Count() - 1);
    auto& ofSeries = FindSeries(*symbol.FExchange, symbol.GetSeries())->FRecords;
    ofSeries.Delete(ofSeries.Count() - 1);
    FBySymbol.Remove(symbol.GetSymbol());
    FSymbolStore.pop_back();
}

void TMarketUniverse::DropLastSeries() {
    TEmbeddedSeriesData& series = FSeriesStore.back();
    auto& ofExchange = FindExchange(series.Exchange().Code)->Series;
    ofExchange.Delete(ofExchange.Count() - 1);
    TEmbeddedSeriesData* previous = FindSeries(series.Code());
    if (previous == &series) {
        FBySeries.Remove(series.Code());
    } else {
        while (previous->FNextOfCode != &series) previous = previous->FNextOfCode;
        previous->FNextOfCode = nullptr;
    }
    FLastSeries = nullptr;
    FSeriesStore.pop_back();
}

void TMarketUniverse::ForgetLookUps() {
    FLastExchange = nullptr;
    FLastSeries = nullptr;
    FLastSymbol = nullptr;
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

TEmbeddedSeriesData* TMarketUniverse::FindSeries(const TMarketExchange& exchange,
                                                 StringView code) const {
    TEmbeddedSeriesData* series = FindSeries(code);
    while (series != nullptr && &series->Exchange() != &exchange) series = series->FNextOfCode;
    return series;
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
    const TEmbeddedSeriesData* found = FindSeries(*known, series);
    return found != nullptr ? &found->Records() : nullptr;
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
