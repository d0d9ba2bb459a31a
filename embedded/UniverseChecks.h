#pragma once

#include "embedded/DataTable.h"
#include "embedded/MarketService.h"

#include <deque>

namespace quorin {

// What the readers of universe files have in common. What they read is checked row by row and kept
// back until the last row.

// Tick tables that were read and are not in the adapter yet.
class TReadTickTables {
public:
    struct TTable {
        String Code;
        std::vector<TSpreadBand> Bands;
    };

    explicit TReadTickTables(const TEmbeddedMarketAdapter& market) : FMarket(market) {}

    // Nil for a table that was not read here; also for one that the adapter has.
    TTable* Find(StringView code);
    bool IsKnown(StringView code) const;
    // `code` must not be known.
    TTable& Add(StringView code);
    void AddTo(TEmbeddedMarketAdapter& market) const;

private:
    const TEmbeddedMarketAdapter& FMarket;
    std::deque<TTable> FTables;
    TDictionary<String, TTable*> FByCode;
};

// Underlyers may be listed later than what depends on them.
class TAwaitedUnderlyers {
public:
    void Await(const TDataTable& file, StringView underlyer);
    // Raises EDataError for the first one that is not there.
    void Check(const TMarketUniverse& universe) const;

private:
    struct TPlace {
        std::string File;
        Int64 Line;
    };
    TDictionary<String, TPlace> FFirst; // where each underlyer is first named
};

struct TSymbolKeyColumns {
    TDataTable::TColumn Code, Exchange, Series;
};

// Fails for an exchange or series that is not there and for a symbol that is.
void AddChecked(const TDataTable& file, const TSymbolKeyColumns& columns,
                const TSymbolRecord& record, TMarketUniverse& universe);

// The text of a column that must be a number or empty.
StringView NumericText(const TDataTable& file, TDataTable::TColumn column);
// "C", "P" or empty.
StringView CallPutText(const TDataTable& file, TDataTable::TColumn column);

} // namespace quorin
