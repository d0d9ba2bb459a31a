#include "docs/snippets/Snippet.h"
#include "terminal/forms/MarketWatchForm.h"
#include "terminal/forms/VenueMarket.h"
#include "viewdata/market/MarketAttributes.h"

namespace quorin {

// [host]
class TQuietHost : public THost {
public:
    void ShowMessage(StringView) override {}
    Integer Confirm(StringView, Integer defaultAnswer) override { return defaultAnswer; }
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer, Pointer) override { return false; } // takes none in
};
// [/host]

TEST(Embedded, Start) {
    const std::filesystem::path dataFolder = QUORIN_DATA_DIR;
    // [start]
    TQuietHost host;
    TEmbeddedServices services({.Host = host, .DataDirectory = dataFolder}); // and installed
    TVenueMarketOptions options;
    options.DataFolder = dataFolder;
    options.Seed = 7;
    TVenueMarket venue(services, options); // the shipped symbols and accounts, and who trades them
    for (int step = 0; step < 40; ++step) {
        venue.Step(); // a quarter of a second of market, and its delivery
    }
    // [/start]
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
    EXPECT_NE(form.Text(0, MarketAttribute::LastPrice), NothingToShow);
}

} // namespace quorin
