#include "platform/widgets/GridTableView.h"
#include "tests/viewdata/MarketFixture.h"
#include "viewdata/frame/GridDataSource.h"
#include "viewdata/market/MarketAttributes.h"

#include <gtest/gtest.h>

namespace quorin {
namespace {

// A grid that reads anew only what a signal names. It is sorted, so that a row left out would stand
// in the wrong place.
struct TRowNamingTest : TMarketTest {
    TRowNamingTest() {
        for (const StringView symbol : {u"00005", u"00700", u"HSIF"}) {
            Services().Market().AddFavorite(symbol);
        }
        Services().Deliver();
        Watch.SetAccount(u"A1");
        Watch.SetShowPosition(true);
        Watch.SetExchangeAndCategory(FavoriteExchange, -1);
        View.SetCustomDataSource(&Source);
    }
    ~TRowNamingTest() override { View.SetCustomDataSource(nullptr); }

    void SortBy(Integer attribute) { View.AddColumn(attribute).SetSortOrder(soDescending); }
    String Order() {
        String text;
        for (Integer row = 0; row < View.RowCount(); ++row) {
            text += (row > 0 ? u" " : u"") + Watch.GetSymbol(View.RecordIndex(row));
        }
        return text;
    }
    void Hold(StringView account, StringView symbol, Double quantity) {
        Services().Positions().FeedPosition(account, symbol, {.Quantity = quantity});
        Services().Deliver();
    }

    TCustomGridDataSource Source{TComponentClass::Of<TCustomMarketDataControl>()};
    TCustomMarketDataControl& Watch = *static_cast<TCustomMarketDataControl*>(Source.DataControl());
    TcxGridTableView View;
};

TEST_F(TRowNamingTest, PositionsMoveTheirRows) {
    SortBy(MarketAttribute::LongPosition);
    EXPECT_EQ(Order(), u"00005 00700 HSIF");
    Hold(u"A1", u"HSIF", 2.0);
    EXPECT_EQ(Order(), u"HSIF 00005 00700");
    Hold(u"A1", u"00700", 400.0);
    EXPECT_EQ(Order(), u"00700 HSIF 00005");
    Hold(u"A1", u"Z12", 900.0); // no row of the watch
    Hold(u"A2", u"00005", 900.0);
    EXPECT_EQ(Order(), u"00700 HSIF 00005");
    Hold(u"A1", u"00700", 0.0);
    EXPECT_EQ(Order(), u"HSIF 00005 00700");
}

TEST_F(TRowNamingTest, PricesMoveFollowedRows) {
    SortBy(MarketAttribute::LastPrice);
    Order();
    Watch.ViewRecordChanged(std::vector<Integer>{0, 1, 2});
    Tick({u"HSIF"}, 3.0);
    EXPECT_EQ(Order(), u"HSIF 00005 00700");
    Tick({u"00700", u"00005"}, 4.0);
    EXPECT_EQ(Order(), u"00005 00700 HSIF");
    Watch.MoveRecord(0, 2);
    Tick({u"00005"}, 5.0);
    EXPECT_EQ(Order(), u"00005 00700 HSIF");
    Tick({u"HSIF"}, 6.0);
    EXPECT_EQ(Order(), u"HSIF 00005 00700");
}

} // namespace
} // namespace quorin
