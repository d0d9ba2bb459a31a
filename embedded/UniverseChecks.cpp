#include "embedded/UniverseChecks.h"

#include "embedded/DataError.h"
#include "platform/rtl/Utf.h"

namespace quorin {

TReadTickTables::TTable* TReadTickTables::Find(StringView code) {
    TTable* const* found = FByCode.Find(code);
    return found != nullptr ? *found : nullptr;
}

bool TReadTickTables::IsKnown(StringView code) const {
    return FByCode.ContainsKey(code) || FMarket.HasSpreadTable(code);
}

TReadTickTables::TTable& TReadTickTables::Add(StringView code) {
    TTable& table = FTables.emplace_back(TTable{String(code), {}});
    FByCode.Add(code, &table);
    return table;
}

void TReadTickTables::AddTo(TEmbeddedMarketAdapter& market) const {
    for (const TTable& table : FTables) market.AddSpreadTable(table.Code, table.Bands);
}

void TAwaitedUnderlyers::Await(const TDataTable& file, StringView underlyer) {
    if (!underlyer.empty() && !FFirst.ContainsKey(underlyer)) {
        FFirst.Add(underlyer, {file.File(), file.Line()});
    }
}

void TAwaitedUnderlyers::Check(const TMarketUniverse& universe) const {
    for (const auto& entry : FFirst) {
        if (universe.FindSymbol(entry.Key) != nullptr) continue;
        throw EDataError(entry.Value.File, entry.Value.Line,
                         "the underlyer \"" + ToUtf8(entry.Key) + "\" is no symbol");
    }
}

void AddChecked(const TDataTable& file, const TSymbolKeyColumns& columns,
                const TSymbolRecord& record, TMarketUniverse& universe) {
    if (universe.AddSymbol(record) != nullptr) return;
    if (universe.FindSymbol(record.Symbol) != nullptr) file.Fail(columns.Code, "is there already");
    if (universe.FindExchange(record.Exchange) == nullptr) {
        file.Fail(columns.Exchange, "is no exchange");
    }
    file.Fail(columns.Series, "is no series of the exchange");
}

StringView NumericText(const TDataTable& file, TDataTable::TColumn column) {
    file.Number(column);
    return file.Text(column);
}

StringView CallPutText(const TDataTable& file, TDataTable::TColumn column) {
    const StringView text = file.Text(column);
    if (!text.empty() && text != u"C" && text != u"P") file.Fail(column, "is neither C nor P");
    return text;
}

} // namespace quorin
