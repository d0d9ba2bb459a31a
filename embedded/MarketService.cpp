#include "embedded/MarketService.h"

#include "platform/rtl/Text.h"

#include <algorithm>
#include <utility>

namespace quorin {

namespace {

const String NoText;

} // namespace

TEmbeddedMarketAdapter::TEmbeddedMarketAdapter(TEmbeddedSubscribeAdapter& items) : FItems(items) {
    FItems.SetFiller(this);
}

TEmbeddedMarketAdapter::~TEmbeddedMarketAdapter() {
    FItems.SetFiller(nullptr);
}

void TEmbeddedMarketAdapter::AddExchangeListener(const TDataCallbackEvent& Event, TObject* Owner) {
    FExchangeListeners.Add(Owner, Event);
}

void TEmbeddedMarketAdapter::RemoveExchangeListener(TObject* Owner) {
    FExchangeListeners.Remove(Owner);
}

void TEmbeddedMarketAdapter::AddFavoriteListener(const TDataCallbackEvent& Event, TObject* Owner) {
    FFavoriteListeners.Add(Owner, Event);
}

void TEmbeddedMarketAdapter::RemoveFavoriteListener(TObject* Owner) {
    FFavoriteListeners.Remove(Owner);
}

void TEmbeddedMarketAdapter::AddSpreadListener(const TDataCallbackEvent& Event, TObject* Owner) {
    FSpreadListeners.Add(Owner, Event);
}

void TEmbeddedMarketAdapter::RemoveSpreadListener(TObject* Owner) {
    FSpreadListeners.Remove(Owner);
}

Integer TEmbeddedMarketAdapter::GetMarketStatus(StringView Exchange) const {
    const TMarketExchange* exchange = FUniverse.FindExchange(Exchange);
    return exchange != nullptr ? exchange->MarketStatus : 0;
}

Integer TEmbeddedMarketAdapter::GetExchangeCount() const {
    return FUniverse.Exchanges().Count();
}

const String& TEmbeddedMarketAdapter::GetExchangeCode(Integer Index) const {
    const auto& exchanges = FUniverse.Exchanges();
    return exchanges.Has(Index) ? exchanges[Index]->Code : NoText;
}

Integer TEmbeddedMarketAdapter::GetSeriesCount(StringView Exchange) const {
    const TMarketExchange* exchange = FUniverse.FindExchange(Exchange);
    return exchange != nullptr ? exchange->Series.Count() : 0;
}

const String& TEmbeddedMarketAdapter::GetSeriesCode(StringView Exchange, Integer Index) const {
    const TMarketExchange* exchange = FUniverse.FindExchange(Exchange);
    const bool isThere = exchange != nullptr && exchange->Series.Has(Index);
    return isThere ? exchange->Series[Index]->Code() : NoText;
}

const String& TEmbeddedMarketAdapter::GetFavoriteSymbol(Integer Index) const {
    return FFavorites.Has(Index) ? FFavorites[Index] : NoText;
}

Boolean TEmbeddedMarketAdapter::AddFavorite(StringView Symbol) {
    if (Symbol.empty() || !FIsFavorite.Add(Symbol, true)) return false;
    FFavorites.Add(String(Symbol));
    FFavoritesChanged = true;
    return true;
}

Boolean TEmbeddedMarketAdapter::RemoveFavorite(StringView Symbol) {
    return DropFavorite(Symbol);
}

void TEmbeddedMarketAdapter::RemoveFavorites(std::span<const String> Symbols, Integer High) {
    const Integer end = std::min(static_cast<Integer>(Symbols.size()) - 1, High);
    for (Integer index = 0; index <= end; ++index) {
        DropFavorite(Symbols[static_cast<std::size_t>(index)]);
    }
}

bool TEmbeddedMarketAdapter::DropFavorite(StringView symbol) {
    const Integer index = FFavorites.IndexOf(symbol);
    if (index < 0) return false;
    FIsFavorite.Remove(symbol);
    FFavorites.Delete(index);
    FFavoritesChanged = true;
    return true;
}

String TEmbeddedMarketAdapter::GetSymbolName(StringView Symbol, TAppLanguage Language) const {
    const TEmbeddedMarketData* record = FUniverse.FindSymbol(Symbol);
    if (record == nullptr) return {};
    if (Language == TAppLanguage::None) {
        const TCustomLanguageManager* manager = TCustomLanguageManager::GetInstance();
        Language = manager != nullptr ? manager->GetCurrentLanguage() : TAppLanguage::English;
    }
    return record->Name(static_cast<Integer>(Language));
}

Integer TEmbeddedMarketAdapter::GetMarketDataCount(StringView Exchange, StringView Series) const {
    const auto* records = FUniverse.FindRecords(Exchange, Series);
    return records != nullptr ? records->Count() : 0;
}

TCustomMarketData* TEmbeddedMarketAdapter::GetMarketDataAt(StringView Exchange, StringView Series,
                                                           Integer Index) const {
    const auto* records = FUniverse.FindRecords(Exchange, Series);
    return records != nullptr && records->Has(Index) ? (*records)[Index] : nullptr;
}

TCustomSeriesData* TEmbeddedMarketAdapter::FindSeries(StringView Code) const {
    return FUniverse.FindSeries(Code);
}

TCustomCategoryData* TEmbeddedMarketAdapter::FindCategory(Integer CategoryID) const {
    return FUniverse.FindCategory(CategoryID);
}

TCustomMarketData* TEmbeddedMarketAdapter::FindMarketData(StringView Symbol) const {
    return FUniverse.FindSymbol(Symbol);
}

TCustomMarketData* TEmbeddedMarketAdapter::GetFavoriteMarketData(Integer Index) const {
    return FFavorites.Has(Index) ? FUniverse.FindSymbol(FFavorites[Index]) : nullptr;
}

Boolean TEmbeddedMarketAdapter::IsFavorite(StringView Symbol) const {
    return FIsFavorite.ContainsKey(Symbol);
}

bool TEmbeddedMarketAdapter::AddExchange(const TExchangeRecord& record) {
    if (!FUniverse.AddExchange(record)) return false;
    FExchangesChanged = true;
    return true;
}

bool TEmbeddedMarketAdapter::AddCategory(const TCategoryRecord& record) {
    return FUniverse.AddCategory(record);
}

bool TEmbeddedMarketAdapter::AddSeries(const TSeriesRecord& record) {
    if (!FUniverse.AddSeries(record)) return false;
    FExchangesChanged = true;
    return true;
}

const TEmbeddedMarketData* TEmbeddedMarketAdapter::AddSymbol(const TSymbolRecord& record) {
    const TEmbeddedMarketData* added = FUniverse.AddSymbol(record);
    if (added == nullptr) return nullptr;
    FExchangesChanged = true;
    if (TEmbeddedSubItem* item = FItems.FindItem(record.Symbol)) Bind(*item, *added);
    return added;
}

void TEmbeddedMarketAdapter::BindItems() {
    FExchangesChanged = true;
    FItems.EachItem([&](TEmbeddedSubItem& item) {
        if (item.Record() != nullptr) return;
        const TEmbeddedMarketData* record = FUniverse.FindSymbol(item.GetKey());
        if (record != nullptr) Bind(item, *record);
    });
}

void TEmbeddedMarketAdapter::Bind(TEmbeddedSubItem& item, const TEmbeddedMarketData& record) {
    item.SetRecord(&record);
    if (item.GetStatus() == ItemStatus::NoData) item.AwaitData();
    if (item.GetStatus() == ItemStatus::Ready) FItems.Touch(item);
}

void TEmbeddedMarketAdapter::SetMarketDataReady(bool isReady) {
    if (FIsReady == isReady) return;
    FIsReady = isReady;
    FExchangesChanged = true;
}

bool TEmbeddedMarketAdapter::SetMarketState(StringView exchange, StringView stateKey,
                                            Integer marketStatus) {
    TMarketExchange* known = FUniverse.FindExchange(exchange);
    if (known == nullptr) return false;
    known->MarketState = stateKey;
    known->MarketStatus = marketStatus;
    FExchangesChanged = true;
    FItems.EachItem([&](TEmbeddedSubItem& item) {
        const TEmbeddedMarketData* record = item.Record();
        if (record == nullptr || record->GetExchange() != known->Code) return;
        item.TakeRecordField(Field::MarketState);
        if (item.GetStatus() == ItemStatus::Ready) FItems.Touch(item);
    });
    return true;
}

void TEmbeddedMarketAdapter::Made(TEmbeddedSubItem& item) {
    item.SetRecord(FUniverse.FindSymbol(item.GetKey()));
}

bool TEmbeddedMarketAdapter::AddSpreadTable(StringView code, std::span<const TSpreadBand> bands) {
    TSpreadEntry* const* known = FSpreads.Find(code);
    const bool wasAskedFor = known != nullptr && *known == nullptr;
    if (code.empty() || (known != nullptr && !wasAskedFor)) return false;
    TEmbeddedSpreadTable trial;
    if (!trial.Load(bands)) return false;
    TSpreadEntry& entry = FSpreadStore.emplace_back();
    entry.Bands.assign(bands.begin(), bands.end());
    entry.Code = &FSpreadCodes.emplace_back(code);
    FSpreads.AddOrSetValue(code, &entry);
    if (wasAskedFor) Fetch(entry);
    return true;
}

bool TEmbeddedMarketAdapter::HasSpreadTable(StringView code) const {
    TSpreadEntry* const* known = FSpreads.Find(code);
    return known != nullptr && *known != nullptr;
}

TCustomSpreadTable* TEmbeddedMarketAdapter::FindSpreadTable(StringView SpreadCode) {
    if (SpreadCode.empty()) return nullptr;
    TSpreadEntry* entry = FLastSpread;
    if (entry == nullptr || !SameUnits(*entry->Code, SpreadCode)) {
        entry = FSpreads.Obtain(SpreadCode);
        if (entry == nullptr) return nullptr;
        FLastSpread = entry;
    }
    if (entry->Table.GetStatus() != SpreadTableLoaded) {
        if (FSpreadTablesAtOnce) {
            entry->Table.Load(entry->Bands);
        } else {
            Fetch(*entry);
        }
    }
    return &entry->Table;
}

std::span<const TSpreadBand> TEmbeddedMarketAdapter::SpreadBands(StringView code) const {
    TSpreadEntry* const* known = FSpreads.Find(code);
    if (known == nullptr || *known == nullptr) return {};
    return (*known)->Bands;
}

void TEmbeddedMarketAdapter::Fetch(TSpreadEntry& entry) {
    if (entry.IsAwaited) return;
    entry.IsAwaited = true;
    FArriving.Add(&entry);
}

void TEmbeddedMarketAdapter::Deliver() {
    const TDeliverySerial serial = FDeliveries.Begin();
    if (std::exchange(FExchangesChanged, false))
        FExchangeListeners.Deliver(serial, nullptr, nullptr);
    if (std::exchange(FFavoritesChanged, false))
        FFavoriteListeners.Deliver(serial, nullptr, nullptr);
    if (!FArriving.IsEmpty()) DeliverSpreadTables(serial);
}

void TEmbeddedMarketAdapter::DeliverSpreadTables(TDeliverySerial serial) {
    const TList<TSpreadEntry*> arriving = std::exchange(FArriving, {});
    TSpreadDictionary tables;
    for (TSpreadEntry* entry : arriving) {
        entry->IsAwaited = false;
        entry->Table.Load(entry->Bands);
        tables.Add(*entry->Code, &entry->Table);
    }
    FSpreadListeners.Deliver(serial, &tables, nullptr);
}

Integer TEmbeddedMarketAdapter::RegistrationCount() const {
    return FExchangeListeners.Count() + FFavoriteListeners.Count() + FSpreadListeners.Count();
}

} // namespace quorin
