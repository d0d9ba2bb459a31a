// A market watch in forty lines of code: five rows of a simulated exchange, as they move.
#include "embedded/EmbeddedServices.h"
#include "embedded/SilentHost.h"
#include "embedded/TimeText.h"
#include "embedded/UniverseFile.h"
#include "embedded/venue/Venue.h"
#include "platform/rtl/Utf.h"
#include "viewdata/frame/BoundGrid.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"

#include <iostream>

using namespace quorin;
using namespace quorin::MarketAttribute;

// Which columns there are is the program's choice.
constexpr TColumnEntry Columns[] = {{SymbolCode}, {SymbolName}, {BestBid},
                                    {BestAsk},    {LastPrice},  {Change}};
struct TWatch : TCustomMarketDataControl {
    using TCustomMarketDataControl::TCustomMarketDataControl;
    const TColumnList* GetColList() override { return FColumns.List(); }
    const TColumnSet FColumns{Columns};
};

int main() {
    TSilentHost host; // there is nobody to ask
    TEmbeddedServices services({.Host = host, .DataDirectory = QUORIN_DATA_DIR});
    LoadUniverse(QUORIN_DATA_DIR "/universe", services.Market());
    TVenue venue(services.Items(), services.Market(), {.StartNanos = 36'000 * NanosPerSecond});

    auto owned = CreateComponent<TWatch>();
    TWatch& watch = *owned;
    TBoundGrid grid(std::move(owned)); // made after the services, so gone before them
    watch.SetExchangeAndCategory(u"SEHK", -1);
    grid.View().SetVisibleRowCapacity(5);
    for (int frame = 0; frame < 40; ++frame) {
        watch.ViewRecordChanged(grid.VisibleRecords()); // rows off screen cost nothing
        venue.Step();
        services.Deliver();
        for (Integer row = 0; row < grid.View().VisibleRowCount(); ++row) {
            std::cout << ToUtf8(grid.RowLine(row, 18)) << '\n';
        }
        std::cout << '\n';
    }
}
