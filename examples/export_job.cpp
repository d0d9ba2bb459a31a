// A job without a user: loads a market, lets it settle, and saves a sorted view as CSV and XLSX.
//   example-export_job FOLDER
#include "embedded/EmbeddedServices.h"
#include "embedded/SilentHost.h"
#include "embedded/TimeText.h"
#include "embedded/UniverseFile.h"
#include "embedded/venue/Venue.h"
#include "platform/export/Exporters.h"
#include "platform/export/ViewTables.h"
#include "viewdata/frame/BoundGrid.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/ResourceKeys.h"

#include <iostream>
#include <numeric>

using namespace quorin;

namespace {

constexpr TColumnEntry Columns[] = {
    {MarketAttribute::SymbolCode, ResourceKey::Res_Symbol},
    {MarketAttribute::SymbolName, ResourceKey::Res_SymbolName},
    {MarketAttribute::LastPrice},
    {MarketAttribute::Volume},
};

class TReportControl : public TCustomMarketDataControl {
    QUORIN_CLASS(TReportControl, TCustomMarketDataControl)

    using TCustomMarketDataControl::TCustomMarketDataControl;
    const TColumnList* GetColList() override { return FColumns.List(); }

private:
    const TColumnSet FColumns{Columns};
};

void Run(const std::filesystem::path& folder) {
    const std::filesystem::path data = QUORIN_DATA_DIR;
    TSilentHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = data});
    LoadUniverse(data / "universe", services.Market());
    TVenue venue(services.Items(), services.Market(),
                 {.StartNanos = Int64{10 * 3600} * NanosPerSecond});

    auto owned = CreateComponent<TReportControl>();
    TReportControl& control = *owned;
    TBoundGrid grid(std::move(owned));
    grid.View().GetColumn(2)->SetCaption(u"Last");
    grid.View().GetColumn(3)->SetCaption(u"Volume");
    control.SetExchangeAndCategory(u"SEHK", -1);

    // No screen limits what is followed here: a report wants every row.
    std::vector<Integer> all(static_cast<std::size_t>(control.GetCount()));
    std::iota(all.begin(), all.end(), 0);
    control.ViewRecordChanged(all);
    for (int step = 0; step < 400; ++step) {
        venue.Step();
        services.Deliver();
    }

    // What is saved is what the grid shows: its columns, its order, its texts.
    grid.View().GetColumn(0)->SetSortOrder(soDescending);
    TGridExportTable table(grid.Grid(), {});
    WriteCsv(folder / "watch.csv", table);
    WriteXlsx(folder / "watch.xlsx", table);
    std::cout << table.RowCount() << " rows in watch.csv and watch.xlsx\n";
}

} // namespace

int main(int argc, char** argv) {
    try {
        Run(argc > 1 ? argv[1] : ".");
        return 0;
    } catch (const std::exception& error) { // files that cannot be read or written
        std::cerr << error.what() << '\n';
        return 1;
    }
}
