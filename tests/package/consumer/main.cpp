// Uses each library of the package once: a row of a market watch, saved as a file.
#include "embedded/EmbeddedServices.h"
#include "embedded/SilentHost.h"
#include "platform/export/Exporters.h"
#include "platform/export/ViewTables.h"
#include "viewdata/frame/BoundGrid.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"

#include <iostream>

using namespace quorin;

namespace {

constexpr TColumnEntry Columns[] = {{MarketAttribute::SymbolCode}};

class TWatch : public TCustomMarketDataControl {
    QUORIN_CLASS(TWatch, TCustomMarketDataControl)

    using TCustomMarketDataControl::TCustomMarketDataControl;
    const TColumnList* GetColList() override { return FColumns.List(); }

private:
    const TColumnSet FColumns{Columns};
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    TSilentHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = {}, .SettingsPath = {}});
    services.Market().AddExchange({.Code = u"SEHK"});
    services.Market().AddSeries({.Code = u"MAIN", .Exchange = u"SEHK"});
    services.Market().AddSymbol({.Symbol = u"00005", .Exchange = u"SEHK", .Series = u"MAIN"});
    auto owned = CreateComponent<TWatch>();
    TWatch& watch = *owned;
    TBoundGrid grid(std::move(owned));
    watch.SetExchangeAndCategory(u"SEHK", -1);
    TGridExportTable table(grid.Grid(), {});
    WriteCsv(argv[1], table);
    std::cout << table.RowCount() << " row\n";
}
