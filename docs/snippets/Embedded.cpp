#include "docs/snippets/Snippet.h"
#include "embedded/SilentHost.h"
#include "embedded/TimeText.h"
#include "terminal/forms/MarketWatchForm.h"
#include "terminal/forms/VenueMarket.h"
#include "viewdata/market/MarketAttributes.h"

namespace quorin {

TEST(Embedded, Start) {
    const std::filesystem::path dataFolder = QUORIN_DATA_DIR;
    // [start]
    TSilentHost host; // nobody to ask; a program with a user has a host of its own
    TEmbeddedServices services({.Host = host, .DataDirectory = dataFolder}); // and installed
    LoadUniverse(dataFolder / "universe", services.Market());                // the shipped symbols
    services.LoadAccounts(dataFolder / "accounts");                          // and accounts
    TVenue venue(services.Items(), services.Market(),
                 {.Seed = 7, .StartNanos = 36'000 * NanosPerSecond}); // at ten, exchanges are open

    TCustomSubscribeAdapter& items = *TCustomSubscribeAdapter::GetInstance();
    items.GetSubItem(u"00005", LiveDataType, /*Flag=*/true); // the venue writes what is asked for
    for (int step = 0; step < 40; ++step) {
        venue.Step(); // a quarter of a second of market
        services.Deliver();
    }
    // [/start]
    EXPECT_EQ(items.GetSubItem(u"00005", LiveDataType, false)->GetStatus(), ItemStatus::Ready);
    EXPECT_GT(services.Accounts().GetAccountCount(), 1);
}

TEST(Embedded, Form) {
    TSilentHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = QUORIN_DATA_DIR});
    TVenueMarketOptions options;
    options.DataFolder = QUORIN_DATA_DIR;
    TVenueMarket venue(services, options);
    // [form]
    TMarketWatchForm form;
    form.ShowMarket(u"SEHK");
    form.View().SetVisibleRowCapacity(20); // the skin knows how many rows fit
    form.FollowVisibleRows();              // before each paint
    venue.Step();
    if (form.TakeRepaint()) {
        // draw: form.RowCount(), form.CellText(row, column), form.Mark(row, attribute)
    }
    form.NoteShown(); // actions go by what was drawn
    const Integer record = form.ActionRecord(0);
    // [/form]
    EXPECT_GE(record, 0);
    EXPECT_GT(form.RowCount(), 10);
    EXPECT_NE(form.Text(0, MarketAttribute::BestBid), NothingToShow);
}

} // namespace quorin
